// SPDX-License-Identifier: MIT
#include "tests/support/dictionarywriter.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace teskel::test;

/// Runs the program as a person does and looks at its streams, exit codes and files.
class TestProgram : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void helpIsDataAndSuccess_data();
    void helpIsDataAndSuccess();
    void wrongCommandLines_data();
    void wrongCommandLines();
    void buildPrintsItsSummaryOnStandardError();
    void quietBuildPrintsNothing();
    void buildReadsStandardInput();
    void buildReadsDictdIndexes();
    void noNumbersLeavesSensesUnnumbered();
    void findPrintsArticles_data();
    void findPrintsArticles();
    void findReadsWordsFromStandardInput();
    void findPrintsJson();
    void listPrintsHeadwords_data();
    void listPrintsHeadwords();
    void exportAndBuildGiveTheSameFile_data();
    void exportAndBuildGiveTheSameFile();
    void exportWritesFiles();
    void infoPrintsFigures();
    void infoPrintsJson();
    void verifyTellsValidFromInvalid();
    void unreadableFilesEndWithThree_data();
    void unreadableFilesEndWithThree();
    void foreignFilesEndWithOne_data();
    void foreignFilesEndWithOne();
    void damagedRecordEndsAWalkWithOne();
    void failedBuildLeavesTheOldFile();
    void fullDiskLeavesNothingBehind();
    void interruptedBuildLeavesNothingBehind_data();
    void interruptedBuildLeavesNothingBehind();
    void fullStandardOutputIsAnError();
    void fileNamesMayHoldAnything();

private:
    struct Result {
        int code = -1;
        QByteArray out;
        QByteArray err;
    };
    Result run(const QStringList& arguments, const QByteArray& input = {}) const;
    Result runShell(const QString& script) const;
    QString path(const char* name) const { return _directory.filePath(QString::fromUtf8(name)); }
    QByteArray bytesOf(const char* name) const;

    QTemporaryDir _directory;
    QString _lexicon;
};

namespace
{

QStringList words(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

// So many lines of TSV. The numbers do not fit 32 bits.
QByteArray manyEntries(qint64 count)
{
    QByteArray tsv;
    for (qint64 i = 0; i < count; ++i)
        tsv += QByteArray::number(i * 7919) + '\t' + QByteArray::number(i * 104729) + '\n';
    return tsv;
}

} // namespace

TestProgram::Result TestProgram::run(const QStringList& arguments, const QByteArray& input) const
{
    QProcess process;
    process.setWorkingDirectory(_directory.path());
    process.start(QStringLiteral(TESKEL_LEXICON), arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

TestProgram::Result TestProgram::runShell(const QString& script) const
{
    QProcess process;
    process.setWorkingDirectory(_directory.path());
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), script});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QByteArray TestProgram::bytesOf(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

void TestProgram::initTestCase()
{
    _lexicon = path("small.PDB");
    const Result result = run({QStringLiteral("build"), QStringLiteral(TEST_DATA "/small.tsv"),
                               QStringLiteral("-o"), _lexicon});
    QCOMPARE(result.code, 0);
}

void TestProgram::helpIsDataAndSuccess_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("part");
    QTest::newRow("help") << words({"--help"}) << QByteArray("build");
    QTest::newRow("help of a command") << words({"build", "--help"}) << QByteArray("--record-size");
    QTest::newRow("version") << words({"--version"}) << QByteArray("teskel-lexicon ");
}

void TestProgram::helpIsDataAndSuccess()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, part);
    const Result result = run(arguments);
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains(part));
    QCOMPARE(result.err, QByteArray());
}

void TestProgram::wrongCommandLines_data()
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

void TestProgram::wrongCommandLines()
{
    QFETCH(QStringList, arguments);
    const Result result = run(arguments);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(!result.err.isEmpty());
}

void TestProgram::buildPrintsItsSummaryOnStandardError()
{
    const Result result =
        run(words({"build", "-", "-o", "summary.PDB"}), "a…\tx… ń 日\na…\ty\na…\ty\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, QByteArray("1 characters written as a named entity:\n"
                                    "  … U+2026 -> \"&hellip;\" 1\n"
                                    "4 characters written in other letters:\n"
                                    "  ń U+0144 -> \"n\" 1\n"
                                    "  … U+2026 -> \"...\" 3\n"
                                    "1 characters unknown to Latin-1, written as \"?\":\n"
                                    "  日 U+65E5 -> \"?\" 1\n"
                                    "3 entries read, 1 headwords written, 1 of them with several "
                                    "articles, 1 repeated articles kept once\n"
                                    "1 word records, 28 bytes of text in a file of " +
                                    QByteArray::number(bytesOf("summary.PDB").size()) +
                                    " bytes, 1 words looked up again\n"));
}

