// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrymerger.h"
#include "lexicon/entries/entrysorter.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/storedarticle.h"
#include "lexicon/text/utf8.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>

using namespace teskel;

class TestEntryMerger : public QObject
{
    Q_OBJECT

private slots:
    void merges_data();
    void merges();
    void mergesInThePlainForm_data();
    void mergesInThePlainForm();
    void wordsThatFellTogetherStayApart_data();
    void wordsThatFellTogetherStayApart();
    void hugeGroupIsMergedInParts();
    void sortsAsTheReaderCompares();
    void smallLettersComeBeforeCapitals();
    void sensesKeepTheOrderOfTheSource();
    void countsRepeatedArticles();
    void mergedArticlesAreBuiltAgain_data();
    void mergedArticlesAreBuiltAgain();
};

namespace
{

using Pairs = QList<QPair<QByteArray, QByteArray>>;

Pairs merged(const Pairs& source, bool numbers, BuildReport& report,
             LatinForm form = LatinForm::LetterReferences)
{
    EntrySorter sorter;
    uint32_t order = 0;
    for (const auto& [headword, article] : source)
        sorter.add(headword.toStdString(), article.toStdString(), order++);
    const auto sorted = sorter.sorted();
    EntryMerger merger(*sorted, report, numbers, form);
    Pairs result;
    LexiconEntry entry;
    while (merger.next(entry))
        result.append({QByteArray(entry.text), QByteArray(entry.article().data())});
    return result;
}

Pairs merged(const Pairs& source, bool numbers = true)
{
    BuildReport report;
    return merged(source, numbers, report);
}

/// Rich text of what makes trouble when articles stand one under the other.
std::string randomArticle(QRandomGenerator& random)
{
    static constexpr std::array<std::string_view, 20> pieces = {
        "<",  "<b", ">", "<br>", "</b>", "<!--", "-->", "&_db;", "&_ede;",    "&_dab;",
        "\n", "1",  "2", "9",    ".",    ". ",   "10.", " ",     "<i>n</i> ", "a"};
    std::string text;
    for (int length = random.bounded(6); length >= 0; --length)
        text += pieces[static_cast<size_t>(random.bounded(static_cast<int>(pieces.size())))];
    return text;
}

QByteArrayList headwords(const Pairs& entries)
{
    QByteArrayList words;
    for (const auto& entry : entries)
        words += entry.first;
    return words;
}

} // namespace

