// SPDX-License-Identifier: MIT
#include "lexicon/sources/translations.h"

#include <QTest>

using teskel::Latin1Converter;
using teskel::translationsIn;

/// Finds the translations in articles, from which the opposite direction is made.
class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void plainArticles_data();
    void plainArticles();
    void richArticles_data();
    void richArticles();

private:
    static void addColumns()
    {
        QTest::addColumn<QByteArray>("article");
        QTest::addColumn<QByteArrayList>("translations");
    }
    static void row(const char* name, const QByteArray& article, const QByteArrayList& translations)
    {
        QTest::newRow(name) << article << translations;
    }
    static void compare(Latin1Converter::Text kind)
    {
        QFETCH(QByteArray, article);
        QFETCH(QByteArrayList, translations);
        QByteArrayList found;
        for (const std::string& translation : translationsIn(article.toStdString(), kind))
            found += QByteArray::fromStdString(translation);
        QCOMPARE(found, translations);
    }
};

void TestTranslations::plainArticles_data()
{
    addColumns();
    row("one", "Haus", {"Haus"});
    row("commas and semicolons", "Haus, Gebäude; Heim", {"Haus", "Gebäude", "Heim"});
    row("lines", "Haus\nHeim", {"Haus", "Heim"});
    row("senses", "1. Haus, Heim\n2. Stall", {"Haus", "Heim", "Stall"});
    row("ordinal number", "17. Lebensjahr", {"17. Lebensjahr"});
    row("year", "1848 revolution", {"1848 revolution"});
    row("brackets", "Haus <neut>, Heim (alt, selten) [poet.] {pl}", {"Haus", "Heim"});
    row("blanks left by brackets", "ein (altes) Haus", {"ein Haus"});
    row("bracket without an end", "Haus (alt, Heim", {"Haus"});
    row("end without a bracket", "Haus), Heim", {"Haus", "Heim"});
    row("examples and references",
        "Haus\n\"a house\" - ein Haus\nSynonyms: home; place\nsee: houses\nNote: old", {"Haus"});
    row("six words", "a b c d e f", {"a b c d e f"});
    row("explanation", "a building in which people live", {"a building in which people live"});
    row("long explanation", "a building in which people of all kinds live", {});
    row("no letters", "-, 7, ...", {});
    row("signs that compare", "x < y, z > w, a < b > c", {"x < y", "z > w", "a < b > c"});
    row("other scripts", "дом, 家", {"дом", "家"});
    row("nothing", "", {});
}

void TestTranslations::plainArticles()
{
    compare(Latin1Converter::Text::PlainArticle);
}

void TestTranslations::richArticles_data()
{
    addColumns();
    row("tags", "<b>Haus</b>, <i>n</i> Heim", {"Haus", "n Heim"});
    row("references", "Haus &lt;neut>, A &amp; B", {"Haus", "A & B"});
    row("letter references", "&_ede;&_edo;", {"до"});
    row("entities", "caf&eacute; noir, &OElig;uvre, d&#233;j&#xE0;",
        {"café noir", "Œuvre", "déjà"});
    row("signs that are no tags", "x < y > w, p < q", {"x < y > w", "p < q"});
    row("as many signs as make it long", "x < y and z > w", {});
    row("tags that end a line", "Haus<br>Heim<p>Hof</p>", {"Haus", "Heim", "Hof"});
    row("tag without an end", "Haus, <b", {"Haus"});
}

void TestTranslations::richArticles()
{
    compare(Latin1Converter::Text::MarkupArticle);
}

QTEST_APPLESS_MAIN(TestTranslations)
#include "test_translations.moc"
