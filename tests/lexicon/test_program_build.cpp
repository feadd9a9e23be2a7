// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/stardictwriter.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <csignal>

#include <sched.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Building, seen from outside: summaries, sources, and what failed or interrupted builds leave.
class TestProgramBuild : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void buildPrintsItsSummaryOnStandardError();
    void summaryCountsRomanizedHeadwords();
    void manyLostHeadwordsAreRefused_data();
    void manyLostHeadwordsAreRefused();
    void summaryNamesByteOrderMarksWithinTexts();
    void quietBuildPrintsNothing();
    void strictBuildRefusesWhatItWarnsOf_data();
    void strictBuildRefusesWhatItWarnsOf();
    void placeAndTimeChangeNothing_data();
    void placeAndTimeChangeNothing();
    void buildReadsStandardInput();
    void buildReadsDictdIndexes();
    void buildMergesSourcesOfSeveralKinds();
    void fromOverridesWhatTheSourceLooksLike();
    void reverseWritesTheOppositeDirection();
    void reverseWritesBothOrNone_data();
    void reverseWritesBothOrNone();
    void reverseNeedsFiles();
    void sourcesThatAreNoFilesEndAtOnce_data();
    void sourcesThatAreNoFilesEndAtOnce();
    void noNumbersLeavesSensesUnnumbered();
    void failedBuildLeavesTheOldFile();
    void fullDiskLeavesNothingBehind();
    void interruptedBuildLeavesNothingBehind_data();
    void interruptedBuildLeavesNothingBehind();
    void fileNamesMayHoldAnything();

private:
    LexiconProgram _program;
};

namespace
{
// So many lines of TSV. The numbers do not fit 32 bits.
QByteArray manyEntries(qint64 count)
{
    QByteArray tsv;
    for (qint64 i = 0; i < count; ++i)
        tsv += QByteArray::number(i * 7919) + '\t' + QByteArray::number(i * 104729) + '\n';
    return tsv;
}

/// Words of one translation, so many that they do not fit one article of the opposite direction.
QByteArray manyHouses()
{
    QByteArray tsv;
    for (int i = 0; i < 100; ++i)
        tsv += QByteArray(500, 'w') + QByteArray::number(i) + "\tHaus\n";
    return tsv;
}

/// Whether a process has a file of the directory open, be it one without a name.
bool writesInto(const QProcess& process, const QString& directory)
{
    const QDir open(u"/proc/%1/fd"_s.arg(process.processId()));
    const QStringList names = open.entryList(QDir::System | QDir::Files | QDir::NoDotAndDotDot);
    return std::any_of(names.begin(), names.end(), [&](const QString& name) {
        return QFile::symLinkTarget(open.filePath(name)).startsWith(directory + u'/');
    });
}

} // namespace

void TestProgramBuild::initTestCase()
{
    QVERIFY(_program.buildSmallLexicon());
}

void TestProgramBuild::buildPrintsItsSummaryOnStandardError()
{
    const ProgramResult result = _program.run(
        words({"build", "-", "-o", "summary.PDB", "--plain-latin"}), "a…\tx… ń 日\na…\ty\na…\ty\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err,
             QByteArray("standard input:1: warning[other-letters]: ń U+0144 is not in "
                        "Latin-1; written as \"n\"\n"
                        "standard input:1: note[named-entity]: … U+2026 is not in "
                        "Latin-1; written as \"&hellip;\"\n"
                        "standard input:1: warning[other-letters]: … U+2026 is not in "
                        "Latin-1; written as \"...\"\n"
                        "standard input:1: warning[unknown-character]: 日 U+65E5 is not "
                        "in Latin-1; written as \"?\"\n"
                        "1 character written as a named entity:\n"
                        "  … U+2026 -> \"&hellip;\" 1\n"
                        "4 characters written in other letters:\n"
                        "  ń U+0144 -> \"n\" 1\n"
                        "  … U+2026 -> \"...\" 3\n"
                        "1 character unknown to Latin-1, written as \"?\":\n"
                        "  日 U+65E5 -> \"?\" 1\n"
                        "3 entries read, 1 headword written, 1 of them with several "
                        "articles, 1 repeated article kept once\n"
                        "1 word record, 28 bytes of text in a file of " +
                        QByteArray::number(_program.bytesOf("summary.PDB").size()) +
                        " bytes, 1 word looked up again\n"));
}

