// SPDX-License-Identifier: MIT
#include "script/letterreference.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

bool isReplaced(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029 || c == 0x202D ||
           c == 0x202E || (c >= 0x2066 && c <= 0x2069) || (c >= 0xD800 && c <= 0xDFFF) ||
           (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE || c > 0x10FFFF;
}

/// The character as rich text has it.
QString shown(char32_t character)
{
    QString text;
    text += QChar::fromUcs4(isReplaced(character) ? 0xFFFD : character);
    text = text.toHtmlEscaped();
    return text == u"'"_s ? u"&apos;"_s : text;
}

} // namespace

class TestLetterReference : public QObject
{
    Q_OBJECT

private slots:
    void isWrittenInAsciiLetters_data();
    void isWrittenInAsciiLetters();
    void everyCodePointComesBackOrIsReplaced();
    void leadingZeroesAndNumbersOutOfRange_data();
    void leadingZeroesAndNumbersOutOfRange();
    void malformedReferenceStandsAsItIs_data();
    void malformedReferenceStandsAsItIs();
    void referenceEndsBehindItsSemicolon();
    void markupIsResolved_data();
    void markupIsResolved();
    void whatMustNotBeShownIsReplaced_data();
    void whatMustNotBeShownIsReplaced();
    void markupWithoutReferencesIsShared_data();
    void markupWithoutReferencesIsShared();
    void nonsenseIsReadAsAPatternReadsIt();
    void manyBeginningsCostNoMoreThanTheirLength();
};

void TestLetterReference::isWrittenInAsciiLetters_data()
{
    QTest::addColumn<char32_t>("character");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("NUL") << U'\0' << QByteArray("&_a;");
    QTest::newRow("line feed") << U'\n' << QByteArray("&_k;");
    QTest::newRow("digit one") << U'1' << QByteArray("&_db;");
    QTest::newRow("digit nine") << U'9' << QByteArray("&_dj;");
    QTest::newRow("every letter to h") << U'\U00012345' << QByteArray("&_bcdef;");
    QTest::newRow("every letter to p") << U'\uFEDC' << QByteArray("&_ponm;");
    QTest::newRow("Cyrillic") << U'\u0434' << QByteArray("&_ede;");
    QTest::newRow("emoji") << U'\U0001F600' << QByteArray("&_bpgaa;");
    QTest::newRow("the last one") << U'\U0010FFFF' << QByteArray("&_bapppp;");
}

void TestLetterReference::isWrittenInAsciiLetters()
{
    QFETCH(char32_t, character);
    QFETCH(QByteArray, expected);
    QCOMPARE(QByteArray::fromStdString(teskel::letterReference(character)), expected);
    QCOMPARE("&_" + QByteArray::fromStdString(teskel::hexadecimalLetters(character)) + ";",
             expected);
}

void TestLetterReference::everyCodePointComesBackOrIsReplaced()
{
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const std::string text = teskel::letterReference(character);
        const auto reference = teskel::readLetterReference(text);
        const char32_t expected = isReplaced(character) ? 0xFFFD : character;
        if (reference.length != text.size() || reference.character != expected)
            QFAIL(qPrintable(u"U+%1 was read as U+%2"_s.arg(uint(character), 4, 16)
                                 .arg(uint(reference.character), 4, 16)));
        const bool isSafe = std::all_of(text.begin(), text.end(), [](char c) {
            return c == '&' || c == '_' || c == ';' || (c >= 'a' && c <= 'p');
        });
        QVERIFY(isSafe);
    }
}

void TestLetterReference::leadingZeroesAndNumbersOutOfRange_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<char32_t>("character");
    QTest::newRow("one leading a") << QByteArray("&_adb;") << U'1';
    QTest::newRow("many leading a's") << "&_" + QByteArray(100, 'a') + "ede;" << U'\u0434';
    QTest::newRow("six letters behind leading a's") << QByteArray("&_aaabapppo;") << U'\uFFFD';
    QTest::newRow("nothing but a's") << QByteArray("&_aaaaaaaaaa;") << U'\uFFFD';
    QTest::newRow("the first beyond Unicode") << QByteArray("&_bbaaaa;") << U'\uFFFD';
    QTest::newRow("the highest of six letters") << QByteArray("&_pppppp;") << U'\uFFFD';
    QTest::newRow("the last private character") << QByteArray("&_bapppn;") << U'\U0010FFFD';
}

