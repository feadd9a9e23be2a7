// SPDX-License-Identifier: MIT
#include "lexicon/text/latin1converter.h"
#include "lexicon/text/utf8.h"

#include <QTest>

#include <string>
#include <vector>

using teskel::Latin1Converter;
using teskel::LatinForm;
using Text = Latin1Converter::Text;

class TestLatin1Converter : public QObject
{
    Q_OBJECT

private slots:
    void convertsToPlainLatin_data();
    void convertsToPlainLatin();
    void convertsToLetterReferences_data();
    void convertsToLetterReferences();
    void countsEachKind();
    void countsWhatIsNotShown();
    void isItsOwnFixedPointOnMarkup_data();
    void isItsOwnFixedPointOnMarkup();
    void latin1BecomesUtf8();
    void composesEveryScript_data();
    void composesEveryScript();
    void composesLongTextsWhereverTheirPartsEnd_data();
    void composesLongTextsWhereverTheirPartsEnd();
    void wellFormedTextIsWhatTheDecoderTakes();
};

void TestLatin1Converter::convertsToPlainLatin_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("headword");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("markup");
    const auto row = [](const char* name, const char* source, const char* headword,
                        const char* plain, const char* markup) {
        QTest::addRow("%s", name) << QByteArray(source) << QByteArray(headword) << QByteArray(plain)
                                  << QByteArray(markup);
    };
    row("ascii", "house", "house", "house", "house");
    row("latin", "Größe",
        "Gr\xF6\xDF"
        "e",
        "Gr\xF6\xDF"
        "e",
        "Gr\xF6\xDF"
        "e");
    row("tags and ampersand", "a <b> & c", "a <b> & c", "a &lt;b> &amp; c", "a <b> & c");
    row("ellipsis", "x…", "x...", "x&hellip;", "x&hellip;");
    row("quotes", "„a“ ‘b’", "\"a\" 'b'", "&bdquo;a&ldquo; &lsquo;b&rsquo;",
        "&bdquo;a&ldquo; &lsquo;b&rsquo;");
    row("dashes", "a–b—c", "a-b-c", "a&ndash;b&mdash;c", "a&ndash;b&mdash;c");
    row("euro", "€5", "EUR5", "&euro;5", "&euro;5");
    row("greek", "5α", "5alpha", "5&alpha;", "5&alpha;");
    row("ligature with an entity", "œuf", "oeuf", "&oelig;uf", "&oelig;uf");
    row("ligature without one", "ﬁn", "fin", "fin", "fin");
    row("letter with a stroke", "Łódź",
        "L\xF3"
        "dz",
        "L\xF3"
        "dz",
        "L\xF3"
        "dz");
    row("macron", "whekī", "wheki", "wheki", "wheki");
    row("entity name with a digit is not used", "∴", "?", "?", "?");
    row("not equal is not equal", "≠", "?", "&ne;", "&ne;");
    row("unknown script", "日本", "??", "??", "??");
    row("beyond the first plane", "\xF0\x9F\x98\x80", "?", "?", "?");
    row("decomposed letter", "scho\xCC\x88n", "sch\xF6n", "sch\xF6n", "sch\xF6n");
    row("mark without a letter for it", "x\xCC\x83", "x", "x", "x");
    row("wide form of an ampersand", "＆＜", "&?", "&amp;?", "&amp;?");
    row("invalid byte",
        "a\xFF"
        "b",
        "a?b", "a?b", "a?b");
    row("cut character", "a\xC3", "a?", "a?", "a?");
    row("invalid byte behind a decomposed letter", "o\xCC\x88\xFF", "o?", "o?", "o?");
    row("overlong character", "\xC0\x80", "??", "??", "??");
    row("surrogate", "\xED\xA0\x80", "???", "???", "???");
    row("blanks", "  a \t b\n", "a b", "  a \t b\n", "  a \t b\n");
    row("wide blanks", "\u2003a\u2003 \u2003b\u2003", "a b", "&emsp;a&emsp; &emsp;b&emsp;",
        "&emsp;a&emsp; &emsp;b&emsp;");
    row("control characters", "a\x01\rb", "a b", "a  b", "a  b");
    row("further control characters", "a\u0080b\u009Fc", "a b c", "a b c", "a b c");
    row("no-break space",
        "a\xC2\xA0"
        "b",
        "a\xA0"
        "b",
        "a\xA0"
        "b",
        "a\xA0"
        "b");
    row("named references", "&lt; &auml; &amp;", "&lt; &auml; &amp;",
        "&amp;lt; &amp;auml; &amp;amp;", "&lt; &auml; &amp;");
    row("decimal reference", "&#8211;&#228;", "&#8211;&#228;", "&amp;#8211;&amp;#228;",
        "&ndash;\xE4");
    row("hexadecimal reference", "&#x2026;", "&#x2026;", "&amp;#x2026;", "&hellip;");
    row("reference to a special sign", "&#60;&#38;", "&#60;&#38;", "&amp;#60;&amp;#38;",
        "&lt;&amp;");
    row("reference with a digit in its name", "&frac12;&sup2;", "&frac12;&sup2;",
        "&amp;frac12;&amp;sup2;", "\xBD\xB2");
    row("reference with a letter like a digit", "&#ı60;", "&#i60;", "&amp;#i60;", "&#i60;");
    row("letter references", "&_ede;&_gb;&_dm;&_cg; &_cacg;", "&_ede;&_gb;&_dm;&_cg; &_cacg;",
        "&amp;_ede;&amp;_gb;&amp;_dm;&amp;_cg; &amp;_cacg;", "?a&lt;&amp; &hellip;");
    row("letter reference to a digit is none of a sense", "&_db;. &_dc; <h&_db;.>",
        "&_db;. &_dc; <h&_db;.>", "&amp;_db;. &amp;_dc; &lt;h&amp;_db;.>", "1<i></i>. 2 <h1.>");
    row("malformed letter reference", "&_ed &_z;", "&_ed &_z;", "&amp;_ed &amp;_z;", "&_ed &_z;");
    row("no reference", "R&D &#; &#x; &#999999999;", "R&D &#; &#x; &#999999999;",
        "R&amp;D &amp;#; &amp;#x; &amp;#999999999;", "R&D &#; &#x; &#999999999;");
}