void TestProgramBuild::summaryCountsRomanizedHeadwords()
{
    const ProgramResult result =
        _program.run(words({"build", "-", "-o", "romanized.PDB", "--invalid-utf8", "replace"}),
                     "вода\tx…\n日本\ty \xFF\nwater\tz\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.err,
             QByteArray("standard input:2: warning[invalid-utf8]: a byte is no UTF-8; written as "
                        "\"&_pppn;\"\n"
                        "1 character in place of bytes that are no UTF-8:\n"
                        "  U+FFFD -> \"&_pppn;\" 1\n"
                        "2 headwords written in Latin letters; each stands in its article as it is "
                        "written\n"
                        "3 entries read, 3 headwords written, 0 of them with several articles\n"
                        "1 word record, 94 bytes of text in a file of ") +
                 QByteArray::number(_program.bytesOf("romanized.PDB").size()) +
                 " bytes, 2 words looked up again\n");
}

void TestProgramBuild::manyLostHeadwordsAreRefused_data()
{
    QTest::addColumn<QByteArray>("lost");
    QTest::addColumn<int>("others");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("refusal");
    const auto refusal = [](int total) {
        return "teskel-lexicon: standard input: 1 of " + QByteArray::number(total) +
               " headwords would be empty or \"?\": does the headword come "
               "first? --force builds it all the same\n";
    };
    const QByteArray cyrillicOfWindows = "\xE2\xEE\xE4\xE0"; // in the code page 1251
    QTest::newRow("one in a hundred") << QByteArray("") << 99 << QStringList() << QByteArray();
    QTest::newRow("empty") << QByteArray(" ") << 98 << QStringList() << refusal(99);
    QTest::newRow("no UTF-8") << cyrillicOfWindows << 9 << words({"--invalid-utf8", "replace"})
                              << refusal(10);
    QTest::newRow("other letters") << QByteArray("вода") << 9 << QStringList() << QByteArray();
    QTest::newRow("other letters in the plain form")
        << QByteArray("вода") << 9 << words({"--plain-latin"}) << refusal(10);
    QTest::newRow("a question mark of the source")
        << QByteArray("?") << 9 << QStringList() << QByteArray();
    QTest::newRow("by force") << cyrillicOfWindows << 9
                              << words({"--force", "--invalid-utf8", "replace"}) << QByteArray();
}

void TestProgramBuild::manyLostHeadwordsAreRefused()
{
    QFETCH(QByteArray, lost);
    QFETCH(int, others);
    QFETCH(QStringList, options);
    QByteArray tsv = "\tdescribed\n" + lost + "\tarticle\n";
    for (int i = 0; i < others; ++i)
        tsv += "word" + QByteArray::number(i) + "\tarticle\n";
    QFile::remove(_program.path("lost.PDB"));
    const ProgramResult result =
        _program.run(words({"build", "-", "-o", "lost.PDB", "--quiet"}) + options, tsv);
    QTEST(result.err, "refusal");
    QCOMPARE(result.code, result.err.isEmpty() ? 0 : 3);
    QCOMPARE(QFile::exists(_program.path("lost.PDB")), result.err.isEmpty());
}

void TestProgramBuild::summaryNamesByteOrderMarksWithinTexts()
{
    const ProgramResult result = _program.run(
        words({"build", "-", "-o", "marks.PDB", "--plain-latin"}), "a\t\xEF\xBB\xBFx\n");
    QCOMPARE(result.code, 0);
    QVERIFY2(result.err.contains("\n  \xEF\xBB\xBF U+FEFF -> \"\" 1\n"), result.err.constData());
}

void TestProgramBuild::quietBuildPrintsNothing()
{
    const ProgramResult result =
        _program.run(words({"build", "-", "-o", "quiet.PDB", "--quiet"}), "a…\tx\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.err, QByteArray());
}

void TestProgramBuild::strictBuildRefusesWhatItWarnsOf_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("tsv");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("err"); // its beginning
    const QByteArray error =
        "standard input:2: error[empty-headword]: the headword is empty; its article is under "
        "\"?\"\nteskel-lexicon: cannot write strict.PDB: --strict makes 1 warning an error\n";
    const QByteArray warned = "a\tx\n \ty\n";
    QTest::newRow("nothing to warn of")
        << words({"--strict"}) << QByteArray("a\tx\n") << 0 << QByteArray("1 entry read, ");
    QTest::newRow("empty headword") << words({"--strict"}) << warned << 3 << error;
    QTest::newRow("errors are told quietly, too")
        << words({"--strict", "--quiet"}) << warned << 3 << error;
    QTest::newRow("a warning alone") << QStringList() << warned << 0
                                     << QByteArray("standard input:2: warning[empty-headword]: ");
}

