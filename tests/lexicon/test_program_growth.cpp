// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Work of the program by the length of a hostile text: four times the text may take a little more
/// than four times the instructions, not sixteen times. Instructions are counted, no time is taken.
class TestProgramGrowth : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void isInProportionToTheText_data();
    void isInProportionToTheText();
    void repairTriesPlacesForNext();

private:
    qint64 instructions(const QByteArray& tsv, const QStringList& options) const;
    qint64 instructionsOf(const QStringList& arguments, int code) const;

    LexiconProgram _program;
    QString _valgrind;
    qint64 _atStart = 0;
};

void TestProgramGrowth::initTestCase()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("valgrind cannot run a program that is built with a sanitizer");
#endif
    _valgrind = QStandardPaths::findExecutable(u"valgrind"_s);
    if (_valgrind.isEmpty())
        QSKIP("valgrind, which counts instructions, is not installed");
    _atStart = instructions("house\tHaus\n", {});
    QVERIFY(_atStart > 0);
}

/// Of a build; -1 when it fails.
qint64 TestProgramGrowth::instructions(const QByteArray& tsv, const QStringList& options) const
{
    if (!writeFile(_program.path("a.tsv"), tsv))
        return -1;
    return instructionsOf(
        QStringList{u"build"_s, u"a.tsv"_s, u"-q"_s, u"-o"_s, u"out.PDB"_s, u"--method"_s, u"4"_s} +
            options,
        0);
}

/// Of a run that is expected to end with `code`; -1 when it does not.
qint64 TestProgramGrowth::instructionsOf(const QStringList& arguments, int code) const
{
    QProcess process;
    process.setWorkingDirectory(_program.directory());
    const ProgramResult result =
        runToEnd(process, _valgrind,
                 QStringList{u"--tool=callgrind"_s, u"--callgrind-out-file=/dev/null"_s,
                             QStringLiteral(TESKEL_LEXICON)} +
                     arguments);
    static const QRegularExpression count(u"Collected : (\\d+)"_s);
    const QRegularExpressionMatch match = count.match(QString::fromUtf8(result.err));
    return result.code == code ? match.captured(1).toLongLong() : -1;
}

void TestProgramGrowth::isInProportionToTheText_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("bytes"); // of the shorter text
    QTest::addColumn<QStringList>("options");
    const auto add = [](const char* name, const char* before, const char* unit, const char* after,
                        int bytes = 16 << 10, const QStringList& options = {}) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(unit) << QByteArray(after) << bytes
                            << options;
    };
    const QStringList reverse = {u"--reverse"_s, u"reverse.PDB"_s, u"--force"_s};
    add("article that fills many records", "set\t", "put down ", "\n", 256 << 10);
    add("article of one unbroken word", "set\t", "x", "\n", 256 << 10);
    add("many articles of one word", "", "set\tput down, lay, place\n", "", 64 << 10);
    add("letters and marks", "set\t", "e\u0301", "\n");
    add("marks", "set\ta", "\u0301", "\n");
    add("marks of two kinds", "set\ta", "\u0301\u0316", "\n", 16 << 10);
    add("headword of marks of two kinds", "a", "\u0301\u0316", "\tday\n", 16 << 10);
    add("headword of letters and marks", "", "e\u0301", "\tday\n");
    add("tags without ends", "set\tput, ", "<i a", "\n", 16 << 10, reverse);
    add("line feeds", "set\tput, ", "\\n", "\n", 16 << 10, reverse);
    add("references without ends", "set\t", "&amp", "\n", 16 << 10, reverse);
}

void TestProgramGrowth::isInProportionToTheText()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, unit);
    QFETCH(QByteArray, after);
    QFETCH(int, bytes);
    QFETCH(QStringList, options);
    const auto work = [&](qsizetype size) {
        const QByteArray tsv = before + unit.repeated(size / unit.size()) + after;
        return instructions(tsv, options) - _atStart;
    };
    const qint64 one = work(bytes);
    const qint64 four = work(qsizetype{4} * bytes);
    QVERIFY(one > 0 && four > 0);
    QVERIFY2(four < 6 * one, qPrintable(u"%1 and %2 instructions"_s.arg(one).arg(four)));
}

/// A place where a record might begin costs no more than some of its bytes: far less than reading
/// what follows it.
void TestProgramGrowth::repairTriesPlacesForNext()
{
    const auto work = [&](int places) {
        const bool isWritten =
            writeFile(_program.path("a.PDB"), QByteArray("\x60\xEA").repeated(places));
        return isWritten ? instructionsOf({u"repair"_s, u"a.PDB"_s, u"-o"_s, u"out.PDB"_s}, 3) : -1;
    };
    constexpr int some = 1 << 10;
    constexpr int many = 16 << 10;
    const qint64 one = work(some);
    const qint64 other = work(many);
    QVERIFY(one > 0 && other > 0);
    const qint64 perPlace = (other - one) / (many - some);
    QVERIFY2(perPlace < 4000, qPrintable(u"%1 instructions a place"_s.arg(perPlace)));
}

QTEST_GUILESS_MAIN(TestProgramGrowth)
#include "test_program_growth.moc"
