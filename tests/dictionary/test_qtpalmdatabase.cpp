// SPDX-License-Identifier: MIT
#include "dictionary/container/qtpalmdb.h"
#include "tests/support/palmwriter.h"
#include "tests/support/warningcapture.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

class TestQtPalmDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsTheHeader();
    void creatorIsFourCharacters();
    void versionIsSigned();
    void dateGettersReturnZero();
    void eachObjectHasItsOwnTexts();
    void fileThatCannotBeOpened_data();
    void fileThatCannotBeOpened();
    void failedLoadLeavesTheObjectAsItWas();
    void shortFileFailsWithoutAMessage_data();
    void shortFileFailsWithoutAMessage();
    void shortFileAfterAGoodOneFailsEveryRead();
    void shortHeaderIsReadAsFarAsItGoes_data();
    void shortHeaderIsReadAsFarAsItGoes();
    void closedDatabaseWarnsButAnswers();
    void saveDoesNothing();
    void secondLoadWarnsAndReadsTheNewFile();
    void latin1AndOtherPaths();

private:
    QString path(const char* name) { return _directory.filePath(QString::fromUtf8(name)); }

    QTemporaryDir _directory;
};

void TestQtPalmDatabase::init()
{
    QVERIFY(_directory.isValid());
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void TestQtPalmDatabase::readsTheHeader()
{
    QVERIFY(PalmWriter()
                .setName("A name")
                .setType("Data")
                .setCreator("TSKL")
                .setVersion(3)
                .addRecord("one")
                .addRecord("two")
                .write(path("a.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QCOMPARE(database.getType(), "Data");
    QCOMPARE(database.getVersion(), short{3});
    QCOMPARE(database.getNumRecords(), static_cast<unsigned short>(2));
    QCOMPARE(database.getRecords()->getCount(), static_cast<unsigned short>(2));
}

void TestQtPalmDatabase::creatorIsFourCharacters()
{
    QVERIFY(PalmWriter().setCreator("TSKL").write(path("a.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QCOMPARE(database.getCreator(), "TSKL");
    QCOMPARE(qstrlen(database.getCreator()), 4U);
}

void TestQtPalmDatabase::versionIsSigned()
{
    QVERIFY(PalmWriter().setVersion(0xFFFE).write(path("a.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QCOMPARE(database.getVersion(), short{-2});
}

void TestQtPalmDatabase::dateGettersReturnZero()
{
    QVERIFY(PalmWriter().setDates(1, 0x12345678, 0xFFFFFFFF).write(path("a.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QCOMPARE(database.getCreationDate(), 0U);
    QCOMPARE(database.getModificationDate(), 0U);
    QCOMPARE(database.getLastBackupDate(), 0U);
}

void TestQtPalmDatabase::eachObjectHasItsOwnTexts()
{
    QVERIFY(PalmWriter().setCreator("AAAA").setType("aaaa").write(path("a.PDB")));
    QVERIFY(PalmWriter().setCreator("BBBB").setType("bbbb").write(path("b.PDB")));
    QtPalmDatabase a;
    QtPalmDatabase b;
    QCOMPARE(a.load(path("a.PDB")), 0);
    QCOMPARE(b.load(path("b.PDB")), 0);
    const char* creator = a.getCreator();
    QCOMPARE(b.getCreator(), "BBBB");
    QCOMPARE(b.getType(), "bbbb");
    QCOMPARE(creator, "AAAA");
    QCOMPARE(a.getType(), "aaaa");
}

void TestQtPalmDatabase::fileThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << path("missing.PDB");
    QTest::newRow("directory") << _directory.path();
    QTest::newRow("empty name") << QString();
    // Opening a pipe that nobody writes to would wait for ever.
    QCOMPARE(mkfifo(qPrintable(path("pipe.PDB")), 0600), 0);
    QTest::newRow("pipe") << path("pipe.PDB");
}

void TestQtPalmDatabase::fileThatCannotBeOpened()
{
    QFETCH(QString, name);
    QtPalmDatabase database;
    QTest::ignoreMessage(QtWarningMsg, qPrintable(u"Cannot open file "_s + name));
    QCOMPARE(database.load(name), -1);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(u"Cannot open file "_s + name));
    QCOMPARE(database.load(name.toLatin1().constData()), -1);
}

void TestQtPalmDatabase::failedLoadLeavesTheObjectAsItWas()
{
    QVERIFY(PalmWriter().setCreator("GOOD").addRecord("kept").write(path("a.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot open file "_s));
    QCOMPARE(database.load(path("missing.PDB")), -1);
    QCOMPARE(database.getCreator(), "GOOD");
    const RecordPointer record(database.getRecords()->getData(0));
    QVERIFY(record);
    QCOMPARE(QByteArray(record->data, record->size), QByteArray("kept"));
}

void TestQtPalmDatabase::shortFileFailsWithoutAMessage_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 60, 77})
        QTest::addRow("%d bytes", size) << size;
}

void TestQtPalmDatabase::shortFileFailsWithoutAMessage()
{
    QFETCH(int, size);
    QVERIFY(writeFile(path("short.PDB"), PalmWriter().build().left(size)));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("short.PDB")), -1);
    QCOMPARE(database.getNumRecords(), static_cast<unsigned short>(0));
    // The device and its name stay attached, so nothing warns.
}

void TestQtPalmDatabase::shortFileAfterAGoodOneFailsEveryRead()
{
    QVERIFY(PalmWriter().addRecord("first").write(path("a.PDB")));
    QVERIFY(writeFile(path("short.PDB"), PalmWriter().build().left(77)));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    QCOMPARE(database.load(path("short.PDB")), -1);
    const WarningCapture warnings;
    QVERIFY(!RecordPointer(database.getRecords()->getData(0)));
    QCOMPARE(warnings.count(u"\"_device!=NULL\" in qtpalmdb.cpp"_s), 1);
    QCOMPARE(warnings.messages().last(), u"Cannot get record meta data"_s);
}

void TestQtPalmDatabase::shortHeaderIsReadAsFarAsItGoes_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("creator");
    QTest::addColumn<int>("version");
    QTest::newRow("all but the count's last byte")
        << 77 << QByteArray("Dict") << QByteArray("TSKL") << 0x0203;
    QTest::newRow("half of the creator") << 66 << QByteArray("Dict") << QByteArray("TS") << 0x0203;
    QTest::newRow("half of the version") << 35 << QByteArray() << QByteArray() << 0x0200;
    QTest::newRow("nothing") << 0 << QByteArray() << QByteArray() << 0;
}

// The object is good for nothing else, but its getters answer.
void TestQtPalmDatabase::shortHeaderIsReadAsFarAsItGoes()
{
    QFETCH(int, size);
    QVERIFY(writeFile(path("short.PDB"), PalmWriter().setVersion(0x0203).build().left(size)));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("short.PDB")), -1);
    QTEST(QByteArray(database.getType()), "type");
    QTEST(QByteArray(database.getCreator()), "creator");
    QTEST(int{database.getVersion()}, "version");
}

void TestQtPalmDatabase::closedDatabaseWarnsButAnswers()
{
    const QtPalmDatabase database;
    const WarningCapture warnings;
    QCOMPARE(database.getNumRecords(), static_cast<unsigned short>(0));
    QCOMPARE(database.getCreator(), "");
    QCOMPARE(database.getType(), "");
    QCOMPARE(database.getVersion(), short{0});
    QCOMPARE(database.getCreationDate(), 0U);
    QCOMPARE(database.getModificationDate(), 0U);
    QCOMPARE(database.getLastBackupDate(), 0U);
    QCOMPARE(warnings.count(u"ASSERT: \"_device!=NULL\" in qtpalmdb.cpp ("_s), 7);
    QCOMPARE(warnings.count(u"ASSERT: \"_device->isOpen()\" in qtpalmdb.cpp ("_s), 7);
    QCOMPARE(warnings.messages().size(), 14);
}

void TestQtPalmDatabase::saveDoesNothing()
{
    QtPalmDatabase database;
    QCOMPARE(database.save(path("new.PDB").toLatin1().constData()), 0);
    QVERIFY(!QFile::exists(path("new.PDB")));
}

void TestQtPalmDatabase::secondLoadWarnsAndReadsTheNewFile()
{
    QVERIFY(PalmWriter().addRecord("first").write(path("a.PDB")));
    QVERIFY(PalmWriter().addRecord("second").addRecord("third").write(path("b.PDB")));
    QtPalmDatabase database;
    QCOMPARE(database.load(path("a.PDB")), 0);
    {
        const WarningCapture warnings;
        QCOMPARE(database.load(path("b.PDB")), 0);
        QCOMPARE(warnings.count(u"\"_device==NULL\" in qtpalmdb.cpp"_s), 1);
        QCOMPARE(warnings.count(u"\"_firstRecordOffset==-1\" in qtpalmdb.cpp"_s), 1);
        QCOMPARE(warnings.count(u"\"_recordCount==0\" in qtpalmdb.cpp"_s), 1);
        QCOMPARE(warnings.messages().size(), 3);
    }
    const RecordPointer record(database.getRecords()->getData(1));
    QVERIFY(record);
    QCOMPARE(QByteArray(record->data, record->size), QByteArray("third"));
}

void TestQtPalmDatabase::latin1AndOtherPaths()
{
    const QString latin1 = path("W\xC3\xB6rter.PDB");
    const QString cyrillic = path("\xD0\xB6.PDB");
    QVERIFY(PalmWriter().write(latin1));
    QVERIFY(PalmWriter().write(cyrillic));
    QtPalmDatabase byBytes;
    QCOMPARE(byBytes.load(latin1.toLatin1().constData()), 0);
    QtPalmDatabase byText;
    QCOMPARE(byText.load(cyrillic), 0);
}

QTEST_GUILESS_MAIN(TestQtPalmDatabase)
#include "test_qtpalmdatabase.moc"
