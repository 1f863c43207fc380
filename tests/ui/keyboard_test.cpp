// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"

#include <QDebug>
#include <QTest>

#include <algorithm>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

// The window without a mouse.
class KeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &name : {u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s})
            QVERIFY(QFile(m_folder.filePath(name)).open(QIODevice::WriteOnly));
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(window().activate());
    }

    void cleanup() { m_bench.reset(); }

    void tabGoesThroughTheControlsInReadingOrder_data()
    {
        QTest::addColumn<bool>("hasJobs");
        QTest::newRow("empty queue") << false;
        QTest::newRow("three jobs") << true;
    }
    void tabGoesThroughTheControlsInReadingOrder()
    {
        QFETCH(const bool, hasJobs);
        // The codecs are one stop.
        QStringList controls{u"File"_s,  u"H.264"_s,  u"Encoding goal"_s, u"Apple media engine"_s,
                             u"Audio"_s, u"Folder"_s, u"Add Videos"_s};
        if (hasJobs) {
            queueThree();
            QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
            controls << u"a.mp4"_s << u"Move up"_s << u"Move down"_s << u"Remove from queue"_s
                     << u"Save to "_s + m_bench->outputFolder() << u"Show output folder"_s
                     << u"Convert 3 Videos"_s;
        } else {
            // "Convert" is disabled.
            controls << u"Choose Videos"_s << u"Choose Folder"_s
                     << u"Save to Choose destination…"_s;
        }
        QVERIFY(window().activate());
        QVERIFY(window().tabTo(named(controls.first())));
        QCOMPARE(visited(u"Tab"_s, controls.size()), controls);
        std::ranges::reverse(controls);
        QCOMPARE(visited(u"shift+Tab"_s, controls.size()), controls);
    }

    void tabPassesOverTheGoalOfAProResCodec()
    {
        QVERIFY(window().tabTo(named(u"H.264"_s)));
        for (int step = 0; step < 4; ++step)
            QVERIFY(window().press(u"Down"_s));
        QVERIFY(waitForState(u"ProRes 4444"_s, State::checked));
        QCOMPARE(visited(u"Tab"_s, 2), (QStringList{u"ProRes 4444"_s, u"Apple media engine"_s}));
    }

    void arrowsChooseACodec()
    {
        QVERIFY(window().tabTo(named(u"H.264"_s)));
        const QList<std::pair<QString, QString>> steps{{u"Down"_s, u"H.265 (HEVC)"_s},
                                                       {u"Down"_s, u"ProRes 422"_s},
                                                       {u"Up"_s, u"H.265 (HEVC)"_s}};
        for (const auto &[key, codec] : steps) {
            QVERIFY(window().press(key));
            QVERIFY(waitForFocus(codec));
            QVERIFY(waitForState(codec, State::checked));
            QVERIFY(waitForChoice(u"Audio"_s, codec == u"ProRes 422"_s ? u"PCM (ProRes workflow)"_s
                                                                       : u"AAC (compatible)"_s));
        }
    }

    void arrowsChangeAPicker()
    {
        QVERIFY(window().tabTo(named(u"Encoding goal"_s)));
        QVERIFY(waitForChoice(u"Encoding goal"_s, u"Balanced"_s));
        QVERIFY(window().press(u"Up"_s));
        QVERIFY(waitForChoice(u"Encoding goal"_s, u"Match source size"_s));
        QVERIFY(window().press(u"Down"_s));
        QVERIFY(waitForChoice(u"Encoding goal"_s, u"Balanced"_s));
    }

    void aPickerOpensAndCloses_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("Space") << u"space"_s;
        QTest::newRow("Return") << u"Return"_s;
        QTest::newRow("Enter") << u"KP_Enter"_s;
    }
    void aPickerOpensAndCloses()
    {
        QFETCH(const QString, key);
        const auto entry = AccessibleItem::named(Role::listItem, u"Copy source audio"_s);
        QVERIFY(window().tabTo(named(u"Audio"_s)));
        QVERIFY(window().press(key));
        QVERIFY(window().waitFor(entry));
        QVERIFY(window().press(u"Down"_s));
        QVERIFY(window().press(u"Escape"_s));
        QVERIFY(window().waitForNo(entry));
        QVERIFY(waitForChoice(u"Audio"_s, u"AAC (compatible)"_s));

        // Each step is told, and so are the box and what is chosen.
        QVERIFY(window().press(key));
        QVERIFY(waitForFocus(u"AAC (compatible)"_s));
        QVERIFY(waitForChoice(u"Audio"_s, u"AAC (compatible), open"_s));
        QVERIFY(waitForState(u"AAC (compatible)"_s, State::selected));
        QVERIFY(window().press(u"Down"_s));
        QVERIFY(waitForFocus(u"Copy source audio"_s));
        QVERIFY(waitForState(u"Copy source audio"_s, State::selected, false));
        QVERIFY(window().press(key));
        QVERIFY(waitForFocus(u"Audio"_s));
        QVERIFY(waitForChoice(u"Audio"_s, u"Copy source audio"_s));
    }

    void keysTurnTheSwitch_data() { aPickerOpensAndCloses_data(); }
    void keysTurnTheSwitch()
    {
        QFETCH(const QString, key);
        QVERIFY(window().tabTo(named(u"Apple media engine"_s)));
        QVERIFY(waitForState(u"Apple media engine"_s, State::checked));
        QVERIFY(window().press(key));
        QVERIFY(waitForState(u"Apple media engine"_s, State::checked, false));
        QVERIFY(window().press(key));
        QVERIFY(waitForState(u"Apple media engine"_s, State::checked));
    }

    void keysMoveTheSlider()
    {
        QVERIFY(window().tabTo(named(u"Encoding goal"_s)));
        QVERIFY(window().press(u"Down"_s));
        QVERIFY(waitForChoice(u"Encoding goal"_s, u"Constant quality"_s));
        QVERIFY(window().tabTo(named(u"Quality"_s)));
        QVERIFY(waitForQuality(76));
        const QList<std::pair<QString, int>> steps{{u"Right"_s, 77}, {u"Left"_s, 76},
                                                   {u"Home"_s, 30},  {u"Left"_s, 30},
                                                   {u"End"_s, 100},  {u"Right"_s, 100}};
        for (const auto &[key, quality] : steps) {
            QVERIFY(window().press(key));
            QVERIFY2(waitForQuality(quality), qPrintable(key));
        }
    }

    void arrowsGoThroughTheRows()
    {
        queueThree();
        QVERIFY(window().activate());
        QVERIFY(window().tabTo(AccessibleItem::named(Role::listItem, u"a.mp4"_s)));
        const QList<std::pair<QString, QString>> steps{
            {u"Down"_s, u"b.mp4"_s}, {u"Down"_s, u"c.mp4"_s}, {u"Down"_s, u"c.mp4"_s},
            {u"Up"_s, u"b.mp4"_s},   {u"Home"_s, u"a.mp4"_s}, {u"End"_s, u"c.mp4"_s}};
        for (const auto &[key, row] : steps) {
            QVERIFY(window().press(key));
            QVERIFY2(waitForFocus(row), qPrintable(key));
        }
        QCOMPARE(visited(u"Tab"_s, 4),
                 (QStringList{u"c.mp4"_s, u"Move up"_s, u"Move down"_s, u"Remove from queue"_s}));
    }

    void keysWorkTheButtonsOfARow_data() { aPickerOpensAndCloses_data(); }
    void keysWorkTheButtonsOfARow()
    {
        QFETCH(const QString, key);
        queueThree();
        QVERIFY(window().activate());
        QVERIFY(window().tabTo(AccessibleItem::named(Role::listItem, u"a.mp4"_s)));
        QVERIFY(window().press(u"Down"_s));
        QVERIFY(waitForFocus(u"b.mp4"_s));
        QVERIFY(window().tabTo(named(u"Move up"_s)));
        QVERIFY(window().press(key));
        QVERIFY(window().waitForRows({u"b.mp4"_s, u"a.mp4"_s, u"c.mp4"_s}));
        // Still the row that it was.
        QVERIFY(window().tabTo(named(u"Move down"_s)));
        QVERIFY(window().press(key));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
        QVERIFY(window().tabTo(named(u"Remove from queue"_s)));
        QVERIFY(window().press(key));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"c.mp4"_s}));
    }

