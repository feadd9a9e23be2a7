// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/dictionarywriter.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Help, and what all commands say of wrong command lines and files.
class TestProgramErrors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void helpIsDataAndSuccess_data();
    void helpIsDataAndSuccess();
    void manualsNameEveryCommandAndOption_data();
    void manualsNameEveryCommandAndOption();
    void manPageDescribesEachOptionOnce();
    void wrongCommandLines_data();
    void wrongCommandLines();
    void wrongCommandLinesAreExplained_data();
    void wrongCommandLinesAreExplained();
    void unreadableFilesEndWithThree_data();
    void unreadableFilesEndWithThree();
    void lexiconsThatAreNoFilesEndAtOnce_data();
    void lexiconsThatAreNoFilesEndAtOnce();
    void foreignFilesEndWithOne_data();
    void foreignFilesEndWithOne();
    void fullStandardOutputIsAnError_data();
    void fullStandardOutputIsAnError();

private:
    LexiconProgram _program;
};

void TestProgramErrors::initTestCase()
{
    QVERIFY(_program.buildSmallLexicon());
}

void TestProgramErrors::helpIsDataAndSuccess_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("part");
    QTest::newRow("help") << words({"--help"}) << QByteArray("build");
    QTest::newRow("help of a command") << words({"build", "--help"}) << QByteArray("--record-size");
    QTest::newRow("version") << words({"--version"}) << QByteArray("teskel-lexicon ");
}

void TestProgramErrors::helpIsDataAndSuccess()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, part);
    const ProgramResult result = _program.run(arguments);
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains(part));
    QCOMPARE(result.err, QByteArray());
}

void TestProgramErrors::manualsNameEveryCommandAndOption_data()
{
    QTest::addColumn<QString>("manual");
    QTest::newRow("Markdown") << QStringLiteral(TESKEL_DOCS "/teskel-lexicon.md");
    QTest::newRow("man page") << QStringLiteral(TESKEL_DOCS "/man/teskel-lexicon.1");
}

void TestProgramErrors::manualsNameEveryCommandAndOption()
{
    QFETCH(QString, manual);
    QFile file(manual);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll()).replace("\\-"_L1, "-"_L1);
    const QString help = QString::fromUtf8(_program.run(words({"--help"})).out);
    const QRegularExpression command(u"^  ([a-z]+) +[A-Z]"_s, QRegularExpression::MultilineOption);
    const QRegularExpression option(u"--[a-z][a-z-]+"_s);
    int commands = 0;
    for (const QRegularExpressionMatch& match :
         command.globalMatch(help.mid(help.indexOf("Subcommands:"_L1)))) {
        const QString name = match.captured(1);
        ++commands;
        QVERIFY2(text.contains("teskel-lexicon "_L1 + name), qPrintable(name));
        const QString options = QString::fromUtf8(_program.run({name, u"--help"_s}).out);
        for (const QRegularExpressionMatch& each : option.globalMatch(options)) {
            // Both are known by their short names.
            const bool isShort = each.captured() == "--help"_L1 || each.captured() == "--output"_L1;
            const bool isKnown = isShort || text.contains(each.captured());
            QVERIFY2(isKnown, qPrintable(name + u' ' + each.captured()));
        }
    }
    QCOMPARE(commands, 8);
}

void TestProgramErrors::manPageDescribesEachOptionOnce()
{
    QFile file(QStringLiteral(TESKEL_DOCS "/man/teskel-lexicon.1"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll()).replace("\\-"_L1, "-"_L1);
    // Options of two commands may share a name; what they take differs then.
    const QRegularExpression tag(u"\\n\\.TP\\n\\.B[^\\n]*?(--[a-z-]+(?: \" ?[A-Z]+)?)"_s);
    QStringList options;
    for (const QRegularExpressionMatch& match : tag.globalMatch(text))
        options += match.captured(1);
    QVERIFY(options.size() > 20);
    QCOMPARE(options.removeDuplicates(), 0);
}

void TestProgramErrors::wrongCommandLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("unknown command") << words({"frobnicate"});
    QTest::newRow("build without a source") << words({"build", "-o", "a.PDB"});
    QTest::newRow("build without a target") << words({"build", "a.tsv"});
    QTest::newRow("method 0") << words({"build", "a.tsv", "-o", "a.PDB", "--method", "0"});
    QTest::newRow("method 5") << words({"build", "a.tsv", "-o", "a.PDB", "--method", "5"});
    QTest::newRow("record size too large")
        << words({"build", "a.tsv", "-o", "a.PDB", "--record-size", "32768"});
    QTest::newRow("record size too small")
        << words({"build", "a.tsv", "-o", "a.PDB", "--record-size", "255"});
    QTest::newRow("record size no number")
        << words({"build", "a.tsv", "-o", "a.PDB", "--record-size", "8K"});
    QTest::newRow("find without a word") << words({"find", "small.PDB"});
    QTest::newRow("negative count") << words({"list", "small.PDB", "--count", "-1"});
    QTest::newRow("verify without a file") << words({"verify"});
    QTest::newRow("unknown option") << words({"info", "--frob", "small.PDB"});
}

void TestProgramErrors::wrongCommandLines()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(arguments);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(!result.err.isEmpty());
}

