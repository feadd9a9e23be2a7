// SPDX-License-Identifier: MIT
#include "dictionary/container/filestamp.h"

#include <QDateTime>
#include <QTemporaryFile>
#include <QTest>

using teskel::FileStamp;

/// What is known of a file that nobody touched between two looks at it.
class TestFileStamp : public QObject
{
    Q_OBJECT

private slots:
    void fileThatRestedIsStillTheSame_data();
    void fileThatRestedIsStillTheSame();
    void noFileIsNeverTheSame();
};

void TestFileStamp::fileThatRestedIsStillTheSame_data()
{
    QTest::addColumn<int>("age");
    QTest::addColumn<bool>("isStill");
    QTest::newRow("for a while") << 1000 << true;
    QTest::newRow("not yet, by its clock") << -1000 << false;
}

void TestFileStamp::fileThatRestedIsStillTheSame()
{
    QFETCH(int, age);
    QTemporaryFile file;
    QVERIFY(file.open());
    const QDateTime time = QDateTime::currentDateTimeUtc().addSecs(-age);
    QVERIFY(file.setFileTime(time, QFile::FileModificationTime));
    QTEST(FileStamp(file).isStill(FileStamp(file)), "isStill");
}

void TestFileStamp::noFileIsNeverTheSame()
{
    QVERIFY(!FileStamp().isStill(FileStamp()));
    const QFile closed;
    QVERIFY(!FileStamp(closed).isStill(FileStamp(closed)));
    QTemporaryFile file;
    QVERIFY(file.open());
    QVERIFY(!FileStamp().isStill(FileStamp(file)));
}

QTEST_APPLESS_MAIN(TestFileStamp)
#include "test_filestamp.moc"
