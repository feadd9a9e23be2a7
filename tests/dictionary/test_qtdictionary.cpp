// SPDX-License-Identifier: MIT
// Opening, naming and reading the records of a dictionary.
#include "dictionary/qtdictionary.h"
#include "tests/support/arjmember.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

using namespace teskel::test;

class TestQtDictionary : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsClosed();
    void opensByBothKindsOfPath();
    void refusesFilesThatAreNoDictionary_data();
    void refusesFilesThatAreNoDictionary();
    void refusedFileLeavesTheOpenOne();
    void typeIsNotChecked();
    void fiveRecordsAreADictionaryWithoutWords();
    void fourRecordsAreTooFewAndStayAttached();
    void topicDictionaryIsRefusedAndStaysAttached();
    void numberSignElsewhereInTheIndexIsAKeyLikeAnother();
    void unreadableFirstRecordIsRefusedAndStaysAttached();
    void emptyFirstRecordHoldsNoKeys();
    void openingAgainReplacesTheDictionary();
    void firstSearchReadsALargeIndexOnce();
    void cardPulledOutBeforeTheFirstSearch();
    void changedFileIsReadAnew_data();
    void changedFileIsReadAnew();
    void closeForgetsEverything();
    void nameIsTheBaseName_data();
    void nameIsTheBaseName();
    void nameFitsItsBufferExactly();
    void descriptionFitsItsBufferExactly();
    void descriptionIsUnpackedOnce();
    void unreadableDescription();
    void wordCountIsAlwaysZero();
    void countsEntries_data();
    void countsEntries();
    void wordRecordBeyondTheLastWarns_data();
    void wordRecordBeyondTheLastWarns();
    void damagedRecordIsMissing();
    void damagedRecordIsRememberedUntilTheFileIsOpenedAgain_data();
    void damagedRecordIsRememberedUntilTheFileIsOpenedAgain();
    void damagedRecordIsForgottenWithItsFile();
    void recordThatCannotBeReadIsAskedForAgain();
    void missedRecordIsToldOnce();
    void damagedRecordsTakeNoRoomFromGoodOnes();
    void recordOfNoBytesIsMissing();
    void keepsOneHundredRecords();
    void aHitMakesARecordTheMostRecent();
    void rawRecordsEndWithNuls();
    void recordBeyondTheLastWarns();
    void closedDictionaryWarnsButAnswers();

private:
    QString path(const char* name) { return _directory.filePath(QString::fromUtf8(name)); }
    template<typename Writer>
    bool openNew(QtDictionary& dictionary, const Writer& writer)
    {
        return writer.write(path("a.PDB")) && dictionary.open(path("a.PDB")) == 0;
    }

    QTemporaryDir _directory;
};

namespace
{
DictionaryWriter animals()
{
    DictionaryWriter writer;
    writer.setDescription("Animals");
    writer.addRecord({{"ant", "Ameise"}, {"ape", "Affe"}});
    writer.addRecord({{"bat", "Fledermaus"}, {"bee", "Biene"}, {"bug", "Wanze"}});
    return writer;
}

constexpr int longAgo = 1000; // seconds

bool setTime(const QString& path, const QDateTime& time)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFile::FileModificationTime);
}

// Bytes that this process read so far, or -1 where nobody counts them.
qint64 bytesReadSoFar()
{
    QFile file(u"/proc/self/io"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray first = file.readLine(); // "rchar: 1234"
    return first.startsWith("rchar: ") ? first.mid(7).trimmed().toLongLong() : -1;
}
} // namespace

void TestQtDictionary::init()
{
    QVERIFY(_directory.isValid());
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void TestQtDictionary::startsClosed()
{
    QtDictionary dictionary;
    QVERIFY(!dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), QString());
    QCOMPARE(dictionary.getWordRecordCount(), static_cast<unsigned short>(0));
    QCOMPARE(dictionary.close(), 0);
}

