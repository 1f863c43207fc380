// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/testclass.h"
#include "support/videofile.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

// What is read out to a user who does not see the window.
class ScreenReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(u"Trip"_s));
        QVERIFY(makeVideo(clip(u"a.mp4"_s), 1200));
        QFile broken(clip(u"b.mp4"_s));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no video") > 0);
    }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
    }

    void cleanup() { m_bench.reset(); }

    void everythingHasARoleAndAName()
    {
        verifyRolesAndNames();
        QVERIFY(m_bench->drop({m_folder.filePath(u"Trip"_s)}));
        QVERIFY(window().waitForRows({u"a.mp4"_s, u"b.mp4"_s}));
        verifyRolesAndNames();
        QVERIFY(window().convert(2));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::dialog, u"Quorvale"_s)));
        verifyRolesAndNames();
        QVERIFY(window().press(u"Escape"_s));
        QVERIFY(window().waitForNo(AccessibleItem::named(Role::dialog, u"Quorvale"_s)));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().convert(2));
        QVERIFY(window().waitForDescription(u"a.mp4"_s, u"Converting"_s));
        verifyRolesAndNames();
    }

    void theSettingsHaveTheirValues()
    {
        for (const QString &codec : {u"H.264"_s, u"H.265 (HEVC)"_s, u"ProRes 422"_s,
                                     u"ProRes 422 HQ"_s, u"ProRes 4444"_s}) {
            const auto button = window().waitFor(AccessibleItem::named(Role::radioButton, codec));
            QVERIFY(button);
            QCOMPARE(button->is(State::checked), codec == u"H.264"_s);
        }
        verifyChoice(u"Encoding goal"_s, u"Balanced"_s);
        verifyChoice(u"Audio"_s, u"AAC (compatible)"_s);
        const auto hardware =
            window().waitFor(AccessibleItem::named(Role::checkBox, u"Apple media engine"_s));
        QVERIFY(hardware);
        QVERIFY(hardware->is(State::checked));
        QVERIFY(window().waitFor(AccessibleItem::named(Role::label, u"FFmpeg ready"_s)));

        QVERIFY(window().click(Role::radioButton, u"ProRes 422"_s));
        QVERIFY(window().waitForNo([](const AccessibleItem &item) {
            return item.name() == u"H.264"_s && item.is(State::checked);
        }));
        verifyChoice(u"Audio"_s, u"PCM (ProRes workflow)"_s);
    }

    void theQualityHasItsBounds()
    {
        QVERIFY(window().activate());
        QVERIFY(window().tabTo(AccessibleItem::named(Role::comboBox, u"Encoding goal"_s)));
        QVERIFY(window().press(u"Down"_s));
        const auto slider = window().waitFor(AccessibleItem::named(Role::slider, u"Quality"_s));
        QVERIFY(slider);
        QCOMPARE(slider->value(), std::optional(76.0));
        QCOMPARE(slider->minimum(), std::optional(30.0));
        QCOMPARE(slider->maximum(), std::optional(100.0));
    }

    void aRowReadsItsFileFolderStateAndFailure()
    {
        QVERIFY(m_bench->queue({clip(u"b.mp4"_s)}));
        QCOMPARE(window().description(u"b.mp4"_s), u"Trip, Ready"_s);
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().convert(1));
        QVERIFY(window().waitForDescription(u"b.mp4"_s, u"Trip, Failed, "_s));
        QVERIFY(window()
                    .description(u"b.mp4"_s)
                    .contains(u"Invalid data found when processing input"_s));
    }

    void theProgressIsRead()
    {
        QVERIFY(m_bench->queue({clip(u"a.mp4"_s)}));
        QVERIFY(window().chooseOutputFolder(m_bench->outputFolder()));
        QVERIFY(window().convert(1));
        static const QRegularExpression row(u"^Trip, Converting (\\d+)%$"_s);
        const auto rowProgress = [&] {
            const auto match = row.match(window().description(u"a.mp4"_s));
            return match.hasMatch() ? match.captured(1).toDouble() : -1;
        };
        const auto barProgress = [&](const QString &name) {
            const auto item =
                window().application().find(AccessibleItem::named(Role::progressBar, name));
            return item ? item->value().value_or(-1) : -1;
        };
        const auto increases = [](const std::function<double()> &progress) {
            double first = -1;
            return QTest::qWaitFor([&] { return (first = progress()) >= 0; }, patience)
                   && QTest::qWaitFor([&] { return progress() > first; }, patience);
        };
        QVERIFY(increases(rowProgress));
        QVERIFY(increases([&] { return barProgress(u"Progress of a.mp4"_s); }));
        QVERIFY(increases([&] { return barProgress(u"Progress of the queue"_s); }));

        QVERIFY(window().click(Role::button, u"Cancel"_s));
        QVERIFY(window().waitForNo(
            AccessibleItem::named(Role::progressBar, u"Progress of the queue"_s)));
        QVERIFY(
            window().waitForNo(AccessibleItem::named(Role::progressBar, u"Progress of a.mp4"_s)));
    }

private:
    QString clip(const QString &name) const { return m_folder.filePath(u"Trip/"_s + name); }
    const WindowDriver &window() const { return m_bench->window(); }

    void verifyChoice(const QString &picker, const QString &choice)
    {
        const auto item = window().waitFor(AccessibleItem::named(Role::comboBox, picker));
        QVERIFY(item);
        QCOMPARE(item->description(), choice);
    }

    void verifyRolesAndNames()
    {
        const auto items =
            window().application().findAll([](const AccessibleItem &) { return true; });
        QVERIFY(items.size() > 20);
        for (const AccessibleItem &item : items) {
            QVERIFY2(item.role() != Role::none && item.role() != Role::unknown,
                     qPrintable(toString(item)));
            QVERIFY2(!item.name().isEmpty(), qPrintable(toString(item)));
        }
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(ScreenReaderTest)
#include "screenreader_test.moc"
