// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"
#include "lexicon/entries/entryintake.h"
#include "lexicon/file/articleof.h"
#include "lexicon/sources/dictdsource.h"
#include "lexicon/text/givenback.h"
#include "tests/support/childprocess.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <unordered_map>

using namespace Qt::StringLiterals;

/// The dictionaries that people will read: what the FreeDict packages of Debian become.
class TestReal : public QObject
{
    Q_OBJECT

private slots:
    void verifyPasses_data();
    void verifyPasses();
    void exportAndBuildGiveTheSameFile_data();
    void exportAndBuildGiveTheSameFile();
    void houseHasSenses();
    void hausHasSenses();
    void everyEntryOfTheSourceIsThere_data();
    void everyEntryOfTheSourceIsThere();
    void noDigitWithinALineTurnsBlue_data();
    void noDigitWithinALineTurnsBlue();

private:
    static void addLexicons();
    static int run(const QStringList& arguments);
};

namespace
{

QString lexicon(const char* name)
{
    return QStringLiteral(REAL_LEXICONS "/") + QString::fromLatin1(name);
}

QByteArray articleFor(const char* file, const char* word)
{
    QtDictionary dictionary;
    if (dictionary.open(lexicon(file)) != 0)
        return "(no dictionary)";
    const CursorPosition position = dictionary.findWord(word, CursorPosition(), false);
    return position.isInvalid() ? QByteArray("(not found)")
                                : QByteArray::fromStdString(teskel::givenback::article(
                                      teskel::articleOf(dictionary, position)));
}

} // namespace

int TestReal::run(const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    return teskel::test::runToEnd(process, QStringLiteral(TESKEL_LEXICON), arguments).code;
}

void TestReal::addLexicons()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("source");
    const QString sources = EXTRACT_STEP > 1 ? QStringLiteral(REAL_LEXICONS "/freedict-%1.index")
                                             : u"/usr/share/dictd/freedict-%1.index"_s;
    QTest::newRow("Eng2Ger") << lexicon("Eng2Ger.PDB") << sources.arg(u"eng-deu"_s);
    QTest::newRow("Ger2Eng") << lexicon("Ger2Eng.PDB") << sources.arg(u"deu-eng"_s);
}

void TestReal::verifyPasses_data()
{
    addLexicons();
}

void TestReal::verifyPasses()
{
    QFETCH(QString, file);
    QCOMPARE(run({u"verify"_s, file}), 0);
}

void TestReal::exportAndBuildGiveTheSameFile_data()
{
    addLexicons();
}

void TestReal::exportAndBuildGiveTheSameFile()
{
    QFETCH(QString, file);
    const QTemporaryDir directory;
    const QString tsv = directory.filePath(u"a.tsv"_s);
    const QString again = directory.filePath(u"again.PDB"_s);
    QCOMPARE(run({u"export"_s, file, u"-o"_s, tsv}), 0);
    QCOMPARE(run({u"build"_s, tsv, u"-o"_s, again, u"-q"_s}), 0);
    QFile first(file);
    QFile second(again);
    QVERIFY(first.open(QIODevice::ReadOnly) && second.open(QIODevice::ReadOnly));
    QVERIFY(first.readAll() == second.readAll());
}

void TestReal::houseHasSenses()
{
    const QByteArray article = articleFor("Eng2Ger.PDB", "house");
    const QByteArray spoken = "<font color=\"gray\">/hˈaʊs/</font> ";
    QVERIFY2(article.startsWith("1. " + spoken + "Geschlecht &lt;neut>, Familie &lt;fem>\n2. " +
                                spoken + "Haus &lt;neut>\n"),
             article.constData());
    QVERIFY(
        article.contains("\"take a house on a 10-year lease\" - ein Haus auf 10 Jahre pachten\n"));
    QVERIFY(article.contains("\"build a house\" - ein Haus bauen\n"));
    QVERIFY(article.contains("\nsee: houses; open house;"));
    QVERIFY(article.contains("\n3. " + spoken + "House-Musik &lt;fem>, House &lt;fem> [mus.]\n"));
}

void TestReal::hausHasSenses()
{
    const QByteArray article = articleFor("Ger2Eng.PDB", "haus");
    const QByteArray spoken = "<font color=\"gray\">/hˈaʊs/</font> ";
    QVERIFY2(article.startsWith("1. " + spoken + "&lt;neut, n, sg> "), article.constData());
    QVERIFY(article.contains("\n2. " + spoken + "&lt;neut, n, sg> house &lt;n>\n"));
}

void TestReal::everyEntryOfTheSourceIsThere_data()
{
    addLexicons();
}

void TestReal::everyEntryOfTheSourceIsThere()
{
    QFETCH(QString, file);
    QFETCH(QString, source);
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(file), 0);
    std::unordered_map<std::string, std::string> articles;
    for (unsigned short record = 0; record < dictionary.getWordRecordCount(); ++record) {
        for (unsigned short word = 0; word < dictionary.getTotalWordCount(record); ++word) {
            const CursorPosition position = CursorPosition::at(record, word);
            const std::string headword = dictionary.getWordAt(position);
            QVERIFY2(articles.emplace(headword, teskel::articleOf(dictionary, position)).second,
                     headword.c_str());
        }
    }

    teskel::EntrySorter sorter;
    teskel::BuildReport report;
    teskel::EntryIntake intake(sorter, report);
    std::string error;
    QVERIFY2(teskel::DictdSource(source.toStdString()).read(intake, error), error.c_str());
    QVERIFY(sorter.count() >= articles.size());
    const auto entries = sorter.sorted();
    teskel::LexiconEntry entry;
    while (entries->next(entry)) {
        const auto found = articles.find(std::string(entry.headword()));
        QVERIFY2(found != articles.end(), entry.text);
        // Articles of a word that is written in other letters stand below that word.
        const std::string_view article = entry.article();
        QVERIFY2(found->second.find(article.substr(0, entry.writtenLength)) != std::string::npos,
                 entry.text);
        QVERIFY2(found->second.find(article.substr(entry.writtenLength)) != std::string::npos,
                 entry.text);
    }
}

void TestReal::noDigitWithinALineTurnsBlue_data()
{
    addLexicons();
}

void TestReal::noDigitWithinALineTurnsBlue()
{
    QFETCH(QString, file);
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(file), 0);
    for (unsigned short record = 0; record < dictionary.getWordRecordCount(); ++record) {
        for (unsigned short word = 0; word < dictionary.getTotalWordCount(record); ++word) {
            const std::string article =
                teskel::articleOf(dictionary, CursorPosition::at(record, word));
            char expected = '1';
            for (size_t i = 0; i + 1 < article.size(); ++i) {
                if (article[i] < '1' || article[i] > '9' || article[i + 1] != '.')
                    continue;
                // Sense numbers begin lines and count upwards, once for each word that the
                // headword stands for.
                QVERIFY2(i == 0 || article[i - 1] == '\n', article.c_str());
                QVERIFY2(article[i] == expected || article[i] == '1', article.c_str());
                expected = static_cast<char>(article[i] + 1);
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestReal)
#include "test_real.moc"