void TestQtDictionary::opensByBothKindsOfPath()
{
    const QString latin1 = path("T\xC3\xBCr.PDB");
    const QString cyrillic = path("\xD0\xB6.PDB");
    QVERIFY(animals().write(latin1));
    QVERIFY(animals().write(cyrillic));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(latin1.toLatin1().constData()), 0);
    QVERIFY(dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), latin1);
    QVERIFY(dictionary.isValidDictionary(latin1.toLatin1().constData()));
    QCOMPARE(dictionary.open(cyrillic), 0);
    QCOMPARE(dictionary.getUrl(), cyrillic);
    QCOMPARE(dictionary.getWordRecordCount(), static_cast<unsigned short>(2));
}

void TestQtDictionary::refusesFilesThatAreNoDictionary_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("shorter than a header") << animals().container().build().left(70);
    QTest::newRow("other creator") << animals().container().setCreator("TSKM").build();
    QTest::newRow("other creator and type")
        << animals().container().setType("TSKL").setCreator("TSKM").build();
    QTest::newRow("creator in lower case") << animals().container().setCreator("tskl").build();
    QTest::newRow("creator with an early end")
        << animals().container().setCreator(QByteArray("TSK\0", 4)).build();
    QTest::newRow("noise") << QByteArray(500, '\xA7');
}

void TestQtDictionary::refusesFilesThatAreNoDictionary()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(path("a.PDB"), bytes));
    QtDictionary dictionary;
    QVERIFY(!dictionary.isValidDictionary(path("a.PDB")));
    QCOMPARE(dictionary.open(path("a.PDB")), -1);
    QVERIFY(!dictionary.isOpen());
}

void TestQtDictionary::refusedFileLeavesTheOpenOne()
{
    QVERIFY(animals().write(path("a.PDB")));
    QVERIFY(animals().container().setCreator("Else").write(path("b.PDB")));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QCOMPARE(dictionary.open(path("b.PDB")), -1);
    QVERIFY(dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), path("a.PDB"));
    QVERIFY(!dictionary.findWord("bee", CursorPosition::invalid(), false).isInvalid());
}

void TestQtDictionary::typeIsNotChecked()
{
    QVERIFY(animals().container().setType("????").write(path("a.PDB")));
    QCOMPARE(QtDictionary().open(path("a.PDB")), 0);
}

void TestQtDictionary::fiveRecordsAreADictionaryWithoutWords()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter()));
    QCOMPARE(dictionary.getWordRecordCount(), static_cast<unsigned short>(0));
    QVERIFY(dictionary.findWord("a", CursorPosition::invalid(), true).isInvalid());
}

void TestQtDictionary::fourRecordsAreTooFewAndStayAttached()
{
    QVERIFY(DictionaryWriter().container().claimRecordCount(4).write(path("a.PDB")));
    QtDictionary dictionary;
    QTest::ignoreMessage(QtWarningMsg, "Invalid database. Records are less than 5");
    QCOMPARE(dictionary.open(path("a.PDB")), -1);
    QVERIFY(dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), path("a.PDB"));
    QCOMPARE(dictionary.getWordRecordCount(), static_cast<unsigned short>(0));
    dictionary.close();
    QVERIFY(!dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), QString());
}

void TestQtDictionary::topicDictionaryIsRefusedAndStaysAttached()
{
    QVERIFY(
        DictionaryWriter().addRecord({{"#topic", "x"}, {"ant", "Ameise"}}).write(path("a.PDB")));
    QtDictionary dictionary;
    QTest::ignoreMessage(QtWarningMsg, "No support for topic dictionaries yet");
    QCOMPARE(dictionary.open(path("a.PDB")), -1);
    QVERIFY(dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), path("a.PDB"));
    QVERIFY(!dictionary.findWord("ant", CursorPosition::invalid(), false).isInvalid());
}

