// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "graphics.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>

#if defined(Q_OS_LINUX) && QT_CONFIG(xcb)
#include <cstdlib>
#include <string_view>

#include <sys/socket.h>
#include <xcb/xcb.h>
#endif

using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

bool mayUse(const QString &device)
{
    const QFileInfo file(device);
    return file.isReadable() && file.isWritable();
}

// Of a virtual machine; it has it or not as its host likes. The device's features are a row of 0
// and 1, that of drawing first.
bool drawsOnHost(const QString &virtualDevice)
{
    QFile features(virtualDevice + u"/features"_s);
    return features.open(QIODevice::ReadOnly) && features.readAll().startsWith('1');
}

// By what the system says about a node of the kernel's that offers drawing.
bool isProcessor(const QString &node)
{
    const QString device = node + u"/device"_s;
    if (QFileInfo(device).canonicalFilePath().endsWith("/vgem"_L1)) // memory that is shared
        return false;
    const QString driver = QFileInfo(QFileInfo(device + u"/driver"_s).symLinkTarget()).fileName();
    return driver != "virtio_gpu"_L1 || drawsOnHost(device);
}

#if defined(Q_OS_LINUX) && QT_CONFIG(xcb)

bool hasExtension(xcb_connection_t *connection, std::string_view name)
{
    const auto question =
        xcb_query_extension(connection, static_cast<uint16_t>(name.size()), name.data());
    auto *reply = xcb_query_extension_reply(connection, question, nullptr);
    const bool isThere = reply && reply->present != 0;
    std::free(reply); // NOLINT(cppcoreguidelines-no-malloc)
    return isThere;
}

// Whether programs draw on the X server's screen by the processor: the server is of this machine
// and shares its memory for pictures, which one that draws by software does not.
bool sharesProcessor(xcb_connection_t *connection)
{
    sockaddr_storage server{};
    socklen_t length = sizeof server;
    const int socket = xcb_get_file_descriptor(connection);
    if (::getpeername(socket, reinterpret_cast<sockaddr *>(&server), &length) != 0
        || server.ss_family != AF_UNIX)
        return false;
    return hasExtension(connection, "DRI3") || hasExtension(connection, "NV-GLX");
}

bool isScreenOfProcessor()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return !x11 || sharesProcessor(x11->connection());
}

#else

bool isScreenOfProcessor()
{
    return true;
}

#endif

// Whether OpenGL, if it is what draws, draws by software because the user says so.
bool isSoftwareWanted()
{
    const QByteArray value = qgetenv("LIBGL_ALWAYS_SOFTWARE").toLower();
    return value == "1" || value == "true";
}

} // namespace

bool hasGraphicsProcessor(const QString &root)
{
#ifdef Q_OS_LINUX
    const QDir devices(root + u"/dev"_s);
    // Those that come with their maker's own driver.
    for (const auto device : {"nvidia0"_L1, "dxg"_L1, "kgsl-3d0"_L1, "mali0"_L1}) {
        if (mayUse(devices.filePath(device)))
            return true;
    }
    const QStringList nodes =
        QDir(devices.filePath(u"dri"_s)).entryList({u"renderD*"_s}, QDir::System | QDir::Files);
    return std::ranges::any_of(nodes, [&](const QString &node) {
        return mayUse(devices.filePath(u"dri/"_s + node))
               && isProcessor(root + u"/sys/class/drm/"_s + node);
    });
#else
    Q_UNUSED(root)
    return true;
#endif
}

void chooseRenderer()
{
    for (const char *variable : {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QMLSCENE_DEVICE"}) {
        if (qEnvironmentVariableIsSet(variable))
            return;
    }
    if (isSoftwareWanted() || !hasGraphicsProcessor() || !isScreenOfProcessor())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace quorvale
