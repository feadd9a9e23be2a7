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

QTEST_APPLESS_MAIN(TestTsv)
#include "test_tsv.moc"