void TestLatin1Converter::convertsToPlainLatin()
{
    QFETCH(QByteArray, source);
    const std::string text = source.toStdString();
    const auto result = [&text](Text kind) {
        return QByteArray::fromStdString(Latin1Converter(LatinForm::Plain).converted(text, kind));
    };
    QTEST(result(Text::Headword), "headword");
    QTEST(result(Text::PlainArticle), "plain");
    QTEST(result(Text::MarkupArticle), "markup");
}

void TestLatin1Converter::convertsToLetterReferences_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("headword");
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("markup");
    const auto row = [](const char* name, const char* source, const char* headword,
                        const char* plain, const char* markup) {
        QTest::addRow("%s", name) << QByteArray(source) << QByteArray(headword) << QByteArray(plain)
                                  << QByteArray(markup);
    };
    row("latin", "Größe 2",
        "Gr\xF6\xDF"
        "e 2",
        "Gr\xF6\xDF"
        "e 2",
        "Gr\xF6\xDF"
        "e 2");
    row("tags and ampersand", "a <b> & c", "a <b> & c", "a &lt;b> &amp; c", "a <b> & c");
    row("ellipsis", "x…", "x...", "x&_cacg;", "x&_cacg;");
    row("cyrillic", "да", "da", "&_ede;&_eda;", "&_ede;&_eda;");
    row("beyond the first plane", "\xF0\x9F\x98\x80", "bpgaa", "&_bpgaa;", "&_bpgaa;");
    row("in a tag", "<i title=\"д\">", "<i title=\"d\">", "&lt;i title=\"&_ede;\">",
        "<i title=\"&_ede;\">");
    row("decomposed letter", "scho\xCC\x88n", "sch\xF6n", "sch\xF6n", "sch\xF6n");
    row("mark without a letter for it", "x\xCC\x83", "x", "x&_dad;", "x&_dad;");
    row("references stay in markup", "&_ede; &_zz; &lt;", "&_ede; &_zz; &lt;",
        "&amp;_ede; &amp;_zz; &amp;lt;", "&_ede; &_zz; &lt;");
    row("numeric references", "&#8211;&#x434;&#228;&#60;", "&#8211;&#x434;&#228;&#60;",
        "&amp;#8211;&amp;#x434;&amp;#228;&amp;#60;", "&_cabd;&_ede;\xE4&lt;");
    row("reference to a digit is none of a sense", "&#49;.", "&#49;.", "&amp;#49;.", "&_db;.");
    row("invalid byte",
        "a\xFF"
        "b",
        "a?b", "a&_pppn;b", "a&_pppn;b");
    row("control characters", "a\x01\u0081b", "a b", "a  b", "a  b");
    row("control characters of Windows-1252", "a\u0080b\u0096c", "aEURb-c", "a&_cakm;b&_cabd;c",
        "a&_cakm;b&_cabd;c");
    row("reference to a control character", "a&#133;b&#129;", "a&#133;b&#129;",
        "a&amp;#133;b&amp;#129;", "a&_cacg;b ");
    row("sign for damage", "a\uFFFD b", "a b", "a&_pppn; b", "a&_pppn; b");
    row("override of the direction as a word", "\u202E a", "a", "  a", "  a");
    row("line separator",
        "a\xE2\x80\xA8"
        "b",
        "a b", "a b", "a b");
    row("override of the direction",
        "a\xE2\x80\xAE"
        "b",
        "ab", "a b", "a b");
    row("blanks", "  д \t b\n", "d b", "  &_ede; \t b\n", "  &_ede; \t b\n");
}

