// SPDX-License-Identifier: MIT
#include "tests/hostile/environmentnumber.h"
#include "tests/hostile/sanitized.h"
#include "tests/lookup/lookupbench.h"

#include <QDir>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

constexpr int usualLookups = 20'000;
constexpr int warmUp = 5'000;
constexpr qint64 mostGrowth = 2 << 20; // bytes

qint64 residentBytes()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    ::malloc_trim(0); // what is free is not in use
    return file.readAll().split(' ').at(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

qsizetype openDescriptors()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
}

} // namespace

/// Long use. TESKEL_SOAK_LOOKUPS sets how many look-ups there are.
class TestSoak : public QObject
{
    Q_OBJECT

private slots:
    void lookupsLeaveMemoryAndDescriptorsAsTheyAre();

private:
    static void lookUp(LookupBench& bench, int first, int count);
};

// Words of all records and some that there are not, so that records are read again and again.
void TestSoak::lookUp(LookupBench& bench, int first, int count)
{
    for (int number = first; number < first + count; ++number) {
        const int word = number * 37 % 1100;
        bench.widget().setComboText(word < 1000 ? numberedWord(word) : u"none"_s, true);
        if (word < 1000)
            QCOMPARE(bench.currentWord(), numberedWord(word));
        if (number % 100 == 0)
            QCoreApplication::processEvents();
    }
}

void TestSoak::lookupsLeaveMemoryAndDescriptorsAsTheyAre()
{
    const int lookups = environmentNumber("TESKEL_SOAK_LOOKUPS", usualLookups);
    LookupBench bench;
    bench.open(numberedEntries(1000), 4); // more records than are kept
    bench.widget().show();
    lookUp(bench, 0, warmUp);
    const qint64 bytes = residentBytes();
    const qsizetype descriptors = openDescriptors();
    QVERIFY(bytes > 0 && descriptors > 0);

    lookUp(bench, 0, lookups);

    const qint64 growth = residentBytes() - bytes;
    qInfo("%d look-ups: %+lld kB resident", lookups, growth / 1024);
    QCOMPARE(openDescriptors(), descriptors);
    if (!isSanitized) // which keeps freed memory for a while
        QVERIFY2(growth < mostGrowth, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestSoak)
#include "test_soak.moc"