void TestProgram::quietBuildPrintsNothing()
{
    const Result result = run(words({"build", "-", "-o", "quiet.PDB", "--quiet"}), "a…\tx\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, QByteArray());
}

void TestProgram::buildReadsStandardInput()
{
    QFile tsv(QStringLiteral(TEST_DATA "/small.tsv"));
    QVERIFY(tsv.open(QIODevice::ReadOnly));
    QCOMPARE(run(words({"build", "-", "-o", "stdin.PDB"}), tsv.readAll()).code, 0);
    QVERIFY(bytesOf("stdin.PDB") == bytesOf("small.PDB"));
    // Line ends and the byte order mark of other systems.
    QVERIFY(tsv.seek(0));
    QCOMPARE(run(words({"build", "-", "-o", "crlf.PDB"}),
                 "\xEF\xBB\xBF" + tsv.readAll().replace("\n", "\r\n"))
                 .code,
             0);
    QVERIFY(bytesOf("crlf.PDB") == bytesOf("small.PDB"));
}

void TestProgram::buildReadsDictdIndexes()
{
    QCOMPARE(run({QStringLiteral("build"), QStringLiteral(TEST_DATA "/sample.index"),
                  QStringLiteral("-o"), path("dictd.PDB")})
                 .code,
             0);
    const Result result = run(words({"find", "dictd.PDB", "house", "TOWER"}));
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray("house\n"
                                    "1. Haus &lt;neut>, Gebäude &lt;neut>\n"
                                    "\"build a house\" - ein Haus bauen\n"
                                    "Synonyms: home; place, building\n"
                                    "see: houses\n"
                                    "2. House-Musik &lt;fem>\n\n"
                                    "tower\n&lt;v> emporragen &lt;v, intr>\n\n"
                                    "Tower\nKontrollturm &lt;masc>\n"
                                    "Note: im 3<i></i>. Stock\n\n"));
}

void TestProgram::noNumbersLeavesSensesUnnumbered()
{
    QCOMPARE(run(words({"build", "-", "-o", "plain.PDB", "--no-numbers"}), "a\tx\na\ty\n").code, 0);
    QCOMPARE(run(words({"find", "plain.PDB", "a"})).out, QByteArray("a\nx\ny\n\n"));
}

void TestProgram::findPrintsArticles_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    const QByteArray house = "house\n1. Haus &lt;neut>\n2. Gebäude &lt;neut>\nsee: building\n\n";
    const QByteArray capital = "House\nRepräsentantenhaus\n\n";
    QTest::newRow("one word, both spellings")
        << words({"house"}) << 0 << house + capital << QByteArray();
    QTest::newRow("umlaut, folded")
        << words({"ÄHNLICH"}) << 0 << QByteArray("ähnlich\nsimilar\n\n") << QByteArray();
    QTest::newRow("no prefix match")
        << words({"hous"}) << 1 << QByteArray() << QByteArray("teskel-lexicon: not found: hous\n");
    QTest::newRow("prefix") << words({"--prefix", "ho"}) << 0 << house + capital << QByteArray();
    QTest::newRow("one of two found")
        << words({"xyz", "#1"}) << 1 << QByteArray("#1\nnumber one\n\n")
        << QByteArray("teskel-lexicon: not found: xyz\n");
    QTest::newRow("topic mark") << words({"#1"}) << 0 << QByteArray("#1\nnumber one\n\n")
                                << QByteArray();
    QTest::newRow("backslashes") << words({"C\\C++"}) << 0
                                 << QByteArray("C\\C++\na programming\tlanguage\n\n")
                                 << QByteArray();
    QTest::newRow("digits within a line")
        << words({"seventeen"}) << 0
        << QByteArray("seventeen\nam 17<i></i>. Mai, 1<i></i>. Akt\n\n") << QByteArray();
}

