// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controller/localfile.h"

#include <QList>
#include <QObject>
#include <QUrl>
#include <QtQmlIntegration>

#include <algorithm>

namespace quorvale {

/// Tells the drop targets what they may take.
class LocalFiles : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Whether at least one of `urls` is a file or folder of this machine.
    Q_INVOKABLE static bool areAmong(const QList<QUrl> &urls)
    {
        return std::ranges::any_of(urls,
                                   [](const QUrl &url) { return localFile(url).has_value(); });
    }
};

} // namespace quorvale
