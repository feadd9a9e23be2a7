// SPDX-License-Identifier: MIT
#include "lexicon/entries/oversizesplitter.h"
#include "tests/lexicon/entrylists.h"

#include <QTest>

#include <algorithm>
#include <set>

using namespace teskel;

class TestOversizeSplitter : public QObject
{
    Q_OBJECT

private slots:
    void whatFitsStaysAsItIs();
    void longArticleGoesOnUnderANumberedHeadword();
    void wordsThatFoldAlikeShareOneRecord();
    void takenNumbersAreSkipped();
    void longestHeadwordMakesRoomForTheNumber();
    void articleWithoutLinesOrBlanksIsCutOutsideReferences_data();
    void articleWithoutLinesOrBlanksIsCutOutsideReferences();
    void splittingAgainChangesNothing();
    void hugeGroupKeepsItsNumbering();

private:
    std::vector<LexiconEntry> split(std::vector<LexiconEntry> entries)
    {
        std::sort(entries.begin(), entries.end(), comesBefore);
        const auto merged = test::filed(entries);
        OversizeSplitter splitter(_report);
        if (!splitter.isNeeded(*merged))
            return entries;
        EntrySorter fitting;
        splitter.split(*merged, fitting);
        return test::listed(*fitting.sorted(), _arena);
    }
    LexiconEntry entry(const std::string& headword, const std::string& article)
    {
        return _arena.make(headword, article, _order++);
    }

    EntryArena _arena;
    BuildReport _report;
    uint32_t _order = 0;
};

namespace
{

std::string lines(size_t bytes)
{
    std::string text;
    while (text.size() < bytes)
        text += "a line of " + std::to_string(text.size()) + "\n";
    text.resize(bytes);
    return text;
}

/// Whether every group of headwords that fold alike fits into a record.
bool allFit(const std::vector<LexiconEntry>& entries)
{
    for (size_t first = 0; first < entries.size();) {
        size_t bytes = 0;
        size_t next = first;
        for (; next < entries.size() && foldsAlike(entries[first], entries[next]); ++next)
            bytes += entries[next].packed().size();
        if (bytes > limits::recordPayload)
            return false;
        first = next;
    }
    return std::is_sorted(entries.begin(), entries.end(), comesBefore);
}

QByteArrayList headwords(const std::vector<LexiconEntry>& entries)
{
    QByteArrayList words;
    for (const LexiconEntry& entry : entries)
        words += QByteArray(entry.text);
    return words;
}

/// The articles joined again, without the marks of the cuts.
std::string joined(const std::vector<LexiconEntry>& entries)
{
    const std::string mark = "&hellip;\n";
    std::string text;
    for (const LexiconEntry& entry : entries) {
        std::string_view article = entry.article();
        if (article.starts_with(mark)) {
            article.remove_prefix(mark.size());
            text += '\n';
        }
        text += article;
    }
    return text;
}

} // namespace

void TestOversizeSplitter::whatFitsStaysAsItIs()
{
    // Headword, article, two NULs, and the NUL that ends the record: 32,767 bytes.
    const auto entries = split({entry("a", "x"), entry("house", lines(32767 - 1 - 2 - 5))});
    QCOMPARE(headwords(entries), (QByteArrayList{"a", "house"}));
    QVERIFY(allFit(entries));
    QVERIFY(_report.diagnostics.lines().empty());
}

void TestOversizeSplitter::longArticleGoesOnUnderANumberedHeadword()
{
    _report = BuildReport();
    const std::string article = lines(80000);
    const auto entries = split({entry("house", article), entry("mouse", "x")});
    QCOMPARE(headwords(entries), (QByteArrayList{"house", "house (2)", "house (3)", "mouse"}));
    QVERIFY(allFit(entries));
    QVERIFY(joined({entries.begin(), entries.begin() + 3}) == article);
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QCOMPARE(_report.diagnostics.lines().front(),
             std::string("warning[long-article]: the articles of \"house\" fill more than one "
                         "record of 32,767 bytes; they "
                         "go on under \"house (2)\" and so on"));
}