void TestProgram::findPrintsArticles()
{
    QFETCH(QStringList, arguments);
    const Result result = run(words({"find", "small.PDB"}) + arguments);
    QTEST(result.out, "out");
    QTEST(result.err, "err");
    QTEST(result.code, "code");
}

void TestProgram::findReadsWordsFromStandardInput()
{
    const Result result = run(words({"find", "small.PDB", "-"}), "ähnlich\n\nto build\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray("ähnlich\nsimilar\n\n"
                                    "to build\nbauen, &bdquo;errichten&ldquo;\n\n"));
    QCOMPARE(run(words({"find", "small.PDB", "-"}), "nothing\n").code, 1);
}

void TestProgram::findPrintsJson()
{
    const Result result = run(words({"find", "small.PDB", "--json", "house", "nothing"}));
    QCOMPARE(result.code, 1);
    const QJsonArray found = QJsonDocument::fromJson(result.out).array();
    QCOMPARE(found.size(), 2);
    const QJsonObject house = found[0].toObject();
    QCOMPARE(house[QStringLiteral("word")].toString(), QStringLiteral("house"));
    const QJsonArray entries = house[QStringLiteral("entries")].toArray();
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[1].toObject()[QStringLiteral("headword")].toString(), QStringLiteral("House"));
    QCOMPARE(entries[1].toObject()[QStringLiteral("article")].toString(),
             QString::fromUtf8("Repräsentantenhaus"));
    QVERIFY(found[1].toObject()[QStringLiteral("entries")].toArray().isEmpty());
    QCOMPARE(run(words({"find", "small.PDB", "--json", "-"})).out, QByteArray("[]\n"));
}

void TestProgram::listPrintsHeadwords_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("all") << QStringList()
                         << QByteArray("#1\nC\\C++\nhouse\nHouse\nseventeen\nto build\nähnlich\n");
    QTest::newRow("from a word") << words({"--from", "HOUSE"})
                                 << QByteArray("house\nHouse\nseventeen\nto build\nähnlich\n");
    QTest::newRow("from between two words")
        << words({"--from", "i", "--count", "2"}) << QByteArray("seventeen\nto build\n");
    QTest::newRow("from behind the last") << words({"--from", "öl"}) << QByteArray();
    QTest::newRow("count") << words({"--count", "1"}) << QByteArray("#1\n");
    QTest::newRow("no words at all") << words({"--count", "0"}) << QByteArray();
}

void TestProgram::listPrintsHeadwords()
{
    QFETCH(QStringList, arguments);
    const Result result = run(words({"list", "small.PDB"}) + arguments);
    QCOMPARE(result.code, 0);
    QTEST(result.out, "out");
    QCOMPARE(result.err, QByteArray());
}

void TestProgram::exportAndBuildGiveTheSameFile_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("defaults") << QStringList();
    QTest::newRow("method 4") << words({"--method", "4"});
    QTest::newRow("small records") << words({"--record-size", "256"});
    QTest::newRow("described") << words({"--description", "a < b … & 1. c"});
    QTest::newRow("without numbers") << words({"--no-numbers"});
}

void TestProgram::exportAndBuildGiveTheSameFile()
{
    QFETCH(QStringList, options);
    const QByteArray headword = QByteArray("long\\ & <head> 1. ").repeated(40);
    QByteArray tsv = "\tdescribed\n#1\tfirst\n" + headword + "\tlong\n \tempty\n";
    for (int i = 0; i < 20; ++i)
        tsv += "house\tsense 3. of\\n1. \\\\n…\\t<b>&#8211;</b> ½ " + QByteArray(3000, 'x') + "\n";
    for (int i = 0; i < 20; ++i)
        tsv += "House\t" + QByteArray::number(i) + QByteArray(3000, 'x') + "\n";
    QCOMPARE(run(words({"build", "-", "-o", "first.PDB"}) + options, tsv).code, 0);
    const Result exported = run(words({"export", "first.PDB"}));
    QCOMPARE(exported.code, 0);
    // The description travels along; the other options are asked for again.
    if (options.contains(QStringLiteral("--description")))
        options.clear();
    QCOMPARE(run(words({"build", "-", "-o", "second.PDB"}) + options, exported.out).code, 0);
    QVERIFY(bytesOf("first.PDB") == bytesOf("second.PDB"));
    QCOMPARE(run(words({"verify", "second.PDB"})).code, 0);
}