void TestLatin1Converter::convertsToLetterReferences()
{
    QFETCH(QByteArray, source);
    const std::string text = source.toStdString();
    const auto result = [&text](Text kind) {
        return QByteArray::fromStdString(Latin1Converter().converted(text, kind));
    };
    QTEST(result(Text::Headword), "headword");
    QTEST(result(Text::PlainArticle), "plain");
    QTEST(result(Text::MarkupArticle), "markup");
    QFETCH(QByteArray, markup);
    const std::string again = teskel::utf8::fromLatin1(markup.toStdString());
    QTEST(QByteArray::fromStdString(Latin1Converter().converted(again, Text::MarkupArticle)),
          "markup");
}

void TestLatin1Converter::countsWhatIsNotShown()
{
    using Change = Latin1Converter::Change;
    Latin1Converter converter;
    converter.converted("д \xFF \xE2\x80\xA8 \x01 \u0085", Text::PlainArticle);
    converter.converted("д \xFF \u0085", Text::Headword);
    const auto& counts = converter.counts();
    QCOMPARE(counts.size(), size_t{4});
    QCOMPARE(counts.at({U'\x85', Change::Windows}).times, uint64_t{2});
    QCOMPARE(counts.at({teskel::utf8::invalid, Change::InvalidByte}).times, uint64_t{2});
    QCOMPARE(counts.at({U'\u2028', Change::Control}).times, uint64_t{1});
    QCOMPARE(counts.at({U'\x01', Change::Control}).times, uint64_t{1});
}

void TestLatin1Converter::countsEachKind()
{
    using Change = Latin1Converter::Change;
    Latin1Converter converter(LatinForm::Plain);
    converter.converted("… … ń 日 \xFF \x01", Text::PlainArticle);
    converter.converted("…", Text::Headword);
    const auto& counts = converter.counts();
    QCOMPARE(counts.size(), size_t{6});
    QCOMPARE(counts.at({U'…', Change::Entity}).times, uint64_t{2});
    QCOMPARE(counts.at({U'…', Change::Entity}).written, std::string("&hellip;"));
    QCOMPARE(counts.at({U'…', Change::Transliterated}).times, uint64_t{1});
    QCOMPARE(counts.at({U'ń', Change::Transliterated}).written, std::string("n"));
    QCOMPARE(counts.at({U'日', Change::Lost}).times, uint64_t{1});
    QCOMPARE(counts.at({teskel::utf8::invalid, Change::InvalidByte}).times, uint64_t{1});
    QCOMPARE(counts.at({U'\x01', Change::Control}).times, uint64_t{1});
}

