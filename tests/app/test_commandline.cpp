// SPDX-License-Identifier: MIT
#include "app/commandline.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void exactlyTwoArgumentsNameAFile_data();
    void exactlyTwoArgumentsNameAFile();
};

void TestCommandLine::exactlyTwoArgumentsNameAFile_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("namesFile");
    const QString f = u"-f"_s;
    const QString path = u"/a/Eng2Ger.PDB"_s;
    QTest::newRow("-f and a path") << QStringList{f, path} << true;
    QTest::newRow("none") << QStringList{} << false;
    QTest::newRow("a single argument") << QStringList{path} << false;
    QTest::newRow("-f alone") << QStringList{f} << false;
    QTest::newRow("three") << QStringList{f, path, path} << false;
    QTest::newRow("other order") << QStringList{path, f} << false;
    QTest::newRow("other option") << QStringList{u"-F"_s, path} << false;
}

void TestCommandLine::exactlyTwoArgumentsNameAFile()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, namesFile);
    const auto file = teskel::fileFromCommandLine(QStringList{u"teskel"_s} + arguments);
    QCOMPARE(file.has_value(), namesFile);
    if (namesFile)
        QCOMPARE(*file, u"/a/Eng2Ger.PDB"_s);
}

QTEST_APPLESS_MAIN(TestCommandLine)
#include "test_commandline.moc"
