// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "tasks.h"

#include "controller/converterviewmodel.h"
#include "support/recordedfilemanager.h"
#include "support/recordedpanel.h"
#include "support/testtooldirectories.h"
#include "ui/quorvaleapp.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)
Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

using namespace Qt::StringLiterals;

namespace quorvale::bench {

namespace {

double residentMemory()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no /proc");
    return file.readAll().split(' ').value(1).toDouble()
           * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double processorTime()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// The program's window on a controller of its own, with the panel's answers given beforehand.
class Window
{
public:
    explicit Window(const QString &outputs = {})
    {
        auto panel = std::make_unique<test::RecordedPanel>();
        if (!outputs.isEmpty())
            panel->answers << QList{QUrl::fromLocalFile(outputs)};
        m_model = ConverterViewModel::create(std::move(panel),
                                             std::make_unique<test::RecordedFileManager>());
        QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);
        m_engine.addImportPath(u":/qt/qml"_s);
        m_engine.setInitialProperties({{u"model"_s, QVariant::fromValue(m_model.get())}});
        m_engine.load(QUrl(u"qrc:/qt/qml/Quorvale/MainWindow.qml"_s));
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
        if (!m_window)
            qFatal("There is no window");
        QObject::connect(m_window, &QQuickWindow::afterAnimating, m_window,
                         [this] { m_frame.start(); });
        QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window, [this] {
            m_frameTime = static_cast<double>(m_frame.nsecsElapsed()) / 1e9;
            ++m_frames;
        });
        awaitFrame();
    }

    ConverterViewModel &model() const { return *m_model; }

    // The seconds that the next frame takes.
    double awaitFrame()
    {
        const int frames = m_frames;
        m_window->update();
        while (m_frames == frames)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_frameTime;
    }

    QQuickItem *findList(QQuickItem *item = nullptr) const
    {
        if (!item)
            item = m_window->contentItem();
        if (QByteArrayView(item->metaObject()->className()).startsWith("JobListView"))
            return item;
        for (QQuickItem *child : item->childItems()) {
            if (QQuickItem *list = findList(child))
                return list;
        }
        return nullptr;
    }

private:
    std::shared_ptr<ConverterViewModel> m_model;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QElapsedTimer m_frame;
    double m_frameTime = 0;
    int m_frames = 0;
};

// Scrolls by steps to the end; the seconds of the longest frame, making of rows included.
double longestFrame(Window &window, QQuickItem &list, double step, int steps)
{
    double longest = 0;
    double place = list.property("contentY").toDouble();
    for (int i = 0; i < steps; ++i) {
        QElapsedTimer clock;
        clock.start();
        place += step;
        list.setProperty("contentY", place);
        const double move = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        longest = std::max(longest, move + window.awaitFrame());
    }
    return longest;
}

// From end to end, first as by the wheel.
double longestFrame(Window &window, QQuickItem &list)
{
    const double height =
        list.property("contentHeight").toDouble() - list.property("height").toDouble();
    constexpr int steps = 600;
    const double byWheel = longestFrame(window, list, 60, steps);
    return std::max(byWheel, longestFrame(window, list, (height - 60 * steps) / steps, steps));
}

std::unique_ptr<QQmlApplicationEngine> openBareWindow()
{
    auto engine = std::make_unique<QQmlApplicationEngine>();
    engine->loadData(R"(
        import QtQuick
        import QtQuick.Templates as T
        T.ApplicationWindow {
            width: 960; height: 640; visible: true
            Text { text: "Text" }
            T.Button {
                id: button
                anchors.centerIn: parent
                implicitHeight: contentItem.implicitHeight
                implicitWidth: contentItem.implicitWidth
                text: "Button"
                background: Rectangle { color: "plum" }
                contentItem: Text { text: button.text }
            }
        })");
    return engine;
}

void quitAtFirstFrame()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (auto *quick = qobject_cast<QQuickWindow *>(window))
            QObject::connect(quick, &QQuickWindow::frameSwapped, [] { std::_Exit(EXIT_SUCCESS); });
    }
}

} // namespace

int scrollList(int count)
{
    Window window;
    malloc_trim(0);
    const double before = residentMemory();
    QList<QUrl> urls;
    for (int i = 0; i < count; ++i)
        urls << QUrl::fromLocalFile(u"/videos/folder %1/clip %2.mp4"_s.arg(i / 100).arg(i));
    window.model().add(urls);
    urls.clear();
    malloc_trim(0);
    const double after = residentMemory();
    window.awaitFrame();
    QQuickItem *list = window.findList();
    if (!list)
        return EXIT_FAILURE;
    std::printf("%f\n%f\n", (after - before) / count, longestFrame(window, *list));
    return EXIT_SUCCESS;
}

int searchWithWindow(const QString &folder)
{
    Window window;
    ConverterViewModel &model = window.model();
    QElapsedTimer sinceTurn;
    double longestGap = 0;
    QTimer turns;
    turns.setTimerType(Qt::PreciseTimer);
    QObject::connect(&turns, &QTimer::timeout, [&] {
        longestGap = std::max(longestGap, static_cast<double>(sinceTurn.nsecsElapsed()) / 1e9);
        sinceTurn.start();
    });
    bool isFound = false;
    double whileSearching = 0;
    QObject::connect(model.searches(), &SearchQueue::found, [&] { // and queued
        isFound = true;
        whileSearching = std::exchange(longestGap, 0.0);
    });
    sinceTurn.start();
    turns.start(1);
    model.handleDrop({QUrl::fromLocalFile(folder)});
    while (!isFound)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    window.awaitFrame();
    QCoreApplication::processEvents();
    turns.stop();
    QQuickItem *list = window.findList();
    if (!list)
        return EXIT_FAILURE;
    std::printf("%f\n%f\n%f\n", whileSearching, longestGap, longestFrame(window, *list));
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS); // without freeing every job
}

int showFirstFrame(bool isBare)
{
    if (isBare) {
        const auto engine = openBareWindow();
        quitAtFirstFrame();
        return QGuiApplication::exec();
    }
    QuorvaleApp app;
    if (app.open() != QuorvaleApp::Start::window)
        return EXIT_FAILURE;
    quitAtFirstFrame();
    return QGuiApplication::exec();
}

int idle(bool isBare)
{
    QTimer::singleShot(2000, [] {
        std::printf("%f\n", residentMemory());
        QCoreApplication::quit();
    });
    if (isBare) {
        const auto engine = openBareWindow();
        return QGuiApplication::exec();
    }
    QuorvaleApp app;
    return app.open() == QuorvaleApp::Start::window ? QGuiApplication::exec() : EXIT_FAILURE;
}

int convertWithWindow(const QString &sources, const QString &outputs)
{
    test::setToolDirectories({u"/usr/bin/"_s});
    Window window(outputs);
    ConverterViewModel &model = window.model();
    model.chooseDestination();
    model.setProperty("useHardware", false);
    model.add({QUrl::fromLocalFile(sources)});
    window.awaitFrame();
    const double before = processorTime();
    QElapsedTimer clock;
    clock.start();
    model.start();
    while (model.isConverting())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("%f\n%f\n", processorTime() - before,
                static_cast<double>(clock.nsecsElapsed()) / 1e9);
    return model.completedCount() == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace quorvale::bench
