// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsv.h"

#include <QTest>

namespace tsv = teskel::tsv;

class TestTsv : public QObject
{
    Q_OBJECT

private slots:
    void escapesAndBack_data();
    void escapesAndBack();
    void unknownEscapesStay();
    void splitsAtTheFirstTab();
    void lineWithoutTabIsRefused();
    void lineEndsWithLineFeed();
    void headwordsAreDividedByBars_data();
    void headwordsAreDividedByBars();
    void everyHeadwordIsReadAgain_data();
    void everyHeadwordIsReadAgain();
    void propertiesBeginWithTwoMarks();
};

void TestTsv::escapesAndBack_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("escaped");
    QTest::newRow("plain") << QByteArray("house") << QByteArray("house");
    QTest::newRow("line feed") << QByteArray("a\nb") << QByteArray("a\\nb");
    QTest::newRow("tab") << QByteArray("a\tb") << QByteArray("a\\tb");
    QTest::newRow("backslash") << QByteArray("a\\b") << QByteArray("a\\\\b");
    QTest::newRow("backslash and n") << QByteArray("a\\nb") << QByteArray("a\\\\nb");
    QTest::newRow("backslash at the end") << QByteArray("a\\") << QByteArray("a\\\\");
    QTest::newRow("all together") << QByteArray("\\\n\t\\\\") << QByteArray("\\\\\\n\\t\\\\\\\\");
    QTest::newRow("empty") << QByteArray() << QByteArray();
}

void TestTsv::escapesAndBack()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, escaped);
    QCOMPARE(QByteArray::fromStdString(tsv::escaped(text.toStdString())), escaped);
    QCOMPARE(QByteArray::fromStdString(tsv::unescaped(escaped.toStdString())), text);
}

void TestTsv::unknownEscapesStay()
{
    QCOMPARE(tsv::unescaped("a\\rb\\"), std::string("a\\rb\\"));
}

void TestTsv::splitsAtTheFirstTab()
{
    std::string_view headword;
    std::string_view article;
    QVERIFY(tsv::split("a\tb\tc", headword, article));
    QCOMPARE(std::string(headword), std::string("a"));
    QCOMPARE(std::string(article), std::string("b\tc"));
    QVERIFY(tsv::split("\t", headword, article));
    QVERIFY(headword.empty() && article.empty());
}

void TestTsv::lineWithoutTabIsRefused()
{
    std::string_view headword;
    std::string_view article;
    QVERIFY(!tsv::split("house Haus", headword, article));
}

void TestTsv::lineEndsWithLineFeed()
{
    QCOMPARE(tsv::line("a\\b", "c\nd"), std::string("a\\\\b\tc\\nd\n"));
}

void TestTsv::headwordsAreDividedByBars_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArrayList>("headwords");
    QTest::newRow("one") << QByteArray("house") << QByteArrayList{"house"};
    QTest::newRow("two") << QByteArray("colour|color") << QByteArrayList{"colour", "color"};
    QTest::newRow("escaped bar") << QByteArray("a\\|b") << QByteArrayList{"a|b"};
    QTest::newRow("backslash before a bar") << QByteArray("a\\\\|b") << QByteArrayList{"a\\", "b"};
    QTest::newRow("empty ones") << QByteArray("|a|| |b|") << QByteArrayList{"a", "b"};
    QTest::newRow("a bar alone") << QByteArray("|") << QByteArrayList{"|"};
    QTest::newRow("nothing") << QByteArray() << QByteArrayList{""};
    QTest::newRow("other escapes") << QByteArray("a\\tb|\\x") << QByteArrayList{"a\tb", "\\x"};
    QTest::newRow("escaped mark") << QByteArray("\\##a|##b") << QByteArrayList{"##a", "##b"};
    QTest::newRow("no mark") << QByteArray("\\#a") << QByteArrayList{"\\#a"};
}

void TestTsv::headwordsAreDividedByBars()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArrayList, headwords);
    QByteArrayList read;
    for (const std::string& headword : tsv::headwords(text.toStdString()))
        read += QByteArray::fromStdString(headword);
    QCOMPARE(read, headwords);
}

void TestTsv::everyHeadwordIsReadAgain_data()
{
    QTest::addColumn<QByteArray>("headword");
    for (const char* headword : {"house", "|", "||", "a|b", "a\\|b", "\\", "\\\\|", "##", "##a",
                                 "\\##a", "#a", "a##", "a\tb\n"})
        QTest::newRow(headword) << QByteArray(headword);
}

void TestTsv::everyHeadwordIsReadAgain()
{
    QFETCH(QByteArray, headword);
    const std::string line = tsv::line(headword.toStdString(), "x");
    std::string_view written;
    std::string_view article;
    QVERIFY(tsv::split(line, written, article));
    QVERIFY(tsv::propertyName(written).empty());
    QCOMPARE(tsv::headwords(written), std::vector<std::string>{headword.toStdString()});
}

void TestTsv::propertiesBeginWithTwoMarks()
{
    QCOMPARE(tsv::propertyName("##description"), std::string_view("description"));
    QCOMPARE(tsv::propertyName("#1"), std::string_view());
    QCOMPARE(tsv::propertyName("\\##1"), std::string_view());
}

QTEST_APPLESS_MAIN(TestTsv)
#include "test_tsv.moc"
