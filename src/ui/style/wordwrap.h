// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace quorvale {

/// Breaks lines between words. Qt also breaks them before dashes and within "H.264", and the
/// joiners that Unicode has against that come from another, higher font where the text's own lacks
/// them. Main thread.
class WordWrap : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// `text`, written from left to right, with a line feed for each space where a line that is
    /// `width` logical pixels wide has to end. A word that is wider has a line of its own. As it is
    /// where there is no width yet.
    Q_INVOKABLE static QString broken(QString text, const QFont &font, double width);
};

} // namespace quorvale
