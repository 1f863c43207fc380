// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktopenvironment.h"

using namespace Qt::StringLiterals;

namespace quorvale::test {

QProcessEnvironment environmentWithoutDesktop(const QString &home)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : environment.keys()) {
        for (const auto prefix : {"QT_"_L1, "QML"_L1, "QSG_"_L1, "XDG_"_L1, "DBUS_"_L1, "GTK_"_L1,
                                  "KDE_"_L1, "DESKTOP_"_L1, "WAYLAND_"_L1}) {
            if (name.startsWith(prefix))
                environment.remove(name);
        }
    }
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"SESSION_MANAGER"_s);
    environment.remove(u"XAUTHORITY"_s);
    environment.insert(u"HOME"_s, home);
    environment.insert(u"XDG_RUNTIME_DIR"_s, home);
    return environment;
}

} // namespace quorvale::test
