// SPDX-License-Identifier: MIT
#include "dictionary/container/qtpalmdb.h"
#include "tests/support/palmwriter.h"
#include "tests/support/warningcapture.h"

#include <QBuffer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;

using namespace teskel::test;

namespace
{
QByteArray bytesOf(const RecordPointer& record)
{
    return record ? QByteArray(record->data, record->size) : QByteArray("(null)");
}
} // namespace

class TestQtRecords : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsEveryRecord();
    void readsTheBeginningOfARecord();
    void beginningOfARecordThatIsNotAllThere();
    void readsTheRecordList();
    void lastRecordRunsToTheEndOfTheFile();
    void databaseWithoutRecordsWarnsAndTries();
    void indexBeyondTheCountWarnsAndTries();
    void recordOfNoBytesIsReturnedWithAWarning();
    void damagedOffsetsAreReadFailures_data();
    void damagedOffsetsAreReadFailures();
    void recordBeyondTheLargestSizeIsAReadFailure_data();
    void recordBeyondTheLargestSizeIsAReadFailure();
    void recordListCutShort();
    void fileThatShrinksFailsFromThenOn();
    void endOfTheFileIsNoInterruption();
    void readsFromADeviceThatIsNoFile();
    void unboundListWarnsAndFails();
    void metaDataNeedsATarget();

private:
    QTemporaryDir _directory;
    QString _path = _directory.filePath(u"a.PDB"_s);
};

