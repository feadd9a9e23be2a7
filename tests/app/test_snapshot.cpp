// SPDX-License-Identifier: MIT
#include "tests/support/dictionarywriter.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;

/// The program that takes pictures of the reader, seen from outside.
class TestSnapshot : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void savesAPictureOfTheSizeAskedFor();
    void fullDiskIsAnError_data();
    void fullDiskIsAnError();

private:
    int run(const QString& script, QByteArray& errors) const;

    QTemporaryDir _directory;
};

void TestSnapshot::initTestCase()
{
    QVERIFY(
        DictionaryWriter().addRecord({{"house", "Haus"}}).write(_directory.filePath(u"a.PDB"_s)));
}

int TestSnapshot::run(const QString& script, QByteArray& errors) const
{
    // Pictures are as large as asked for on a screen of plain density alone.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"QT_SCALE_FACTOR"_s);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(_directory.path());
    process.start(u"sh"_s, {u"-c"_s, script.arg(QStringLiteral(TESKEL_SNAPSHOT))});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return -1;
    errors = process.readAllStandardError();
    return process.exitCode();
}

void TestSnapshot::savesAPictureOfTheSizeAskedFor()
{
    QByteArray errors;
    QCOMPARE(run(u"%1 a.PDB house picture.png 240x320"_s, errors), 0);
    QCOMPARE(QImage(_directory.filePath(u"picture.png"_s)).size(), QSize(240, 320));
}

void TestSnapshot::fullDiskIsAnError_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("picture less than a buffer")
        << u"exec %1 a.PDB house /dev/full 80x80"_s
        << QByteArray("/dev/full: the picture cannot be written\n");
    QTest::newRow("picture of several buffers")
        << u"trap '' XFSZ; ulimit -f 64; exec %1 a.PDB house full.png 4000x4000"_s
        << QByteArray("full.png: the picture cannot be written\n");
    QTest::newRow("standard output")
        << u"exec %1 a.PDB house picture.png >/dev/full"_s << QByteArray();
}

void TestSnapshot::fullDiskIsAnError()
{
    QFETCH(QString, script);
    QFETCH(QByteArray, complaint);
    QByteArray errors;
    QCOMPARE(run(script, errors), 1);
    QVERIFY2(errors.contains(complaint), errors.constData());
}

QTEST_GUILESS_MAIN(TestSnapshot)
#include "test_snapshot.moc"
