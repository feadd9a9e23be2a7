// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/inputfile.h"
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QTest>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace teskel::test;

/// A build's memory does not grow with its source.
class TestProgramMemory : public QObject
{
    Q_OBJECT

private slots:
    void largeSourceIsBuiltInLittleMemory_data();
    void largeSourceIsBuiltInLittleMemory();
    void longestArticleIsBuiltInLittleMemory();

private:
    LexiconProgram _program;
};

namespace
{

constexpr int lines = 400'000;
/// Less than the source and its sorted entries take together.
constexpr long mostKilobytes = 160L * 1024;

/// The most memory that a child process has had, in kB.
long peakOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_maxrss;
}

} // namespace

void TestProgramMemory::largeSourceIsBuiltInLittleMemory_data()
{
    QTest::addColumn<QString>("line"); // %1 is its number
    QTest::addRow("many words")
        << u"word %1\tarticle number %1 of all, and it goes on a little\n"_s;
    QTest::addRow("one word with many articles") << u"word\tarticle number %1 of the word\n"_s;
}

void TestProgramMemory::largeSourceIsBuiltInLittleMemory()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("sanitizers have a memory of their own");
#endif
    QFETCH(QString, line);
    QFile source(_program.path("in.tsv"));
    QVERIFY(source.open(QIODevice::WriteOnly));
    for (int number = 0; number < lines; ++number)
        source.write(QString(line).replace("%1"_L1, QString::number(number)).toLatin1());
    source.close();
    const auto result = _program.run(words({"build", "in.tsv", "-o", "out.PDB", "--quiet"}));
    QVERIFY2(result.code == 0, result.err.constData());
    QVERIFY2(peakOfChildren() < mostKilobytes, qPrintable(QString::number(peakOfChildren())));
}

void TestProgramMemory::longestArticleIsBuiltInLittleMemory()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("sanitizers have a memory of their own");
#endif
    // Digits become references of five bytes, so that no text takes more room.
    const QByteArray line = "word\t" + QByteArray(teskel::InputFile::largestPiece - 10, '1');
    QVERIFY(writeFile(_program.path("in.tsv"), line + '\n'));
    const auto result = _program.run(words({"build", "in.tsv", "-o", "out.PDB", "--quiet"}));
    QVERIFY2(result.code == 0, result.err.constData());
    QVERIFY2(peakOfChildren() < 240L * 1024, qPrintable(QString::number(peakOfChildren())));
}

QTEST_GUILESS_MAIN(TestProgramMemory)
#include "test_program_memory.moc"
