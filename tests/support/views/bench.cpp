// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "bench.h"

#include "desktop/systemlook.h"
#include "support/filetree.h"
#include "support/patience.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

constexpr double duration = 10; // of every source, in seconds

QByteArray progressLine(double fraction)
{
    return "out_time_ms=" + QByteArray::number(qRound64(fraction * duration * 1'000'000)) + "\n";
}

bool isConverting(const ConversionJob &job)
{
    return job.state.is(JobState::Case::converting);
}

} // namespace

Bench::Bench(QObject *parent) : QObject(parent), m_noFont(QGuiApplication::font())
{
    begin();
}

Bench::~Bench()
{
    end();
}

ConverterViewModel *Bench::model()
{
    return &m_queue->model();
}

QStringList Bench::openedPanels()
{
    QStringList titles;
    for (const OpenPanelRequest &request : std::as_const(m_queue->panel().requests))
        titles << request.title;
    return titles;
}

QStringList Bench::revealedFolders() const
{
    QStringList paths;
    for (const QUrl &folder : m_queue->fileManager().revealed)
        paths << folder.toLocalFile();
    return paths;
}

QStringList Bench::fileNames() const
{
    QList<QUrl> sources;
    for (const ConversionJob &job : m_queue->model().jobs())
        sources << job.source();
    return test::fileNames(sources);
}

int Bench::windowCount() const
{
    return static_cast<int>(
        std::ranges::count_if(QGuiApplication::topLevelWindows(), &QWindow::isVisible));
}

bool Bench::isDark() const
{
    return windowColor().lightnessF() < 0.5F;
}

void Bench::setDark(bool isDark)
{
    setWindowColor(isDark ? QColor(0x22, 0x22, 0x26) : QColor(0xec, 0xec, 0xee));
}

bool Bench::hasContrast() const
{
    return SystemLook::instance().hasContrast();
}

void Bench::setContrast(bool hasContrast)
{
    SystemLook::instance().setContrast(hasContrast);
}

bool Bench::animates() const
{
    return SystemLook::instance().animates();
}

void Bench::setAnimates(bool animates)
{
    SystemLook::instance().setAnimates(animates);
}

QColor Bench::windowColor() const
{
    return QGuiApplication::palette().color(QPalette::Window);
}

void Bench::setWindowColor(const QColor &color)
{
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    QGuiApplication::setPalette(palette);
    QCoreApplication::processEvents(); // which tells the change
}

void Bench::begin()
{
    end();
    m_queue = std::make_unique<Queue>();
    QQmlEngine::setObjectOwnership(&m_queue->model(), QQmlEngine::CppOwnership);
    m_queue->panel().requests.clear(); // the bench's own choice of an output folder
    chooseDestination({});
    setDark(false);
    setContrast(false);
    setAnimates(true);
    QGuiApplication::setFont(m_noFont);
    Q_EMIT begun();
}

void Bench::end()
{
    if (!m_queue)
        return;
    if (!cancel())
        qFatal("The batch does not end.");
    m_runs = 0;
    m_stay = 0;
    m_fractions.clear();
    m_queue.reset();
}

void Bench::setFont(const QString &family, double points)
{
    if (!QFontDatabase::hasFamily(family))
        qFatal("The font %s is not installed.", qPrintable(family));
    QFont font(family);
    font.setPointSizeF(points);
    QGuiApplication::setFont(font);
}

void Bench::queue(const QStringList &paths)
{
    for (const QString &path : paths)
        model()->add({QUrl::fromLocalFile(path.startsWith(u'/') ? path : u"/in/"_s + path)});
}

void Bench::queueMany(int count)
{
    QList<QUrl> files;
    for (int i = 1; i <= count; ++i)
        files << QUrl::fromLocalFile(u"/in/clip%1.mov"_s.arg(i));
    model()->add(files);
}

void Bench::setNextRun(const Script &script)
{
    m_queue->setConversion(++m_runs, script);
}

void Bench::completeEverySecond()
{
    for (int row = 1; row < model()->jobCount(); row += 2)
        model()->jobModel()->setState(m_queue->id(row), JobState::completed());
}

