// SPDX-License-Identifier: MIT
#include "lexicon/text/givenback.h"
#include "lexicon/text/senseruns.h"
#include "lexicon/text/storedarticle.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>

namespace givenback = teskel::givenback;
using teskel::Latin1Converter;
using Text = Latin1Converter::Text;

class TestGivenBack : public QObject
{
    Q_OBJECT

private slots:
    void givesCharactersBack_data();
    void givesCharactersBack();
    void descriptionsKeepTheirDigits();
    void anyArticleIsBuiltAgain_data();
    void anyArticleIsBuiltAgain();
    void anyArticleKeepsItsText();
};

namespace
{

std::string stored(std::string_view utf8, Text kind)
{
    Latin1Converter converter;
    return teskel::storedArticle(converter, utf8, kind);
}

/// A text of what makes trouble next to each other.
std::string randomText(QRandomGenerator& random)
{
    static constexpr std::array<std::string_view, 52> pieces = {"1",
                                                                "2",
                                                                "9",
                                                                "0",
                                                                ".",
                                                                ".",
                                                                "\n",
                                                                "\n",
                                                                " ",
                                                                "a",
                                                                "n",
                                                                "&",
                                                                "&_",
                                                                "&_db;",
                                                                "&_dc;",
                                                                "&_ede;",
                                                                "&_aadb;",
                                                                "&_gb;",
                                                                "&_dm;",
                                                                "&_cg;",
                                                                "&_daa;",
                                                                "&_dap;",
                                                                "&_dai;",
                                                                "\u1100",
                                                                "\u1161",
                                                                "&_bbgb;",
                                                                ";",
                                                                "_",
                                                                "<",
                                                                ">",
                                                                "<b>",
                                                                "<i>n</i>",
                                                                "\n<i>adv</i> ",
                                                                "</b>",
                                                                "<br>",
                                                                "<h1>",
                                                                "</h2>",
                                                                "<p",
                                                                "&#",
                                                                "&#49;",
                                                                "&#x434;",
                                                                "&frac12;",
                                                                "&frac",
                                                                "&amp;",
                                                                "д",
                                                                "日",
                                                                "\xF0\x9F\x98\x80",
                                                                "\xCC\x88",
                                                                "o",
                                                                "\xFF",
                                                                "(",
                                                                ": "};
    std::string text;
    for (int length = random.bounded(12); length >= 0; --length)
        text += pieces[static_cast<size_t>(random.bounded(static_cast<int>(pieces.size())))];
    return text;
}

/// What the reader's view shows: sense numbers as they are, references resolved, other digits from
/// 1 to 9 dropped.
QByteArray shown(std::string_view latin1)
{
    QString markup = QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
    for (qsizetype i = 0; i < markup.size(); ++i) {
        if (markup[i] < u'1' || markup[i] > u'9')
            continue;
        if (i + 1 < markup.size() && markup[i + 1] == u'.')
            ++i;
        else
            markup.remove(i--, 1);
    }
    return teskel::withLetterReferencesResolved(markup).toUtf8();
}

} // namespace