void TestQtDictionary::numberSignElsewhereInTheIndexIsAKeyLikeAnother()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter()
                                    .addRecord({{"!", "x"}, {"\" #", "x"}})
                                    .addRecord({{"#", "Nummer"}, {"a#", "x"}})
                                    .addRecord({{"c#", "Cis"}})));
    QVERIFY(dictionary.findWord("#", CursorPosition::invalid(), false) == CursorPosition::at(1, 0));
    QVERIFY(dictionary.findWord("C#", CursorPosition::invalid(), false) ==
            CursorPosition::at(2, 0));
}

void TestQtDictionary::unreadableFirstRecordIsRefusedAndStaysAttached()
{
    QVERIFY(animals().container().claimOffset(0, 0xFFFFFF00).write(path("a.PDB")));
    QtDictionary dictionary;
    {
        const WarningCapture warnings;
        QCOMPARE(dictionary.open(path("a.PDB")), -1);
        QCOMPARE(warnings.messages().last(), u"Cannot get first record"_s);
    }
    QVERIFY(dictionary.isOpen());
    const WarningCapture warnings;
    QVERIFY(dictionary.findWord("ant", CursorPosition::invalid(), false).isInvalid());
    QCOMPARE(warnings.count(u"Cannot read record,bytes to read "_s), 1);
}

void TestQtDictionary::emptyFirstRecordHoldsNoKeys()
{
    QVERIFY(animals().setIndex("").write(path("a.PDB")));
    QVERIFY(setTime(path("a.PDB"), QDateTime::currentDateTimeUtc().addSecs(-longAgo)));
    QtDictionary dictionary;
    for (int i = 0; i < 2; ++i) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\"result->size!=0\""_s));
        QCOMPARE(dictionary.open(path("a.PDB")), 0);
    }
    // A search then begins in the first record.
    QVERIFY(dictionary.findWord("bee", CursorPosition::invalid(), false) ==
            CursorPosition::at(1, 1));
}

void TestQtDictionary::openingAgainReplacesTheDictionary()
{
    QVERIFY(animals().write(path("a.PDB")));
    QVERIFY(DictionaryWriter().addRecord({{"cat", "Katze"}}).write(path("b.PDB")));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QCOMPARE(dictionary.getWordAt(CursorPosition::at(0, 0)), "ant");
    QCOMPARE(dictionary.open(path("b.PDB")), 0);
    QCOMPARE(dictionary.getWordAt(CursorPosition::at(0, 0)), "cat");
    QVERIFY(dictionary.findWord("bee", CursorPosition::invalid(), false).isInvalid());
}

void TestQtDictionary::firstSearchReadsALargeIndexOnce()
{
    if (bytesReadSoFar() < 0)
        QSKIP("The system does not count what a process reads");
    constexpr int keyBytes = 50'000;
    const QByteArray key(keyBytes, 'b');
    QVERIFY(DictionaryWriter()
                .addRecord({{"ant", "x"}})
                .addPackedRecord(key, "-")
                .write(path("a.PDB")));
    QVERIFY(setTime(path("a.PDB"), QDateTime::currentDateTimeUtc().addSecs(-longAgo)));
    QtDictionary dictionary;
    const auto readsTheIndex = [&](const auto& act) {
        const qint64 before = bytesReadSoFar();
        act();
        return bytesReadSoFar() - before >= keyBytes;
    };
    const auto open = [&] { QCOMPARE(dictionary.open(path("a.PDB")), 0); };
    const auto find = [&] {
        QVERIFY(dictionary.findWord("ant", CursorPosition::invalid(), false) ==
                CursorPosition::at(0, 0));
    };
    QVERIFY(!readsTheIndex(open));
    QVERIFY(!readsTheIndex(open));
    QVERIFY(readsTheIndex(find));
    // A program that starts with a file opens it twice.
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!readsTheIndex(find));
        QVERIFY(!readsTheIndex(open));
    }
    QVERIFY(!readsTheIndex(find));
    dictionary.close();
    QVERIFY(!readsTheIndex(open));
    QVERIFY(readsTheIndex(find));
}

