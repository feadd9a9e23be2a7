// SPDX-License-Identifier: MIT
#include "lookup/lexicontext.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestLexiconText : public QObject
{
    Q_OBJECT

private slots:
    void headwordsHoldComposedLetters();
    void refusesWhatNoHeadwordHolds_data();
    void refusesWhatNoHeadwordHolds();
    void wordsAreAskedForWithoutControlCharactersAndAtLastWithoutOuterBlanks_data();
    void wordsAreAskedForWithoutControlCharactersAndAtLastWithoutOuterBlanks();
    void textsThatNoHeadwordIsAsLongAsAreNotConvertedWhole();
    void stripsOuterPunctuation_data();
    void stripsOuterPunctuation();
};

void TestLexiconText::headwordsHoldComposedLetters()
{
    const QString typed = u"Mu\u0308he"_s;
    QVERIFY(!teskel::toLexiconBytes(typed));
    QCOMPARE(teskel::toLexiconBytes(teskel::askedWords(typed).first()), QByteArray("M\xFChe"));
    QCOMPARE(teskel::askedWords(u"\u00B2\u00BC\u00FF"_s), QStringList{u"\u00B2\u00BC\u00FF"_s});
}

void TestLexiconText::refusesWhatNoHeadwordHolds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing wrong") << u"a\u00FFb"_s << 3;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("Cyrillic at the end") << u"haus\u0436"_s << 4;
    QTest::newRow("Cyrillic at the start") << u"\u0436haus"_s << 0;
    QTest::newRow("NUL") << QString(u"ha"_s + QChar(0) + u"us"_s) << 2;
    QTest::newRow("outside the basic plane") << u"a\U0001F600"_s << 1;
    QTest::newRow("first beyond Latin-1") << u"\u0100"_s << 0;
}

void TestLexiconText::refusesWhatNoHeadwordHolds()
{
    QFETCH(QString, text);
    QFETCH(int, length);
    QCOMPARE(teskel::lexiconLength(text), length);
    QCOMPARE(teskel::toLexiconBytes(text).has_value(), length == text.size());
}

void TestLexiconText::wordsAreAskedForWithoutControlCharactersAndAtLastWithoutOuterBlanks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("word") << u"house"_s << QStringList{u"house"_s};
    QTest::newRow("decomposed") << u"Mu\u0308he"_s << QStringList{u"M\u00FChe"_s};
    QTest::newRow("another script") << u"вода"_s << QStringList{u"voda"_s};
    QTest::newRow("another script in lines")
        << u"пить\u2028воду\r\n"_s << QStringList{u"pit vodu"_s};
    QTest::newRow("another script with blanks around")
        << u" вода\u3000"_s << QStringList{u" voda "_s, u"voda"_s};
    QTest::newRow("line feed at the end") << u"house\n"_s << QStringList{u"house"_s};
    QTest::newRow("line end of another system") << u"house\r\n"_s << QStringList{u"house"_s};
    QTest::newRow("tab at the start") << u"\thouse"_s << QStringList{u"house"_s};
    QTest::newRow("line feed inside") << u"ice\ncream"_s << QStringList{u"ice cream"_s};
    QTest::newRow("line end of another system inside")
        << u"ice\r\ncream"_s << QStringList{u"ice cream"_s};
    QTest::newRow("control characters above ASCII")
        << u"\u0085ice\u009Fcream"_s << QStringList{u"ice cream"_s};
    QTest::newRow("delete") << u"ice\u007Fcream"_s << QStringList{u"ice cream"_s};
    QTest::newRow("blanks around")
        << u"  ice cream "_s << QStringList{u"  ice cream "_s, u"ice cream"_s};
    QTest::newRow("blanks alone") << u"  "_s << QStringList();
    QTest::newRow("blanks inside stay") << u"ice  cream"_s << QStringList{u"ice  cream"_s};
    QTest::newRow("no-break space at the end")
        << u"house\u00A0"_s << QStringList{u"house\u00A0"_s, u"house"_s};
    QTest::newRow("nothing else") << u" \t\n"_s << QStringList();
    QTest::newRow("punctuation stays") << u"(house),"_s << QStringList{u"(house),"_s};
    // No headword has one, and dropping it would find a word that was not asked for.
    QTest::newRow("NUL stays") << QString(u"house"_s + QChar(0))
                               << QStringList{u"house"_s + QChar(0)};
}

void TestLexiconText::wordsAreAskedForWithoutControlCharactersAndAtLastWithoutOuterBlanks()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QCOMPARE(teskel::askedWords(text), expected);
}

void TestLexiconText::textsThatNoHeadwordIsAsLongAsAreNotConvertedWhole()
{
    const QStringList asked = teskel::askedWords(QString(32000, QChar(0x432)));
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.first(), QString(4096, u'v'));
    QCOMPARE(teskel::askedWords(QString(32000, u'v')), QStringList{QString(32000, u'v')});
}

void TestLexiconText::stripsOuterPunctuation_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty stays empty") << QString() << QString();
    QTest::newRow("nothing to strip") << u"rock'n'roll"_s << u"rock'n'roll"_s;
    QTest::newRow("both ends") << u", house."_s << u"house"_s;
    QTest::newRow("start only") << u"(house"_s << u"house"_s;
    QTest::newRow("end only") << u"house!?"_s << u"house"_s;
    QTest::newRow("inside stays") << u" a, b; c. "_s << u"a, b; c"_s;
    QTest::newRow("only punctuation and spaces") << u" .,; \t\n"_s << QString();
    QTest::newRow("one word character") << u"(a)"_s << u"a"_s;
    QTest::newRow("one punctuation mark") << u"."_s << QString();
    QTest::newRow("line and paragraph separators") << u"\u2029house\u2028"_s << u"house"_s;
    QTest::newRow("no-break space") << u"\u00A0house\u00A0"_s << u"house"_s;
    QTest::newRow("symbols are no punctuation") << u"+house="_s << u"+house="_s;
    QTest::newRow("digits are no punctuation") << u"1. house"_s << u"1. house"_s;
}

void TestLexiconText::stripsOuterPunctuation()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(teskel::withoutOuterPunctuation(text), expected);
}

QTEST_GUILESS_MAIN(TestLexiconText)
#include "test_lexicontext.moc"
