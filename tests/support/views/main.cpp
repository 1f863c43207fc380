// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

// Runs the Qt Quick test given by -input. Every warning is a failure, be it of the engine or of Qt,
// during a test or between two.

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QStyleHints>
#include <QtQuickTest>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)
Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

using namespace Qt::StringLiterals;

namespace {

QtMessageHandler nextHandler = nullptr;
int warnings = 0;

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ++warnings;
    nextHandler(type, context, message);
}

} // namespace

class Setup : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        // Without the graphics driver, which may have remarks of its own.
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        // As on every desktop.
        QGuiApplication::styleHints()->setUseHoverEffects(true);
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(u":/qt/qml"_s);
        if (!nextHandler)
            nextHandler = qInstallMessageHandler(countWarnings);
    }
};

int main(int argc, char *argv[])
{
    // The look must not depend on the desktop that the test happens to run on.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    Setup setup;
    const int status = quick_test_main_with_setup(argc, argv, "views", nullptr, &setup);
    if (warnings > 0)
        std::fprintf(stderr, "%d warnings, each of which is a failure\n", warnings);
    return warnings > 0 ? EXIT_FAILURE : status;
}

#include "main.moc"