void TestProgram::exportWritesFiles()
{
    const Result exported = run(words({"export", "small.PDB", "-o", "exported.tsv"}));
    QCOMPARE(exported.code, 0);
    QCOMPARE(exported.out, QByteArray());
    QCOMPARE(bytesOf("exported.tsv"), run(words({"export", "small.PDB"})).out);
    QCOMPARE(bytesOf("exported.tsv"),
             QByteArray("\tA small dictionary, made for tests\n"
                        "#1\tnumber one\n"
                        "C\\\\C++\ta programming\\tlanguage\n"
                        "house\t1. Haus &lt;neut>\\n2. Gebäude &lt;neut>\\nsee: building\n"
                        "House\tRepräsentantenhaus\n"
                        "seventeen\tam 17<i></i>. Mai, 1<i></i>. Akt\n"
                        "to build\tbauen, &bdquo;errichten&ldquo;\n"
                        "ähnlich\tsimilar\n"));
    QCOMPARE(run(words({"export", "small.PDB", "-o", "no/such/place.tsv"})).code, 3);
}

void TestProgram::infoPrintsFigures()
{
    const Result result = run(words({"info", "small.PDB"}));
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains("name:          small\n"));
    QVERIFY(result.out.contains("description:   A small dictionary, made for tests\n"));
    QVERIFY(result.out.contains("headwords:     7\n"));
    QVERIFY(result.out.contains("word records:  1\n"));
    QVERIFY(result.out.contains("methods:       1\n"));
}

void TestProgram::infoPrintsJson()
{
    const Result result = run(words({"info", "small.PDB", "--json"}));
    QCOMPARE(result.code, 0);
    const QJsonObject facts = QJsonDocument::fromJson(result.out).object();
    QCOMPARE(facts[QStringLiteral("headwords")].toInt(), 7);
    QCOMPARE(facts[QStringLiteral("wordRecords")].toInt(), 1);
    QCOMPARE(facts[QStringLiteral("name")].toString(), QStringLiteral("small"));
    QCOMPARE(facts[QStringLiteral("fileBytes")].toInt(), bytesOf("small.PDB").size());
}

void TestProgram::verifyTellsValidFromInvalid()
{
    const Result valid = run(words({"verify", "small.PDB"}));
    QCOMPARE(valid.code, 0);
    QCOMPARE(valid.out, QByteArray("small.PDB: valid, 7 headwords in 1 word records\n"));
    QByteArray damaged = bytesOf("small.PDB");
    damaged.chop(1);
    QVERIFY(writeFile(path("damaged.PDB"), damaged));
    const Result both = run(words({"verify", "damaged.PDB", "small.PDB"}));
    QCOMPARE(both.code, 1);
    QCOMPARE(both.out, QByteArray("damaged.PDB: unpack: record 5 does not unpack: its bytes do not "
                                  "match their checksum\n"
                                  "small.PDB: valid, 7 headwords in 1 word records\n"));
    QCOMPARE(run(words({"verify", "damaged.PDB", "missing.PDB"})).code, 3);
}

void TestProgram::unreadableFilesEndWithThree_data()
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
        << QStringList{QStringLiteral("build"), QStringLiteral(TEST_DATA "/small.tsv"),
                       QStringLiteral("-o"), QStringLiteral(".")};
}

void TestProgram::unreadableFilesEndWithThree()
{
    QFETCH(QStringList, arguments);
    const Result result = run(arguments);
    QCOMPARE(result.code, 3);
    QCOMPARE(result.out, QByteArray());
    QVERIFY(result.err.startsWith("teskel-lexicon: "));
    QCOMPARE(result.err.count('\n'), 1);
    QVERIFY(!QFile::exists(path("x.PDB")));
}

void TestProgram::foreignFilesEndWithOne_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("short") << QByteArray(77, 'x');
    QTest::newRow("text") << QByteArray("This is no dictionary.\n").repeated(100);
    QTest::newRow("other creator") << PalmWriter().setCreator("Else").addRecord("x").build();
}

