// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/busfilemanager.h"
#include "support/patience.h"
#include "support/privatebus.h"
#include "support/standinservice.h"
#include "support/testclass.h"

#include <QDesktopServices>
#include <QTest>

using namespace quorvale;
using namespace quorvale::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

// A file manager on the bus.
class StandInFileManager : public StandInService
{
public:
    explicit StandInFileManager(const PrivateBus &bus, const Script &manner = {reply()})
        : StandInService(bus, u"org.freedesktop.FileManager1"_s, {{u"ShowItems"_s, manner}})
    {
    }

    QList<QVariantList> shown() const { return calls(u"ShowItems"_s); }
};

} // namespace

class BusFileManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_opened.clear();
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        m_bus = std::make_unique<PrivateBus>();
    }

    void cleanup()
    {
        QDesktopServices::unsetUrlHandler(u"file"_s);
        m_bus.reset();
    }

    void asksTheFileManagerForTheFolder_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("uri");
        QTest::newRow("plain") << u"/out"_s << u"file:///out"_s;
        QTest::newRow("spaces") << u"/my videos/for export"_s
                                << u"file:///my%20videos/for%20export"_s;
        QTest::newRow("characters of URLs")
            << u"/a/50% #1?%20"_s << u"file:///a/50%25%20%231%3F%2520"_s;
        QTest::newRow("letters") << u"/vidéos/日本"_s
                                 << u"file:///vid%C3%A9os/%E6%97%A5%E6%9C%AC"_s;
        QTest::newRow("a slash at the end") << u"/out/"_s << u"file:///out"_s;
        QTest::newRow("the root") << u"/"_s << u"file:///"_s;
    }
    void asksTheFileManagerForTheFolder()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, uri);
        const StandInFileManager service(*m_bus);
        make().reveal(QUrl::fromLocalFile(path));
        QTRY_COMPARE_WITH_TIMEOUT(service.shown(),
                                  QList<QVariantList>(1, {QStringList{uri}, QString()}), patience);
        QTest::qWait(100);
        QCOMPARE(m_opened, QList<QUrl>{});
    }

    void opensTheParentWhenThereIsNoBus()
    {
        BusFileManager files([] { return QDBusConnection(u"no such bus"_s); });
        files.reveal(QUrl::fromLocalFile(u"/videos/50% out"_s));
        QCOMPARE(m_opened, QList{QUrl::fromLocalFile(u"/videos"_s)});
    }

    void opensTheParentWhenThereIsNoFileManager()
    {
        make().reveal(QUrl::fromLocalFile(u"/videos/50% #1?/out"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_opened, QList{QUrl::fromLocalFile(u"/videos/50% #1?"_s)},
                                  patience);
    }

    void opensTheParentWhenTheFileManagerRefuses()
    {
        const StandInFileManager service(*m_bus, {StandInService::refuse()});
        make().reveal(QUrl::fromLocalFile(u"/videos/out/"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_opened, QList{QUrl::fromLocalFile(u"/videos"_s)}, patience);
        QTRY_COMPARE_WITH_TIMEOUT(service.shown().size(), 1, patience); // said after the answer
    }

    void opensTheParentWhenTheFileManagerKeepsSilent()
    {
        const StandInFileManager service(*m_bus, {});
        make(200ms).reveal(QUrl::fromLocalFile(u"/out"_s));
        QCOMPARE(m_opened.size(), 0); // the caller does not wait for it
        QTRY_COMPARE_WITH_TIMEOUT(m_opened, QList{QUrl::fromLocalFile(u"/"_s)}, patience);
    }

    void opensTheParentWhenTheFileManagerEndsMeanwhile()
    {
        StandInFileManager service(*m_bus, {});
        make().reveal(QUrl::fromLocalFile(u"/videos/out"_s));
        QTRY_COMPARE_WITH_TIMEOUT(service.shown().size(), 1, patience);
        QCOMPARE(m_opened.size(), 0);
        service.end();
        QTRY_COMPARE_WITH_TIMEOUT(m_opened, QList{QUrl::fromLocalFile(u"/videos"_s)}, patience);
    }

    void showsTheRootItselfWhenThereIsNoFileManager()
    {
        make().reveal(QUrl::fromLocalFile(u"/"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_opened, QList{QUrl::fromLocalFile(u"/"_s)}, patience);
    }

public Q_SLOTS:
    // Takes the place of the desktop's opener of folders.
    void open(const QUrl &url) { m_opened << url; }

private:
    BusFileManager make(std::chrono::milliseconds patience = 15s) const
    {
        return BusFileManager([this] { return m_bus->connection(u"program"_s); }, patience);
    }

    std::unique_ptr<PrivateBus> m_bus;
    QList<QUrl> m_opened;
};

QUORVALE_TEST(BusFileManagerTest)
#include "busfilemanager_test.moc"
