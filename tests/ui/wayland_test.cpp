// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/dragsource.h"
#include "support/patience.h"
#include "support/programrun.h"
#include "support/standinportal.h"
#include "support/testclass.h"
#include "support/virtualdesktop.h"
#include "support/waylanddisplay.h"

#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

// The program in a Wayland session, without X11.
class WaylandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_run = std::make_unique<ProgramRun>();
        m_run->showOn(m_desktop, m_display);
    }

    void cleanup()
    {
        m_run.reset();
        QTRY_VERIFY_WITH_TIMEOUT(!m_display.window(u"Quorvale"_s), patience);
        QVERIFY(m_display.command(u"output * scale 1"_s));
    }

    void belongsToItsDesktopEntry()
    {
        QVERIFY(start());
        QCOMPARE(m_display.window(u"Quorvale"_s)->id, u"org.quorvale.Quorvale"_s);
        QCOMPARE(m_run->complaints(), QByteArray());
    }

    void isNoSmallerThanItsLeastSize()
    {
        const QSize least(960, 640);
        QVERIFY(start());
        QCOMPARE(area().size(), least);
        QVERIFY(resizeBy({60, 40}));
        QTRY_COMPARE_WITH_TIMEOUT(area().size(), least + QSize(60, 40), patience);
        QVERIFY(resizeBy({-400, -300}));
        QTRY_COMPARE_WITH_TIMEOUT(area().size(), least, patience);
        QCOMPARE(m_run->complaints(), QByteArray());
    }

    // Where the desktop leaves it to programs, and Qt draws it.
    void theTitleBarIsAsTheWindow()
    {
        constexpr uint dark = 1;
        constexpr uint light = 2;
        StandInPortal settings(m_desktop.session(), dark);
        QVERIFY(start());
        QVERIFY(m_display.command(u"[title=\"^Quorvale$\"] border csd"_s));
        QTRY_VERIFY_WITH_TIMEOUT(area().height() > 640 && titleBarsLightness() < 0x60, patience);
        settings.changeColorScheme(light);
        QTRY_VERIFY_WITH_TIMEOUT(titleBarsLightness() > 0xa0, patience);
        settings.changeColorScheme(dark);
        QTRY_VERIFY_WITH_TIMEOUT(titleBarsLightness() < 0x60, patience);
        QCOMPARE(area().width(), 960 + 2 * 3);
        QCOMPARE(m_run->complaints(), QByteArray());
    }

    void takesWhatIsDropped()
    {
        QVERIFY(start());
        QTemporaryDir folder;
        QFile clip(folder.filePath(u"clip.mp4"_s));
        QVERIFY(clip.open(QIODevice::WriteOnly));
        QProcessEnvironment environment = m_desktop.display().environment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        environment.insert(u"WAYLAND_DISPLAY"_s, m_display.name());
        DragSource source(m_desktop.display(), environment, {clip.fileName()});
        QTRY_VERIFY_WITH_TIMEOUT(m_display.window(u"Drag source"_s), patience);
        QVERIFY(source.drop(m_display.window(u"Drag source"_s)->area, area()));
        const auto row = AccessibleItem::named(AccessibleItem::Role::listItem, u"clip.mp4"_s);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.application(m_run->id())->find(row), patience);
        QCOMPARE(m_run->complaints(), QByteArray());
    }

    // A pixel of the window is one of the screen, and the window as large to the eye as ever.
    void isFineOnAFineScreen()
    {
        QVERIFY(m_display.command(u"output * scale 2"_s));
        m_run->set(u"WAYLAND_DEBUG"_s, u"client"_s); // it says what it tells the compositor
        QVERIFY(start());
        QCOMPARE(area().size(), QSize(960, 640));
        QVERIFY(m_run->standardError().contains(".set_buffer_scale(2)"));
    }

    // By the token of the start, under either name, so that the desktop does not wait for it.
    void isWhatTheUserHasStarted_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::newRow("of the desktop") << u"XDG_ACTIVATION_TOKEN"_s;
        QTest::newRow("of older ones") << u"DESKTOP_STARTUP_ID"_s;
    }
    void isWhatTheUserHasStarted()
    {
        QFETCH(const QString, variable);
        m_run->set(variable, u"of-this-start"_s);
        m_run->set(u"WAYLAND_DEBUG"_s, u"client"_s);
        QVERIFY(start());
        QTRY_VERIFY_WITH_TIMEOUT(
            m_run->standardError().contains(".activate(\"of-this-start\", wl_surface@"), patience);
    }

    // By a name that the compositor gives it for as long as the chooser is open. The window can be
    // closed meanwhile.
    void aChooserBelongsToIt()
    {
        StandInPortal portal(m_desktop.session());
        m_run->set(u"WAYLAND_DEBUG"_s, u"client"_s);
        QVERIFY(start());
        QVERIFY(m_desktop.display().xdotool({u"key"_s, u"ctrl+o"_s}));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"OpenFile"_s).size(), 1, patience);
        const QString name = portal.calls(u"OpenFile"_s)[0].value(0).toString();
        QVERIFY2(name.startsWith("wayland:"_L1), qPrintable(name));
        const QByteArray begin = "handle(\"" + name.mid(8).toUtf8() + "\")";
        QTRY_VERIFY_WITH_TIMEOUT(m_run->standardError().contains(begin), patience);
        const QByteArray end = "-> zxdg_exported_v2@";
        QVERIFY(!m_run->standardError().contains(end));
        QVERIFY(m_display.command(u"[title=\"^Quorvale$\"] kill"_s));
        QCOMPARE(m_run->waitForEnd(), std::optional(0));
        QTRY_COMPARE_WITH_TIMEOUT(portal.calls(u"Close"_s).size(), 1, patience);
        QVERIFY(m_run->standardError().contains(end));
    }

    // By what the compositor gives out for that; without it, one that is open already would not.
    void aFileManagerMayComeToTheFront()
    {
        const StandInService files(m_desktop.session(), u"org.freedesktop.FileManager1"_s,
                                   {{u"ShowItems"_s, {StandInService::reply()}}});
        const StandInPortal portal(m_desktop.session());
        portal.prepare(u"OpenFile"_s,
                       {StandInService::replyRequest(),
                        StandInPortal::respond(StandInPortal::success, {u"file:///out"_s})});
        m_run->set(u"WAYLAND_DEBUG"_s, u"client"_s);
        QVERIFY(start());
        using Role = AccessibleItem::Role;
        const auto press = [this](const AccessibleItem::Condition &button) {
            std::optional<AccessibleItem> item;
            return QTest::qWaitFor(
                       [&] {
                           item = m_desktop.application(m_run->id())->find(button);
                           return item.has_value();
                       },
                       patience)
                   && item->act(u"Press"_s);
        };
        QVERIFY(press(AccessibleItem::beginning(Role::button, u"Save to "_s)));
        QVERIFY(press(AccessibleItem::named(Role::button, u"Show output folder"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(files.calls(u"ShowItems"_s).size(), 1, patience);
        const QVariantList call = files.calls(u"ShowItems"_s)[0];
        QCOMPARE(call[0].toStringList(), QStringList{u"file:///out"_s});
        QVERIFY(!call[1].toString().isEmpty());
        QVERIFY(m_run->standardError().contains("xdg_activation_token_v1@"));
        QVERIFY(m_run->standardError().contains(".done(\"" + call[1].toByteArray() + "\")"));
    }

private:
    bool start()
    {
        return m_run->start()
               && QTest::qWaitFor([this] { return m_display.window(u"Quorvale"_s).has_value(); },
                                  patience)
               && !m_desktop.display().restingPicture(area()).isEmpty();
    }

    QRect area() const
    {
        const auto window = m_display.window(u"Quorvale"_s);
        return window ? window->area : QRect();
    }

    // From 0 to 255, beside the title.
    int titleBarsLightness() const
    {
        const QRect place(area().topLeft() + QPoint(100, 15), QSize(1, 1));
        return static_cast<uchar>(m_desktop.display().picture(place)[0]);
    }

    // Drags the window's lower right corner, as far as the window lets it.
    bool resizeBy(const QPoint &offset) const
    {
        const QPoint start = area().bottomRight() - QPoint(20, 20);
        const auto at = [](const QPoint &place) {
            return QStringList{u"mousemove"_s, QString::number(place.x()),
                               QString::number(place.y())};
        };
        const QStringList rest{u"sleep"_s, u"0.1"_s};
        const QStringList press{u"keydown"_s, u"super"_s, u"mousedown"_s, u"3"_s};
        const QStringList release{u"mouseup"_s, u"3"_s, u"keyup"_s, u"super"_s};
        return m_desktop.display()
            .xdotool(at(start) + rest + press + rest + at(start + offset / 2) + rest
                     + at(start + offset) + rest + release)
            .has_value();
    }

    const VirtualDesktop m_desktop;
    const WaylandDisplay m_display{m_desktop.display()};
    std::unique_ptr<ProgramRun> m_run;
};

QUORVALE_TEST(WaylandTest)
#include "wayland_test.moc"