void TestQtDictionary::cardPulledOutBeforeTheFirstSearch()
{
    const QByteArray whole = DictionaryWriter()
                                 .addRecord({{"ant", "Ameise"}})
                                 .addPackedRecord(QByteArray(50'000, 'b'), "-")
                                 .container()
                                 .build();
    QVERIFY(writeFile(path("a.PDB"), whole));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QVERIFY(writeFile(path("a.PDB"), whole.left(10'000)));
    {
        const WarningCapture warnings;
        QVERIFY(dictionary.findWord("ant", CursorPosition::invalid(), false).isInvalid());
        QCOMPARE(warnings.count(u"Cannot read record,bytes to read "_s), 1);
    }
    QCOMPARE(dictionary.takeMissedRecord(), 0);
    QVERIFY(writeFile(path("a.PDB"), whole));
    QVERIFY(dictionary.findWord("ant", CursorPosition::invalid(), false) ==
            CursorPosition::at(0, 0));
}

void TestQtDictionary::changedFileIsReadAnew_data()
{
    QTest::addColumn<bool>("isReplaced");
    QTest::addColumn<int>("ageBefore");
    QTest::addColumn<int>("ageAfter");
    QTest::newRow("changed in place") << false << longAgo << 0;
    QTest::newRow("changed in place, its time set back") << false << longAgo << longAgo;
    QTest::newRow("changed in place, its time moved") << false << longAgo << longAgo + 1;
    QTest::newRow("changed in the same tick of the clock") << false << 0 << 0;
    QTest::newRow("changed in place, with a time to come") << false << -longAgo << -longAgo;
    QTest::newRow("replaced") << true << longAgo << 0;
    QTest::newRow("replaced by one of the same time") << true << longAgo << longAgo;
}

// Both files have the same size and the same name. By the first one's index, "cat" would be sought
// in the second record.
void TestQtDictionary::changedFileIsReadAnew()
{
    QFETCH(bool, isReplaced);
    QFETCH(int, ageBefore);
    QFETCH(int, ageAfter);
    const QString file = path("a.PDB");
    const QByteArray before =
        DictionaryWriter().addRecord({{"ant", "x"}}).addRecord({{"bee", "x"}}).container().build();
    const QByteArray after =
        DictionaryWriter().addRecord({{"cat", "x"}}).addRecord({{"dog", "x"}}).container().build();
    QCOMPARE(after.size(), before.size());
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVERIFY(writeFile(file, before));
    QVERIFY(setTime(file, now.addSecs(-ageBefore)));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(file), 0);
    QCOMPARE(dictionary.open(file), 0);
    QVERIFY(dictionary.findWord("cat", CursorPosition::invalid(), false).isInvalid());

    const QDateTime changed = QFileInfo(file).metadataChangeTime();
    const QString other = isReplaced ? path("b.PDB") : file;
    QTRY_VERIFY(writeFile(other, after) && setTime(other, now.addSecs(-ageAfter)) &&
                (isReplaced || ageBefore <= 0 || QFileInfo(other).metadataChangeTime() > changed));
    if (isReplaced)
        QCOMPARE(std::rename(qPrintable(other), qPrintable(file)), 0);
    QCOMPARE(dictionary.open(file), 0);
    QVERIFY(dictionary.findWord("cat", CursorPosition::invalid(), false) ==
            CursorPosition::at(0, 0));
    QVERIFY(dictionary.findWord("bee", CursorPosition::invalid(), false).isInvalid());
}

void TestQtDictionary::closeForgetsEverything()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals()));
    QVERIFY(dictionary.getWordRecord(0));
    QCOMPARE(dictionary.close(), 0);
    QVERIFY(!dictionary.isOpen());
    QCOMPARE(dictionary.getUrl(), QString());
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"^ASSERT: \"isOpen\\(\\)\" in qtdictionary.cpp "_s));
    QVERIFY(!dictionary.getWordRecord(0));
}

