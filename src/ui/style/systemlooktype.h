// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/systemlook.h"

#include <QJSEngine>
#include <QtQml/qqml.h>

// The desktop's look as QML sees it. Declared here so that the desktop knows no QML.

namespace quorvale {

struct SystemLookType
{
    Q_GADGET
    QML_FOREIGN(quorvale::SystemLook)
    QML_NAMED_ELEMENT(SystemLook)
    QML_SINGLETON

public:
    static SystemLook *create(QQmlEngine * /*engine*/, QJSEngine * /*engine*/)
    {
        QJSEngine::setObjectOwnership(&SystemLook::instance(), QJSEngine::CppOwnership);
        return &SystemLook::instance();
    }
};

} // namespace quorvale
