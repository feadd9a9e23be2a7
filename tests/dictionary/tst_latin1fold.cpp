// SPDX-License-Identifier: MIT
#include "dictionary/latin1fold.h"

#include <QTest>

using teskel::foldByte;
using teskel::foldedCompare;

class TestLatin1Fold : public QObject
{
    Q_OBJECT

private slots:
    void foldsLatin1WhateverTheLocale();
    void compares_data();
    void compares();
    void comparesAtMostSoManyBytes();
};

// Against Qt's Unicode tables, which know the capital of every Latin-1 letter.
void TestLatin1Fold::foldsLatin1WhateverTheLocale()
{
    for (int byte = 0; byte < 256; ++byte) {
        const QChar upper = QChar(byte).toUpper();
        const int expected = byte != 0xB5 && upper.unicode() < 256 ? upper.unicode() : byte;
        QCOMPARE(int{foldByte(static_cast<unsigned char>(byte))}, expected);
    }
    QCOMPARE(foldByte(0xF7), 0xF7); // division sign
    QCOMPARE(foldByte(0xFF), 0xFF); // its capital is no Latin-1 letter
    QCOMPARE(foldByte(0xDF), 0xDF); // sharp s
}

void TestLatin1Fold::compares_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("sign");
    QTest::newRow("equal but for case") << QByteArray("apple") << QByteArray("APPLE") << 0;
    QTest::newRow("nothing is ignored") << QByteArray("ab") << QByteArray("a-b") << 1;
    QTest::newRow("shorter is less") << QByteArray("house") << QByteArray("houses") << -1;
    QTest::newRow("empty is least") << QByteArray() << QByteArray(" ") << -1;
    QTest::newRow("both empty") << QByteArray() << QByteArray() << 0;
    QTest::newRow("bytes above 127 are greater") << QByteArray("\xE4") << QByteArray("z") << 1;
    QTest::newRow("accents fold") << QByteArray("\xE4"
                                                "rger")
                                  << QByteArray("\xC4RGER") << 0;
    QTest::newRow("underscore after capitals") << QByteArray("a_b") << QByteArray("azb") << 1;
}

void TestLatin1Fold::compares()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(int, sign);
    const auto signOf = [](int value) { return (value > 0) - (value < 0); };
    QCOMPARE(signOf(foldedCompare(a.constData(), b.constData())), sign);
    QCOMPARE(signOf(foldedCompare(b.constData(), a.constData())), -sign);
}

void TestLatin1Fold::comparesAtMostSoManyBytes()
{
    QCOMPARE(foldedCompare("house-boat", "HOUSE", 5), 0);
    QVERIFY(foldedCompare("house-boat", "HOUSE", 6) > 0);
    QVERIFY(foldedCompare("ho", "house", 5) < 0);
    QCOMPARE(foldedCompare("ab", "AB", 100), 0);
    QCOMPARE(foldedCompare("a", "b", 0), 0);
}

QTEST_GUILESS_MAIN(TestLatin1Fold)
#include "tst_latin1fold.moc"
