// SPDX-License-Identifier: MIT
#include "lexicon/diagnostics/diagnostics.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <sstream>

using namespace Qt::StringLiterals;

using namespace teskel;

class TestDiagnostics : public QObject
{
    Q_OBJECT

private slots:
    void lineNamesPlaceSeverityAndCode_data();
    void lineNamesPlaceSeverityAndCode();
    void repeatsAreCountedInTheEnd();
    void strictMakesWarningsErrors();
    void quietLeavesErrorsAlone();
    void codesAreWordsInSmallLetters();
    void manualListsEveryCode_data();
    void manualListsEveryCode();
    void manualTellsWarningsFromNotes();
};

namespace
{

std::string printed(const Diagnostics& diagnostics, DiagnosticForm form = {})
{
    std::ostringstream out;
    diagnostics.print(out, form);
    return out.str();
}

} // namespace

void TestDiagnostics::lineNamesPlaceSeverityAndCode_data()
{
    QTest::addColumn<bool>("isNote");
    QTest::addColumn<std::string>("where");
    QTest::addColumn<std::string>("line");
    QTest::newRow("line of a file")
        << false << std::string("a.tsv:7") << std::string("a.tsv:7: warning[long-headword]: x");
    QTest::newRow("no place") << false << std::string() << std::string("warning[long-headword]: x");
    QTest::newRow("note") << true << std::string("a.tsv:7")
                          << std::string("a.tsv:7: note[named-entity]: x");
}

void TestDiagnostics::lineNamesPlaceSeverityAndCode()
{
    QFETCH(bool, isNote);
    QFETCH(std::string, where);
    QFETCH(std::string, line);
    Diagnostics diagnostics;
    diagnostics.add(isNote ? diagnostic::namedEntity : diagnostic::longHeadword, where, "x");
    QCOMPARE(printed(diagnostics), line + '\n');
    QCOMPARE(diagnostics.warnings(), uint64_t{isNote ? 0U : 1U});
}

void TestDiagnostics::repeatsAreCountedInTheEnd()
{
    Diagnostics diagnostics;
    for (int i = 1; i <= 7; ++i)
        diagnostics.add(diagnostic::longHeadword, "a:" + std::to_string(i), "x");
    for (int i = 1; i <= 5; ++i)
        diagnostics.add(diagnostic::emptyHeadword, "b:" + std::to_string(i), "y");
    QCOMPARE(diagnostics.lines().size(), size_t{10});
    const std::string text = printed(diagnostics);
    QVERIFY(text.starts_with("a:1: warning[long-headword]: x\na:2: "));
    QVERIFY(text.ends_with("a:5: warning[long-headword]: x\n"
                           "b:1: warning[empty-headword]: y\n"
                           "b:2: warning[empty-headword]: y\n"
                           "b:3: warning[empty-headword]: y\n"
                           "b:4: warning[empty-headword]: y\n"
                           "b:5: warning[empty-headword]: y\n"
                           "warning[long-headword]: and 2 more of this kind\n"));
    QCOMPARE(diagnostics.warnings(), uint64_t{12});
}

void TestDiagnostics::strictMakesWarningsErrors()
{
    Diagnostics diagnostics;
    diagnostics.add(diagnostic::unknownCharacter, "a:1", "x");
    diagnostics.add(diagnostic::namedEntity, "a:2", "y");
    QCOMPARE(printed(diagnostics, {true, false}),
             std::string("a:1: error[unknown-character]: x\na:2: note[named-entity]: y\n"));
}

void TestDiagnostics::quietLeavesErrorsAlone()
{
    Diagnostics diagnostics;
    diagnostics.add(diagnostic::namedEntity, "a:2", "y");
    for (int i = 0; i < 6; ++i)
        diagnostics.add(diagnostic::unknownCharacter, "a:1", "x");
    QCOMPARE(printed(diagnostics, {false, true}), std::string());
    const std::string text = printed(diagnostics, {true, true});
    QVERIFY(text.starts_with("a:1: error[unknown-character]: x\n"));
    QVERIFY(text.ends_with("\nerror[unknown-character]: and 1 more of this kind\n"));
}

void TestDiagnostics::codesAreWordsInSmallLetters()
{
    const QRegularExpression code(u"^[a-z]+(-[a-z0-9]+)*$"_s);
    for (const DiagnosticCode* each : allDiagnosticCodes())
        QVERIFY2(code.match(QString::fromUtf8(each->name)).hasMatch(), each->name);
}

void TestDiagnostics::manualListsEveryCode_data()
{
    QTest::addColumn<QString>("manual");
    QTest::addColumn<QString>("heading"); // what begins a section
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("row"); // a regular expression
    QTest::newRow("Markdown") << u"teskel-lexicon.md"_s << u"\n## "_s << u"Diagnostics"_s
                              << u"\\n\\| `([^`]+)` \\| ([a-z]+) \\| ([^|]+) \\|"_s;
    QTest::newRow("man page") << u"man/teskel-lexicon.1"_s << u"\n.SH "_s << u"DIAGNOSTICS"_s
                              << u"\\n\\.TP\\n\\.BR (\\S+) \" \\(([a-z]+)\\)\"\\n([^\\n]+)"_s;
}

void TestDiagnostics::manualListsEveryCode()
{
    QFETCH(QString, manual);
    QFETCH(QString, heading);
    QFETCH(QString, title);
    QFETCH(QString, row);
    QFile file(QStringLiteral(TESKEL_DOCS "/") + manual);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll()).replace("\\-"_L1, "-"_L1);
    const qsizetype begin = text.indexOf(heading + title);
    QVERIFY(begin >= 0);
    const QString section = text.sliced(begin, text.indexOf(heading, begin + 1) - begin);
    QStringList listed;
    for (const QRegularExpressionMatch& match : QRegularExpression(row).globalMatch(section))
        listed += match.captured(1) + u' ' + match.captured(2) + u' ' + match.captured(3);
    QStringList expected;
    for (const DiagnosticCode* code : allDiagnosticCodes()) {
        const bool isNote = code->severity == DiagnosticCode::Severity::Note;
        expected += QString::fromUtf8(code->name) + (isNote ? u" note "_s : u" warning "_s) +
                    QString::fromUtf8(code->meaning);
    }
    QCOMPARE(listed, expected);
}

void TestDiagnostics::manualTellsWarningsFromNotes()
{
    QFile file(QStringLiteral(TESKEL_DOCS "/teskel-lexicon.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(!text.contains("with a note"_L1)); // it names its code instead
    static const QRegularExpression mention(u"\\ba\\s+(note|warning)\\s+\\(`([^`]+)`\\)"_s);
    int mentions = 0;
    for (const QRegularExpressionMatch& match : mention.globalMatch(text)) {
        ++mentions;
        const auto codes = allDiagnosticCodes();
        const auto code = std::find_if(codes.begin(), codes.end(), [&](const auto* each) {
            return match.captured(2) == QLatin1String(each->name);
        });
        QVERIFY2(code != codes.end(), qPrintable(match.captured()));
        const bool isNote = (*code)->severity == DiagnosticCode::Severity::Note;
        QVERIFY2((match.captured(1) == "note"_L1) == isNote, qPrintable(match.captured()));
    }
    QCOMPARE(mentions, 5);
}

QTEST_APPLESS_MAIN(TestDiagnostics)
#include "test_diagnostics.moc"
