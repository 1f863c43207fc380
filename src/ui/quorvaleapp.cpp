// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "quorvaleapp.h"

#include "controller/converterviewmodel.h"
#include "desktop/desktop.h"
#include "style/textstyles.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>
#include <QQmlComponent>
#include <QThreadPool>
#include <QVariantMap>

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

bool QuorvaleApp::open()
{
    // The larger part of the start, at the same time: a thread of the engine's reads the QML,
    // another one looks for the fonts of the system, and then this one for the window's.
    const QUrl window(u"qrc:/qt/qml/Quorvale/MainWindow.qml"_s);
    const QQmlComponent reading(&m_engine, window, QQmlComponent::Asynchronous);
    QThreadPool::globalInstance()->start([] {
        QFontDatabase::families();
        QMetaObject::invokeMethod(qApp, &TextStyles::lookUp);
    });
    QGuiApplication::setWindowIcon(QIcon(u":/qt/qml/Quorvale/quorvale.svg"_s));
    while (reading.isLoading())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_engine.load(window);
    return !m_engine.rootObjects().isEmpty();
}

bool QuorvaleApp::isBusy() const
{
    return m_model->isConverting() || m_model->searches()->hasThreads();
}

} // namespace quorvale
