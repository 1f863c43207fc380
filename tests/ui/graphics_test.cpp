// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "support/patience.h"
#include "support/permissions.h"
#include "support/programrun.h"
#include "support/testclass.h"
#include "support/virtualdisplay.h"
#include "ui/graphics.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace quorvale;
using namespace quorvale::test;
using namespace Qt::StringLiterals;

namespace {

// A file system in which Linux tells about its devices.
class FakeSystem
{
public:
    QString root() const { return m_folder.path(); }

    bool addFile(const QString &path, const QByteArray &content = {}) const
    {
        const QString whole = root() + path;
        QFile file(whole);
        return QDir().mkpath(QFileInfo(whole).path()) && file.open(QIODevice::WriteOnly)
               && file.write(content) == content.size();
    }

    // A node for drawing, of a device with a driver. Without a driver's name it has none.
    bool addNode(const QString &name, const QString &device, const QString &driver,
                 const QByteArray &features) const
    {
        const QString kernel = root() + u"/sys/class/drm/"_s + name;
        const QString hardware = root() + u"/sys/devices/"_s + device;
        return addFile(u"/dev/dri/"_s + name) && QDir().mkpath(kernel) && QDir().mkpath(hardware)
               && QFile::link(hardware, kernel + u"/device"_s)
               && (driver.isEmpty()
                   || QFile::link(u"../../bus/drivers/"_s + driver, hardware + u"/driver"_s))
               && (features.isEmpty()
                   || addFile(u"/sys/devices/"_s + device + u"/features"_s, features));
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

// Who draws the window.
class GraphicsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsNoProcessorInAnEmptySystem() { QVERIFY(!hasGraphicsProcessor(FakeSystem().root())); }

    // A screen alone, such as a server's or a virtual machine's, draws nothing.
    void findsNoProcessorInAScreen()
    {
        const FakeSystem system;
        QVERIFY(system.addFile(u"/dev/dri/card0"_s));
        QVERIFY(!hasGraphicsProcessor(system.root()));
    }

    void knowsProcessors_data()
    {
        QTest::addColumn<QString>("device");
        QTest::addColumn<QString>("driver");
        QTest::addColumn<QByteArray>("features");
        QTest::addColumn<bool>("isProcessor");
        const QByteArray without = "0011000000000000000000000000110000000000";
        const QByteArray with = "1111000000000000000000000000110000000000";
        QTest::newRow("a card") << u"pci0"_s << u"i915"_s << QByteArray() << true;
        QTest::newRow("one unheard of") << u"pci0"_s << u"unheardof"_s << QByteArray() << true;
        QTest::newRow("a virtual one") << u"virtio2"_s << u"virtio_gpu"_s << with << true;
        QTest::newRow("that does not draw") << u"virtio2"_s << u"virtio_gpu"_s << without << false;
        QTest::newRow("that does not say")
            << u"virtio2"_s << u"virtio_gpu"_s << QByteArray() << false;
        QTest::newRow("memory only") << u"vgem"_s << QString() << QByteArray() << false;
    }
    void knowsProcessors()
    {
        QFETCH(const QString, device);
        QFETCH(const QString, driver);
        QFETCH(const QByteArray, features);
        const FakeSystem system;
        QVERIFY(system.addNode(u"renderD128"_s, device, driver, features));
        QTEST(hasGraphicsProcessor(system.root()), "isProcessor");
    }

    void looksAtEveryNode()
    {
        const FakeSystem system;
        QVERIFY(system.addNode(u"renderD128"_s, u"vgem"_s, {}, {}));
        QVERIFY(system.addNode(u"renderD129"_s, u"pci0"_s, u"amdgpu"_s, {}));
        QVERIFY(hasGraphicsProcessor(system.root()));
    }

    void knowsProcessorsWithDriversOfTheirMakers()
    {
        const FakeSystem system;
        QVERIFY(system.addFile(u"/dev/nvidia0"_s));
        QVERIFY(hasGraphicsProcessor(system.root()));
    }

    void leavesAloneWhatItMayNotUse()
    {
        const FakeSystem system;
        QVERIFY(system.addNode(u"renderD128"_s, u"pci0"_s, u"i915"_s, {}));
        const QString node = system.root() + u"/dev/dri/renderD128"_s;
        QVERIFY(QFile::setPermissions(node, QFileDevice::ReadOwner));
        bool isFound = true;
        std::thread ordinaryUser([&] {
            letPermissionsBind();
            isFound = hasGraphicsProcessor(system.root());
        });
        ordinaryUser.join();
        QVERIFY(!isFound);
    }

    // The program itself, on a display in memory.
    void drawsWithWhatIsBest_data()
    {
        const QByteArray itself = "Loading backend software";
        const QByteArray openGL = "Using QRhi with backend OpenGL";
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("as it likes") << QString() << QString() << itself;
        QTest::newRow("large pixels") << u"QT_SCALE_FACTOR"_s << u"2"_s << itself;
        QTest::newRow("by the backend") << u"QT_QUICK_BACKEND"_s << u"rhi"_s << openGL;
        QTest::newRow("by the interface") << u"QSG_RHI_BACKEND"_s << u"opengl"_s << openGL;
    }
    void drawsWithWhatIsBest()
    {
        QFETCH(const QString, variable);
        QFETCH(const QString, value);
        QFETCH(const QByteArray, message);
        ProgramRun run;
        run.showOn(m_display);
        run.set(u"QSG_INFO"_s, u"1"_s);
        if (!variable.isEmpty())
            run.set(variable, value);
        QVERIFY(run.start());
        QTRY_VERIFY2_WITH_TIMEOUT(run.standardError().contains(message),
                                  run.standardError().constData(), patience);
    }

private:
    VirtualDisplay m_display;
};

QUORVALE_TEST(GraphicsTest)
#include "graphics_test.moc"
