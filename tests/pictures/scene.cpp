// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "scene.h"

#include "desktop/systemlook.h"
#include "support/filetree.h"
#include "support/recordedfilemanager.h"

#include <QDir>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

Q_IMPORT_QML_PLUGIN(QuorvalePlugin)
Q_IMPORT_QML_PLUGIN(Quorvale_StylePlugin)

using namespace Qt::StringLiterals;

namespace quorvale::test {

namespace {

// The outputs that the stand-in tool does not write. A fixed path, because the window shows it.
const QString outputFolder = QDir::tempPath() + u"/Videos for the edit"_s;

QQuickItem *findText(QQuickItem *item, const QString &text)
{
    if (item->isVisible() && item->property("text").toString() == text)
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findText(child, text))
            return found;
    }
    return nullptr;
}

} // namespace

Scene::Scene()
{
    qputenv(SlowDisk::variable, m_disk.steering().toUtf8());
    auto panel = std::make_unique<RecordedPanel>();
    m_panel = panel.get();
    m_model = ConverterViewModel::create(std::move(panel), std::make_unique<RecordedFileManager>());
    QQmlEngine::setObjectOwnership(m_model.get(), QQmlEngine::CppOwnership);
    m_engine.addImportPath(u":/qt/qml"_s);
    m_engine.setInitialProperties({{u"model"_s, QVariant::fromValue(m_model.get())}});
    m_engine.load(QUrl(u"qrc:/qt/qml/Quorvale/MainWindow.qml"_s));
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
    if (!m_window || !QTest::qWaitForWindowExposed(m_window))
        qFatal("There is no window");
}

Scene::~Scene()
{
    SystemLook::instance().setContrast(false);
    SystemLook::instance().setAnimates(true);
    m_model->cancel();
    if (!QTest::qWaitFor([this] { return !m_model->isConverting(); }))
        qWarning("The conversion does not end");
    QDir(outputFolder).removeRecursively();
}

QList<Scene::State> Scene::allStates()
{
    const auto states = QMetaEnum::fromType<State>();
    QList<State> all;
    for (int i = 0; i < states.keyCount(); ++i)
        all << static_cast<State>(states.value(i));
    return all;
}

QString Scene::name(State state)
{
    return QString::fromLatin1(QMetaEnum::fromType<State>().valueToKey(static_cast<int>(state)));
}

bool Scene::enter(State state)
{
    SystemLook::instance().setContrast(state == State::contrast);
    SystemLook::instance().setAnimates(state != State::still);
    if (state == State::empty)
        return true;
    if (state == State::drop) {
        m_model->setDropTargeted(true);
        return true;
    }
    if (state == State::menu)
        return click(u"File"_s);

    add({u"Lisbon 2025/Arrival at the station.mkv"_s, u"Lisbon 2025/Drone over the river.webm"_s,
         u"Lisbon 2025/Interview Ana, part 1.mov"_s, u"Lisbon 2025/Interview Ana, part 2.mov"_s,
         u"Archive/A very long name that the camera app made of the place, the weather, the lens "
         u"and "
         "the time of day 2025-06-14T21-07-33.mp4"_s,
         u"Archive/Wedding tape 3.avi"_s});
    m_model->setProperty("goalIndex", 2);
    if (state == State::waiting)
        return true;
    if (state == State::searching || state == State::still)
        return search();
    if (state == State::reordering)
        return lift(1, 3);
    m_model->start();
    if (state == State::alert)
        return m_model->alertMessage().has_value();
    m_model->clearAlert();
    chooseDestination();
    if (!convert(3))
        return false;
    if (state == State::converting || state == State::contrast)
        return true;
    m_model->chooseCodec(2);
    m_model->cancel();
    if (!QTest::qWaitFor([this] { return !m_model->isConverting(); }))
        return false;
    if (state == State::failures)
        return click(u"Show Next"_s) && search();
    if (state == State::rowMenu)
        return click(u"Arrival at the station.mkv"_s, Qt::RightButton);
    return true;
}

QImage Scene::picture() const
{
    QTest::qWait(300); // until what glides has arrived
    return m_window->grabWindow();
}

void Scene::add(const QStringList &paths)
{
    for (const QString &path : paths)
        m_model->add({QUrl::fromLocalFile(u"/videos/"_s + path)});
}

// A folder with many videos, and one in it that does not answer.
bool Scene::search()
{
    constexpr int videos = 1234;
    QDir disk(m_disk.path());
    for (int i = 0; i < videos; ++i)
        write(disk.filePath(u"%1.mp4"_s.arg(i)), {});
    if (!disk.mkdir(u"gone"_s))
        return false;
    m_disk.hang({u"gone"_s});
    m_model->search({QUrl::fromLocalFile(disk.path())});
    const SearchQueue *searches = m_model->searches();
    return QTest::qWaitFor([&] {
        return searches->isLong() && searches->foundCount() == videos
               && searches->legibleAwaitedName() == "gone"_L1;
    });
}

void Scene::chooseDestination()
{
    m_panel->answers << QList{QUrl::fromLocalFile(outputFolder)};
    m_model->chooseDestination();
}

// Up to the middle of the job in the row; the one before it fails, and the first ends early.
bool Scene::convert(int untilRow)
{
    const QString ffmpeg = u"ffmpeg"_s;
    m_tools.setScript(ffmpeg, Script());
    m_tools.setScript(ffmpeg, 1,
                      Script()
                          .err("[matroska,webm @ 0x55d0c8a3e2c0] File ended prematurely\n")
                          .out("out_time_ms=6040000\nprogress=end\n"));
    m_tools.setScript(ffmpeg, untilRow,
                      Script()
                          .err("[mov,mp4,m4a,3gp,3g2,mj2 @ 0x55d0c8a3e2c0] moov atom not found\n"
                               "/videos/Lisbon 2025/Interview Ana, part 1.mov: Invalid data found "
                               "when processing input. The file may have been cut off while it was "
                               "copied from the card, before its index was written.\n")
                          .exit(1));
    m_tools.setScript(ffmpeg, untilRow + 1, Script().out("out_time_ms=4200000\n").wait(3'600'000));
    m_model->start();
    return QTest::qWaitFor([&] { return m_model->jobs().at(untilRow).progress > 0; }, 30'000);
}

bool Scene::click(const QString &text, Qt::MouseButton button) const
{
    QQuickItem *item = findText(m_window->contentItem(), text);
    if (!item)
        return false;
    const QPointF middle = item->mapToScene(item->boundingRect().center());
    QTest::mouseClick(m_window, button, {}, middle.toPoint());
    return true;
}

// Drags the row to another's place and holds it there.
bool Scene::lift(int row, int destination) const
{
    const auto nameOf = [this](int i) {
        return findText(m_window->contentItem(), m_model->jobs().at(i).source().fileName());
    };
    if (!QTest::qWaitFor([&] { return nameOf(row) && nameOf(destination); }))
        return false;
    const QQuickItem *from = nameOf(row);
    const QQuickItem *to = nameOf(destination);
    const QPoint start = from->mapToScene({40, 10}).toPoint();
    const QPoint end = to->mapToScene({40, 0}).toPoint();
    QTest::mousePress(m_window, Qt::LeftButton, {}, start);
    for (int step = 1; step <= 10; ++step)
        QTest::mouseMove(m_window, start + (end - start) * step / 10, 10);
    return true;
}

} // namespace quorvale::test