void TestQtDictionary::nameIsTheBaseName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("usual") << u"Eng2Ger.PDB"_s << QByteArray("Eng2Ger");
    QTest::newRow("up to the first dot") << u"en-de.large.pdb"_s << QByteArray("en-de");
    QTest::newRow("without a dot") << u"words"_s << QByteArray("words");
    QTest::newRow("nothing before the dot") << u".PDB"_s << QByteArray();
    QTest::newRow("umlaut") << QStringLiteral(u"W\u00F6rter.PDB") << QByteArray("W\xF6rter");
}

void TestQtDictionary::nameIsTheBaseName()
{
    QFETCH(QString, file);
    QVERIFY(animals().write(_directory.filePath(file)));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(_directory.filePath(file)), 0);
    char buffer[512];
    QVERIFY(dictionary.getName(buffer, sizeof buffer));
    QTEST(QByteArray(buffer), "name");
}

void TestQtDictionary::nameFitsItsBufferExactly()
{
    QVERIFY(animals().write(path("en-de.large.pdb")));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("en-de.large.pdb")), 0);
    char buffer[6] = {'?', '?', '?', '?', '?', '?'};
    for (const int size : {5, 1, 0, -1}) {
        QVERIFY(!dictionary.getName(buffer, size));
        QCOMPARE(buffer[0], '?');
    }
    QVERIFY(dictionary.getName(buffer, 6));
    QCOMPARE(buffer, "en-de");
}

void TestQtDictionary::descriptionFitsItsBufferExactly()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals()));
    char buffer[8] = {'?'};
    QVERIFY(!dictionary.getDescription(buffer, 7));
    QCOMPARE(buffer[0], '?');
    QVERIFY(dictionary.getDescription(buffer, 8));
    QCOMPARE(buffer, "Animals");
}

void TestQtDictionary::descriptionIsUnpackedOnce()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals()));
    char buffer[8];
    QVERIFY(dictionary.getDescription(buffer, sizeof buffer));
    QVERIFY(QFile::resize(path("a.PDB"), 0)); // and not read again
    QVERIFY(dictionary.getDescription(buffer, sizeof buffer));
    QCOMPARE(buffer, "Animals");
}

void TestQtDictionary::unreadableDescription()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, PalmWriter()
                                    .addRecord(QByteArray(1, '\0'))
                                    .addRecord("x")
                                    .addRecord("not packed")
                                    .addRecord("x")
                                    .addRecord("x")));
    char buffer[512] = "?";
    QTest::ignoreMessage(QtWarningMsg, "Decompressed record is null");
    QVERIFY(!dictionary.getDescription(buffer, sizeof buffer));
    QCOMPARE(buffer, "?");
}

void TestQtDictionary::wordCountIsAlwaysZero()
{
    QVERIFY(animals().write(path("a.PDB")));
    QtDictionary dictionary;
    QCOMPARE(dictionary.getWordCount(), 0);
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QCOMPARE(dictionary.getWordCount(), 0);
}

void TestQtDictionary::countsEntries_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<unsigned short>("count");
    const auto row = [](const char* name, const QByteArray& text, unsigned short count) {
        QTest::newRow(name) << text << count;
    };
    row("single 0 byte", QByteArray(1, '\0'), 0);
    row("no bytes", QByteArray(), 0);
    row("one entry", QByteArray("a\0b\0\0", 5), 1);
    row("empty articles", QByteArray("a\0\0b\0\0\0", 7), 2);
    row("bytes after the end", QByteArray("a\0b\0\0c\0d\0\0", 10), 1);
    row("without the last terminator", QByteArray("a\0b\0c\0d\0", 8), 2);
    row("article without terminator", QByteArray("a\0b\0c\0d", 7), 2);
    row("headword without article", QByteArray("a\0b\0c\0", 6), 2);
    row("headword without terminator", QByteArray("a\0b\0c", 5), 2);
    row("no terminators at all", QByteArray(100, 'x'), 1);
    row("no terminators in the largest record", QByteArray(32767, 'x'), 1);
    row("as many entries as there can be", QByteArray("x\0\0", 3).repeated(10922), 10922);
}