void TestProgramBuild::strictBuildRefusesWhatItWarnsOf()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, tsv);
    QFETCH(int, code);
    QFETCH(QByteArray, err);
    const QStringList before = QDir(_program.directory()).entryList();
    const ProgramResult result =
        _program.run(words({"build", "-", "-o", "strict.PDB", "--force"}) + options, tsv);
    QCOMPARE(result.code, code);
    QVERIFY2(result.err.startsWith(err), result.err.constData());
    QCOMPARE(QFile::remove(_program.path("strict.PDB")), code == 0);
    QCOMPARE(QDir(_program.directory()).entryList(), before);
}

void TestProgramBuild::placeAndTimeChangeNothing_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("oneCore");
    QTest::newRow("Turkish") << u"LC_ALL"_s << u"tr_TR.UTF-8"_s << false;
    QTest::newRow("German, commas in numbers") << u"LC_ALL"_s << u"de_DE.ISO-8859-1"_s << false;
    QTest::newRow("no locale") << u"LC_ALL"_s << QString() << false;
    QTest::newRow("tomorrow's side of the date line")
        << u"TZ"_s << u"Pacific/Kiritimati"_s << false;
    QTest::newRow("yesterday's side of the date line")
        << u"TZ"_s << u"Pacific/Pago_Pago"_s << false;
    QTest::newRow("one core") << u"TZ"_s << u"UTC"_s << true;
}

// Locales are made for the test, because a machine may lack them.
void TestProgramBuild::placeAndTimeChangeNothing()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(bool, oneCore);
    const QTemporaryDir locales;
    if (const QStringList parts = value.split(u'.'); parts.size() == 2)
        QCOMPARE(QProcess::execute(u"localedef"_s,
                                   {u"-i"_s, parts[0], u"-f"_s, parts[1], locales.filePath(value)}),
                 0);
    QVERIFY(
        writeFile(_program.path("many.tsv"),
                  QByteArray("\tÜber İstanbul\nI\tı İ i\nß\t1,5\nİ\tΣ σ\n") + manyEntries(5000)));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LOCPATH"_s, locales.path());
    environment.insert(variable, value);
    process.setProcessEnvironment(environment);
    if (oneCore) {
        process.setChildProcessModifier([] {
            cpu_set_t cores;
            CPU_ZERO(&cores);
            CPU_SET(::sched_getcpu(), &cores);
            ::sched_setaffinity(0, sizeof cores, &cores);
        });
    }
    const ProgramResult here = _program.run(words({"build", "many.tsv", "-o", "here.PDB"}));
    const ProgramResult there =
        _program.run(process, words({"build", "many.tsv", "-o", "there.PDB"}));
    QVERIFY(_program.bytesOf("here.PDB").size() > 5000);
    QVERIFY(_program.bytesOf("there.PDB") == _program.bytesOf("here.PDB"));
    QCOMPARE(there.err, here.err);
    QCOMPARE(there.code, 0);
}

void TestProgramBuild::buildReadsStandardInput()
{
    QFile tsv(QStringLiteral(TEST_DATA "/small.tsv"));
    QVERIFY(tsv.open(QIODevice::ReadOnly));
    QCOMPARE(_program.run(words({"build", "-", "-o", "stdin.PDB"}), tsv.readAll()).code, 0);
    QVERIFY(_program.bytesOf("stdin.PDB") == _program.bytesOf("small.PDB"));
    // Line ends and the byte order mark of other systems.
    QVERIFY(tsv.seek(0));
    QCOMPARE(_program
                 .run(words({"build", "-", "-o", "crlf.PDB"}),
                      "\xEF\xBB\xBF" + tsv.readAll().replace("\n", "\r\n"))
                 .code,
             0);
    QVERIFY(_program.bytesOf("crlf.PDB") == _program.bytesOf("small.PDB"));
}

void TestProgramBuild::buildReadsDictdIndexes()
{
    QCOMPARE(_program
                 .run({u"build"_s, QStringLiteral(TEST_DATA "/sample.index"), u"-o"_s,
                       _program.path("dictd.PDB"), u"--no-pronunciation"_s})
                 .code,
             0);
    const ProgramResult result = _program.run(words({"find", "dictd.PDB", "house", "TOWER"}));
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray("house\n"
                                    "1. Haus &lt;neut>, Gebäude &lt;neut>\n"
                                    "\"build a house\" - ein Haus bauen\n"
                                    "Synonyms: home; place, building\n"
                                    "see: houses\n"
                                    "2. House-Musik &lt;fem>\n\n"
                                    "tower\n&lt;v> emporragen &lt;v, intr>\n\n"
                                    "Tower\nKontrollturm &lt;masc>\n"
                                    "Note: im 3. Stock\n\n"));
}

