// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "quorvaleapp.h"

#include "controller/converterviewmodel.h"
#include "desktop/announcer.h"
#include "desktop/desktop.h"
#include "desktop/systemlook.h"
#include "desktop/windowactivation.h"
#include "style/textstyles.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlComponent>
#include <QTimer>
#include <QWindow>

#include <system_error>

using namespace Qt::StringLiterals;

namespace quorvale {

QuorvaleApp::QuorvaleApp() : m_model(ConverterViewModel::create(makeOpenPanel(), makeFileManager()))
{
    // By this id a desktop finds the entry of its menu, and with that the icon, too.
    QGuiApplication::setDesktopFileName(u"org.quorvale.Quorvale"_s);
    QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);
    m_engine.addImportPath(u":/qt/qml"_s);
    m_engine.setInitialProperties({{u"model"_s, QVariant::fromValue(m_model.get())}});
}

QuorvaleApp::~QuorvaleApp() = default;

QuorvaleApp::Start QuorvaleApp::open(const QList<QUrl> &files, const QVariantMap &platformData,
                                     std::chrono::milliseconds patience)
{
    m_instance = makeInstance(files, platformData);
    QObject::connect(m_instance.get(), &Instance::handedOver, m_model.get(),
                     [this](const QList<QUrl> &others, const QVariantMap &itsPlatformData) {
                         queue(others);
                         if (QWindow *own = window())
                             bringToFront(*own, itsPlatformData);
                     });
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, m_instance.get(), &Instance::leave);
    // The larger part of the start, at the same time: a thread of the engine's reads the QML,
    // another one looks for the fonts of the system, and then this one for the window's.
    const QUrl source(u"qrc:/qt/qml/Quorvale/MainWindow.qml"_s);
    const QQmlComponent reading(&m_engine, source, QQmlComponent::Asynchronous);
    const auto lookForFonts = [] {
        QFontDatabase::families();
        QMetaObject::invokeMethod(qApp, &TextStyles::lookUp);
    };
    try {
        m_lookForFonts = std::jthread(lookForFonts);
    } catch (const std::system_error &) { // there is no thread to be had
        lookForFonts();
    }
    QGuiApplication::setWindowIcon(QIcon(u":/qt/qml/Quorvale/quorvale.svg"_s));
    // And the desktop says how windows are to look, so that this one begins that way.
    const SystemLook &look = SystemLook::instance();
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(patience);
    const auto isReady = [&] {
        return !reading.isLoading() && (look.isKnown() || !limit.isActive());
    };
    while (m_instance->place() == Instance::Place::undecided
           || (m_instance->place() == Instance::Place::own && !isReady()))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (m_instance->place() == Instance::Place::elsewhere)
        return Start::elsewhere;
    m_companion = accompany(*m_model);
    queue(files);
    m_engine.load(source);
    if (m_engine.rootObjects().isEmpty())
        return Start::failed;
    tellUser();
    claimStart(*window(), platformData);
    return Start::window;
}

// Whoever does not look at the window, or does not see it.
void QuorvaleApp::tellUser()
{
    m_announcer = std::make_unique<Announcer>(*window());
    QObject::connect(&m_model->report(), &BatchReport::said, m_announcer.get(),
                     &Announcer::announce);
    const SearchQueue &searches = *m_model->searches();
    QObject::connect(&searches, &SearchQueue::isLongChanged, m_announcer.get(), [this, &searches] {
        if (searches.isLong())
            m_announcer->announce(u"Searching for videos…"_s);
    });
    QObject::connect(&searches, &SearchQueue::noticeChanged, m_announcer.get(), [this, &searches] {
        if (const QString notice = searches.notice(); !notice.isEmpty())
            m_announcer->announce(notice);
    });
    QObject::connect(m_model.get(), &ConverterViewModel::isConvertingChanged, window(), [this] {
        constexpr int untilItIsActive = 0;
        if (!m_model->isConverting())
            window()->alert(untilItIsActive); // which is nothing where it is active
    });
}

void QuorvaleApp::queue(const QList<QUrl> &files)
{
    if (!files.isEmpty())
        m_model->search(files);
}

QWindow *QuorvaleApp::window() const
{
    return qobject_cast<QWindow *>(m_engine.rootObjects().value(0));
}

bool QuorvaleApp::isBusy() const
{
    return m_model->isConverting() || m_model->searches()->hasThreads();
}

} // namespace quorvale