void TestQtDictionary::countsEntries()
{
    QFETCH(QByteArray, text);
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter().addPackedRecord("a", literalMember(text))));
    QTEST(dictionary.getTotalWordCount(0), "count");
    // Every headword and article lies within the record, and reads as a text.
    for (quint16 word = 0; word < dictionary.getTotalWordCount(0); ++word) {
        const char* headword = dictionary.getWordAt(CursorPosition::at(0, word));
        QVERIFY(qstrlen(headword) > 0 && qstrlen(headword) <= static_cast<size_t>(text.size()));
        QByteArray buffer(40000, '?');
        auto size = static_cast<unsigned int>(buffer.size());
        QVERIFY(dictionary.getDescription(CursorPosition::at(0, word), buffer.data(), &size));
        QVERIFY(size <= static_cast<unsigned int>(text.size()));
    }
}

void TestQtDictionary::wordRecordBeyondTheLastWarns_data()
{
    QTest::addColumn<unsigned short>("record");
    QTest::newRow("the one after the last") << static_cast<unsigned short>(2);
    // Its number in the container, 5 more, does not fit 16 bits.
    QTest::newRow("a number that wraps around") << static_cast<unsigned short>(0xFFFE);
}

void TestQtDictionary::wordRecordBeyondTheLastWarns()
{
    QFETCH(unsigned short, record);
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals()));
    const QString beyondTheFile =
        u"ASSERT: \"recordIndex<records->getCount()\" in qtdictionary.cpp ("_s;
    const QString beyondTheWords =
        u"ASSERT: \"recordIndex<getWordRecordCount()\" in qtdictionary.cpp ("_s;
    const WarningCapture warnings;
    QVERIFY(!dictionary.getWordRecord(record));
    QCOMPARE(warnings.count(beyondTheFile), 1);
    QCOMPARE(warnings.count(beyondTheWords), 0);
    QCOMPARE(dictionary.getTotalWordCount(record), static_cast<unsigned short>(0));
    QCOMPARE(warnings.count(beyondTheFile), 2);
    QCOMPARE(warnings.count(beyondTheWords), 1);
}

void TestQtDictionary::damagedRecordIsMissing()
{
    QByteArray damaged = literalMember(DictionaryWriter::recordText({{"ant", "Ameise"}}));
    damaged.back() = static_cast<char>(damaged.back() ^ 0x40);
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals().addPackedRecord("cat", damaged)));
    QTest::ignoreMessage(QtWarningMsg, "Decompressed record is null");
    QVERIFY(!dictionary.getWordRecord(2));
    QCOMPARE(dictionary.getTotalWordCount(2), static_cast<unsigned short>(0));
    QCOMPARE(dictionary.getTotalWordCount(1), static_cast<unsigned short>(3));
}

void TestQtDictionary::missedRecordIsToldOnce()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals().addPackedRecord("cat", "-")));
    QCOMPARE(dictionary.takeMissedRecord(), -1);
    QVERIFY(dictionary.getWordRecord(1));
    QCOMPARE(dictionary.takeMissedRecord(), -1);
    const WarningCapture warnings;
    QVERIFY(!dictionary.getWordRecord(2));
    QVERIFY(dictionary.getWordRecord(1));
    QCOMPARE(dictionary.takeMissedRecord(), 5 + 2); // the words' records follow five others
    QCOMPARE(dictionary.takeMissedRecord(), -1);
}

void TestQtDictionary::damagedRecordIsRememberedUntilTheFileIsOpenedAgain_data()
{
    QTest::addColumn<QByteArray>("damaged");
    const QByteArray sound = literalMember(DictionaryWriter::recordText({{"cat", "Katze"}}));
    QByteArray flipped = sound;
    flipped.back() = static_cast<char>(flipped.back() ^ 0x40);
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("no header") << QByteArray(sound.size(), '\0');
    QTest::newRow("flipped bit") << flipped;
    QTest::newRow("cut short") << sound.chopped(9);
    QTest::newRow("stored") << makeMember(0, "x", "x");
    ArjMember matches; // each of which begins before the record, and is warned about
    matches.method = 4;
    matches.compressedSize = 4;
    matches.uncompressedSize = 32767;
    QTest::newRow("matches of nothing") << matches.header() + "\xFF\xFF\xFF\xFF";
}

