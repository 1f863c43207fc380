// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "applicationservice.h"

#include <array>
#include <climits>
#include <utility>

using namespace std::chrono;
using namespace Qt::StringLiterals;

namespace quorvale {

namespace {

const auto applicationInterface = u"org.freedesktop.Application"_s;

// Until when a call of makeCall() counts, by the clock below.
const auto endOfPatience = u"org.quorvale.Quorvale.end-of-patience"_s;

// By which of the platform data the window comes to the front, and the variables of a start that
// say the same. Whoever gives them out takes far fewer characters.
constexpr std::array keysOfWindow{std::pair("XDG_ACTIVATION_TOKEN", "activation-token"_L1),
                                  std::pair("DESKTOP_STARTUP_ID", "desktop-startup-id"_L1)};
constexpr qsizetype mostCharacters = 1024;

// Of a file: no path that the system opens is longer, with each of its bytes encoded.
constexpr auto mostOfUri = qsizetype(3) * PATH_MAX;

// The same for all processes of the machine.
qlonglong now()
{
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

QVariantMap ApplicationService::platformDataOfStart()
{
    QVariantMap data;
    for (const auto &[variable, key] : keysOfWindow) {
        if (qEnvironmentVariableIsSet(variable))
            data.insert(key, qEnvironmentVariable(variable));
    }
    // It is for this start, and not for what is started from here. The other one goes with Qt,
    // which needs it on X11.
    qunsetenv("XDG_ACTIVATION_TOKEN");
    return data;
}

QDBusMessage ApplicationService::makeCall(const QString &service, const QList<QUrl> &files,
                                          QVariantMap platformData, milliseconds patience)
{
    platformData.insert(endOfPatience, now() + qlonglong(patience.count()));
    auto call =
        QDBusMessage::createMethodCall(service, QLatin1StringView(path), applicationInterface,
                                       files.isEmpty() ? u"Activate"_s : u"Open"_s);
    call.setAutoStartService(false);
    if (!files.isEmpty())
        call << QUrl::toStringList(files, QUrl::FullyEncoded);
    return call << platformData;
}

void ApplicationService::offer(QDBusConnection bus)
{
    bus.registerObject(QLatin1StringView(path), applicationInterface, this,
                       QDBusConnection::ExportScriptableSlots);
}

void ApplicationService::Activate(const QVariantMap &platformData)
{
    take({}, platformData);
}

void ApplicationService::Open(const QStringList &uris, const QVariantMap &platformData)
{
    QList<QUrl> files;
    for (const QString &uri : uris) {
        if (uri.size() <= mostOfUri)
            files << QUrl::fromEncoded(uri.toUtf8());
    }
    take(files, platformData);
}

// The desktop entry names no actions.
void ApplicationService::ActivateAction(const QString & /*action*/,
                                        const QVariantList & /*parameter*/,
                                        const QVariantMap & /*platformData*/)
{
    sendErrorReply(QDBusError::InvalidArgs, u"There are no actions."_s);
}

void ApplicationService::take(const QList<QUrl> &files, const QVariantMap &platformData)
{
    const auto end = platformData.constFind(endOfPatience);
    if (m_isRefusing || (end != platformData.cend() && end->toLongLong() < now()))
        return sendErrorReply(QDBusError::Failed, u"The program opens nothing now."_s);
    QVariantMap forWindow;
    for (const auto &[variable, key] : keysOfWindow) {
        const QVariant value = platformData.value(key);
        if (value.metaType() == QMetaType::fromType<QString>()
            && value.toString().size() <= mostCharacters)
            forWindow.insert(key, value);
    }
    Q_EMIT called(files, forWindow);
}

} // namespace quorvale
