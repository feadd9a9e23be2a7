// SPDX-License-Identifier: MIT
#include "script/letterreference.h"
#include "script/transliteration.h"

#include <QLocale>
#include <QTest>

#include <algorithm>

#include <unicode/locid.h>

using namespace Qt::StringLiterals;

namespace
{

void setLocale(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale(name), status);
    QVERIFY(U_SUCCESS(status));
    QLocale::setDefault(QLocale(QString::fromLatin1(name)));
}

} // namespace

class TestTransliteration : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void writesOtherScriptsInLatinLetters_data();
    void writesOtherScriptsInLatinLetters();
    void isTheSameInEveryLocale_data();
    void isTheSameInEveryLocale();
    void variantsOfAWordFallTogether_data();
    void variantsOfAWordFallTogether();
    void latin1IsShared_data();
    void latin1IsShared();
    void everyCharacterBecomesLatin1();
    void beginningsGiveBeginnings_data();
    void beginningsGiveBeginnings();
    void malformedTextBecomesLatin1();
};

/// The rules are loaded in the locale that has been a trap for letters before.
void TestTransliteration::initTestCase()
{
    setLocale("tr_TR");
}

void TestTransliteration::writesOtherScriptsInLatinLetters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("Russian") << u"вода"_s << u"voda"_s;
    QTest::newRow("Russian in capitals") << u"ВОДА"_s << u"VODA"_s;
    QTest::newRow("Russian soft sign") << u"семья"_s << u"semya"_s;
    QTest::newRow("Russian hard sign") << u"объект"_s << u"obyekt"_s;
    QTest::newRow("Russian letters that are kept apart") << u"советский"_s << u"sovetskiy"_s;
    QTest::newRow("Russian with hyphen") << u"по-русски"_s << u"po-russki"_s;
    QTest::newRow("Ukrainian") << u"єднання"_s << u"ednannya"_s;
    QTest::newRow("Ukrainian apostrophe") << u"п\u2019ять"_s << u"p'yat"_s;
    QTest::newRow("Ukrainian modifier letter") << u"п\u02BCять"_s << u"p'yat"_s;
    QTest::newRow("Bulgarian") << u"България"_s << u"Blgariya"_s;
    QTest::newRow("Greek with accents") << u"ύδωρ"_s << u"ydor"_s;
    QTest::newRow("Greek with breathings") << u"Ἀθῆναι"_s << u"Athenai"_s;
    QTest::newRow("Greek final sigma") << u"λόγος"_s << u"logos"_s;
    QTest::newRow("micro sign before Greek") << u"µικρό"_s << u"mikro"_s;
    QTest::newRow("micro signs behind Greek") << u"άµµος"_s << u"ammos"_s;
    QTest::newRow("micro sign of a unit") << u"µm α"_s << u"µm a"_s;
    QTest::newRow("Arabic") << u"سلام"_s << u"slam"_s;
    QTest::newRow("Arabic with hamza") << u"أب"_s << u"ab"_s;
    QTest::newRow("Hebrew") << u"שלום"_s << u"slwm"_s;
    QTest::newRow("Hindi") << u"हिन्दी"_s << u"hindi"_s;
    QTest::newRow("Hindi vowel signs") << u"पानी"_s << u"pani"_s;
    QTest::newRow("Thai") << u"น้ำ"_s << u"na"_s;
    QTest::newRow("hangul") << u"한국어"_s << u"hangug-eo"_s;
    QTest::newRow("kanji") << u"漢字"_s << u"han zi"_s;
    QTest::newRow("kanji with a mark that has no reading") << u"一々日"_s << u"yi ri"_s;
    QTest::newRow("hiragana") << u"みず"_s << u"mizu"_s;
    QTest::newRow("hiragana syllables apart") << u"きんえん"_s << u"kinen"_s;
    QTest::newRow("katakana") << u"コーヒー"_s << u"kohi"_s;
    QTest::newRow("full-width letters") << u"ＡＢＣ"_s << u"ABC"_s;
    QTest::newRow("Armenian") << u"հայ"_s << u"hay"_s;
    QTest::newRow("Georgian") << u"ქართ"_s << u"kart"_s;

    QTest::newRow("umlauts stay beside a foreign letter") << u"süß вода"_s << u"süß voda"_s;
    QTest::newRow("umlauts stay in the word itself") << u"Łódź"_s << u"Lódz"_s;
    QTest::newRow("decomposed umlaut") << u"Mu\u0308he"_s << u"Mühe"_s;
    QTest::newRow("decomposed umlaut beside a foreign letter") << u"u\u0308 вода"_s << u"ü voda"_s;
    QTest::newRow("accent that no letter is composed with") << u"x\u0323"_s << u"x"_s;
    QTest::newRow("ligature") << u"œuvre ﬁn"_s << u"oeuvre fin"_s;
    QTest::newRow("Vietnamese") << u"tiếng Việt"_s << u"tieng Viet"_s;
    QTest::newRow("typographic apostrophe") << u"don\u2019t"_s << u"don't"_s;
    QTest::newRow("typographic quotes") << u"\u201Ca\u201D \u2018b\u2019"_s << u"\"a\" 'b'"_s;
    QTest::newRow("dash and dots") << u"a \u2014 b\u2026"_s << u"a - b..."_s;
    QTest::newRow("euro") << u"10 €"_s << u"10 EUR"_s;
    QTest::newRow("ideographic blank") << u"水\u3000水"_s << u"shui shui"_s;
    QTest::newRow("line separator") << u"ice\u2028cream"_s << u"ice cream"_s;
    QTest::newRow("byte order mark") << u"\uFEFFhouse"_s << u"house"_s;
    QTest::newRow("bidirectional marks") << u"\u202Ahouse\u202C"_s << u"house"_s;
    QTest::newRow("NUL stays") << (u"в"_s + QChar(0)) << (u"v"_s + QChar(0));
    QTest::newRow("blanks stay") << u"  в  а "_s << u"  v  a "_s;
    QTest::newRow("nothing by itself beside a letter") << u"a\u2665"_s << u"a"_s;

    QTest::newRow("emoji") << u"😀"_s << u"bpgaa"_s;
    QTest::newRow("two emoji") << u"😀😁"_s << u"bpgaabpgab"_s;
    QTest::newRow("heart beside another word") << u"\u2665 box"_s << u"cggf box"_s;
    QTest::newRow("phonetic letter") << u"ʃ"_s << u"cid"_s;
    QTest::newRow("Arabic letter without a Latin one") << u"ع"_s << u"gdj"_s;
    QTest::newRow("vowel sign alone") << u"\u064E"_s << u"geo"_s;
    QTest::newRow("fraction without the blank before it") << u"\u2153"_s << u"1/3"_s;
}

