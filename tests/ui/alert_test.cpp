// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/programbench.h"
#include "support/testclass.h"

#include <QFile>
#include <QTest>

using namespace quorvale::test;
using namespace Qt::StringLiterals;

using Role = AccessibleItem::Role;
using State = AccessibleItem::State;

// The message box that says why a batch does not start.
class AlertTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QFile(video()).open(QIODevice::WriteOnly)); }

    void init()
    {
        m_bench = std::make_unique<ProgramBench>(m_desktop);
        QVERIFY(m_bench->start());
        QVERIFY(m_bench->queue({video()}));
        QVERIFY(window().convert(1));
        QVERIFY(isShown());
    }

    void cleanup() { m_bench.reset(); }

    void saysWhatIsMissing()
    {
        const auto box = window().waitFor(alert);
        QVERIFY(box);
        QVERIFY(box->find(AccessibleItem::named(Role::heading, u"Quorvale"_s)));
        const QList<AccessibleItem> buttons = box->findAll(Role::button);
        QCOMPARE(buttons.size(), 1);
        QCOMPARE(buttons.first().name(), u"OK"_s);
        QVERIFY(buttons.first().is(State::focused));
        QVERIFY(m_bench->outputs().isEmpty());
    }

    void isDismissed_data()
    {
        QTest::addColumn<QString>("key");
        QTest::newRow("Escape") << u"Escape"_s;
        QTest::newRow("Return") << u"Return"_s;
        QTest::newRow("Enter") << u"KP_Enter"_s;
        QTest::newRow("Space") << u"space"_s;
        QTest::newRow("mouse") << QString();
    }
    void isDismissed()
    {
        QFETCH(const QString, key);
        dismiss(key);
        // The same text again is a new alert, which can be dismissed, too.
        QVERIFY(window().convert(1));
        QVERIFY(isShown());
        dismiss(key);
        QCOMPARE(window().rowNames(), QStringList(u"a.mp4"_s));
    }

    void keepsTheKeyboard()
    {
        for (const QString &key : {u"Tab"_s, u"Tab"_s, u"shift+Tab"_s}) {
            QVERIFY(window().press(key));
            QTest::qWait(500); // for the key to arrive
            const auto focused = window().focused();
            QVERIFY(focused);
            QCOMPARE(focused->name(), u"OK"_s);
        }
    }

    void keepsTheMouseFromTheWindow()
    {
        QVERIFY(window().click(Role::button, u"Remove from queue"_s));
        QVERIFY(isShown());
        dismiss(u"Escape"_s);
        QCOMPARE(window().rowNames(), QStringList(u"a.mp4"_s));
    }

private:
    const AccessibleItem::Condition alert = AccessibleItem::named(Role::dialog, u"Quorvale"_s);

    QString video() const { return m_folder.filePath(u"a.mp4"_s); }
    const WindowDriver &window() const { return m_bench->window(); }

    bool isShown() const
    {
        const auto box = window().waitFor(alert);
        return box
               && box->find(
                   AccessibleItem::named(Role::label, u"Choose an output folder first."_s));
    }

    // By the key or, without one, by the button.
    void dismiss(const QString &key)
    {
        QVERIFY(key.isEmpty() ? window().click(Role::button, u"OK"_s) : window().press(key));
        QVERIFY(window().waitForNo(alert));
    }

    VirtualDesktop m_desktop;
    QTemporaryDir m_folder;
    std::unique_ptr<ProgramBench> m_bench;
};

QUORVALE_TEST(AlertTest)
#include "alert_test.moc"
