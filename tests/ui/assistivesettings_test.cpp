// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QTest>

#include <algorithm>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

// The settings, panels and alerts as a screen reader, a switch or a voice control works them: by
// the actions and values of what is in the window, without the mouse and the keyboard. What counts
// is what comes of it.
class AssistiveSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(makeVideo(m_folder.filePath(name), 3600));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
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
        QCOMPARE(m_bench->run().waitForEnd(), std::optional(0));
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

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(AssistiveSettingsTest)
#include "assistivesettings_test.moc"