void TestProgramErrors::wrongCommandLinesAreExplained_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("sentence");
    const QByteArray noFile =
        "teskel-lexicon: a lexicon cannot be written to the standard output; name a file\n";
    QTest::newRow("build -") << u"build - -o -"_s << noFile;
    QTest::newRow("build --reverse -") << u"build a.tsv -o a.PDB --reverse -"_s << noFile;
    QTest::newRow("repair -") << u"repair small.PDB -o -"_s << noFile;
    for (const char* number : {"-1", "1.5", "many"}) {
        const QByteArray rest = QByteArray(": ") + number +
                                " is no whole number from 0 on\n"
                                "Run with --help for more information.\n";
        QTest::addRow("find --limit %s", number)
            << u"find small.PDB house --limit "_s + QString::fromLatin1(number) << "--limit" + rest;
        QTest::addRow("list --count %s", number)
            << u"list small.PDB --count "_s + QString::fromLatin1(number) << "--count" + rest;
    }
}

void TestProgramErrors::wrongCommandLinesAreExplained()
{
    QFETCH(QString, command);
    const ProgramResult result = _program.run(command.split(u' '), "house\tHaus\n");
    QTEST(result.err, "sentence");
    QCOMPARE(result.code, 2);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(!QFile::exists(_program.path("-")));
    QVERIFY(!QFile::exists(_program.path("a.PDB")));
}

void TestProgramErrors::unreadableFilesEndWithThree_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* file : {"missing.PDB", "."}) {
        for (const char* command : {"info", "list", "export", "verify"})
            QTest::addRow("%s %s", command, file) << words({command, file});
        QTest::addRow("find %s", file) << words({"find", file, "house"});
    }
    QTest::newRow("build from nothing") << words({"build", "missing.tsv", "-o", "x.PDB"});
    QTest::newRow("build from no index") << words({"build", "missing.index", "-o", "x.PDB"});
    QTest::newRow("build from an unknown kind") << words({"build", "small.PDB", "-o", "x.PDB"});
    QTest::newRow("build into a directory")
        << QStringList{u"build"_s, QStringLiteral(TEST_DATA "/small.tsv"), u"-o"_s, u"."_s};
}

void TestProgramErrors::unreadableFilesEndWithThree()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(arguments);
    QCOMPARE(result.code, 3);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(result.err.startsWith("teskel-lexicon: "));
    QCOMPARE(result.err.count('\n'), 1);
    QVERIFY(!QFile::exists(_program.path("x.PDB")));
}

void TestProgramErrors::lexiconsThatAreNoFilesEndAtOnce_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("file");
    for (const char* command : {"info %1", "list %1", "export %1", "find %1 house", "verify %1",
                                "diff %1 small.PDB", "repair %1 -o x.PDB"}) {
        for (const char* file : {"pipe", "/dev/zero", "/proc/version"})
            QTest::addRow("%s, %s", command, file)
                << QString::fromLatin1(command) << QByteArray(file);
    }
}

void TestProgramErrors::lexiconsThatAreNoFilesEndAtOnce()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, file);
    ::mkfifo(_program.path("pipe").toUtf8().constData(), 0600);
    const ProgramResult result = _program.run(command.arg(QString::fromLatin1(file)).split(u' '));
    QCOMPARE(result.code, 3);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, "teskel-lexicon: cannot read " + file + ": it is no regular file\n");
    QVERIFY(!QFile::exists(_program.path("x.PDB")));
}

void TestProgramErrors::foreignFilesEndWithOne_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("short") << QByteArray(77, 'x');
    QTest::newRow("text") << QByteArray("This is no dictionary.\n").repeated(100);
    QTest::newRow("other creator") << PalmWriter().setCreator("Else").addRecord("x").build();
}

void TestProgramErrors::foreignFilesEndWithOne()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(_program.path("foreign.PDB"), bytes));
    for (const QStringList& arguments :
         {words({"info", "foreign.PDB"}), words({"list", "foreign.PDB"}),
          words({"export", "foreign.PDB"}), words({"find", "foreign.PDB", "house"})}) {
        const ProgramResult result = _program.run(arguments);
        QCOMPARE(result.code, 1);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err, QByteArray("teskel-lexicon: foreign.PDB is no lexicon\n"));
    }
    QCOMPARE(_program.run(words({"verify", "foreign.PDB"})).code, 1);
}

void TestProgramErrors::fullStandardOutputIsAnError_data()
{
    QTest::addColumn<QString>("command");
    for (const char* command :
         {"list small.PDB", "export small.PDB", "export small.PDB -o -", "find small.PDB house",
          "find --json small.PDB house", "info small.PDB", "info --json small.PDB",
          "verify small.PDB", "--help", "build --help", "--version"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

void TestProgramErrors::fullStandardOutputIsAnError()
{
    QFETCH(QString, command);
    QProcess process;
    process.setStandardOutputFile(u"/dev/full"_s);
    const ProgramResult result = _program.run(process, command.split(u' '));
    QCOMPARE(result.code, 3);
    QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write to the standard output\n"));
}

QTEST_GUILESS_MAIN(TestProgramErrors)
#include "test_program_errors.moc"
