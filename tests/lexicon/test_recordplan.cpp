// SPDX-License-Identifier: MIT
#include "lexicon/file/recordplan.h"
#include "tests/lexicon/entrylists.h"

#include <QTest>

#include <algorithm>

using namespace teskel;

class TestRecordPlan : public QObject
{
    Q_OBJECT

private slots:
    void recordsGrowUpToTheirSize();
    void entryLargerThanTheSizeStandsAlone();
    void wordsThatFoldAlikeStayTogether();
    void indexHoldsTheFirstHeadwords();
    void firstKeyIsNoTopicMark();
    void laterKeysMayBeginWithTheTopicMark();
    void sizeGrowsWhenRecordsWouldBeTooMany();
};

namespace
{

std::unique_ptr<EntryFile> make(const QByteArrayList& headwords, const std::string& article)
{
    EntryArena arena;
    std::vector<LexiconEntry> entries;
    for (const QByteArray& headword : headwords)
        entries.push_back(arena.make(headword.toStdString(), article, 0));
    return test::filed(entries);
}

QList<QByteArrayList> divided(EntryFile& entries, unsigned recordSize)
{
    const RecordPlan plan(entries, recordSize);
    const auto all = entries.read();
    LexiconEntry entry;
    QList<QByteArrayList> result;
    for (const PlannedRecord& record : plan.records()) {
        result.append(QByteArrayList());
        for (uint64_t left = record.entries; left > 0 && all->next(entry); --left)
            result.back() += QByteArray(entry.text);
    }
    return result;
}

} // namespace

void TestRecordPlan::recordsGrowUpToTheirSize()
{
    // Ten bytes each; a record of 31 holds three and the final NUL.
    const auto entries = make({"a", "b", "c", "d", "e", "f", "g"}, "1234567");
    QCOMPARE(divided(*entries, 31),
             (QList<QByteArrayList>{{"a", "b", "c"}, {"d", "e", "f"}, {"g"}}));
    QCOMPARE(divided(*entries, 30),
             (QList<QByteArrayList>{{"a", "b"}, {"c", "d"}, {"e", "f"}, {"g"}}));
}

void TestRecordPlan::entryLargerThanTheSizeStandsAlone()
{
    const auto entries = make({"a", "b"}, std::string(1000, 'x'));
    QCOMPARE(divided(*entries, 256), (QList<QByteArrayList>{{"a"}, {"b"}}));
}

void TestRecordPlan::wordsThatFoldAlikeStayTogether()
{
    const auto entries =
        make({"a", "set", "Set", "SET", "seu", "\xE4", "\xC4"}, std::string(100, 'x'));
    QCOMPARE(divided(*entries, 256),
             (QList<QByteArrayList>{{"a"}, {"set", "Set", "SET"}, {"seu"}, {"\xE4", "\xC4"}}));
}

void TestRecordPlan::indexHoldsTheFirstHeadwords()
{
    const auto entries = make({"a", "b", "c"}, "1234567");
    QCOMPARE(RecordPlan(*entries, 21).index(), std::string("a\0c\0\0", 5));
    QCOMPARE(RecordPlan(*make({}, {}), 256).index(), std::string("\0", 1));
}

void TestRecordPlan::firstKeyIsNoTopicMark()
{
    const auto entries = make({"#1", "a"}, "x");
    QCOMPARE(RecordPlan(*entries, 256).index(), std::string("!\0\0", 3));
    QVERIFY(QByteArray("!") < QByteArray("#"));
}

void TestRecordPlan::laterKeysMayBeginWithTheTopicMark()
{
    const auto entries = make({"!", "#1"}, std::string(300, 'x'));
    QCOMPARE(RecordPlan(*entries, 256).index(), std::string("!\0#1\0\0", 6));
}

void TestRecordPlan::sizeGrowsWhenRecordsWouldBeTooMany()
{
    QByteArrayList headwords;
    for (int i = 0; i < 70000; ++i)
        headwords += QByteArray::number(100000 + i);
    const auto entries = make(headwords, std::string(200, 'x'));
    const RecordPlan plan(*entries, 256);
    QVERIFY(plan.records().size() <= limits::wordRecords);
    QCOMPARE(plan.recordSize(), 512U);
}

QTEST_APPLESS_MAIN(TestRecordPlan)
#include "test_recordplan.moc"