void TestProgramBuild::buildMergesSourcesOfSeveralKinds()
{
    QVERIFY(StarDictWriter().add("house", "Geb\xC3\xA4ude").write(_program.path("star")));
    QCOMPARE(_program
                 .run({u"build"_s, u"star.ifo"_s, u"-"_s, QStringLiteral(TEST_DATA "/sample.index"),
                       u"-o"_s, u"merged.PDB"_s, u"--no-pronunciation"_s},
                      "house\tHaus\n")
                 .code,
             0);
    QCOMPARE(_program.run(words({"find", "merged.PDB", "house"})).out,
             QByteArray("house\n1. Geb\xC3\xA4ude\n2. Haus\n"
                        "3. Haus &lt;neut>, Geb\xC3\xA4ude &lt;neut>\n"
                        "\"build a house\" - ein Haus bauen\nSynonyms: home; place, building\n"
                        "see: houses\n4. House-Musik &lt;fem>\n\n"));
}

void TestProgramBuild::fromOverridesWhatTheSourceLooksLike()
{
    QVERIFY(writeFile(_program.path("words.index"), "house\tHaus\n"));
    ProgramResult result = _program.run(words({"build", "words.index", "-o", "from.PDB"}));
    QCOMPARE(result.code, 3);
    QCOMPARE(result.err, QByteArray("teskel-lexicon: words.index:1: not a line of a dictd index "
                                    "(word, offset and length, divided by tabs)\n"));
    result = _program.run(words({"build", "words.index", "--from", "tsv", "-o", "from.PDB"}));
    QCOMPARE(result.code, 0);
    QCOMPARE(_program.run(words({"build", "words.index", "--from", "pdf", "-o", "x.PDB"})).code, 2);
}

void TestProgramBuild::reverseWritesTheOppositeDirection()
{
    QCOMPARE(_program
                 .run({u"build"_s, QStringLiteral(TEST_DATA "/sample.index"), u"-o"_s,
                       u"forth.PDB"_s, u"--reverse"_s, u"back.PDB"_s})
                 .code,
             0);
    QCOMPARE(_program.run(words({"list", "back.PDB"})).out,
             QByteArray("17. Lebensjahr & mehr\nAbk\xC3\xBCrzung Abk.\nemporragen\nGeb\xC3\xA4ude\n"
                        "Haus\nHouse-Musik\nKontrollturm\nund nichts anderes...\n"));
    QCOMPARE(_program.run(words({"find", "back.PDB", "Haus", "Kontrollturm"})).out,
             QByteArray("Haus\nhouse\n\nKontrollturm\nTower\n\n"));
    QCOMPARE(_program.run(words({"verify", "forth.PDB", "back.PDB"})).code, 0);
}

void TestProgramBuild::reverseWritesBothOrNone_data()
{
    QTest::addColumn<QByteArray>("tsv");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("error"); // its end
    QTest::newRow("a warning in the opposite direction")
        << manyHouses() << u"--strict"_s
        << QByteArray("cannot write back.PDB: --strict makes 1 warning an error\n");
    QTest::newRow("nothing in the opposite direction")
        << QByteArray("house\t(a dwelling)\n") << QString()
        << QByteArray("many.tsv holds no entries\n");
    QTest::newRow("no such directory")
        << QByteArray("house\tHaus\n") << u"--reverse sub/back.PDB"_s
        << QByteArray("cannot write sub/back.PDB: No such file or directory\n");
}

void TestProgramBuild::reverseWritesBothOrNone()
{
    QFETCH(QByteArray, tsv);
    QFETCH(QString, options);
    QFETCH(QByteArray, error);
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath(u"many.tsv"_s), tsv));
    QProcess process;
    process.setWorkingDirectory(directory.path());
    QStringList arguments = words({"build", "many.tsv", "-o", "forth.PDB"});
    if (!options.startsWith("--reverse"_L1))
        arguments += words({"--reverse", "back.PDB"});
    const ProgramResult result = runToEnd(process, QStringLiteral(TESKEL_LEXICON),
                                          arguments + options.split(u' ', Qt::SkipEmptyParts));
    QVERIFY2(result.err.endsWith("teskel-lexicon: " + error), result.err.constData());
    QCOMPARE(result.code, 3);
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), words({"many.tsv"}));
}

void TestProgramBuild::reverseNeedsFiles()
{
    const ProgramResult result = _program.run(
        words({"build", "-", "-o", "forth.PDB", "--reverse", "none.PDB"}), "house\tHaus\n");
    QCOMPARE(result.code, 2);
    QCOMPARE(result.err, QByteArray("teskel-lexicon: --reverse reads its sources twice, which the "
                                    "standard input does not allow\n"));
}

