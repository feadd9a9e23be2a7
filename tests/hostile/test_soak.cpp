// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "tests/hostile/environmentnumber.h"
#include "tests/lookup/lookupbench.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/sanitized.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <malloc.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

constexpr int usualLookups = 20'000;
constexpr int usualSwitches = 3'000;
constexpr int lookupsBefore = 5'000; // until caches are full
constexpr int switchesBefore = 1'000;
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

/// What is in use now must not be more, but for `mostGrowth`, when it is checked.
class Usage
{
public:
    void check(const char* use, int times) const
    {
        const qint64 growth = residentBytes() - _bytes;
        qInfo("%d %s: %+lld kB resident", times, use, growth / 1024);
        QVERIFY(_bytes > 0 && _descriptors > 0);
        QCOMPARE(openDescriptors(), _descriptors);
        if (!isSanitized) // which keeps freed memory for a while
            QVERIFY2(growth < mostGrowth, qPrintable(QString::number(growth)));
    }

private:
    qint64 _bytes = residentBytes();
    qsizetype _descriptors = openDescriptors();
};

} // namespace

/// Long use. TESKEL_SOAK_LOOKUPS sets how many look-ups there are, TESKEL_SOAK_SWITCHES how often
/// another dictionary is opened.
class TestSoak : public QObject
{
    Q_OBJECT

private slots:
    void lookupsLeaveMemoryAndDescriptorsAsTheyAre();
    void switchesLeaveMemoryAndDescriptorsAsTheyAre();

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
    lookUp(bench, 0, lookupsBefore);
    const Usage usage;

    lookUp(bench, 0, lookups);

    usage.check("look-ups", lookups);
}

void TestSoak::switchesLeaveMemoryAndDescriptorsAsTheyAre()
{
    const int switches = environmentNumber("TESKEL_SOAK_SWITCHES", usualSwitches);
    const QTemporaryDir home;
    for (const char* name : {"HOME", "QPEDIR", "XDG_CONFIG_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    const QString files[] = {home.filePath(u"Eng2Ger.PDB"_s), home.filePath(u"Ger2Eng.PDB"_s)};
    QVERIFY(DictionaryWriter().addRecord({{"house", "1. Haus"}, {"tree", "Baum"}}).write(files[0]));
    QVERIFY(DictionaryWriter().addRecord({{"Baum", "tree"}, {"Haus", "house"}}).write(files[1]));
    TeskelMainWindow window;
    window.resize(320, 320);
    window.show();
    const auto switchOften = [&](int count) {
        for (int number = 0; number < count; ++number) {
            window.openFile(files[number % 2]);
            if (number % 4 == 0) // with and without being painted
                QCoreApplication::processEvents();
        }
    };
    switchOften(switchesBefore);
    const Usage usage;

    switchOften(switches);

    usage.check("switches", switches);
}

QTEST_MAIN(TestSoak)
#include "test_soak.moc"
