// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/processtable.h"
#include "support/programbench.h"
#include "support/rowdrag.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QTest>
#include <QUrl>

#include <algorithm>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

// The window as a screen reader, a switch or a voice control works it: by the actions and values of
// what is in it, without the mouse and the keyboard. What counts is what comes of it.
class AssistiveTechnologyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_desktop.start());
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeLongVideo(m_folder.filePath(name), 3600));
        for (int number = 10; number < 50; ++number)
            touch(m_manyFolder.filePath(u"%1.mp4"_s.arg(number)));
        QFile fileManager(m_programs.filePath(u"xdg-open"_s));
        QVERIFY(fileManager.open(QIODevice::WriteOnly));
        fileManager.write("#!/bin/sh\necho \"$1\" >\"$0.shown\"\n");
        QVERIFY(fileManager.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        m_bench->run().set(u"PATH"_s, m_programs.path() + u':' + qEnvironmentVariable("PATH"));
        QVERIFY(m_bench->start());
    }

    void cleanup()
    {
        // Of the window's code, which goes on after a mistake.
        const QByteArray complaints = m_bench->run().complaints();
        m_bench.reset();
        QCOMPARE(complaints, QByteArray());
    }

    void theButtonsOpenTheirPanels_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("panel");
        QTest::newRow("Add Videos") << u"Add Videos"_s << videoPanel;
        QTest::newRow("Folder") << u"Folder"_s << folderPanel;
        QTest::newRow("Choose Videos") << u"Choose Videos"_s << videoPanel;
        QTest::newRow("Choose Folder") << u"Choose Folder"_s << folderPanel;
        QTest::newRow("Save to") << u"Save to Choose destination…"_s << outputPanel;
    }
    void theButtonsOpenTheirPanels()
    {
        QFETCH(const QString, button);
        QFETCH(const QString, panel);
        QVERIFY(window().act(press, Role::button, button));
        verifyIsOpenOnce(panel);
        if (panel == outputPanel) {
            QVERIFY(window().answerPanel(panel, m_bench->outputFolder()));
            QVERIFY(window().waitFor(
                AccessibleItem::named(Role::button, u"Save to "_s + m_bench->outputFolder())));
        } else if (panel == folderPanel) {
            QVERIFY(window().answerPanel(panel, m_folder.path()));
            QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
        } else {
            QVERIFY(window().answerPanel(panel, video(u"b.mp4"_s)));
            QVERIFY(window().waitForRows({u"b.mp4"_s}));
        }
    }

    void theMenuOpensThePanels_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("panel");
        QTest::newRow("videos") << u"Add Videos…"_s << videoPanel;
        QTest::newRow("folder") << u"Add Folder…"_s << folderPanel;
    }
    void theMenuOpensThePanels()
    {
        QFETCH(const QString, entry);
        QFETCH(const QString, panel);
        openMenu();
        QVERIFY(window().act(press, Role::menuItem, entry));
        verifyIsOpenOnce(panel);
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::menuItem, entry)));
    }

    void theMenuCloses()
    {
        openMenu();
        QVERIFY(window().act(press, fileButton));
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
    }

    void theMenuQuits()
    {
        openMenu();
        QVERIFY(window().act(press, Role::menuItem, u"Quit"_s));
        QVERIFY(m_bench->run().waitForEnd(patience));
        QVERIFY(!m_bench->run().endedBySignal());
        QCOMPARE(m_bench->run().status(), 0);
    }

    void aCodecIsWhatTheNextVideoIsConvertedTo()
    {
        struct Codec
        {
            QString name;
            QByteArray encoder;
            QByteArray profile;
        };
        const QList<Codec> codecs{{u"ProRes 4444"_s, "prores_ks", "4"},
                                  {u"ProRes 422 HQ"_s, "prores_ks", "3"},
                                  {u"ProRes 422"_s, "prores_ks", "2"},
                                  {u"H.265 (HEVC)"_s, "libx265", ""},
                                  {u"H.264"_s, "libx264", ""}};
        prepareConversion();
        for (const Codec &codec : codecs) {
            // What is chosen stays chosen.
            for (const QString &action : {press, press, toggle}) {
                QVERIFY(window().act(action, Role::radioButton, codec.name));
                QCOMPARE(checked(Role::radioButton), QStringList(codec.name));
            }
            const auto arguments = commandLineWith(codec.encoder);
            if (!codec.profile.isEmpty())
                QCOMPARE(behind(arguments, "-profile:v"), codec.profile);
        }
        QVERIFY(window().act(toggle, Role::radioButton, u"ProRes 422"_s));
        QCOMPARE(behind(commandLineWith("prores_ks"), "-profile:v"), "2");
    }

    void theSettingsAreThoseOfTheNextConversion()
    {
        QVERIFY(window().act(press, Role::radioButton, u"H.265 (HEVC)"_s));
        choose(u"Encoding goal"_s, u"Constant quality"_s);
        const auto slider = window().waitFor(AccessibleItem::named(Role::slider, u"Quality"_s));
        QVERIFY(slider);
        slider->setValue(40);
        QVERIFY(waitForQuality(40));
        choose(u"Audio"_s, u"Copy source audio"_s);
        prepareConversion();
        auto arguments = commandLineWith("libx265");
        QCOMPARE(behind(arguments, "-crf"), "26");
        QCOMPARE(behind(arguments, "-c:a"), "copy");

        slider->setValue(1000);
        QVERIFY(waitForQuality(100));
        QVERIFY(slider->act(u"Decrease"_s));
        QVERIFY(waitForQuality(99));
        slider->setValue(-1000);
        QVERIFY(waitForQuality(30));
        arguments = commandLineWith("libx265");
        QCOMPARE(behind(arguments, "-crf"), "28");
        for (int quality = 31; quality <= 36; ++quality) {
            QVERIFY(slider->act(u"Increase"_s));
            QVERIFY(waitForQuality(quality));
        }
        choose(u"Audio"_s, u"PCM (ProRes workflow)"_s);
        arguments = commandLineWith("libx265");
        QCOMPARE(behind(arguments, "-crf"), "27");
        QCOMPARE(behind(arguments, "-c:a"), "pcm_s24le");
    }

    void theSwitchSaysWhetherTheMediaEngineIsAskedFor_data()
    {
        QTest::addColumn<QString>("action");
        QTest::newRow("toggle") << toggle;
        QTest::newRow("press") << press;
    }
    void theSwitchSaysWhetherTheMediaEngineIsAskedFor()
    {
        QFETCH(const QString, action);
        const auto hardware = AccessibleItem::named(Role::checkBox, u"Apple media engine"_s);
        const auto isOn = [&](const AccessibleItem &item) {
            return hardware(item) && item.is(State::checked);
        };
        prepareConversion();
        QVERIFY(window().act(action, hardware));
        QVERIFY(window().waitForNo(isOn));
        for (int time = 0; time < 3; ++time)
            QVERIFY(asksForTheMediaEngine() == false);
        QVERIFY(window().act(action, hardware));
        QVERIFY(window().waitFor(isOn));
        // A run that asks for what is not there is over soon and may go unnoticed.
        QVERIFY(QTest::qWaitFor([this] { return asksForTheMediaEngine() == true; }, patience));
    }

    void whatIsDisabledSaysSoAndDoesNothing()
    {
        const auto convert = AccessibleItem::named(Role::button, u"Convert 0 Videos"_s);
        const auto button = window().waitFor(convert);
        QVERIFY(button);
        QCOMPARE(button->description(), u"unavailable"_s);
        QVERIFY(button->act(press));

        const auto goal = window().waitFor(goalPicker);
        QVERIFY(goal);
        QCOMPARE(goal->description(), u"Balanced"_s);
        QVERIFY(window().act(press, Role::radioButton, u"ProRes 422"_s));
        QVERIFY(QTest::qWaitFor([&] { return goal->description() == u"Balanced, unavailable"_s; }));
        QVERIFY(goal->act(press));
        QTest::qWait(1000);                           // for what should not come
        QVERIFY(!window().application().find(alert)); // which an enabled button brings up
        QVERIFY(!window().application().find(AccessibleItem::named(Role::listItem, u"Balanced"_s)));

        QVERIFY(window().act(press, Role::radioButton, u"H.264"_s));
        QVERIFY(QTest::qWaitFor([&] { return goal->description() == u"Balanced"_s; }));
        QVERIFY(m_bench->queue({video(u"a.mp4"_s)}));
        QVERIFY(QTest::qWaitFor([&] { return button->description().isEmpty(); }));
    }

    void theButtonsOfARowWork()
    {
        prepareConversion();
        QVERIFY(window().actInRow(u"c.mp4"_s, u"Move up"_s));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"c.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Move down"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"a.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s, u"b.mp4"_s}));
        QVERIFY(window().act(press, Role::button, u"Convert 2 Videos"_s));
        QVERIFY(window().waitForDescription(u"c.mp4"_s, u", Converting"_s));
        QVERIFY(window().actInRow(u"b.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitForRows({u"c.mp4"_s}));
    }

    void theLastRowGoesWithItsButton()
    {
        QVERIFY(m_bench->queue({video(u"a.mp4"_s)}));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Choose Videos"_s)));
    }

    void whatIsCompleteIsQueuedAgainOrCleared()
    {
        QTemporaryDir folder;
        const QString clip = folder.filePath(u"short.mp4"_s);
        QVERIFY(makeLongVideo(clip, 1));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_bench->queue({clip}));
        QVERIFY(window().act(press, Role::button, u"Convert 1 Video"_s));
        QVERIFY(m_bench->waitForOutputs({u"short_converted.mp4"_s}));
        QVERIFY(window().waitForDescription(u"short.mp4"_s, u"Complete"_s));
        QVERIFY(window().actInRow(u"short.mp4"_s, u"Queue this video again"_s));
        QVERIFY(window().waitForDescription(u"short.mp4"_s, u"Ready"_s));
        QVERIFY(window().act(press, Role::button, u"Convert 1 Video"_s));
        QVERIFY(m_bench->waitForOutputs({u"short_converted.mp4"_s, u"short_converted_2.mp4"_s}));
        QVERIFY(window().act(press, Role::button, u"Clear Completed"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Choose Videos"_s)));
    }

    void theOutputFolderIsShown()
    {
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().act(press, Role::button, u"Show output folder"_s));
        QFile shown(m_programs.filePath(u"xdg-open.shown"_s));
        QByteArray folder;
        QVERIFY(QTest::qWaitFor(
            [&] {
                if (shown.open(QIODevice::ReadOnly))
                    folder = shown.readAll();
                shown.close();
                return folder.endsWith('\n');
            },
            patience));
        const QString parent = QFileInfo(m_bench->outputFolder()).path();
        QCOMPARE(folder.trimmed(), QUrl::fromLocalFile(parent).toEncoded());
    }

    void anAlertHoldsBackWhatIsBehindIt()
    {
        QVERIFY(m_bench->drop({m_folder.path()}));
        choose(u"Encoding goal"_s, u"Constant quality"_s);
        QVERIFY(window().act(press, Role::button, u"Convert 3 Videos"_s));
        QVERIFY(window().waitFor(alert));
        QVERIFY(window().actInRow(u"b.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().act(press, Role::button, u"Add Videos"_s));
        QVERIFY(window().act(press, fileButton));
        QVERIFY(window().act(press, goalPicker));
        QVERIFY(window().act(press, Role::radioButton, u"H.265 (HEVC)"_s));
        QVERIFY(window().act(toggle, Role::checkBox, u"Apple media engine"_s));
        const auto slider = window().waitFor(AccessibleItem::named(Role::slider, u"Quality"_s));
        QVERIFY(slider);
        slider->setValue(40);
        QTest::qWait(1000); // for what should not come
        QVERIFY(window().application().find(alert));
        QVERIFY(m_desktop.display().windows(videoPanel).isEmpty());
        QVERIFY(!window().application().find(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
        QVERIFY(waitForQuality(76));
        QCOMPARE(window().rowNames(), (QStringList{u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));

        QVERIFY(window().act(press, Role::button, u"OK"_s));
        QVERIFY(window().waitForNo(alert));
        QCOMPARE(checked(Role::radioButton), QStringList(u"H.264"_s));
        QCOMPARE(checked(Role::checkBox), QStringList(u"Apple media engine"_s));
    }

    void aPanelHoldsBackTheWindow()
    {
        QVERIFY(m_bench->queue({video(u"a.mp4"_s)}));
        QVERIFY(window().act(press, Role::button, u"Add Videos"_s));
        QVERIFY(window().openPanel(videoPanel));
        QVERIFY(window().actInRow(u"a.mp4"_s, u"Remove from queue"_s));
        QVERIFY(window().act(press, Role::button, u"Add Videos"_s));
        QTest::qWait(1000); // for what should not come
        verifyIsOpenOnce(videoPanel);
        QVERIFY(window().abandonPanel(videoPanel));
        QCOMPARE(window().rowNames(), QStringList(u"a.mp4"_s));
    }

    void theRowsAreReadInTheirOrder()
    {
        QVERIFY(m_bench->drop({m_manyFolder.path()}));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, u"10.mp4"_s)));
        verifyReadingOrder({u"10.mp4"_s, u"11.mp4"_s, u"12.mp4"_s});
        QVERIFY(window().actInRow(u"12.mp4"_s, u"Move up"_s));
        verifyReadingOrder({u"10.mp4"_s, u"12.mp4"_s, u"11.mp4"_s});
        QVERIFY(window().actInRow(u"10.mp4"_s, u"Move down"_s));
        verifyReadingOrder({u"12.mp4"_s, u"10.mp4"_s, u"11.mp4"_s});
        RowDrag drag(m_desktop.display(), window());
        QVERIFY(drag.dragOver(u"14.mp4"_s, u"12.mp4"_s));
        QVERIFY(drag.release());
        verifyReadingOrder({u"14.mp4"_s, u"12.mp4"_s, u"10.mp4"_s, u"11.mp4"_s, u"13.mp4"_s});
        QVERIFY(window().actInRow(u"10.mp4"_s, u"Remove from queue"_s));
        verifyReadingOrder({u"14.mp4"_s, u"12.mp4"_s, u"11.mp4"_s, u"13.mp4"_s, u"15.mp4"_s});

        QVERIFY(window().activate());
        QVERIFY(window().tabTo(
            [](const AccessibleItem &item) { return item.role() == Role::listItem; }));
        const QList<std::pair<QString, QString>> ways{
            {u"End"_s, u"49.mp4"_s}, {u"Prior"_s, u"42.mp4"_s}, {u"Home"_s, u"14.mp4"_s}};
        for (const auto &[key, row] : ways) {
            QVERIFY(window().press(key));
            QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, row)));
            verifyReadingOrder({});
        }
    }

    void aLongListScrolls()
    {
        QVERIFY(m_bench->drop({m_manyFolder.path()}));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::listItem, u"10.mp4"_s)));
        const auto bar = AccessibleItem::named(Role::scrollBar, u"Scroll bar"_s);
        const auto last = AccessibleItem::named(Role::listItem, u"49.mp4"_s);
        for (int times = 0; times < 10; ++times)
            QVERIFY(window().act(u"Increase"_s, bar));
        QVERIFY(window().waitFor(last));
        verifyReadingOrder({});
        for (int times = 0; times < 10; ++times)
            QVERIFY(window().act(u"Decrease"_s, bar));
        QVERIFY(window().waitForNo(last));
        verifyReadingOrder({u"10.mp4"_s, u"11.mp4"_s});
    }