void TestOversizeSplitter::wordsThatFoldAlikeShareOneRecord()
{
    const auto entries =
        split({entry("set", lines(20000)), entry("Set", lines(20000)), entry("SET", "short")});
    QVERIFY(allFit(entries));
    size_t bytes = 0;
    for (const LexiconEntry& each : entries)
        bytes += each.articleLength;
    QVERIFY(bytes >= 40005);
    QCOMPARE(QByteArray(entries[0].text), QByteArray("set"));
    QCOMPARE(entries[0].articleLength, 20000U);
}

void TestOversizeSplitter::takenNumbersAreSkipped()
{
    const auto entries = split(
        {entry("house", lines(40000)), entry("House (2)", "taken"), entry("house (4)", "taken")});
    QCOMPARE(headwords(entries), (QByteArrayList{"house", "House (2)", "house (3)", "house (4)"}));
    QVERIFY(allFit(entries));
}

void TestOversizeSplitter::longestHeadwordMakesRoomForTheNumber()
{
    const std::string headword(511, 'h');
    const auto entries = split({entry(headword, lines(40000))});
    QCOMPARE(entries.size(), size_t{2});
    for (const LexiconEntry& each : entries)
        QCOMPARE(each.headwordLength, uint16_t{511});
    QVERIFY(allFit(entries));
}

void TestOversizeSplitter::articleWithoutLinesOrBlanksIsCutOutsideReferences_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::newRow("entity and tags") << QByteArray("&alpha;<b>x</b>");
    QTest::newRow("letter references") << QByteArray("&_bpgaa;");
    QTest::newRow("references in a tag") << QByteArray("<font&_daa;color='&_da;&_da;&_da;'>");
    for (int length = 1; length <= 16; ++length)
        QTest::addRow("%d bytes and a reference", length)
            << QByteArray(length, 'x') + "&_bpgaa;<br&_db;>";
}

void TestOversizeSplitter::articleWithoutLinesOrBlanksIsCutOutsideReferences()
{
    QFETCH(QByteArray, unit);
    std::string article(static_cast<size_t>(unit.size() / 2), 'x');
    while (article.size() < 40000)
        article += unit.toStdString();
    const auto entries = split({entry("house", article)});
    QVERIFY(entries.size() == 2);
    for (const LexiconEntry& each : entries) {
        const std::string_view piece = each.article();
        QCOMPARE(std::count(piece.begin(), piece.end(), '&'),
                 std::count(piece.begin(), piece.end(), ';'));
        QCOMPARE(std::count(piece.begin(), piece.end(), '<'),
                 std::count(piece.begin(), piece.end(), '>'));
    }
    std::string whole = joined(entries);
    whole.erase(whole.find('\n'), 1);
    QVERIFY(whole == article);
}

void TestOversizeSplitter::splittingAgainChangesNothing()
{
    const auto once = split({entry("set", lines(70000)), entry("Set", lines(50000))});
    const auto again = split(once);
    QCOMPARE(headwords(again), headwords(once));
    QVERIFY(allFit(once));
}

void TestOversizeSplitter::hugeGroupKeepsItsNumbering()
{
    std::vector<LexiconEntry> source;
    constexpr unsigned articles = 10;
    for (unsigned i = 0; i < articles; ++i)
        source.push_back(entry("set", lines(1'000'000)));
    const auto entries = split(source);
    QVERIFY(allFit(entries));
    std::set<std::string_view> headwords;
    size_t bytes = 0;
    for (const LexiconEntry& each : entries) {
        headwords.insert(each.headword());
        bytes += each.articleLength;
    }
    QCOMPARE(headwords.size(), entries.size());
    QVERIFY(headwords.contains("set (" + std::to_string(entries.size()) + ")"));
    QVERIFY(bytes >= size_t{articles} * (1'000'000 - 40)); // blanks and line ends at the cuts
}

QTEST_APPLESS_MAIN(TestOversizeSplitter)
#include "test_oversizesplitter.moc"
