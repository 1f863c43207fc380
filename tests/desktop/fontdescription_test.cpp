// SPDX-FileCopyrightText: 2026 The Quorvale authors
// SPDX-License-Identifier: MIT

#include "desktop/fontdescription.h"
#include "support/testclass.h"

#include <QTest>

using namespace quorvale;
using namespace Qt::StringLiterals;

class FontDescriptionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isRead_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<double>("points");
        QTest::addColumn<int>("weight");
        QTest::addColumn<bool>("isItalic");
        QTest::newRow("Cantarell 11") << u"Cantarell"_s << 11.0 << 400 << false;
        QTest::newRow("Noto Sans 10.5") << u"Noto Sans"_s << 10.5 << 400 << false;
        QTest::newRow("Noto Sans, 10") << u"Noto Sans"_s << 10.0 << 400 << false;
        QTest::newRow("Noto Sans Medium 10") << u"Noto Sans"_s << 10.0 << 500 << false;
        QTest::newRow("Inter Semi-Bold 9") << u"Inter"_s << 9.0 << 600 << false;
        QTest::newRow("Inter Bold Italic 16") << u"Inter"_s << 16.0 << 700 << true;
        QTest::newRow("  DejaVu Sans  Regular 13 ") << u"DejaVu Sans"_s << 13.0 << 400 << false;
        QTest::newRow("Black 12") << u"Black"_s << 12.0 << 400 << false;
        QTest::newRow("Arial Black Bold 12") << u"Arial"_s << 12.0 << 900 << false;
    }
    void isRead()
    {
        const auto font = describedFont(QString::fromLatin1(QTest::currentDataTag()));
        QVERIFY(font);
        QTEST(font->family(), "family");
        QTEST(font->pointSizeF(), "points");
        QTEST(int(font->weight()), "weight");
        QTEST(font->italic(), "isItalic");
    }

    void aSizeMayBeInPixels()
    {
        const auto font = describedFont(u"Cantarell 15px"_s);
        QVERIFY(font);
        QCOMPARE(font->pixelSize(), 15);
        QCOMPARE(font->family(), u"Cantarell"_s);
    }

    void anythingElseIsNone_data()
    {
        QTest::addColumn<QString>("description");
        for (const auto &text : {u""_s, u"Cantarell"_s, u"11"_s, u"Cantarell eleven"_s,
                                 u"Cantarell -3"_s, u"Cantarell 0"_s, u"Cantarell nan"_s,
                                 u"Cantarell inf"_s, u"Cantarell 1e9"_s, u"Cantarell px"_s})
            QTest::newRow(qPrintable(text)) << text;
        QTest::newRow("too long") << QString(1022, u'a') + u" 11"_s;
    }
    void anythingElseIsNone()
    {
        QFETCH(const QString, description);
        QVERIFY(!describedFont(description));
    }
};

QUORVALE_TEST(FontDescriptionTest)
#include "fontdescription_test.moc"
