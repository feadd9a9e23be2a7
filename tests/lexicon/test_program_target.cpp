// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// What becomes of a file that stands in an output's place already.
class TestProgramTarget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void whatIsOfAnotherKindStays_data();
    void whatIsOfAnotherKindStays();
    void whatHasOneMarkOfALexiconStays_data();
    void whatHasOneMarkOfALexiconStays();
    void isReplacedByForce_data();
    void isReplacedByForce();
    void whatIsOfTheSameKindIsReplaced_data();
    void whatIsOfTheSameKindIsReplaced();
    void symbolicLinkStaysOne_data();
    void symbolicLinkStaysOne();
    void linkThatLeadsNowhereIsAnError();
    void namesOfNoFileAreToldBeforeAnythingIsRead_data();
    void namesOfNoFileAreToldBeforeAnythingIsRead();
    void whatCannotBeWrittenStays_data();
    void whatCannotBeWrittenStays();
    void permissionsStay_data();
    void permissionsStay();
    void neighboursStay_data();
    void neighboursStay();

private:
    void addCommands() const;
    QMap<QString, QByteArray> contents() const;
    bool stage(const char* name, const QByteArray& content) const;

    LexiconProgram _program;
    QByteArray _lexicon;
};

namespace
{

/// What each command writes, the file of it that is looked at, and whether that is a lexicon.
struct Output {
    const char* command; ///< without --force
    const char* target;
    bool isLexicon;
};

constexpr Output outputs[] = {
    {"build a.tsv -o target", "target", true},
    {"build a.tsv -o other.PDB --reverse target", "target", true},
    {"repair lexicon.PDB -o target", "target", true},
    {"export lexicon.PDB -o target", "target", false},
    {"export lexicon.PDB --to dictd -o target", "target.dict", false},
    {"export lexicon.PDB --to stardict -o target", "target.ifo", false},
};

} // namespace

void TestProgramTarget::initTestCase()
{
    QVERIFY(writeFile(_program.path("a.tsv"), "house\tHaus\n"));
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "lexicon.PDB"})).code, 0);
    _lexicon = _program.bytesOf("lexicon.PDB");
}

void TestProgramTarget::init()
{
    QDir directory(_program.directory());
    for (const QString& name : directory.entryList(QDir::NoDotAndDotDot | QDir::AllEntries |
                                                   QDir::Hidden | QDir::System)) {
        if (name == "a.tsv"_L1 || name == "lexicon.PDB"_L1)
            continue;
        if (QFileInfo(directory.filePath(name)).isDir() &&
            !QFileInfo(directory.filePath(name)).isSymLink())
            QDir(directory.filePath(name)).removeRecursively();
        else
            directory.remove(name);
    }
}

void TestProgramTarget::addCommands() const
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<bool>("isLexicon");
    for (const Output& output : outputs)
        QTest::newRow(output.command)
            << QString::fromLatin1(output.command) << QByteArray(output.target) << output.isLexicon;
}

bool TestProgramTarget::stage(const char* name, const QByteArray& content) const
{
    return writeFile(_program.path(name), content);
}

void TestProgramTarget::whatIsOfAnotherKindStays_data()
{
    addCommands();
}

void TestProgramTarget::whatIsOfAnotherKindStays()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    QFETCH(bool, isLexicon);
    QVERIFY(stage(target.constData(), isLexicon ? QByteArray("my thesis\n") : _lexicon));
    const QMap<QString, QByteArray> before = contents();
    const ProgramResult result = _program.run(command.split(u' '));
    QCOMPARE(result.err, "teskel-lexicon: cannot write " + target + ": what is there is " +
                             (isLexicon ? "no lexicon" : "a lexicon") +
                             "; --force replaces it all the same\n");
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.code, 2);
    QVERIFY(contents() == before);
}

void TestProgramTarget::whatHasOneMarkOfALexiconStays_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray table =
        QByteArray("a").repeated(30) + '\t' + QByteArray("b").repeated(28) + '\n';
    QTest::newRow("table") << table + "DICTTSKL\tmy word\nhouse\tHaus\n";
    QTest::newRow("short table") << table + "DICTTSKL";
    QTest::newRow("empty list") << QByteArray(60, '\0') + "DICTTSKL" + QByteArray(100, '\0');
    QTest::newRow("text behind it") << QByteArray(60, '\0') + "DICTTSKL" + QByteArray(100, 'x');
    QTest::newRow("name without end") << QByteArray(60, 'x') + _lexicon.mid(60);
    QTest::newRow("another program's") << _lexicon.left(64) + "Data" + _lexicon.mid(68);
}