private:
    const WindowDriver &window() const { return m_bench->window(); }

    static AccessibleItem::Condition named(const QString &name)
    {
        return [name](const AccessibleItem &item) {
            return item.name() == name && item.is(State::focusable);
        };
    }

    void queueThree()
    {
        QVERIFY(m_bench->drop({m_folder.path()}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s, u"c.mp4"_s}));
    }

    QString focusedName() const
    {
        const auto item = window().focused();
        return item ? item->name() : QString();
    }

    // The names of so many items that have the keyboard one after the other, from the present one.
    QStringList visited(const QString &key, qsizetype count) const
    {
        QStringList names{focusedName()};
        while (names.size() < count) {
            const auto before = window().focused();
            if (!window().press(key)
                || !QTest::qWaitFor([&] { return window().focused() != before; }))
                break;
            names << focusedName();
        }
        return names;
    }

    bool waitForFocus(const QString &name) const
    {
        if (QTest::qWaitFor([&] { return focusedName() == name; }, patience))
            return true;
        qWarning() << focusedName();
        return false;
    }

    bool waitForState(const QString &name, State state, bool isSet = true) const
    {
        return window()
            .waitFor([&](const AccessibleItem &item) {
                return item.name() == name && item.role() != Role::label && item.is(state) == isSet;
            })
            .has_value();
    }

    bool waitForChoice(const QString &picker, const QString &choice) const
    {
        return window()
            .waitFor([&](const AccessibleItem &item) {
                return item.role() == Role::comboBox && item.name() == picker
                       && item.description() == choice;
            })
            .has_value();
    }

    // In the slider and in the text beside it.
    bool waitForQuality(int quality) const
    {
        const auto percentage = AccessibleItem::named(Role::label, u"%1%"_s.arg(quality));
        return window().waitFor(percentage) && window().waitFor([&](const AccessibleItem &item) {
            return item.role() == Role::slider && item.value() == double(quality);
        });
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(KeyboardTest)
#include "keyboard_test.moc"
