// SPDX-License-Identifier: MIT
#include "tests/support/childprocess.h"
#include "tests/support/dictionarywriter.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;
using teskel::test::limitFileSize;
using teskel::test::ProgramResult;
using teskel::test::runToEnd;

/// The program that takes pictures of the reader, seen from outside.
class TestSnapshot : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void savesAPictureOfTheSizeAskedFor();
    void fullDiskIsAnError_data();
    void fullDiskIsAnError();
    void fullStandardOutputIsAnError();

private:
    ProgramResult run(QProcess& process, const QStringList& arguments) const;

    QTemporaryDir _directory;
};

void TestSnapshot::initTestCase()
{
    QVERIFY(
        DictionaryWriter().addRecord({{"house", "Haus"}}).write(_directory.filePath(u"a.PDB"_s)));
}

ProgramResult TestSnapshot::run(QProcess& process, const QStringList& arguments) const
{
    // Pictures are as large as asked for on a screen of plain density alone.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"QT_SCALE_FACTOR"_s);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(_directory.path());
    return runToEnd(process, QStringLiteral(TESKEL_SNAPSHOT),
                    QStringList{u"a.PDB"_s, u"house"_s} + arguments);
}

void TestSnapshot::savesAPictureOfTheSizeAskedFor()
{
    QProcess process;
    QCOMPARE(run(process, {u"picture.png"_s, u"240x320"_s}).code, 0);
    QCOMPARE(QImage(_directory.filePath(u"picture.png"_s)).size(), QSize(240, 320));
}

void TestSnapshot::fullDiskIsAnError_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<quint64>("room");
    QTest::addColumn<QByteArray>("complaint");
    constexpr quint64 plenty = 1 << 30;
    QTest::newRow("picture less than a buffer")
        << QStringList{u"/dev/full"_s, u"80x80"_s} << plenty
        << QByteArray("/dev/full: the picture cannot be written\n");
    QTest::newRow("picture of several buffers")
        << QStringList{u"full.png"_s, u"4000x4000"_s} << quint64(32'768)
        << QByteArray("full.png: the picture cannot be written\n");
}

void TestSnapshot::fullDiskIsAnError()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const quint64, room);
    QFETCH(const QByteArray, complaint);
    QProcess process;
    limitFileSize(process, room);
    const ProgramResult result = run(process, arguments);
    QCOMPARE(result.code, 1);
    QVERIFY2(result.err.contains(complaint), result.err.constData());
}

void TestSnapshot::fullStandardOutputIsAnError()
{
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_s);
    QCOMPARE(run(process, {u"picture.png"_s}).code, 1);
}

QTEST_GUILESS_MAIN(TestSnapshot)
#include "test_snapshot.moc"
