// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrysorter.h"
#include "tests/lexicon/entrylists.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <tuple>

#include <sys/resource.h>

using namespace teskel;

class TestEntrySorter : public QObject
{
    Q_OBJECT

private slots:
    void sortsTheSameHoweverMuchItMayHold_data();
    void sortsTheSameHoweverMuchItMayHold();
    void nothingSortsToNothing();
    void textsOfAnyLengthComeBack();
    void leavesNoFileBehind();
    void unusableDirectoryIsNamed();
    void fullDiskIsNamed();
};

namespace
{

using Row = std::tuple<QByteArray, QByteArray, uint32_t>;

std::vector<Row> randomRows(int count)
{
    QRandomGenerator random(17);
    const auto text = [&random](int least, int most) {
        QByteArray bytes(random.bounded(least, most + 1), Qt::Uninitialized);
        for (char& c : bytes)
            c = "abAB \xE4\xC4(2)"[random.bounded(10)];
        return bytes;
    };
    std::vector<Row> rows;
    rows.reserve(static_cast<size_t>(count));
    for (int number = 0; number < count; ++number)
        rows.emplace_back(text(1, 3), text(0, 40), static_cast<uint32_t>(number));
    return rows;
}

/// Of which a run needs a file.
std::vector<Row> longRows()
{
    constexpr uint32_t count = 30;
    std::vector<Row> rows;
    rows.reserve(count);
    for (uint32_t number = 0; number < count; ++number)
        rows.emplace_back(QByteArray(1, static_cast<char>('A' + number)), QByteArray(500'000, 'x'),
                          number);
    return rows;
}

std::vector<Row> sortedBy(EntrySorter& sorter, const std::vector<Row>& rows)
{
    for (const auto& [headword, article, order] : rows)
        sorter.add(headword.toStdString(), article.toStdString(), order);
    std::vector<Row> result;
    const auto sorted = sorter.sorted();
    LexiconEntry entry;
    while (sorted->next(entry))
        result.emplace_back(QByteArray(entry.text), QByteArray(entry.article().data()),
                            entry.order);
    return result;
}

/// The directory for temporary files, until the end of the scope.
class TemporaryPlace
{
public:
    explicit TemporaryPlace(const QByteArray& path) { qputenv("TMPDIR", path); }
    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;
    ~TemporaryPlace() { qputenv("TMPDIR", _before); }

private:
    QByteArray _before = qgetenv("TMPDIR");
};

} // namespace

void TestEntrySorter::sortsTheSameHoweverMuchItMayHold_data()
{
    QTest::addColumn<quint64>("room");
    QTest::addColumn<bool>("hasRuns");
    QTest::addRow("everything") << quint64{EntrySorter::usualRoom} << false;
    QTest::addRow("half") << quint64{50'000} << true;
    QTest::addRow("a little") << quint64{1'000} << true;
    QTest::addRow("one entry") << quint64{1} << true;
}

void TestEntrySorter::sortsTheSameHoweverMuchItMayHold()
{
    QFETCH(quint64, room);
    QFETCH(bool, hasRuns);
    // A file a run: no more than a process may have open.
    const std::vector<Row> rows = randomRows(room == 1 ? 300 : 2000);
    std::vector<Row> expected = rows;
    EntryArena arena;
    std::sort(expected.begin(), expected.end(), [&arena](const Row& a, const Row& b) {
        const auto entry = [&arena](const Row& row) {
            return arena.make(std::get<0>(row).toStdString(), {}, std::get<2>(row));
        };
        return comesBefore(entry(a), entry(b));
    });
    EntrySorter sorter(room);
    QVERIFY(sortedBy(sorter, rows) == expected);
    QCOMPARE(sorter.runs() > 0, hasRuns);
    QCOMPARE(sorter.count(), uint64_t{rows.size()});
    QCOMPARE(sorter.error(), std::string());
}

void TestEntrySorter::nothingSortsToNothing()
{
    EntrySorter sorter;
    LexiconEntry entry;
    QVERIFY(!sorter.sorted()->next(entry));
}

void TestEntrySorter::textsOfAnyLengthComeBack()
{
    // Beyond the buffer through which a run is read.
    const std::vector<Row> rows = {{"a", QByteArray(200'000, 'x'), 0},
                                   {"b", QByteArray(), 1},
                                   {"c", QByteArray(1'000'000, 'y'), 2}};
    EntrySorter sorter(1);
    QVERIFY(sortedBy(sorter, rows) == rows);
}

void TestEntrySorter::leavesNoFileBehind()
{
    const QTemporaryDir directory;
    const TemporaryPlace place(directory.path().toLocal8Bit());
    EntrySorter sorter(2 * ScratchFile::heldBytes);
    QVERIFY(sortedBy(sorter, longRows()) == longRows());
    QVERIFY(QDir(directory.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestEntrySorter::unusableDirectoryIsNamed()
{
    const TemporaryPlace place("/nowhere/at all");
    EntrySorter sorter(2 * ScratchFile::heldBytes);
    sortedBy(sorter, longRows());
    QCOMPARE(sorter.error(), std::string("cannot make a temporary file in /nowhere/at all: "
                                         "No such file or directory"));
}

void TestEntrySorter::fullDiskIsNamed()
{
    // A process that may write but little stands in for a full disk.
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit little{4096, before.rlim_max};
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &little), 0);
    EntrySorter sorter(2 * ScratchFile::heldBytes);
    sortedBy(sorter, longRows());
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, signalBefore);
    QVERIFY2(sorter.error().starts_with("cannot write a temporary file in "),
             sorter.error().c_str());
}

QTEST_APPLESS_MAIN(TestEntrySorter)
#include "test_entrysorter.moc"