void TestProgramTarget::whatHasOneMarkOfALexiconStays()
{
    QFETCH(QByteArray, content);
    QVERIFY(stage("target", content));
    const ProgramResult result = _program.run(words({"build", "a.tsv", "-o", "target"}));
    QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write target: what is there is no "
                                    "lexicon; --force replaces it all the same\n"));
    QCOMPARE(result.code, 2);
    QVERIFY(_program.bytesOf("target") == content);
}

void TestProgramTarget::isReplacedByForce_data()
{
    addCommands();
}

void TestProgramTarget::isReplacedByForce()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    QFETCH(bool, isLexicon);
    const QByteArray before = isLexicon ? QByteArray("my thesis\n") : _lexicon;
    QVERIFY(stage(target.constData(), before));
    QCOMPARE(_program.run(command.split(u' ') + QStringList{u"--force"_s}).code, 0);
    QVERIFY(_program.bytesOf(target.constData()) != before);
    QCOMPARE(_program.bytesOf(target.constData()).contains("TSKL"), isLexicon);
}

void TestProgramTarget::whatIsOfTheSameKindIsReplaced_data()
{
    addCommands();
}

/// An empty file holds nothing that could be lost.
void TestProgramTarget::whatIsOfTheSameKindIsReplaced()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    QFETCH(bool, isLexicon);
    QByteArray damaged = _lexicon;
    damaged.truncate(100);
    for (const QByteArray& before : {isLexicon ? damaged : QByteArray("other\n"), QByteArray()}) {
        QVERIFY(stage(target.constData(), before));
        QCOMPARE(_program.run(command.split(u' ')).code, 0);
        QVERIFY(_program.bytesOf(target.constData()) != before);
    }
}

void TestProgramTarget::symbolicLinkStaysOne_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("leadsTo");
    QTest::addColumn<bool>("isThere");
    for (const Output& output : outputs) {
        for (const bool isThere : {true, false}) {
            const auto add = [&](const char* name, const char* leadsTo) {
                QTest::addRow("%s, %s, %s", output.command, name, isThere ? "there" : "not there")
                    << QString::fromLatin1(output.command) << QByteArray(output.target)
                    << QString::fromLatin1(leadsTo) << isThere;
            };
            add("beside", "real");
            add("elsewhere", "sub/real");
            add("by another link", "second");
        }
    }
}

void TestProgramTarget::symbolicLinkStaysOne()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    QFETCH(QString, leadsTo);
    QFETCH(bool, isThere);
    QVERIFY(QDir(_program.directory()).mkdir(u"sub"_s));
    QVERIFY(QFile::link(u"sub/real"_s, _program.path("second")));
    const QString link = _program.path(target.constData());
    QVERIFY(QFile::link(leadsTo, link));
    const QByteArray real = leadsTo == "real"_L1 ? "real" : "sub/real";
    if (isThere)
        QVERIFY(stage(real.constData(), QByteArray()));
    const ProgramResult result = _program.run(command.split(u' '));
    QCOMPARE(result.code, 0);
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(QFileInfo(_program.path(real.constData())).isFile());
    QVERIFY(!QFileInfo(_program.path(real.constData())).isSymLink());
    QVERIFY(_program.bytesOf(real.constData()).size() > 0);
    QVERIFY(QDir(_program.directory())
                .entryList({u".*.teskel-*"_s}, QDir::Files | QDir::Hidden)
                .isEmpty());
    QVERIFY(QDir(_program.path("sub"))
                .entryList({u".*.teskel-*"_s}, QDir::Files | QDir::Hidden)
                .isEmpty());
}

void TestProgramTarget::linkThatLeadsNowhereIsAnError()
{
    QVERIFY(QFile::link(u"target"_s, _program.path("other")));
    QVERIFY(QFile::link(u"other"_s, _program.path("target")));
    const ProgramResult result = _program.run(words({"build", "a.tsv", "-o", "target"}));
    QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write target: Too many levels of "
                                    "symbolic links\n"));
    QCOMPARE(result.code, 3);
}

void TestProgramTarget::namesOfNoFileAreToldBeforeAnythingIsRead_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("empty") << QString() << QByteArray("the name is empty");
    QTest::newRow("no directory") << u"none/x.PDB"_s << QByteArray("No such file or directory");
    QTest::newRow("slash behind it") << u"x.PDB/"_s << QByteArray("No such file or directory");
    QTest::newRow("too long") << QString(256, u'n') << QByteArray("File name too long");
}