// Each search may come across it: it is neither read nor complained of again.
void TestQtDictionary::damagedRecordIsRememberedUntilTheFileIsOpenedAgain()
{
    QFETCH(QByteArray, damaged);
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals().addPackedRecord("cat", damaged)));
    {
        const WarningCapture warnings;
        QVERIFY(dictionary.findWord("dog", CursorPosition::invalid(), false).isInvalid());
        QCOMPARE(warnings.count(u"Decompressed record is null"_s), 1);
    }
    // The same file, mended in place: nothing is read, or the record would be found.
    const QByteArray mended =
        animals().addRecord({{"cat", "Katze"}, {"dog", "Hund"}}).container().build();
    QFile file(path("a.PDB"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(mended), mended.size());
    file.close();
    QVERIFY(!dictionary.getWordRecord(2));
    QVERIFY(!dictionary.getDecompressedRecord(7));
    QCOMPARE(dictionary.getTotalWordCount(2), static_cast<unsigned short>(0));
    QVERIFY(dictionary.findWord("dog", CursorPosition::invalid(), false).isInvalid());
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QCOMPARE(dictionary.getWordRecord(2), "cat");
}

void TestQtDictionary::damagedRecordIsForgottenWithItsFile()
{
    QVERIFY(animals().addPackedRecord("cat", "damaged").write(path("a.PDB")));
    QVERIFY(animals().addRecord({{"cat", "Katze"}}).write(path("b.PDB")));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QTest::ignoreMessage(QtWarningMsg, "Decompressed record is null");
    QVERIFY(!dictionary.getWordRecord(2));
    QCOMPARE(dictionary.open(path("b.PDB")), 0);
    QCOMPARE(dictionary.getWordRecord(2), "cat");
}

// As when a card comes back.
void TestQtDictionary::recordThatCannotBeReadIsAskedForAgain()
{
    const QByteArray good = animals().container().build();
    QVERIFY(writeFile(path("a.PDB"), good));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(path("a.PDB")), 0);
    QVERIFY(QFile::resize(path("a.PDB"), 0));
    for (int attempt = 0; attempt < 2; ++attempt) {
        const WarningCapture warnings;
        QVERIFY(!dictionary.getWordRecord(0));
        QCOMPARE(warnings.count(u"Cannot get record meta data"_s), 1);
    }
    QFile file(path("a.PDB"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(good), good.size());
    file.close();
    QCOMPARE(dictionary.getWordRecord(0), "ant");
}

// Neither do good records push out what is known of damaged ones.
void TestQtDictionary::damagedRecordsTakeNoRoomFromGoodOnes()
{
    DictionaryWriter writer;
    for (int record = 0; record < 300; ++record) {
        const QByteArray word = QByteArray::number(1000 + record);
        if (record % 3 == 0)
            writer.addRecord({{word, "x"}});
        else
            writer.addPackedRecord(word, "damaged");
    }
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, writer));
    {
        const WarningCapture warnings;
        for (unsigned short record = 0; record < 300; ++record)
            QCOMPARE(dictionary.getWordRecord(record) != nullptr, record % 3 == 0);
        QCOMPARE(warnings.messages().size(), 200);
    }
    QVERIFY(QFile::resize(path("a.PDB"), 0));
    for (unsigned short record = 0; record < 300; ++record)
        QCOMPARE(dictionary.getWordRecord(record) != nullptr, record % 3 == 0);
}

