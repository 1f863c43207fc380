// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QObject>
#include <QtQmlIntegration>

namespace quorvale {

/// The fonts of the window's texts, but for those that are all equally wide: each as much larger or
/// smaller than the base as it is at the default size, where the base is 13 pixels high. None is
/// smaller than 11 pixels, headings of groups than 10. In C++ so that they can be looked up before
/// the QML is read. Main thread.
class TextStyles : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// The font of ordinary texts.
    Q_PROPERTY(QFont base MEMBER body WRITE setBase NOTIFY changed)
    /// How much larger than the default the base is.
    Q_PROPERTY(double scale MEMBER scale NOTIFY changed)
    Q_PROPERTY(QFont title2Bold MEMBER title2Bold NOTIFY changed)
    Q_PROPERTY(QFont title3Bold MEMBER title3Bold NOTIFY changed)
    Q_PROPERTY(QFont body MEMBER body NOTIFY changed)
    Q_PROPERTY(QFont bodyMedium MEMBER bodyMedium NOTIFY changed)
    Q_PROPERTY(QFont bodySemibold MEMBER bodySemibold NOTIFY changed)
    Q_PROPERTY(QFont subheadline MEMBER subheadline NOTIFY changed)
    Q_PROPERTY(QFont subheadlineSemibold MEMBER subheadlineSemibold NOTIFY changed)
    Q_PROPERTY(QFont caption MEMBER caption NOTIFY changed)
    Q_PROPERTY(QFont caption2 MEMBER caption NOTIFY changed)
    Q_PROPERTY(QFont sectionLabel MEMBER sectionLabel NOTIFY changed)

public:
    /// With the base that the desktop gives.
    explicit TextStyles(QObject *parent = nullptr);

    void setBase(const QFont &base);

    /// Has Qt find and open all of them, which it does at a font's first use otherwise. What other
    /// threads ask of this one meanwhile is done in between.
    static void lookUp();

    QFont title2Bold, title3Bold, body, bodyMedium, bodySemibold, subheadline, subheadlineSemibold,
        caption, sectionLabel;
    double scale = 1;

Q_SIGNALS:
    void changed();

private:
    void derive(const QFont &base);
};

} // namespace quorvale