void TestProgramTarget::namesOfNoFileAreToldBeforeAnythingIsRead()
{
    QFETCH(QString, output);
    QFETCH(QByteArray, reason);
    for (const char* const command : {"build missing.tsv", "repair missing.PDB"}) {
        const ProgramResult result =
            _program.run(QString::fromLatin1(command).split(u' ') + QStringList{u"-o"_s, output});
        QCOMPARE(result.err,
                 "teskel-lexicon: cannot write " + output.toUtf8() + ": " + reason + '\n');
        QCOMPARE(result.code, 3);
    }
}

void TestProgramTarget::whatCannotBeWrittenStays_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<bool>("isLexicon");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("reason");
    for (const Output& output : outputs) {
        const auto add = [&](const char* kind, const char* reason) {
            QTest::addRow("%s, %s", output.command, kind)
                << QString::fromLatin1(output.command) << QByteArray(output.target)
                << output.isLexicon << QByteArray(kind) << QByteArray(reason);
        };
        add("read-only", "it is read-only");
        add("read-only by a link", "it is read-only");
        add("directory", "Is a directory");
        add("pipe", "it is no regular file");
        add("device by a link", "it is no regular file");
    }
}

/// Not by --force either. A source that is not there shows that this is seen before it is read.
void TestProgramTarget::whatCannotBeWrittenStays()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    QFETCH(bool, isLexicon);
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, reason);
    const QString path = _program.path(target.constData());
    const QByteArray content = isLexicon ? _lexicon : QByteArray("other\n");
    if (kind == "directory") {
        QVERIFY(QDir().mkdir(path));
    } else if (kind == "pipe") {
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    } else if (kind == "device by a link") {
        QVERIFY(QFile::link(u"/dev/null"_s, path));
    } else {
        const char* real = kind == "read-only" ? target.constData() : "real";
        QVERIFY(stage(real, content));
        QVERIFY(QFile::setPermissions(_program.path(real), QFile::ReadOwner | QFile::ReadGroup));
        if (kind != "read-only")
            QVERIFY(QFile::link(u"real"_s, path));
    }
    const QMap<QString, QByteArray> before = contents();
    for (const QStringList& force : {QStringList(), QStringList{u"--force"_s}}) {
        const ProgramResult result =
            _program.run(command.replace("a.tsv"_L1, "missing.tsv"_L1).split(u' ') + force);
        QCOMPARE(result.err, "teskel-lexicon: cannot write " + target + ": " + reason + '\n');
        QCOMPARE(result.code, 3);
        QVERIFY(contents() == before);
    }
}

void TestProgramTarget::permissionsStay_data()
{
    addCommands();
}

void TestProgramTarget::permissionsStay()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, target);
    const QByteArray path = QFile::encodeName(_program.path(target.constData()));
    QVERIFY(stage(target.constData(), QByteArray()));
    QCOMPARE(::chmod(path.constData(), 0640), 0);
    QCOMPARE(_program.run(command.split(u' ')).code, 0);
    struct stat status = {};
    QCOMPARE(::stat(path.constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0640U);
    QVERIFY(status.st_size > 0);
}

void TestProgramTarget::neighboursStay_data()
{
    QTest::addColumn<QString>("command"); // %1 is what is read
    QTest::addColumn<QByteArray>("source");
    for (const char* source :
         {"target.part999999999", ".target.teskel-999999999-0123456789abcdef"}) {
        const auto add = [source](const char* command) {
            QTest::addRow("%s, %s", command, source)
                << QString::fromLatin1(command) << QByteArray(source);
        };
        add("build %1 -o target");
        add("repair %1 -o target --force");
        add("export %1 -o target --force");
        add("export %1 -o target --to dictd --force");
    }
}

/// Whatever they are called: none of them is one that the program left unfinished.
void TestProgramTarget::neighboursStay()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, source);
    QVERIFY(stage(source.constData(),
                  command.startsWith("build"_L1) ? QByteArray("house\tHaus\n") : _lexicon));
    for (const char* name : {"target.part999999998", "target.index.part999999998"})
        QVERIFY(stage(name, "half of a download\n"));
    const QMap<QString, QByteArray> before = contents();
    QCOMPARE(_program.run(command.arg(QString::fromLatin1(source)).split(u' ')).code, 0);
    const QMap<QString, QByteArray> after = contents();
    for (auto file = before.begin(); file != before.end(); ++file)
        QCOMPARE(after.value(file.key()), file.value());
}

QMap<QString, QByteArray> TestProgramTarget::contents() const
{
    QMap<QString, QByteArray> files;
    for (const QFileInfo& file :
         QDir(_program.directory()).entryInfoList(QDir::Files | QDir::Hidden)) {
        if (file.isFile() && !file.isSymLink())
            files[file.fileName()] = _program.bytesOf(file.fileName().toUtf8().constData());
    }
    return files;
}

QTEST_GUILESS_MAIN(TestProgramTarget)
#include "test_program_target.moc"
