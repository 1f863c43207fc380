// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/programbench.h"
#include "support/standinportal.h"
#include "support/testclass.h"

#include <QElapsedTimer>
#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The window, while the desktop changes between light and dark, or its font.
class LightAndDarkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<ProgramBench>(m_desktop); }

    void cleanup() { m_bench.reset(); }

    void aChangeIsFollowed_data()
    {
        QTest::addColumn<uint>("colorScheme");
        QTest::newRow("from dark") << dark;
        QTest::newRow("from light") << light;
    }
    void aChangeIsFollowed()
    {
        QFETCH(const uint, colorScheme);
        const uint other = colorScheme == dark ? light : dark;
        StandInPortal settings(m_desktop.session(), colorScheme);
        QVERIFY(m_bench->start());
        QTRY_COMPARE_WITH_TIMEOUT(shown(), colorScheme, patience);
        settings.changeColorScheme(other);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), other, patience);
        settings.changeColorScheme(colorScheme);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), colorScheme, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

    void aPortalMayComeLaterAndRestart()
    {
        QVERIFY(m_bench->start());
        QTRY_COMPARE_WITH_TIMEOUT(shown(), light, patience);
        auto settings = std::make_unique<StandInPortal>(m_desktop.session(), dark);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), dark, patience);
        settings->end();
        settings = std::make_unique<StandInPortal>(m_desktop.session(), light);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), light, patience);
        settings->changeColorScheme(dark);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), dark, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

    void aSilentPortalDoesNotHoldTheWindowUp()
    {
        StandInPortal settings(m_desktop.session(), dark);
        settings.prepare(u"ReadAll"_s, {});
        QElapsedTimer clock;
        clock.start();
        QVERIFY(m_bench->start());
        QVERIFY2(clock.elapsed() < 15'000, qPrintable(QString::number(clock.elapsed())));
    }

    void qtsDialogIsAsTheWindow_data() { aChangeIsFollowed_data(); }
    void qtsDialogIsAsTheWindow()
    {
        QFETCH(const uint, colorScheme);
        const uint other = colorScheme == dark ? light : dark;
        StandInPortal settings(m_desktop.session(), colorScheme);
        settings.prepare(u"OpenFile"_s, {StandInService::refuse()});
        QVERIFY(m_bench->start());
        QTRY_COMPARE_WITH_TIMEOUT(shown(), colorScheme, patience);
        QVERIFY(m_bench->window().activate());
        QVERIFY(m_bench->window().press(u"ctrl+o"_s));
        const auto dialog = m_desktop.display().waitForWindow(u"Choose videos to convert"_s);
        QVERIFY(dialog);
        QTRY_COMPARE_WITH_TIMEOUT(mostOf(*dialog), colorScheme, patience);
        settings.changeColorScheme(other);
        QTRY_COMPARE_WITH_TIMEOUT(mostOf(*dialog), other, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

    void theFontOfTheSettingsIsFollowed()
    {
        const auto group = QString::fromLatin1(StandInPortal::gnomeInterface);
        const QVariantMap font{{u"font-name"_s, u"DejaVu Sans 11"_s}};
        StandInPortal settings(m_desktop.session(), StandInPortal::Settings{{group, font}});
        QVERIFY(m_bench->start());
        QTRY_COMPARE_WITH_TIMEOUT(heightOfAddVideos(), 29, patience);
        settings.change(group, u"font-name"_s, u"DejaVu Sans 16"_s);
        QTRY_COMPARE_WITH_TIMEOUT(heightOfAddVideos(), 43, patience);
        QCOMPARE(m_bench->run().complaints(), QByteArray());
    }

private:
    int heightOfAddVideos() const
    {
        const auto button = m_bench->window().application().find(
            AccessibleItem::named(AccessibleItem::Role::button, u"Add Videos"_s));
        return button ? button->extents().height() : 0;
    }

    // As the portal numbers them.
    static constexpr uint dark = 1;
    static constexpr uint light = 2;

    // What the window's background is; 0 when it cannot be seen.
    uint shown() const
    {
        const QByteArray picture = m_bench->window().restingPicture();
        if (picture.isEmpty())
            return 0;
        const auto cornersBlue = static_cast<uchar>(picture[picture.size() - 4]);
        return cornersBlue < 0x80 ? dark : light;
    }

    // What four fifths of the pixels of a window's content are; 0 when that is neither.
    uint mostOf(const QString &window) const
    {
        const QByteArray picture = m_desktop.display().picture(m_desktop.display().areaOf(window));
        qsizetype darkOnes = 0;
        for (qsizetype blue = 0; blue < picture.size(); blue += 4)
            darkOnes += static_cast<uchar>(picture[blue]) < 0x80 ? 1 : 0;
        const qsizetype all = picture.size() / 4;
        if (darkOnes > all * 4 / 5)
            return dark;
        return all > 0 && darkOnes < all / 5 ? light : 0;
    }

    VirtualDesktop m_desktop;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(LightAndDarkTest)
#include "lightanddark_test.moc"