private:
    const QString press = u"Press"_s;
    const QString toggle = u"Toggle"_s;
    const QString videoPanel = u"Choose videos to convert"_s;
    const QString folderPanel = u"Choose a folder of videos"_s;
    const QString outputPanel = u"Choose output folder"_s;
    const AccessibleItem::Condition alert = AccessibleItem::named(Role::dialog, u"Quorvale"_s);
    const AccessibleItem::Condition goalPicker =
        AccessibleItem::named(Role::comboBox, u"Encoding goal"_s);
    const AccessibleItem::Condition fileButton = [](const AccessibleItem &item) {
        return item.name() == u"File"_s;
    };

    const WindowDriver &window() const { return m_bench->window(); }
    QString video(const QString &name) const { return m_folder.filePath(name); }

    static void touch(const QString &path) { QVERIFY(QFile(path).open(QIODevice::WriteOnly)); }

    void verifyIsOpenOnce(const QString &panel)
    {
        QVERIFY(window().openPanel(panel));
        QCOMPARE(m_desktop.display().windows(panel).size(), 1);
        QCOMPARE(window().application().children().size(), 2);
    }

    QStringList checked(Role role) const
    {
        QStringList names;
        for (const AccessibleItem &item : window().application().findAll(role)) {
            if (item.is(State::checked))
                names << item.name();
        }
        return names;
    }

    void openMenu()
    {
        QVERIFY(window().act(press, fileButton));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::menuItem, u"Quit"_s)));
    }

    void choose(const QString &picker, const QString &choice)
    {
        QVERIFY(window().act(press, Role::comboBox, picker));
        QVERIFY(window().act(press, Role::listItem, choice));
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::listItem, choice)));
        QVERIFY(window().waitFor([&](const AccessibleItem &item) {
            return item.role() == Role::comboBox && item.name() == picker
                   && item.description() == choice;
        }));
    }

    bool waitForQuality(int quality) const
    {
        return window()
            .waitFor(AccessibleItem::named(Role::label, u"%1%"_s.arg(quality)))
            .has_value();
    }

    void prepareConversion()
    {
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
    }

    void cancel()
    {
        QVERIFY(window().act(press, Role::button, u"Cancel"_s));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::button, u"Convert 3 Videos"_s)));
        QCOMPARE(m_bench->run().processes().size(), 1);
    }

    // The command line of the conversion that begins now, which the encoder is part of.
    QList<QByteArray> commandLineWith(const QByteArray &encoder)
    {
        pid_t tool = 0;
        QList<QByteArray> arguments;
        if (window().act(press, Role::button, u"Convert 3 Videos"_s)
            && m_bench->waitForTool(encoder, tool))
            arguments = commandLine(tool);
        cancel();
        return arguments;
    }

    // Whether the conversion that begins now is seen to; nothing when none begins.
    std::optional<bool> asksForTheMediaEngine()
    {
        bool asks = false;
        const auto hasBegun = [&] {
            const QList<pid_t> processes = m_bench->run().processes();
            return std::ranges::any_of(processes, [&](pid_t process) {
                const QList<QByteArray> arguments = commandLine(process);
                asks |= arguments.contains("h264_videotoolbox");
                return arguments.contains("libx264");
            });
        };
        if (!window().act(press, Role::button, u"Convert 3 Videos"_s)
            || !QTest::qWaitFor(hasBegun, patience))
            return std::nullopt;
        cancel();
        return asks;
    }

    static QByteArray behind(const QList<QByteArray> &arguments, const QByteArray &option)
    {
        return arguments.value(arguments.indexOf(option) + 1);
    }

    // The rows are read as they stand, and begin with these.
    void verifyReadingOrder(const QStringList &first)
    {
        QStringList read;
        QStringList shown;
        const bool isSo = QTest::qWaitFor(
            [&] {
                read = window().rowNamesInReadingOrder();
                shown = window().rowNames();
                return read == shown && read.size() > 4 && read.first(first.size()) == first;
            },
            patience);
        QVERIFY2(isSo, qPrintable(read.join(u' ') + u" instead of "_s + shown.join(u' ')));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    QTemporaryDir m_manyFolder;
    QTemporaryDir m_programs;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(AssistiveTechnologyTest)
#include "assistivetechnology_test.moc"