void TestLetterReference::leadingZeroesAndNumbersOutOfRange()
{
    QFETCH(QByteArray, text);
    QFETCH(char32_t, character);
    const auto reference = teskel::readLetterReference(text.toStdString());
    QCOMPARE(reference.length, std::size_t(text.size()));
    QCOMPARE(uint(reference.character), uint(character));
}

void TestLetterReference::malformedReferenceStandsAsItIs_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("ampersand alone") << u"&"_s;
    QTest::newRow("beginning alone") << u"&_"_s;
    QTest::newRow("no letters") << u"&_;"_s;
    QTest::newRow("no semicolon at the end") << u"&_db"_s;
    QTest::newRow("no semicolon before a blank") << u"&_db ;"_s;
    QTest::newRow("no semicolon behind a's") << u"&_aaa"_s;
    QTest::newRow("seven letters") << u"&_bapppoo;"_s;
    QTest::newRow("seven letters behind leading a's") << u"&_aaabaaaaaa;"_s;
    QTest::newRow("letter behind p") << u"&_dq;"_s;
    QTest::newRow("capital letters") << u"&_DB;"_s;
    QTest::newRow("digits") << u"&_31;"_s;
    QTest::newRow("hyphen") << u"&-db;"_s;
    QTest::newRow("no underscore") << u"&db;"_s;
    QTest::newRow("two underscores") << u"&__db;"_s;
    QTest::newRow("blank inside") << u"&_d b;"_s;
    QTest::newRow("letter beyond Latin-1") << u"&_d\u0162;"_s;
    QTest::newRow("tag inside") << u"&_d<i>b;"_s;
}

void TestLetterReference::malformedReferenceStandsAsItIs()
{
    QFETCH(QString, text);
    QCOMPARE(teskel::readLetterReference(text.toStdString()).length, std::size_t(0));
    QCOMPARE(teskel::withLetterReferencesResolved(text), text);
    // Nor does it take what stands beside it along.
    QCOMPARE(teskel::withLetterReferencesResolved(text + u"&_db;"_s), text + u'1');
    QCOMPARE(teskel::withLetterReferencesResolved(u"&_db;"_s + text), u'1' + text);
}

void TestLetterReference::referenceEndsBehindItsSemicolon()
{
    const auto reference = teskel::readLetterReference("&_db;&_dc;");
    QCOMPARE(reference.length, std::size_t(5));
    QCOMPARE(uint(reference.character), uint('1'));
    QCOMPARE(teskel::readLetterReference(" &_db;").length, std::size_t(0));
}

void TestLetterReference::markupIsResolved_data()
{
    QTest::addColumn<QString>("markup");
    QTest::addColumn<QString>("expected");
    QTest::newRow("alone") << u"&_db;"_s << u"1"_s;
    QTest::newRow("digits of a number") << u"a &_db;0-year"_s << u"a 10-year"_s;
    QTest::newRow("one behind the other") << u"&_ede;&_edg;"_s << u"\u0434\u0436"_s;
    QTest::newRow("inside a tag") << u"<h&_db;>a</h&_db;>"_s << u"<h1>a</h1>"_s;
    QTest::newRow("inside an attribute") << u"<p style='a:&_dc;px'>"_s << u"<p style='a:2px'>"_s;
    QTest::newRow("beyond the basic plane") << u"&_bpgaa;"_s << u"\U0001F600"_s;
    QTest::newRow("combining mark") << u"e&_dab;"_s << u"e\u0301"_s;
    QTest::newRow("right-to-left mark") << u"&_caap;"_s << u"\u200F"_s;
    QTest::newRow("less than") << u"&_dm;b&_do;"_s << u"&lt;b&gt;"_s;
    QTest::newRow("ampersand of an entity") << u"&_cg;lt;"_s << u"&amp;lt;"_s;
    QTest::newRow("ampersand of a reference") << u"&_cg;_db;"_s << u"&amp;_db;"_s;
    QTest::newRow("quotes") << u"&_cc;&_ch;"_s << u"&quot;&apos;"_s;
    QTest::newRow("behind an ampersand") << u"&&_db;"_s << u"&1"_s;
    QTest::newRow("behind a beginning") << u"&_&_db;"_s << u"&_1"_s;
    QTest::newRow("entities stay") << u"&auml;&_db;&lt;"_s << u"&auml;1&lt;"_s;
    QTest::newRow("other texts stay") << u"&a_b; _ & 1"_s << u"&a_b; _ & 1"_s;
}

void TestLetterReference::markupIsResolved()
{
    QFETCH(QString, markup);
    QFETCH(QString, expected);
    QCOMPARE(teskel::withLetterReferencesResolved(markup), expected);
}

