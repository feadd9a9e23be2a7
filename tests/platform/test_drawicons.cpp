// SPDX-License-Identifier: MIT
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

/// The program that draws the icons, seen from outside.
class DrawIconsTest : public QObject
{
    Q_OBJECT

private slots:
    void drawsEveryIconThatIsThere();
    void fullDiskIsAnError();

private:
    static int run(const QTemporaryDir& directory, const QString& limits, QByteArray& errors);
};

int DrawIconsTest::run(const QTemporaryDir& directory, const QString& limits, QByteArray& errors)
{
    QProcess process;
    process.setWorkingDirectory(directory.path());
    process.start(u"sh"_s, {u"-c"_s, limits + u"exec " TESKEL_DRAWICONS " pics hicolor"_s});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return -1;
    errors = process.readAllStandardError();
    return process.exitCode();
}

void DrawIconsTest::drawsEveryIconThatIsThere()
{
    const QTemporaryDir directory;
    QByteArray errors;
    QCOMPARE(run(directory, {}, errors), 0);
    const QDir there(QStringLiteral(TESKEL_PICS));
    const QDir drawn(directory.filePath(u"pics"_s));
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
    const QTemporaryDir directory;
    QByteArray errors;
    QCOMPARE(run(directory, u"trap '' XFSZ; ulimit -f 0; "_s, errors), 3);
    QVERIFY2(errors.contains("pics/24/copy.png cannot be written\n"), errors.constData());
}

QTEST_GUILESS_MAIN(DrawIconsTest)
#include "test_drawicons.moc"
