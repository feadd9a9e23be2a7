// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryarena.h"
#include "lexicon/file/recordplan.h"

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
    void contentEndsWithAnEmptyHeadword();
    void indexHoldsTheFirstHeadwords();
    void firstKeyIsNoTopicMark();
    void laterKeysMayBeginWithTheTopicMark();
    void sizeGrowsWhenRecordsWouldBeTooMany();
};

namespace
{

std::vector<LexiconEntry> make(EntryArena& arena, const QByteArrayList& headwords,
                               const std::string& article)
{
    std::vector<LexiconEntry> entries;
    for (const QByteArray& headword : headwords)
        entries.push_back(arena.make(headword.toStdString(), article, 0));
    return entries;
}

QList<QByteArrayList> divided(const std::vector<LexiconEntry>& entries, const RecordPlan& plan)
{
    QList<QByteArrayList> result;
    for (const PlannedRecord& record : plan.records()) {
        result.append(QByteArrayList());
        for (size_t i = record.first; i < record.last; ++i)
            result.back() += QByteArray(entries[i].text);
    }
    return result;
}

} // namespace

void TestRecordPlan::recordsGrowUpToTheirSize()
{
    EntryArena arena;
    // Ten bytes each; a record of 31 holds three and the final NUL.
    const auto entries = make(arena, {"a", "b", "c", "d", "e", "f", "g"}, "1234567");
    QCOMPARE(divided(entries, RecordPlan(entries, 31)),
             (QList<QByteArrayList>{{"a", "b", "c"}, {"d", "e", "f"}, {"g"}}));
    QCOMPARE(divided(entries, RecordPlan(entries, 30)),
             (QList<QByteArrayList>{{"a", "b"}, {"c", "d"}, {"e", "f"}, {"g"}}));
}

void TestRecordPlan::entryLargerThanTheSizeStandsAlone()
{
    EntryArena arena;
    const auto entries = make(arena, {"a", "b"}, std::string(1000, 'x'));
    QCOMPARE(divided(entries, RecordPlan(entries, 256)), (QList<QByteArrayList>{{"a"}, {"b"}}));
}

void TestRecordPlan::wordsThatFoldAlikeStayTogether()
{
    EntryArena arena;
    const auto entries =
        make(arena, {"a", "set", "Set", "SET", "seu", "\xE4", "\xC4"}, std::string(100, 'x'));
    QCOMPARE(divided(entries, RecordPlan(entries, 256)),
             (QList<QByteArrayList>{{"a"}, {"set", "Set", "SET"}, {"seu"}, {"\xE4", "\xC4"}}));
}

void TestRecordPlan::contentEndsWithAnEmptyHeadword()
{
    EntryArena arena;
    const auto entries = make(arena, {"a", "b"}, "x");
    const RecordPlan plan(entries, 256);
    QCOMPARE(plan.content(plan.records().front()), std::string("a\0x\0b\0x\0\0", 9));
}

void TestRecordPlan::indexHoldsTheFirstHeadwords()
{
    EntryArena arena;
    const auto entries = make(arena, {"a", "b", "c"}, "1234567");
    QCOMPARE(RecordPlan(entries, 21).index(), std::string("a\0c\0\0", 5));
    QCOMPARE(RecordPlan({}, 256).index(), std::string("\0", 1));
}

void TestRecordPlan::firstKeyIsNoTopicMark()
{
    EntryArena arena;
    const auto entries = make(arena, {"#1", "a"}, "x");
    QCOMPARE(RecordPlan(entries, 256).index(), std::string("!\0\0", 3));
    QVERIFY(QByteArray("!") < QByteArray("#"));
}

void TestRecordPlan::laterKeysMayBeginWithTheTopicMark()
{
    EntryArena arena;
    const auto entries = make(arena, {"!", "#1"}, std::string(300, 'x'));
    QCOMPARE(RecordPlan(entries, 256).index(), std::string("!\0#1\0\0", 6));
}

void TestRecordPlan::sizeGrowsWhenRecordsWouldBeTooMany()
{
    EntryArena arena;
    QByteArrayList headwords;
    for (int i = 0; i < 70000; ++i)
        headwords += QByteArray::number(100000 + i);
    const auto entries = make(arena, headwords, std::string(200, 'x'));
    const RecordPlan plan(entries, 256);
    QVERIFY(plan.records().size() <= limits::wordRecords);
    QCOMPARE(plan.recordSize(), 512U);
}

QTEST_APPLESS_MAIN(TestRecordPlan)
#include "test_recordplan.moc"