void TestLatin1Converter::isItsOwnFixedPointOnMarkup_data()
{
    convertsToPlainLatin_data();
}

void TestLatin1Converter::isItsOwnFixedPointOnMarkup()
{
    QFETCH(QByteArray, source);
    for (const Text kind : {Text::PlainArticle, Text::MarkupArticle}) {
        const std::string once =
            Latin1Converter(LatinForm::Plain).converted(source.toStdString(), kind);
        const std::string again =
            Latin1Converter(LatinForm::Plain)
                .converted(teskel::utf8::fromLatin1(once), Text::MarkupArticle);
        QCOMPARE(QByteArray::fromStdString(again), QByteArray::fromStdString(once));
    }
    const std::string once =
        Latin1Converter(LatinForm::Plain).converted(source.toStdString(), Text::Headword);
    QCOMPARE(
        Latin1Converter(LatinForm::Plain).converted(teskel::utf8::fromLatin1(once), Text::Headword),
        once);
}

void TestLatin1Converter::latin1BecomesUtf8()
{
    QCOMPARE(teskel::utf8::fromLatin1("\xE4\x80"
                                      "a\xFF"),
             std::string("\xC3\xA4\xC2\x80"
                         "a\xC3\xBF"));
}

void TestLatin1Converter::composesEveryScript_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("composed");
    const auto row = [](const char* name, const char* text, const char* composed) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(composed);
    };
    row("Latin", "e\u0301", "\u00E9");
    row("Arabic", "\u0627\u0654", "\u0623");
    row("Arabic vowel signs", "\u0628\u0651\u064E", "\u0628\u064E\u0651");
    row("kana", "\u304B\u3099", "\u304C");
    row("Hangul", "\u1112\u1161\u11AB", "\uD55C");
    row("Bengali", "\u0995\u09C7\u09BE", "\u0995\u09CB");
    row("beyond the first plane", "\U00011099\U000110BA", "\U0001109A");
    row("nothing to compose", "\u0434\u3042", "\u0434\u3042");
}

void TestLatin1Converter::composesEveryScript()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(
              teskel::utf8::encoded(teskel::utf8::composed(text.toStdString()))),
          "composed");
}

void TestLatin1Converter::composesLongTextsWhereverTheirPartsEnd_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("a letter and a mark") << QString::fromUtf8("e\u0301");
    QTest::newRow("a letter and marks in another order") << QString::fromUtf8("a\u0302\u0323");
    QTest::newRow("parts of a syllable") << QString::fromUtf8("\u1112\u1161\u11AB");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\U0001F600e\u0301");
}

void TestLatin1Converter::composesLongTextsWhereverTheirPartsEnd()
{
    QFETCH(QString, unit);
    for (int shift = 0; shift < 4; ++shift) {
        const QString text = QString(shift, u'x') + unit.repeated(3000);
        QVERIFY(teskel::utf8::composed(text.toStdString()) ==
                text.normalized(QString::NormalizationForm_C).toStdU32String());
    }
}

/// All texts of two bytes, and the borders of longer characters.
void TestLatin1Converter::wellFormedTextIsWhatTheDecoderTakes()
{
    std::vector<std::string> texts;
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second)
            texts.push_back({static_cast<char>(first), static_cast<char>(second)});
    }
    for (const int lead : {0xE0, 0xE1, 0xEC, 0xED, 0xEE, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5}) {
        for (const int second : {0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0}) {
            for (const char* rest : {"", "\x80", "\xBF\xBF", "\x7F\x80", "\x80\xC0"})
                texts.push_back(std::string{static_cast<char>(lead), static_cast<char>(second)} +
                                rest);
        }
    }
    for (const std::string& text : texts) {
        const size_t length = teskel::utf8::wellFormedLength(text);
        const bool isWhole =
            teskel::utf8::decoded(text).find(teskel::utf8::invalid) == std::u32string::npos;
        QCOMPARE(length == text.size(), isWhole);
        QVERIFY(teskel::utf8::decoded(text.substr(0, length)).find(teskel::utf8::invalid) ==
                std::u32string::npos);
    }
}

QTEST_APPLESS_MAIN(TestLatin1Converter)
#include "test_latin1converter.moc"