void TestEntryMerger::merges_data()
{
    QTest::addColumn<QByteArrayList>("articles");
    QTest::addColumn<bool>("numbers");
    QTest::addColumn<QByteArray>("article");
    QTest::newRow("one article stays as it is")
        << QByteArrayList{"Haus"} << true << QByteArray("Haus");
    QTest::newRow("two articles are numbered")
        << QByteArrayList{"Haus", "Heim"} << true << QByteArray("1. Haus\n2. Heim");
    QTest::newRow("further lines follow their number")
        << QByteArrayList{"Haus\nsee: home", "Heim"} << true
        << QByteArray("1. Haus\nsee: home\n2. Heim");
    const QByteArray ten = "<b><font color=\"#0000FF\">&_db;0.</font></b> ";
    const QByteArray eleven = "<b><font color=\"#0000FF\">&_db;&_db;.</font></b> ";
    QTest::newRow("numbers go on behind nine")
        << QByteArrayList{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"} << true
        << "1. a\n2. b\n3. c\n4. d\n5. e\n6. f\n7. g\n8. h\n9. i\n" + ten + "j\n" + eleven + "k";
    QTest::newRow("numbered already")
        << QByteArrayList{"1. a", "2. b"} << true << QByteArray("1. a\n2. b");
    QTest::newRow("one of them numbered already")
        << QByteArrayList{"a", "1. b\n2. c"} << true << QByteArray("a\n1. b\n2. c");
    QTest::newRow("numbered behind its first line")
        << QByteArrayList{"&lt;n>\n1. b\n2. c", "a"} << true << QByteArray("&lt;n>\n1. b\n2. c\na");
    QTest::newRow("an ordinal number is no numbering")
        << QByteArrayList{"&_db;. Klasse", "erstklassig"} << true
        << QByteArray("1. &_db;. Klasse\n2. erstklassig");
    QTest::newRow("without numbers") << QByteArrayList{"a", "b"} << false << QByteArray("a\nb");
    QTest::newRow("repeated article is kept once")
        << QByteArrayList{"a", "b", "a"} << true << QByteArray("1. a\n2. b");
    QTest::newRow("only repetitions are not numbered")
        << QByteArrayList{"a", "a"} << true << QByteArray("a");
    QTest::newRow("a tag across two articles")
        << QByteArrayList{"<b", ">"} << true << QByteArray("1. <b\n&_dc;. >");
    QTest::newRow("empty articles") << QByteArrayList{"", "a"} << true << QByteArray("1. \n2. a");
}

void TestEntryMerger::merges()
{
    QFETCH(QByteArrayList, articles);
    QFETCH(bool, numbers);
    QFETCH(QByteArray, article);
    Pairs source;
    for (const QByteArray& each : articles)
        source.append({"house", each});
    QCOMPARE(merged(source, numbers), (Pairs{{"house", article}}));
}

void TestEntryMerger::mergesInThePlainForm_data()
{
    QTest::addColumn<QByteArrayList>("articles");
    QTest::addColumn<QByteArray>("article");
    QTest::newRow("numbers end at nine")
        << QByteArrayList{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}
        << QByteArray("1. a\n2. b\n3. c\n4. d\n5. e\n6. f\n7. g\n8. h\n9. i\nj\nk");
    QTest::newRow("one of them numbered already")
        << QByteArrayList{"a", "1. b\n2. c"} << QByteArray("a\n1. b\n2. c");
    QTest::newRow("numbered behind its first line")
        << QByteArrayList{"&lt;n>\n1. b\n2. c", "a"} << QByteArray("1. &lt;n>\n1. b\n2. c\n2. a");
    QTest::newRow("an ordinal number is no numbering")
        << QByteArrayList{"1<i></i>. Klasse", "erstklassig"}
        << QByteArray("1. 1<i></i>. Klasse\n2. erstklassig");
}

void TestEntryMerger::mergesInThePlainForm()
{
    QFETCH(QByteArrayList, articles);
    QFETCH(QByteArray, article);
    Pairs source;
    for (const QByteArray& each : articles)
        source.append({"house", each});
    BuildReport report;
    QCOMPARE(merged(source, true, report, LatinForm::Plain), (Pairs{{"house", article}}));
}

void TestEntryMerger::wordsThatFellTogetherStayApart_data()
{
    using Entries = QList<QPair<QByteArray, QByteArray>>; // word as written or nothing, article
    QTest::addColumn<Entries>("entries");
    QTest::addColumn<QByteArray>("article");
    const QByteArray a = "<b>&_ede;</b>\n";
    const QByteArray b = "<b>&_edf;</b>\n";
    QTest::newRow("one word") << Entries{{a, "x"}} << a + "x";
    QTest::newRow("two words") << Entries{{a, "x"}, {b, "y"}} << a + "x\n" + b + "y";
    QTest::newRow("one word twice") << Entries{{a, "x"}, {a, "y"}} << a + "1. x\n2. y";
    QTest::newRow("two words, by turns")
        << Entries{{b, "x"}, {a, "y"}, {b, "z"}} << b + "1. x\n2. z\n" + a + "y";
    QTest::newRow("the headword itself comes first")
        << Entries{{a, "x"}, {"", "y"}} << "y\n" + a + "x";
    QTest::newRow("same article, other word")
        << Entries{{a, "x"}, {b, "x"}, {a, "x"}} << a + "x\n" + b + "x";
}

void TestEntryMerger::wordsThatFellTogetherStayApart()
{
    using Entries = QList<QPair<QByteArray, QByteArray>>;
    QFETCH(Entries, entries);
    // In memory, and put aside in files after each entry.
    for (const size_t room : {EntrySorter::usualRoom, size_t{1}}) {
        EntrySorter sorter(room);
        BuildReport report;
        uint32_t order = 0;
        for (const auto& [line, article] : entries)
            QVERIFY(sorter.add("d", (line + article).toStdString(), order++,
                               static_cast<uint16_t>(line.size())));
        const auto sorted = sorter.sorted();
        EntryMerger merger(*sorted, report, true);
        LexiconEntry merged;
        QVERIFY(merger.next(merged));
        QTEST(QByteArray(merged.article().data()), "article");
        QVERIFY(!merger.next(merged));
    }
}

void TestEntryMerger::hugeGroupIsMergedInParts()
{
    EntrySorter sorter;
    BuildReport report;
    const std::string article(1'000'000, 'x');
    constexpr uint32_t articles = 20;
    for (uint32_t order = 0; order < articles; ++order)
        sorter.add("d", std::to_string(order) + article, order);
    sorter.add("e", "x", articles);
    const auto sorted = sorter.sorted();
    EntryMerger merger(*sorted, report, true);
    QByteArrayList headwords;
    size_t bytes = 0;
    LexiconEntry entry;
    while (merger.next(entry)) {
        headwords += QByteArray(entry.text);
        bytes += entry.articleLength;
        QVERIFY(entry.articleLength < EntryGroups::largestGroup + 2 * article.size());
    }
    QVERIFY(headwords.count("d") > 1);
    QCOMPARE(headwords.last(), QByteArray("e"));
    QVERIFY(bytes > articles * article.size());
}

void TestEntryMerger::sortsAsTheReaderCompares()
{
    const Pairs source = {{"z", ""},    {"\xE4", ""}, {"A", ""},   {"b", ""},    {"a b", ""},
                          {"a-b", ""},  {"ab", ""},   {"_", ""},   {"1", ""},    {"\xDF", ""},
                          {"\xFF", ""}, {"#", ""},    {"ABA", ""}, {"\xD7", ""}, {"\xF7", ""}};
    const QByteArrayList expected = {"#", "1", "A",    "a b",  "a-b",  "ab",   "ABA", "b",
                                     "z", "_", "\xE4", "\xD7", "\xDF", "\xF7", "\xFF"};
    QCOMPARE(headwords(merged(source)), expected);
}

void TestEntryMerger::smallLettersComeBeforeCapitals()
{
    const Pairs source = {{"SET", ""}, {"Set", ""}, {"set", ""}, {"\xC4", ""}, {"\xE4", ""}};
    QCOMPARE(headwords(merged(source)), (QByteArrayList{"set", "Set", "SET", "\xE4", "\xC4"}));
}

void TestEntryMerger::sensesKeepTheOrderOfTheSource()
{
    const Pairs source = {{"b", "z"}, {"a", "w"}, {"b", "y"}, {"A", "?"}, {"a", "v"}};
    QCOMPARE(merged(source), (Pairs{{"a", "1. w\n2. v"}, {"A", "?"}, {"b", "1. z\n2. y"}}));
}

void TestEntryMerger::countsRepeatedArticles()
{
    BuildReport report;
    merged({{"a", "x"}, {"a", "x"}, {"a", "y"}, {"b", "x"}, {"b", "x"}}, true, report);
    QCOMPARE(report.repeatedArticles, uint64_t{2});
    QCOMPARE(report.mergedHeadwords, uint64_t{1});
}

void TestEntryMerger::mergedArticlesAreBuiltAgain_data()
{
    QTest::addColumn<bool>("isPlainForm");
    QTest::newRow("letter references") << false;
    QTest::newRow("plain form") << true;
}

void TestEntryMerger::mergedArticlesAreBuiltAgain()
{
    QFETCH(bool, isPlainForm);
    const LatinForm form = isPlainForm ? LatinForm::Plain : LatinForm::LetterReferences;
    const auto stored = [form](const std::string& text) {
        Latin1Converter converter(form);
        return storedArticle(converter, text, Latin1Converter::Text::MarkupArticle);
    };
    QRandomGenerator random(3);
    for (int i = 0; i < 20000; ++i) {
        Pairs source;
        for (int left = 1 + random.bounded(3); left >= 0; --left)
            source.append({"house", QByteArray::fromStdString(stored(randomArticle(random)))});
        BuildReport report;
        const QByteArray once = merged(source, true, report, form).front().second;
        const std::string given = isPlainForm ? utf8::fromLatin1(once.toStdString())
                                              : givenback::article(once.toStdString());
        const QByteArray again = QByteArray::fromStdString(stored(given));
        if (again != once)
            QCOMPARE(again, once);
    }
}

QTEST_APPLESS_MAIN(TestEntryMerger)
#include "test_entrymerger.moc"