void TestGivenBack::givesCharactersBack_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QByteArray>("givenBack");
    const auto row = [](const char* name, const char* stored, const char* givenBack) {
        QTest::newRow(name) << QByteArray(stored) << QByteArray(givenBack);
    };
    row("nothing to do", "a \xE4 &amp; <b>", "a ä &amp; <b>");
    row("other letters", "&_ede;&_eda; x", "да x");
    row("digits", "am &_db;&_dh;. Mai", "am 17. Mai");
    row("a sense number", "1. a\n2. &_dd; b", "1. a\n2. 3 b");
    row("a digit that would be a sense number", "&_db;. Klasse\n &_dc;. Akt",
        "&_db;. Klasse\n &_dc;. Akt");
    row("the same behind a tag", "<b>&_db;. Klasse</b><br>&_dc;. Akt",
        "<b>&_db;. Klasse</b><br>&_dc;. Akt");
    row("digits at the beginning of a line", "&_db;&_dh;. Mai\n&_db;0 Euro", "17. Mai\n10 Euro");
    row("behind a kind of word", "<i>n</i> 1. a\n<i>v</i> &_dc;. b",
        "<i>n</i> 1. a\n<i>v</i> &_dc;. b");
    row("a tag's digits", "<h&_db;><font color='#&_di;0'>", "<h1><font color='#80'>");
    row("markup signs", "&_dm; &_cg; &_do;", "&_dm; &_cg; &_do;");
    row("a letter of Latin-1", "&_gb;", "&_gb;");
    row("another spelling", "&_aaede;", "&_aaede;");
    row("what is not shown", "&_caco; &_a;", "&_caco; &_a;");
    row("malformed", "&_ed &_; &_z;", "&_ed &_; &_z;");
    row("a mark that would join its letter", "o&_dai; &_ede; &_db;0", "o&_dai; д 10");
    row("a mark in a tag", "<p a='o&_dai;&_ede;'>", "<p a='o&_dai;д'>");
    row("a mark that joins nothing", "x&_dad; &_ede;", "x\u0303 д");
    row("parts of a syllable", "&_bbaa;&_bbgb; &_ede;", "\u1100&_bbgb; д");
    row("a sign that is another", "o&_dai; &_cbcg; &_ede;", "o&_dai; &_cbcg; д");
    row("digits that would make a reference", "&#&_dg;&_dg;; &_ede;", "&#&_dg;&_dg;; &_ede;");
}

void TestGivenBack::givesCharactersBack()
{
    QFETCH(QByteArray, stored);
    QTEST(QByteArray::fromStdString(givenback::article(stored.toStdString())), "givenBack");
    QFETCH(QByteArray, givenBack);
    QCOMPARE(QByteArray::fromStdString(::stored(givenBack.toStdString(), Text::MarkupArticle)),
             stored);
}

void TestGivenBack::descriptionsKeepTheirDigits()
{
    QCOMPARE(givenback::description("&_ede; 1 &_dc; <b>"), std::string("д 1 &_dc; <b>"));
    QCOMPARE(givenback::description("plain 1."), std::string("plain 1."));
}

void TestGivenBack::anyArticleIsBuiltAgain_data()
{
    QTest::addColumn<bool>("isPlain");
    QTest::newRow("plain") << true;
    QTest::newRow("markup") << false;
}

void TestGivenBack::anyArticleIsBuiltAgain()
{
    QFETCH(bool, isPlain);
    QRandomGenerator random(1);
    for (int i = 0; i < 50000; ++i) {
        const std::string source = randomText(random);
        const std::string once = stored(source, isPlain ? Text::PlainArticle : Text::MarkupArticle);
        const std::string again = stored(givenback::article(once), Text::MarkupArticle);
        if (again != once)
            QCOMPARE(QByteArray::fromStdString(again), QByteArray::fromStdString(once));
    }
}

void TestGivenBack::anyArticleKeepsItsText()
{
    QRandomGenerator random(2);
    for (int i = 0; i < 50000; ++i) {
        std::string source = randomText(random);
        if (source.find('\xFF') != std::string::npos)
            continue;
        // Without senses of its own: a number's mark and label are written differently there.
        if (!teskel::senseruns::find(source).empty())
            continue;
        const QByteArray text = shown(stored(source, Text::PlainArticle));
        const QByteArray expected =
            QByteArray::fromStdString(teskel::utf8::encoded(teskel::utf8::composed(source)));
        const QByteArray escaped = QByteArray(expected).replace("&", "&amp;").replace("<", "&lt;");
        if (text != escaped)
            QCOMPARE(text, escaped);
    }
}

QTEST_APPLESS_MAIN(TestGivenBack)
#include "test_givenback.moc"
