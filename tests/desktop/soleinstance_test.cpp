// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/soleinstance.h"
#include "support/testclass.h"

#include <QFileOpenEvent>
#include <QSignalSpy>
#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

// What the system hands over where it starts no second process.
class SoleInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheWindowAtOnce() { QCOMPARE(SoleInstance().place(), Instance::Place::own); }

    void takesFilesOver()
    {
        const SoleInstance instance;
        const QSignalSpy spy(&instance, &Instance::handedOver);
        const QUrl file = QUrl::fromLocalFile(u"/videos/50% #1?.mp4"_s);
        QFileOpenEvent event(file);
        QVERIFY(QCoreApplication::sendEvent(qApp, &event));
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().at(0).value<QList<QUrl>>(), QList<QUrl>{file});
    }
};

QUORVALE_TEST(SoleInstanceTest)
#include "soleinstance_test.moc"
