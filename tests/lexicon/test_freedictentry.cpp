// SPDX-License-Identifier: MIT
#include "lexicon/sources/freedictentry.h"

#include <QTest>

using teskel::FreeDictEntry;
using teskel::LatinForm;

class TestFreeDictEntry : public QObject
{
    Q_OBJECT

private slots:
    void parses_data();
    void parses();
    void normalizes_data();
    void normalizes();
};

void TestFreeDictEntry::parses_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("headword");
    QTest::addColumn<QByteArray>("article");
    const auto row = [](const char* name, const char* key, const char* text, const char* headword,
                        const char* article) {
        QTest::addRow("%s", name) << QByteArray(key) << QByteArray(text) << QByteArray(headword)
                                  << QByteArray(article);
    };
    row("word as written", "tower", "Tower /tˈaʊə/\nTurm <masc>\n", "Tower", "Turm <masc>");
    row("tags of the word stay", "tower", "tower /tˈaʊə/ <v>\nemporragen <v, intr>\n", "tower",
        "<v> emporragen <v, intr>");
    row("leading dots and full stop", " and no mistake",
        "… and no mistake. /and nˈəʊ mɪstˈeɪk/\nund nichts anderes\n", "… and no mistake.",
        "und nichts anderes");
    row("slashes in the word", "ab and", "a/b and /x y/ z /ˈeɪ/\nc\n", "a/b and", "z c");
    row("alternatives with blanks", "at hand at the hand", "at hand / at the hand /at hˈand/\nda\n",
        "at hand / at the hand", "da");
    row("hyphen", "wellknown", "well-known /wˈɛl nˈəʊn/\nbekannt\n", "well-known", "bekannt");
    row("double blank from a sign", "a b", "a – b /ˈeɪ bˈiː/\nc\n", "a – b", "c");
    row("abbreviation asked for", "abbr", "abbreviation /ɐbɹˈiː/ (abbr. /ˈabə/)\nAbkürzung\n",
        "abbr.", "abbreviation (abbr.)\nAbkürzung");
    row("abbreviation beside the word", "abbreviation",
        "abbreviation /ɐbɹˈiː/ (abbr. /ˈabə/)\nAbkürzung\n", "abbreviation", "(abbr.) Abkürzung");
    row("inflected form asked for", "took",
        "take /tˈeɪk/ (took /tˈʊk/ <>, taken /tˈeɪkən/ <>) <v>\n"
        "nehmen\n",
        "took", "take (took, taken) <v>\nnehmen");
    row("form behind a note", "learnt",
        "learn /lˈɜːn/ (learned /x/ <>,  [Br.]  learnt /y/ <>) <v>\n"
        "lernen\n",
        "learnt", "learn (learned, [Br.] learnt) <v>\nlernen");
    row("several groups of forms", "ss", "screw steamer /x/ (S.S /y/, ) (s.s. /z/)\nDampfer\n",
        "S.S", "screw steamer (S.S) (s.s.)\nDampfer");
    row("case of a form", "aus", "Austrian /x/ (Aus. /y/) ([+ gen]) <adj>\nösterreichisch\n",
        "Aus.", "Austrian (Aus.) ([+ gen]) <adj>\nösterreichisch");
    row("sign asked for", "", "dollar sign /x/ ($)\nDollar-Zeichen <neut>$\n", "$",
        "dollar sign ($)\nDollar-Zeichen <neut> $");
    row("closing parenthesis asked for", "", "right parenthesis /x/ ())\nKlammer)\n", ")",
        "right parenthesis ())\nKlammer)");
    row("opening bracket asked for", "", "left bracket /x/ ([)\nKlammer\n", "[",
        "left bracket ([)\nKlammer");
    row("word of signs only", "", "?\nFragezeichen\n", "?", "Fragezeichen");
    row("neither word nor form", "other", "word /x/ <n>\nWort\n", "other", "word <n>\nWort");
    row("references and synonyms", "word",
        "word /x/\nWort\n   Synonyms: {a, b}, {c}\n\n"
        " see: {d {e}}, {f}\n\n         Note: note\n",
        "word", "Wort\nSynonyms: a, b; c\nsee: d {e}; f\nNote: note");
    row("a single synonym", "word", "word /x/\nWort\n   Synonym: {a}\n\n", "word",
        "Wort\nSynonym: a");
    row("example", "word", "word /x/\nWort\n      \"a word\"  - ein Wort\n", "word",
        "Wort\n\"a word\" - ein Wort");
    row("pronunciation in the text", "am", "am /x/\nvormittags <adv>vorm.,  /fˈɔːm/ , früh\n", "am",
        "vormittags <adv> vorm., früh");
    row("two pronunciations in the text", "or", "or /x/\noder <conj>o.,  /ˈəʊ/ od.,  /ˈɒd/\n", "or",
        "oder <conj> o. od.");
    row("blank before a comma", "go", "go /x/\n [Br.] gehen [ugs.] , laufen\n", "go",
        "[Br.] gehen [ugs.], laufen");
    row("a fraction is no pronunciation", "word", "word /x/\n1/2 oder 3/4 Wort / Wörter\n", "word",
        "1/2 oder 3/4 Wort / Wörter");
    row("an arrow is no tag", "to", "to /x/\na -> b, a > b\n", "to", "a -> b, a > b");
    row("no pronunciation", "house", "house <n>\nHaus\n", "house", "<n> Haus");
    row("text without the word", "house", "das Haus\ndas Gebäude\n", "house",
        "das Haus\ndas Gebäude");
    row("nothing but the word", "house", "house\n", "house", "house");
    row("nothing but word and tags", "house", "house /x/ <n>\n", "house", "<n>");
    row("no text at all", "house", "", "house", "");
    row("no line feed at the end", "house", "house /x/\nHaus", "house", "Haus");
    row("carriage returns", "house", "house /x/\r\nHaus\r\n", "house", "Haus");
}

void TestFreeDictEntry::parses()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, text);
    const FreeDictEntry entry =
        FreeDictEntry::parse(key.toStdString(), text.toStdString(), {LatinForm::Plain});
    QTEST(QByteArray::fromStdString(entry.headword), "headword");
    QTEST(QByteArray::fromStdString(entry.article), "article");
}

void TestFreeDictEntry::normalizes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("normalized");
    QTest::newRow("case and signs") << QByteArray("Well-Known!") << QByteArray("wellknown");
    QTest::newRow("umlauts") << QByteArray("Äpfel ÉSS ß") << QByteArray("äpfel éss ß");
    QTest::newRow("digits") << QByteArray("1/2 K-9") << QByteArray("12 k9");
    QTest::newRow("superscripts go") << QByteArray("t² test ½") << QByteArray("t test");
    QTest::newRow("blanks") << QByteArray("  a – b ") << QByteArray("a b");
    QTest::newRow("signs only") << QByteArray("… !") << QByteArray();
    QTest::newRow("greek") << QByteArray("5Α-x") << QByteArray("5αx");
}

void TestFreeDictEntry::normalizes()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(FreeDictEntry::normalized(text.toStdString())), "normalized");
}

QTEST_APPLESS_MAIN(TestFreeDictEntry)
#include "test_freedictentry.moc"
