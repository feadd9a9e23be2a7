// SPDX-License-Identifier: MIT
#include "lexicon/packing/huffmancode.h"

#include <QTest>

#include <array>
#include <vector>

using teskel::HuffmanCode;

class TestHuffmanCode : public QObject
{
    Q_OBJECT

private slots:
    void noSymbolIsLoneZero();
    void oneSymbolNeedsNoBits();
    void moreFrequentSymbolsAreNotLonger();
    void lengthsStayWithinSixteenBits_data();
    void lengthsStayWithinSixteenBits();
    void codesAreCanonical();
    void usedSymbolsEndsAtTheLastUsedOne();
};

namespace
{

/// Sum of 2^(16 - length): 65,536 for a complete code.
quint64 spaceOf(const HuffmanCode& code)
{
    quint64 space = 0;
    for (unsigned symbol = 0; symbol < code.symbolCount(); ++symbol) {
        if (code.length(symbol) > 0)
            space += quint64{1} << (HuffmanCode::maxLength - code.length(symbol));
    }
    return space;
}

} // namespace

void TestHuffmanCode::noSymbolIsLoneZero()
{
    const HuffmanCode code(std::vector<uint32_t>(17, 0));
    QVERIFY(code.isLone());
    QCOMPARE(code.loneSymbol(), 0U);
}

void TestHuffmanCode::oneSymbolNeedsNoBits()
{
    std::vector<uint32_t> counts(510, 0);
    counts[300] = 7;
    const HuffmanCode code(counts);
    QVERIFY(code.isLone());
    QCOMPARE(code.loneSymbol(), 300U);
    QCOMPARE(code.length(300), 0U);
}

void TestHuffmanCode::moreFrequentSymbolsAreNotLonger()
{
    const std::vector<uint32_t> counts = {5, 90, 0, 1, 40, 40, 2};
    const HuffmanCode code(counts);
    for (unsigned a = 0; a < counts.size(); ++a) {
        for (unsigned b = 0; b < counts.size(); ++b) {
            if (counts[a] > counts[b] && counts[b] > 0)
                QVERIFY(code.length(a) <= code.length(b));
        }
    }
    QCOMPARE(code.length(2), 0U);
    QCOMPARE(spaceOf(code), quint64{65536});
}

void TestHuffmanCode::lengthsStayWithinSixteenBits_data()
{
    QTest::addColumn<int>("symbols");
    QTest::addColumn<bool>("fibonacci");
    for (const int symbols : {2, 3, 16, 17, 18, 22, 40})
        QTest::addRow("fibonacci %d", symbols) << symbols << true;
    for (const int symbols : {2, 255, 510})
        QTest::addRow("equal %d", symbols) << symbols << false;
}

void TestHuffmanCode::lengthsStayWithinSixteenBits()
{
    QFETCH(int, symbols);
    QFETCH(bool, fibonacci);
    std::vector<uint32_t> counts(static_cast<size_t>(symbols), 1);
    // Fibonacci counts give the deepest trees that there are.
    for (size_t i = 2; fibonacci && i < counts.size(); ++i)
        counts[i] = counts[i - 1] + counts[i - 2];
    const HuffmanCode code(counts);
    for (unsigned symbol = 0; symbol < code.symbolCount(); ++symbol) {
        QVERIFY(code.length(symbol) >= 1);
        QVERIFY(code.length(symbol) <= HuffmanCode::maxLength);
    }
    QCOMPARE(spaceOf(code), quint64{65536});
}

void TestHuffmanCode::codesAreCanonical()
{
    const HuffmanCode code(std::array<uint32_t, 4>{1, 1, 2, 4});
    QCOMPARE(code.length(3), 1U);
    QCOMPARE(code.code(3), 0U);
    QCOMPARE(code.length(2), 2U);
    QCOMPARE(code.code(2), 2U);
    QCOMPARE(code.length(0), 3U);
    QCOMPARE(code.code(0), 6U);
    QCOMPARE(code.length(1), 3U);
    QCOMPARE(code.code(1), 7U);
}

void TestHuffmanCode::usedSymbolsEndsAtTheLastUsedOne()
{
    std::vector<uint32_t> counts(19, 0);
    counts[2] = 3;
    counts[11] = 1;
    QCOMPARE(HuffmanCode(counts).usedSymbols(), 12U);
}

QTEST_APPLESS_MAIN(TestHuffmanCode)
#include "test_huffmancode.moc"