void TestLetterReference::whatMustNotBeShownIsReplaced_data()
{
    QTest::addColumn<QString>("markup");
    QTest::addColumn<int>("count");
    QTest::newRow("NUL") << u"&_a;"_s << 1;
    QTest::newRow("line feed") << u"&_k;"_s << 1;
    QTest::newRow("delete") << u"&_hp;"_s << 1;
    QTest::newRow("control above ASCII") << u"&_if;"_s << 1;
    QTest::newRow("line separator") << u"&_caci;"_s << 1;
    QTest::newRow("paragraph separator") << u"&_cacj;"_s << 1;
    QTest::newRow("high surrogate") << u"&_niaa;"_s << 1;
    QTest::newRow("low surrogate") << u"&_nmaa;"_s << 1;
    QTest::newRow("pair of surrogates") << u"&_nidn;&_noaa;"_s << 2;
    QTest::newRow("left-to-right override") << u"&_cacn;"_s << 1;
    QTest::newRow("right-to-left override") << u"&_caco;"_s << 1;
    QTest::newRow("isolates") << u"&_cagg;&_cagh;&_cagi;&_cagj;"_s << 4;
    QTest::newRow("noncharacter of a table") << u"&_pnna;"_s << 1;
    QTest::newRow("noncharacter at the end of a plane") << u"&_bpppp;"_s << 1;
    QTest::newRow("beyond Unicode") << u"&_bbaaaa;"_s << 1;
}

void TestLetterReference::whatMustNotBeShownIsReplaced()
{
    QFETCH(QString, markup);
    QFETCH(int, count);
    QCOMPARE(teskel::withLetterReferencesResolved(u'x' + markup + u'y'),
             u'x' + QString(count, QChar::ReplacementCharacter) + u'y');
}

void TestLetterReference::markupWithoutReferencesIsShared_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("article") << u"<p><b>house</b></p><p>R&amp;D &auml; snake_case"_s;
    QTest::newRow("null") << QString();
    QTest::newRow("characters beyond Latin-1") << u"\u0434\u202E\U0001F600"_s;
}

void TestLetterReference::markupWithoutReferencesIsShared()
{
    QFETCH(QString, markup);
    const QString resolved = teskel::withLetterReferencesResolved(markup);
    QCOMPARE(resolved, markup);
    QCOMPARE(static_cast<const void*>(resolved.constData()),
             static_cast<const void*>(markup.constData()));
}

void TestLetterReference::nonsenseIsReadAsAPatternReadsIt()
{
    const QRegularExpression pattern(u"&_(?=[a-p])a*+([a-p]{0,6});"_s);
    const QStringList parts{u"&"_s, u"_"_s,  u"&_"_s, u";"_s,      u"a"_s, u"aaa"_s,
                            u"b"_s, u"de"_s, u"p"_s,  u"niaa"_s,   u"q"_s, u"D"_s,
                            u"<"_s, u" "_s,  u"1"_s,  u"\u0434"_s, u"#"_s, u"&_ede;"_s};
    QRandomGenerator random(1);
    for (int times = 0; times < 50'000; ++times) {
        QString markup;
        for (int left = random.bounded(1, 30); left > 0; --left)
            markup += parts.at(random.bounded(int(parts.size())));
        QString expected;
        qsizetype done = 0;
        for (auto matches = pattern.globalMatch(markup); matches.hasNext();) {
            const auto match = matches.next();
            expected += markup.sliced(done, match.capturedStart() - done);
            done = match.capturedEnd();
            QString digits = match.captured(1);
            for (QChar& digit : digits)
                digit = u"0123456789abcdef"[digit.unicode() - u'a'];
            expected += shown(char32_t(digits.toUInt(nullptr, 16)));
        }
        expected += markup.sliced(done);
        QCOMPARE(teskel::withLetterReferencesResolved(markup), expected);
    }
}

/// Each is looked at as far as the next one; looking at the rest each time would take hours.
void TestLetterReference::manyBeginningsCostNoMoreThanTheirLength()
{
    const QString beginnings = u"&_aaaaaaaa"_s.repeated(1'000'000);
    QCOMPARE(teskel::withLetterReferencesResolved(beginnings), beginnings);
    const QString letters = u"&_"_s + QString(5'000'000, u'a');
    QCOMPARE(teskel::withLetterReferencesResolved(letters + letters), letters + letters);
}

QTEST_GUILESS_MAIN(TestLetterReference)
#include "test_letterreference.moc"