void TestProgramBuild::sourcesThatAreNoFilesEndAtOnce_data()
{
    QTest::addColumn<QStringList>("sources");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray irregular = "it is no regular file (\"-\" reads the standard input)\n";
    QTest::newRow("pipe") << words({"pipe"}) << "cannot read pipe: " + irregular;
    QTest::newRow("articles in a pipe") << words({"p.index"}) << "cannot read p.dict: " + irregular;
    QTest::newRow("device") << words({"/dev/zero"}) << "cannot read /dev/zero: " + irregular;
    QTest::newRow("directory") << words({"."}) << QByteArray("cannot read .: Is a directory\n");
    QTest::newRow("standard input twice")
        << words({"-", "-"}) << QByteArray("the standard input can be a source only once\n");
}

void TestProgramBuild::sourcesThatAreNoFilesEndAtOnce()
{
    QFETCH(QStringList, sources);
    QFETCH(QByteArray, reason);
    QVERIFY(writeFile(_program.path("p.index"), "house\tA\tB\n"));
    for (const char* pipe : {"pipe", "p.dict"})
        ::mkfifo(_program.path(pipe).toUtf8().constData(), 0600);
    const ProgramResult result =
        _program.run(words({"build"}) + sources + words({"-o", "none.PDB"}), "house\tHaus\n");
    QCOMPARE(result.code, 3);
    QCOMPARE(result.err, "teskel-lexicon: " + reason);
    QVERIFY(!QFile::exists(_program.path("none.PDB")));
}

void TestProgramBuild::noNumbersLeavesSensesUnnumbered()
{
    QCOMPARE(
        _program.run(words({"build", "-", "-o", "plain.PDB", "--no-numbers"}), "a\tx\na\ty\n").code,
        0);
    QCOMPARE(_program.run(words({"find", "plain.PDB", "a"})).out, QByteArray("a\nx\ny\n\n"));
}

void TestProgramBuild::failedBuildLeavesTheOldFile()
{
    QVERIFY(writeFile(_program.path("old.PDB"), "old"));
    const QStringList before = QDir(_program.directory()).entryList();
    QCOMPARE(_program.run(words({"build", "-", "--force", "-o", "old.PDB"}), "no tab\n").code, 3);
    QCOMPARE(_program.bytesOf("old.PDB"), QByteArray("old"));
    QCOMPARE(QDir(_program.directory()).entryList(), before);
}

void TestProgramBuild::fullDiskLeavesNothingBehind()
{
    QVERIFY(writeFile(_program.path("big.tsv"), manyEntries(20000)));
    const QStringList before = QDir(_program.directory()).entryList();
    // A limit on the size of files stands in for the end of the disk.
    QProcess process;
    limitFileSize(process, 10'240, BeyondLimit::SignalKills);
    const ProgramResult result =
        _program.run(process, words({"build", "big.tsv", "-o", "full.PDB"}));
    QCOMPARE(result.code, 3);
    QVERIFY2(result.err.startsWith("teskel-lexicon: cannot write "), result.err.constData());
    QCOMPARE(QDir(_program.directory()).entryList(), before);
}

void TestProgramBuild::interruptedBuildLeavesNothingBehind_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGKILL") << SIGKILL;
}

void TestProgramBuild::interruptedBuildLeavesNothingBehind()
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
    while (!writesInto(process, directory.path()) && process.state() != QProcess::NotRunning)
        process.waitForFinished(1);
    QVERIFY2(process.state() != QProcess::NotRunning, "the build was too quick for the test");
    if (signal == SIGKILL && files() > 0)
        QSKIP("this file system makes no files without names");
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(-1));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), signal);
    QCOMPARE(files(), 0);
}

void TestProgramBuild::fileNamesMayHoldAnything()
{
    QVERIFY(QDir(_program.directory()).mkdir(QString::fromUtf8("für „日本“")));
    const QString name = QString::fromUtf8("für „日本“/Wörter 1.PDB");
    QCOMPARE(_program.run({u"build"_s, QStringLiteral(TEST_DATA "/small.tsv"), u"-o"_s, name}).code,
             0);
    QCOMPARE(_program.run({u"find"_s, name, QString::fromUtf8("ähnlich")}).out,
             QByteArray("ähnlich\nsimilar\n\n"));
}

QTEST_GUILESS_MAIN(TestProgramBuild)
#include "test_program_build.moc"
