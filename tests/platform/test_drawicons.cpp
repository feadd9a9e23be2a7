// SPDX-License-Identifier: MIT
#include "tests/support/childprocess.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using teskel::test::limitFileSize;
using teskel::test::ProgramResult;
using teskel::test::runToEnd;

/// The program that draws the icons, seen from outside.
class DrawIconsTest : public QObject
{
    Q_OBJECT

private slots:
    void drawsEveryIconThatIsThere();
    void fullDiskIsAnError();

private:
    ProgramResult run(QProcess& process) const;

    QTemporaryDir _directory;
};

ProgramResult DrawIconsTest::run(QProcess& process) const
{
    process.setWorkingDirectory(_directory.path());
    return runToEnd(process, QStringLiteral(TESKEL_DRAWICONS), {u"pics"_s, u"hicolor"_s});
}

void DrawIconsTest::drawsEveryIconThatIsThere()
{
    QProcess process;
    QCOMPARE(run(process).code, 0);
    const QDir there(QStringLiteral(TESKEL_PICS));
    const QDir drawn(_directory.filePath(u"pics"_s));
    const QStringList sizes = there.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(!sizes.isEmpty());
    QCOMPARE(drawn.entryList(QDir::Dirs | QDir::NoDotAndDotDot), sizes);
    for (const QString& size : sizes) {
        const QStringList names = QDir(there.filePath(size)).entryList(QDir::Files);
        QVERIFY(!names.isEmpty());
        QCOMPARE(QDir(drawn.filePath(size)).entryList(QDir::Files), names);
    }
}

void DrawIconsTest::fullDiskIsAnError()
{
    QProcess process;
    limitFileSize(process, 0);
    const ProgramResult result = run(process);
    QCOMPARE(result.code, 3);
    QVERIFY2(result.err.contains("pics/24/copy.png cannot be written\n"), result.err.constData());
}

QTEST_GUILESS_MAIN(DrawIconsTest)
#include "test_drawicons.moc"
