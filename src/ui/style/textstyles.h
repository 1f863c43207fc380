// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QObject>
#include <QtQmlIntegration>

namespace quorvale {

/// The fonts of the window's texts, but for those that are all equally wide. In C++ so that they
/// can be looked up before the QML is read. Main thread.
class TextStyles : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QFont title2Bold MEMBER title2Bold CONSTANT)
    Q_PROPERTY(QFont title3Bold MEMBER title3Bold CONSTANT)
    Q_PROPERTY(QFont body MEMBER body CONSTANT)
    Q_PROPERTY(QFont bodyMedium MEMBER bodyMedium CONSTANT)
    Q_PROPERTY(QFont bodySemibold MEMBER bodySemibold CONSTANT)
    Q_PROPERTY(QFont subheadline MEMBER subheadline CONSTANT)
    Q_PROPERTY(QFont subheadlineSemibold MEMBER subheadlineSemibold CONSTANT)
    Q_PROPERTY(QFont caption MEMBER caption CONSTANT)
    Q_PROPERTY(QFont caption2 MEMBER caption CONSTANT)
    Q_PROPERTY(QFont sectionLabel MEMBER sectionLabel CONSTANT)

public:
    explicit TextStyles(QObject *parent = nullptr);

    /// Has Qt find and open all of them, which it does at a font's first use otherwise. What other
    /// threads ask of this one meanwhile is done in between.
    static void lookUp();

    QFont title2Bold, title3Bold, body, bodyMedium, bodySemibold, subheadline, subheadlineSemibold,
        caption, sectionLabel;
};

} // namespace quorvale