void TestQtRecords::init()
{
    QVERIFY(_directory.isValid());
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void TestQtRecords::readsEveryRecord()
{
    const QByteArrayList contents = {"first", QByteArray(50000, 'x'), QByteArray("\0\0", 2), "4"};
    PalmWriter writer;
    for (const QByteArray& content : contents)
        writer.addRecord(content);
    QVERIFY(writer.write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    for (const auto index : std::initializer_list<unsigned short>{3, 0, 2, 1, 3})
        QCOMPARE(bytesOf(RecordPointer(database.getRecords()->getData(index))), contents.at(index));
}

void TestQtRecords::readsTheBeginningOfARecord()
{
    QVERIFY(PalmWriter().addRecord("first").addRecord("second").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QtRecords& records = *database.getRecords();
    QCOMPARE(bytesOf(RecordPointer(records.getBeginning(0, 3))), QByteArray("fir"));
    QCOMPARE(bytesOf(RecordPointer(records.getBeginning(0, 5))), QByteArray("first"));
    QCOMPARE(bytesOf(RecordPointer(records.getBeginning(1, 100))), QByteArray("second"));
    const RecordPointer record(records.getBeginning(0, 2));
    QCOMPARE(QByteArray(record->data + record->size, Record::spareBytes),
             QByteArray(Record::spareBytes, '\0'));
}

void TestQtRecords::beginningOfARecordThatIsNotAllThere()
{
    QVERIFY(PalmWriter().addRecord("first").addRecord("second").claimOffset(1, 500).write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(database.getRecords()->getBeginning(0, 2)));
    QCOMPARE(warnings.count(u"Cannot read record,bytes to read "_s), 1);
}

void TestQtRecords::readsTheRecordList()
{
    QVERIFY(PalmWriter().addRecord("abc").addRecord("d").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    RecordMetaData entry;
    QVERIFY(database.getRecords()->getRecordMetaData(&entry, 1));
    QCOMPARE(entry.offset, 78U + 2 * 8 + 3);
    QCOMPARE(entry.attributes[3], quint8{1});
}

void TestQtRecords::lastRecordRunsToTheEndOfTheFile()
{
    QVERIFY(PalmWriter().addRecord("one").addRecord("two").setTrailer(" and more").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QCOMPARE(bytesOf(RecordPointer(database.getRecords()->getData(1))), QByteArray("two and more"));
}

void TestQtRecords::databaseWithoutRecordsWarnsAndTries()
{
    QVERIFY(PalmWriter().write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QCOMPARE(database.getRecords()->getCount(), static_cast<unsigned short>(0));
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(database.getRecords()->getData(0)));
    QCOMPARE(warnings.count(u"ASSERT: \"index<_recordCount\" in qtpalmdb.cpp"_s), 2);
    QCOMPARE(warnings.messages().mid(2),
             QStringList({u"Cannot read record meta data"_s, u"bytes to read 8, bytes read 0"_s,
                          u"Cannot get record meta data"_s}));
}

void TestQtRecords::indexBeyondTheCountWarnsAndTries()
{
    // Two entries of the list follow that the header does not count.
    QVERIFY(
        PalmWriter().addRecord("one").addRecord("two").addRecord("three").claimRecordCount(1).write(
            _path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    const WarningCapture warnings;
    QCOMPARE(bytesOf(RecordPointer(database.getRecords()->getData(1))), QByteArray("two"));
    QVERIFY(warnings.count(u"\"index<_recordCount\""_s) > 0);
}

void TestQtRecords::recordOfNoBytesIsReturnedWithAWarning()
{
    QVERIFY(PalmWriter().addRecord("").addRecord("x").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(u"^ASSERT: \"result->size!=0\" in qtpalmdb.cpp \\(\\d+\\)$"_s));
    const RecordPointer record(database.getRecords()->getData(0));
    QVERIFY(record);
    QVERIFY(record->data);
    QCOMPARE(record->size, 0U);
}

void TestQtRecords::damagedOffsetsAreReadFailures_data()
{
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("second");
    QTest::addColumn<unsigned short>("index");
    QTest::addColumn<QString>("message");
    const auto message = [](qint64 size, qint64 read) {
        return u"Cannot read record,bytes to read %1, bytes read %2"_s.arg(size).arg(read);
    };
    // The file: list up to 94, "aaaa" up to 98, "bbbb" up to 102.
    const unsigned short first = 0;
    const unsigned short last = 1;
    QTest::newRow("decreasing offsets") << 98U << 94U << first << message(-4, 0);
    QTest::newRow("record runs past the end") << 94U << 110U << first << message(16, 8);
    QTest::newRow("record begins past the end") << 200U << 204U << first << message(4, 0);
    QTest::newRow("record of 2 GB") << 94U << 0x7FFFFFFFU << first << message(0x7FFFFFFF - 94, 8);
    QTest::newRow("last record begins past the end") << 94U << 200U << last << message(-98, 0);
    QTest::newRow("last record begins at 4 GB")
        << 94U << 0xFFFFFFFFU << last << message(102 - 0xFFFFFFFFLL, 0);
}

void TestQtRecords::damagedOffsetsAreReadFailures()
{
    QFETCH(quint32, first);
    QFETCH(quint32, second);
    QFETCH(unsigned short, index);
    QFETCH(QString, message);
    QVERIFY(PalmWriter()
                .addRecord("aaaa")
                .addRecord("bbbb")
                .claimOffset(0, first)
                .claimOffset(1, second)
                .write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(message));
    QVERIFY(!RecordPointer(database.getRecords()->getData(index)));
}

void TestQtRecords::recordBeyondTheLargestSizeIsAReadFailure_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("isRead");
    constexpr qint64 largest = 64LL << 20;
    QTest::newRow("as large as can be") << largest << true;
    QTest::newRow("a byte more") << largest + 1 << false;
    QTest::newRow("more than 32 bits can tell") << (4LL << 30) + 7 << false;
}

// The file has all the bytes, though none of them takes room on the disk.
void TestQtRecords::recordBeyondTheLargestSizeIsAReadFailure()
{
    QFETCH(qint64, size);
    QFETCH(bool, isRead);
    QVERIFY(PalmWriter().addRecord("").write(_path));
    QVERIFY(QFile::resize(_path, 78 + 8 + size));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    const QString message = u"Cannot read record,bytes to read %1, bytes read 0"_s;
    if (!isRead)
        QTest::ignoreMessage(QtWarningMsg, qPrintable(message.arg(size)));
    const RecordPointer record(database.getRecords()->getData(0));
    QCOMPARE(record != nullptr, isRead);
    QVERIFY(!record || record->size == static_cast<quint32>(size));
}

void TestQtRecords::recordListCutShort()
{
    const QByteArray whole = PalmWriter().addRecord("aaaa").addRecord("bbbb").build();
    QVERIFY(writeFile(_path, whole.left(78 + 8 + 3)));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(database.getRecords()->getData(0)));
    QVERIFY(!RecordPointer(database.getRecords()->getData(1)));
    QCOMPARE(warnings.messages(),
             QStringList({u"Cannot read record meta data"_s, u"bytes to read 8, bytes read 3"_s,
                          u"Cannot read Record Meta data"_s, u"Cannot read record meta data"_s,
                          u"bytes to read 8, bytes read 3"_s, u"Cannot get record meta data"_s}));
}

// As when a card is pulled out: reads fail and nothing else happens.
void TestQtRecords::fileThatShrinksFailsFromThenOn()
{
    QVERIFY(PalmWriter().addRecord("aaaa").addRecord("bbbb").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QCOMPARE(bytesOf(RecordPointer(database.getRecords()->getData(0))), QByteArray("aaaa"));
    QVERIFY(QFile::resize(_path, 96));
    QTest::ignoreMessage(QtWarningMsg, "Cannot read record,bytes to read 4, bytes read 2");
    QVERIFY(!RecordPointer(database.getRecords()->getData(0)));
    QVERIFY(QFile::resize(_path, 0));
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(database.getRecords()->getData(1)));
    QCOMPARE(warnings.count(u"Cannot get record meta data"_s), 1);
}

// What is left of an older interruption does not make a read at the end go on for ever.
void TestQtRecords::endOfTheFileIsNoInterruption()
{
    QVERIFY(PalmWriter().addRecord("aaaa").addRecord("bbbb").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QVERIFY(QFile::resize(_path, 96));
    QTest::ignoreMessage(QtWarningMsg, "Cannot read record,bytes to read 4, bytes read 2");
    errno = EINTR;
    QVERIFY(!RecordPointer(database.getRecords()->getData(0)));
}

void TestQtRecords::readsFromADeviceThatIsNoFile()
{
    QByteArray bytes = PalmWriter().addRecord("aaaa").addRecord("bbb").build();
    QBuffer device(&bytes);
    QVERIFY(device.open(QIODevice::ReadOnly));
    QtRecords records;
    records.setIOInfo(&device, QtPalmDatabase::headerBytes, 2);
    QCOMPARE(bytesOf(RecordPointer(records.getData(1))), QByteArray("bbb"));
    QCOMPARE(bytesOf(RecordPointer(records.getData(0))), QByteArray("aaaa"));
}

void TestQtRecords::unboundListWarnsAndFails()
{
    QtRecords records;
    QCOMPARE(records.getCount(), static_cast<unsigned short>(0));
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(records.getData(0)));
    for (const char* condition : {"\"_device!=NULL\"", "\"_device->isOpen()\"",
                                  "\"_firstRecordOffset!=-1\"", "\"index<_recordCount\""})
        QVERIFY2(warnings.count(QLatin1String(condition)) > 0, condition);
}

void TestQtRecords::metaDataNeedsATarget()
{
    QVERIFY(PalmWriter().addRecord("aaaa").write(_path));
    QtPalmDatabase database;
    QCOMPARE(database.load(_path), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\"data!=NULL\""_s));
    QVERIFY(!database.getRecords()->getRecordMetaData(nullptr, 0));
}

QTEST_GUILESS_MAIN(TestQtRecords)
#include "test_qtrecords.moc"