void Bench::willComplete()
{
    setNextRun(Script().out("progress=end\n").exit(0));
}

void Bench::willEndEarly()
{
    setNextRun(Script()
                   .err("[matroska,webm @ 0x55d0] File ended prematurely\n")
                   .out("out_time_ms=6000000\nprogress=end\n")
                   .exit(0));
}

void Bench::willFail(const QString &message)
{
    setNextRun(Script().err(message.toUtf8()).exit(1));
}

void Bench::willBeCancelled()
{
    setNextRun(Script().die(SIGINT));
}

void Bench::willStayAt(const QList<double> &fractions)
{
    Script script;
    for (const double fraction : fractions) {
        m_fractions << fraction;
        script.out(progressLine(fraction)).await(stayPath(static_cast<int>(m_fractions.size())));
    }
    setNextRun(script.out("progress=end\n").exit(0));
}

bool Bench::convert()
{
    model()->start();
    return rests();
}

bool Bench::goOn()
{
    QFile file(stayPath(++m_stay));
    if (!file.open(QIODevice::WriteOnly))
        qFatal("Cannot let the stand-in tool go on");
    return rests();
}

// Whether the batch has ended or stays.
bool Bench::rests()
{
    return QTest::qWaitFor(
        [this] {
            const auto &jobs = model()->jobs();
            const auto job = std::ranges::find_if(jobs, isConverting);
            if (job == jobs.end())
                return !model()->isConverting();
            return m_stay < m_fractions.size()
                   && qAbs(job->progress - m_fractions.at(m_stay)) < 1e-9;
        },
        patience);
}

bool Bench::cancel()
{
    m_stay = static_cast<int>(m_fractions.size());
    // Again and again, because it only reaches a tool that has been started.
    return QTest::qWaitFor(
        [this] {
            model()->cancel();
            return !model()->isConverting();
        },
        patience);
}

void Bench::chooseDestination(const QString &path)
{
    const auto requests = m_queue->panel().requests;
    m_queue->choose(path.isEmpty() ? std::nullopt : std::optional(QUrl::fromLocalFile(path)));
    m_queue->panel().requests = requests;
}

void Bench::chooseRealDestination()
{
    chooseDestination(m_queue->outputPath({}));
}

void Bench::answer(const QStringList &paths)
{
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    m_queue->panel().answers << urls;
}

void Bench::repeatKey(int key, int count)
{
    const auto send = [key](QEvent::Type type) {
        QKeyEvent event(type, key, Qt::NoModifier, {}, true);
        QCoreApplication::sendEvent(QGuiApplication::focusWindow(), &event);
    };
    for (int i = 0; i < count; ++i) {
        send(QEvent::KeyRelease);
        send(QEvent::KeyPress);
    }
}

void Bench::pressAgain(QQuickItem *item, double x, double y)
{
    const QPointF place = item->mapToScene({x, y});
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
        QMouseEvent event(type, place, item->window()->mapToGlobal(place), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        // Without, what is pressed would go on where it was pressed last.
        event.setTimestamp(static_cast<ulong>(++QTest::lastMouseTimestamp));
        QCoreApplication::sendEvent(item->window(), &event);
    }
}

bool Bench::interruptByDialog()
{
    QWindow *tested = QGuiApplication::focusWindow();
    bool hasComeUp = false;
    {
        QWindow dialog;
        dialog.setModality(Qt::ApplicationModal);
        dialog.resize(100, 100);
        dialog.show();
        hasComeUp = QTest::qWaitForWindowActive(&dialog);
    }
    tested->requestActivate();
    return QTest::qWaitForWindowActive(tested) && hasComeUp;
}

void Bench::removeTool()
{
    m_queue->tools().removeTool(u"ffmpeg"_s);
}

void Bench::putToolBack()
{
    m_queue->tools().replaceTool(u"ffmpeg"_s, "#!/bin/sh\n");
}

QString Bench::stayPath(int stay) const
{
    return m_queue->tools().path(u"stay%1"_s.arg(stay));
}

} // namespace quorvale::test