void TestTransliteration::writesOtherScriptsInLatinLetters()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(teskel::inLatin1(text), expected);
    QCOMPARE(teskel::inLatin1(expected), expected);
}

void TestTransliteration::isTheSameInEveryLocale_data()
{
    writesOtherScriptsInLatinLetters_data();
}

void TestTransliteration::isTheSameInEveryLocale()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    for (const char* const name : {"az_AZ", "de_DE", "ja_JP", "bg_BG", "C"}) {
        setLocale(name);
        QCOMPARE(teskel::inLatin1(text), expected);
    }
}

void TestTransliteration::variantsOfAWordFallTogether_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("variant");
    QTest::newRow("Russian stress") << u"вода"_s << u"вода\u0301"_s;
    QTest::newRow("Arabic vowel signs") << u"سلام"_s << u"سَلَامٌ"_s;
    QTest::newRow("Arabic doubling") << u"مدرس"_s << u"مُدَرِّس"_s;
    QTest::newRow("Hebrew points") << u"שלום"_s << u"שָׁלוֹם"_s;
    QTest::newRow("Greek decomposed") << u"ύδωρ"_s << u"υ\u0301δωρ"_s;
    QTest::newRow("hangul decomposed") << u"한"_s << u"\u1112\u1161\u11AB"_s;
    QTest::newRow("zero-width joiner") << u"سلام"_s << u"سلا\u200Dم"_s;
}

void TestTransliteration::variantsOfAWordFallTogether()
{
    QFETCH(QString, word);
    QFETCH(QString, variant);
    QCOMPARE(teskel::inLatin1(variant), teskel::inLatin1(word));
}

void TestTransliteration::latin1IsShared_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << QString();
    QTest::newRow("word") << u"house"_s;
    QTest::newRow("umlauts") << u"Mühe \u00A0\u00AD\u00FF"_s;
    QTest::newRow("micro sign") << u"µm"_s;
    QTest::newRow("controls") << u"\t\n\u0085"_s + QChar(0);
}

void TestTransliteration::latin1IsShared()
{
    QFETCH(QString, text);
    const QString result = teskel::inLatin1(text);
    QCOMPARE(result, text);
    QCOMPARE(static_cast<const void*>(result.constData()),
             static_cast<const void*>(text.constData()));
}

void TestTransliteration::everyCharacterBecomesLatin1()
{
    for (char32_t character = 0x100; character <= 0x10FFFF;
         character += character < 0x10000 ? 1 : 101) {
        QString text;
        text += QChar::fromUcs4(character);
        const QString result = teskel::inLatin1(text);
        const bool isLatin1 =
            std::all_of(result.begin(), result.end(), [](QChar c) { return c.unicode() <= 0xFF; });
        const bool isSeen = teskel::isShowable(character) || QChar::isSurrogate(character);
        const bool isRight = isSeen ? !result.isEmpty() : result.trimmed().isEmpty();
        if (!isRight || !isLatin1)
            QFAIL(qPrintable(u"U+%1 becomes \"%2\""_s.arg(uint(character), 4, 16).arg(result)));
        QVERIFY(teskel::inLatin1(u'x' + text).startsWith(u'x'));
    }
}

/// What has been typed so far leads to the word.
void TestTransliteration::beginningsGiveBeginnings_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("Russian") << u"советский объект"_s;
    QTest::newRow("Greek") << u"λάμβδα"_s;
    QTest::newRow("Arabic") << u"سلام"_s;
    QTest::newRow("kanji") << u"漢字"_s;
    QTest::newRow("emoji") << u"😀😁"_s;
}

void TestTransliteration::beginningsGiveBeginnings()
{
    QFETCH(QString, word);
    const QString whole = teskel::inLatin1(word);
    for (qsizetype length = 1; length < word.size(); ++length) {
        if (word.at(length).isLowSurrogate())
            continue;
        const QString beginning = teskel::inLatin1(word.first(length));
        QVERIFY2(whole.startsWith(beginning), qPrintable(beginning));
    }
}

void TestTransliteration::malformedTextBecomesLatin1()
{
    QCOMPARE(teskel::inLatin1(QString(QChar(0xD83D))), u"pppn"_s);
    QCOMPARE(teskel::inLatin1(u"a"_s + QChar(0xDE00) + u"b"_s), u"ab"_s);
    QCOMPARE(teskel::inLatin1(QString::fromUtf8("a\xFF")), u"a"_s);
    QCOMPARE(teskel::inLatin1(QString::fromUtf8("\xD0")), u"pppn"_s);
}

QTEST_GUILESS_MAIN(TestTransliteration)
#include "test_transliteration.moc"
