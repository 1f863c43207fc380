// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "quorvaleapp.h"

#include "controller/converterviewmodel.h"
#include "desktop/desktop.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QIcon>
#include <QThreadPool>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace quorvale {

QuorvaleApp::QuorvaleApp() : m_model(ConverterViewModel::create(makeOpenPanel(), makeFileManager()))
{
    // By this name a desktop finds the entry of its menu, and with that the icon, too.
    QGuiApplication::setDesktopFileName(u"quorvale"_s);
    QGuiApplication::setWindowIcon(QIcon(u":/qt/qml/Quorvale/quorvale.svg"_s));
    QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);
    m_engine.addImportPath(u":/qt/qml"_s);
    m_engine.setInitialProperties({{u"model"_s, QVariant::fromValue(m_model.get())}});
}

bool QuorvaleApp::open()
{
    // Looked for while the QML is read: together the larger part of the start.
    QThreadPool::globalInstance()->start([] { QFontDatabase::families(); });
    m_engine.load(QUrl(u"qrc:/qt/qml/Quorvale/MainWindow.qml"_s));
    return !m_engine.rootObjects().isEmpty();
}

bool QuorvaleApp::isConverting() const
{
    return m_model->isConverting();
}

} // namespace quorvale