void TestQtDictionary::recordOfNoBytesIsMissing()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals().addPackedRecord("cat", "").addRecord({{"dog", "Hund"}})));
    const WarningCapture warnings;
    QVERIFY(!dictionary.getWordRecord(2));
    QCOMPARE(warnings.count(u"\"result->size!=0\" in qtpalmdb.cpp"_s), 1);
    QCOMPARE(warnings.count(u"\"metaData->size!=0\" in qtdictionary.cpp"_s), 1);
    QCOMPARE(warnings.messages().last(), u"Decompressed record is null"_s);
}

// Whether a record comes from the cache shows once the file is gone.
void TestQtDictionary::keepsOneHundredRecords()
{
    QList<Entry> entries;
    for (int i = 1000; i < 1102; ++i)
        entries.append({QByteArray::number(i), "x"});
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter().addEntries(entries, 1)));
    for (unsigned short record = 0; record < 101; ++record)
        QVERIFY(dictionary.getWordRecord(record));
    QVERIFY(QFile::resize(path("a.PDB"), 0));
    for (unsigned short record = 1; record < 101; ++record)
        QCOMPARE(dictionary.getWordRecord(record), QByteArray::number(1000 + record).constData());
    const WarningCapture warnings;
    QVERIFY(!dictionary.getWordRecord(0));
    QVERIFY(!warnings.messages().isEmpty());
}

void TestQtDictionary::aHitMakesARecordTheMostRecent()
{
    QList<Entry> entries;
    for (int i = 1000; i < 1102; ++i)
        entries.append({QByteArray::number(i), "x"});
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter().addEntries(entries, 1)));
    for (unsigned short record = 0; record < 100; ++record)
        QVERIFY(dictionary.getWordRecord(record));
    QVERIFY(dictionary.getWordRecord(0));
    QVERIFY(dictionary.getWordRecord(100)); // pushes 1 out instead of 0
    QVERIFY(QFile::resize(path("a.PDB"), 0));
    QVERIFY(dictionary.getWordRecord(0));
    const WarningCapture warnings;
    QVERIFY(!dictionary.getWordRecord(1));
}

void TestQtDictionary::rawRecordsEndWithNuls()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, DictionaryWriter().addPackedRecord("a", literalMember("ab"))));
    QCOMPARE(QByteArray(dictionary.getDecompressedRecord(5), 5), QByteArray("ab\0\0\0", 5));
    QCOMPARE(dictionary.getWordRecord(0), dictionary.getDecompressedRecord(5));
}

void TestQtDictionary::recordBeyondTheLastWarns()
{
    QtDictionary dictionary;
    QVERIFY(openNew(dictionary, animals()));
    const WarningCapture warnings;
    QVERIFY(!dictionary.getDecompressedRecord(7));
    QCOMPARE(warnings.count(u"ASSERT: \"recordIndex<records->getCount()\" in qtdictionary.cpp"_s),
             1);
    QCOMPARE(dictionary.getDecompressedRecord(6), "bat");
}

void TestQtDictionary::closedDictionaryWarnsButAnswers()
{
    QtDictionary dictionary;
    char buffer[10] = "?";
    unsigned int size = sizeof buffer;
    const WarningCapture warnings;
    QVERIFY(dictionary.getName(buffer, 10));
    QCOMPARE(buffer, "");
    QCOMPARE(warnings.count(u"ASSERT: \"isOpen()\" in qtdictionary.cpp ("_s), 1);
    buffer[0] = '?';
    QVERIFY(!dictionary.getDescription(buffer, 10));
    QVERIFY(!dictionary.getDescription(CursorPosition::at(0, 0), buffer, &size));
    QCOMPARE(size, 0U);
    QVERIFY(!dictionary.getWordAt(CursorPosition::at(0, 0)));
    QVERIFY(dictionary.findWord("a", CursorPosition::invalid(), false).isInvalid());
    QVERIFY(!dictionary.getDecompressedRecord(5));
    QVERIFY(warnings.count(u"ASSERT: \"isOpen()\" in qtdictionary.cpp ("_s) >= 6);
    QCOMPARE(buffer, "?");
}

QTEST_GUILESS_MAIN(TestQtDictionary)
#include "test_qtdictionary.moc"