void TestProgram::foreignFilesEndWithOne()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(path("foreign.PDB"), bytes));
    for (const QStringList& arguments :
         {words({"info", "foreign.PDB"}), words({"list", "foreign.PDB"}),
          words({"export", "foreign.PDB"}), words({"find", "foreign.PDB", "house"})}) {
        const Result result = run(arguments);
        QCOMPARE(result.code, 1);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.err, QByteArray("teskel-lexicon: foreign.PDB is no lexicon\n"));
    }
    QCOMPARE(run(words({"verify", "foreign.PDB"})).code, 1);
}

void TestProgram::damagedRecordEndsAWalkWithOne()
{
    QVERIFY(DictionaryWriter()
                .addRecord({{"ant", "Ameise"}})
                .addPackedRecord("bee", "not a record")
                .write(path("half.PDB")));
    const Result result = run(words({"export", "half.PDB"}));
    QCOMPARE(result.code, 1);
    QVERIFY(result.out.endsWith("ant\tAmeise\n"));
    QVERIFY(result.err.contains("teskel-lexicon: half.PDB: record 6 cannot be unpacked\n"));
    QCOMPARE(run(words({"export", "half.PDB", "-o", "half.tsv"})).code, 1);
    QVERIFY(!QFile::exists(path("half.tsv")));
}

void TestProgram::failedBuildLeavesTheOldFile()
{
    QVERIFY(writeFile(path("old.PDB"), "old"));
    const QStringList before = QDir(_directory.path()).entryList();
    QCOMPARE(run(words({"build", "-", "-o", "old.PDB"}), "no tab\n").code, 3);
    QCOMPARE(bytesOf("old.PDB"), QByteArray("old"));
    QCOMPARE(QDir(_directory.path()).entryList(), before);
}

void TestProgram::fullDiskLeavesNothingBehind()
{
    QVERIFY(writeFile(path("big.tsv"), manyEntries(20000)));
    const QStringList before = QDir(_directory.path()).entryList();
    // A limit on the size of files stands in for the end of the disk.
    const Result result = runShell(QStringLiteral("trap '' XFSZ; ulimit -f 20; exec " TESKEL_LEXICON
                                                  " build big.tsv -o full.PDB"));
    QCOMPARE(result.code, 3);
    QVERIFY2(result.err.startsWith("teskel-lexicon: cannot write full.PDB: "),
             result.err.constData());
    QCOMPARE(QDir(_directory.path()).entryList(), before);
}

void TestProgram::interruptedBuildLeavesNothingBehind_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestProgram::interruptedBuildLeavesNothingBehind()
{
    QFETCH(int, signal);
    const QTemporaryDir directory;
    QProcess process;
    process.setWorkingDirectory(directory.path());
    process.start(QStringLiteral(TESKEL_LEXICON), words({"build", "-", "-o", "out.PDB"}));
    process.write(manyEntries(400000));
    process.closeWriteChannel();
    // As soon as the unfinished file is there, and before it can be complete.
    const auto files = [&] { return QDir(directory.path()).entryList(QDir::Files).size(); };
    while (files() == 0 && process.state() != QProcess::NotRunning)
        process.waitForFinished(1);
    QVERIFY2(process.state() != QProcess::NotRunning, "the build was too quick for the test");
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), signal);
    QCOMPARE(files(), 0);
}

void TestProgram::fullStandardOutputIsAnError()
{
    for (const char* command : {"list small.PDB", "export small.PDB", "find small.PDB house",
                                "info small.PDB", "verify small.PDB"}) {
        const Result result = runShell(
            QStringLiteral(TESKEL_LEXICON " %1 >/dev/full").arg(QString::fromLatin1(command)));
        QCOMPARE(result.code, 3);
        QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write to the standard output\n"));
    }
}

void TestProgram::fileNamesMayHoldAnything()
{
    QVERIFY(QDir(_directory.path()).mkdir(QString::fromUtf8("für „日本“")));
    const QString name = QString::fromUtf8("für „日本“/Wörter 1.PDB");
    QCOMPARE(run({QStringLiteral("build"), QStringLiteral(TEST_DATA "/small.tsv"),
                  QStringLiteral("-o"), name})
                 .code,
             0);
    QCOMPARE(run({QStringLiteral("find"), name, QString::fromUtf8("ähnlich")}).out,
             QByteArray("ähnlich\nsimilar\n\n"));
}

QTEST_GUILESS_MAIN(TestProgram)
#include "test_program.moc"
