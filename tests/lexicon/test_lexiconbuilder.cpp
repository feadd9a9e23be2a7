// SPDX-License-Identifier: MIT
#include "dictionary/latin1fold.h"
#include "dictionary/qtdictionary.h"
#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/verify/lexiconverifier.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::writeFile;

/// Builds whole dictionaries and opens them with the engine.
class TestLexiconBuilder : public QObject
{
    Q_OBJECT

private slots:
    void everyMethodGivesAValidDictionary_data();
    void everyMethodGivesAValidDictionary();
    void sameInputGivesSameBytes();
    void outputNameDoesNotMatter();
    void firstHeadwordMayBeginWithTheTopicMark();
    void wordsThatFoldAlikeStayInOneRecord();
    void descriptionComesFromTheSource();
    void descriptionOptionIsPlainText();
    void nameIsTheDescriptionAsItReads_data();
    void nameIsTheDescriptionAsItReads();
    void longDescriptionIsCutAndReported();
    void longDescriptionIsCutOutsideReferences_data();
    void longDescriptionIsCutOutsideReferences();
    void emptyHeadwordIsKeptAndReported();
    void longHeadwordIsKeptWholeInItsArticle();
    void headwordThatReadsAsMarkupStandsInItsArticle_data();
    void headwordThatReadsAsMarkupStandsInItsArticle();
    void longArticleIsKeptWhole();
    void malformedLineIsNamed();
    void sourceWithoutEntriesIsRefused();
    void mergesSourcesInTheOrderGiven();
    void alternativeHeadwordsShareAnArticle();
    void linesAboutTheDictionaryAreNoEntries();
    void failureLeavesNothingBehind();

private:
    /// Builds from TSV; the result is "out.PDB" in the directory.
    bool buildTsv(const QByteArray& tsv, BuildOptions options = {});
    QString output() const { return _directory->filePath(u"out.PDB"_s); }
    std::string input() const { return _directory->filePath(u"in.tsv"_s).toStdString(); }
    QByteArray outputBytes() const;
    static QByteArray articleOf(QtDictionary& dictionary, const char* word);

    std::unique_ptr<QTemporaryDir> _directory;
    std::string _error;
    BuildReport _report;
};

bool TestLexiconBuilder::buildTsv(const QByteArray& tsv, BuildOptions options)
{
    _directory = std::make_unique<QTemporaryDir>();
    const QString source = _directory->filePath(u"in.tsv"_s);
    if (!writeFile(source, tsv))
        return false;
    options.sources = {source.toStdString()};
    if (options.output.empty())
        options.output = output().toStdString();
    else
        options.output = _directory->path().toStdString() + '/' + options.output;
    LexiconBuilder builder(options);
    _error.clear();
    const bool done = builder.build(_error);
    _report = builder.report();
    return done;
}

QByteArray TestLexiconBuilder::outputBytes() const
{
    QFile file(output());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray TestLexiconBuilder::articleOf(QtDictionary& dictionary, const char* word)
{
    const CursorPosition position = dictionary.findWord(word, CursorPosition(), false);
    QByteArray article(100000, '\0');
    auto size = static_cast<unsigned>(article.size());
    if (position.isInvalid() || !dictionary.getDescription(position, article.data(), &size))
        return "(not found)";
    return article.left(static_cast<qsizetype>(size) - 1);
}

namespace
{

QByteArray manyWords()
{
    QByteArray tsv;
    for (int i = 0; i < 3000; ++i) {
        const QByteArray number = QByteArray::number(i * 7919 % 3000);
        tsv += "word" + number + "\tWort &lt;neut> " + number.repeated(5) + "\\nsee: other\n";
    }
    return tsv;
}

void verifyValid(const QString& path)
{
    LexiconVerifier verifier;
    std::string error;
    QVERIFY(verifier.run(path.toStdString(), error));
    for (const Finding& finding : verifier.findings())
        QFAIL(finding.text().c_str());
}

} // namespace

void TestLexiconBuilder::everyMethodGivesAValidDictionary_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<unsigned>("recordSize");
    for (int method = 1; method <= 4; ++method) {
        for (const unsigned size : {256U, 8192U, 32767U})
            QTest::addRow("method %d, %u bytes", method, size) << method << size;
    }
}

void TestLexiconBuilder::everyMethodGivesAValidDictionary()
{
    QFETCH(int, method);
    QFETCH(unsigned, recordSize);
    BuildOptions options;
    options.method = method;
    options.recordSize = recordSize;
    QVERIFY(buildTsv(manyWords(), options));
    verifyValid(output());
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    QCOMPARE(articleOf(dictionary, "WORD17"),
             "Wort &lt;neut> " + QByteArray("&_db;&_dh;").repeated(5) + "\nsee: other");
    QCOMPARE(_report.headwords, uint64_t{3000});
    QCOMPARE(_report.spotChecks, uint64_t{4});
}

void TestLexiconBuilder::sameInputGivesSameBytes()
{
    QVERIFY(buildTsv(manyWords()));
    const QByteArray first = outputBytes();
    QVERIFY(buildTsv(manyWords()));
    QVERIFY(!first.isEmpty());
    QVERIFY(outputBytes() == first);
}

void TestLexiconBuilder::outputNameDoesNotMatter()
{
    QVERIFY(buildTsv(manyWords()));
    const QByteArray first = outputBytes();
    BuildOptions options;
    options.output = "other.PDB";
    QVERIFY(buildTsv(manyWords(), options));
    QFile other(_directory->filePath(u"other.PDB"_s));
    QVERIFY(other.open(QIODevice::ReadOnly));
    QVERIFY(other.readAll() == first);
}

void TestLexiconBuilder::firstHeadwordMayBeginWithTheTopicMark()
{
    QVERIFY(buildTsv("#1\tnumber one\n#2\tnumber two\nhouse\tHaus\n"));
    verifyValid(output());
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    QCOMPARE(articleOf(dictionary, "#1"), QByteArray("number one"));
    QCOMPARE(articleOf(dictionary, "house"), QByteArray("Haus"));
}

void TestLexiconBuilder::wordsThatFoldAlikeStayInOneRecord()
{
    QByteArray tsv;
    for (int word = 0; word < 200; ++word) {
        for (int spelling = 0; spelling < 8; ++spelling) {
            QByteArray headword = "abc" + QByteArray::number(1000 + word);
            for (int letter = 0; letter < 3; ++letter) {
                if ((spelling >> letter & 1) != 0)
                    headword[letter] = static_cast<char>(headword[letter] - 0x20);
            }
            tsv += headword + "\tarticle " + QByteArray(40, 'x') + "\n";
        }
    }
    BuildOptions options;
    options.recordSize = 256;
    QVERIFY(buildTsv(tsv, options));
    verifyValid(output());
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    std::string last;
    for (unsigned short record = 0; record < dictionary.getWordRecordCount(); ++record) {
        const std::string first = dictionary.getWordAt(CursorPosition::at(record, 0));
        QVERIFY(foldedCompare(last.c_str(), first.c_str()) < 0);
        const auto count = dictionary.getTotalWordCount(record);
        last = dictionary.getWordAt(CursorPosition::at(record, static_cast<quint16>(count - 1)));
    }
}

void TestLexiconBuilder::descriptionComesFromTheSource()
{
    QVERIFY(buildTsv("\tA <b>bold</b> ‚name‘\nhouse\tHaus\n"));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    char text[512];
    QVERIFY(dictionary.getDescription(text, sizeof text));
    QCOMPARE(QByteArray(text), QByteArray("A <b>bold</b> &_cabk;name&_cabi;"));
    QCOMPARE(outputBytes().left(14), QByteArray("A bold ,name'\0", 14));
}

void TestLexiconBuilder::descriptionOptionIsPlainText()
{
    BuildOptions options;
    options.description = "1 < 2 & 3";
    QVERIFY(buildTsv("\tfrom the source\nhouse\tHaus\n", options));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    char text[512];
    QVERIFY(dictionary.getDescription(text, sizeof text));
    QCOMPARE(QByteArray(text), QByteArray("1 &lt; 2 &amp; 3"));
}

void TestLexiconBuilder::nameIsTheDescriptionAsItReads_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QByteArray>("name");
    const auto row = [](const char* name, const char* description, const char* latin1) {
        QTest::newRow(name) << QByteArray(description) << QByteArray(latin1);
    };
    row("tags", "<b>Words</b> <i>and</i> more", "Words and more");
    row("lines", "Words<br>and more\\nof them", "Words and more of them");
    row("references", "Caf&eacute; &amp; R&D", "Caf\xE9 & R&D");
    row("letters beyond Latin-1", "Wörter д", "W\xF6rter d");
    row("signs that are no tags", "1 < 2 > 0", "1 < 2 > 0");
}

void TestLexiconBuilder::nameIsTheDescriptionAsItReads()
{
    QFETCH(QByteArray, description);
    QVERIFY(buildTsv("\t" + description + "\na\tb\n"));
    QTEST(QByteArray(outputBytes().left(32).constData()), "name"); // as a Palm database begins
}

void TestLexiconBuilder::longDescriptionIsCutAndReported()
{
    QVERIFY(buildTsv("\t" + QByteArray("x").repeated(508) + "&amp;\nhouse\tHaus\n"));
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QCOMPARE(_report.diagnostics.lines().front(),
             std::string("warning[long-description]: the description has 513 bytes, more than 511; "
                         "its end is left out"));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    char text[512];
    QVERIFY(dictionary.getDescription(text, sizeof text));
    QCOMPARE(QByteArray(text), QByteArray("x").repeated(508));
}

void TestLexiconBuilder::longDescriptionIsCutOutsideReferences_data()
{
    QTest::addColumn<int>("length"); // of what stands before the reference
    for (int length = 500; length <= 511; ++length)
        QTest::addRow("%d bytes", length) << length;
}

void TestLexiconBuilder::longDescriptionIsCutOutsideReferences()
{
    QFETCH(int, length);
    const QByteArray before(length, 'x');
    QVERIFY(buildTsv("\t" + before + "\xF0\x9F\x98\x80 and so on\nhouse\tHaus\n"));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    char text[512];
    QVERIFY(dictionary.getDescription(text, sizeof text));
    const QByteArray whole = before + "&_bpgaa; and so on";
    const bool hasRoom = length + int{sizeof "&_bpgaa;"} - 1 <= 511;
    QCOMPARE(QByteArray(text), hasRoom ? whole.left(511) : before);
}

void TestLexiconBuilder::emptyHeadwordIsKeptAndReported()
{
    BuildOptions options;
    options.force = true;
    QVERIFY(buildTsv("house\tHaus\n  \tnowhere\n", options));
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QCOMPARE(_report.diagnostics.lines().front(),
             input() +
                 ":2: warning[empty-headword]: the headword is empty; its article is under \"?\"");
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    QCOMPARE(articleOf(dictionary, "?"), QByteArray("nowhere"));
}

void TestLexiconBuilder::longHeadwordIsKeptWholeInItsArticle()
{
    const QByteArray headword = QByteArray("long & ").repeated(80) + "end";
    QVERIFY(buildTsv(headword + "\tlang\n"));
    verifyValid(output());
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QVERIFY(_report.diagnostics.lines().front().starts_with(
        input() + ":1: warning[long-headword]: the headword has 563 bytes, more than 511; "
                  "it is shortened and stands whole in its "
                  "article: long & "));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    QCOMPARE(articleOf(dictionary, headword.left(511).trimmed().constData()),
             QByteArray("long &amp; ").repeated(80) + "end\nlang");
}

void TestLexiconBuilder::headwordThatReadsAsMarkupStandsInItsArticle_data()
{
    QTest::addColumn<QByteArray>("tsv");
    QTest::addColumn<QByteArray>("headword");
    QTest::addColumn<QByteArray>("article");
    const auto row = [](const char* tsv, const char* headword, const char* article) {
        QTest::addRow("%s", tsv) << QByteArray(tsv) << QByteArray(headword) << QByteArray(article);
    };
    row("<g>\tx", "<g>", "<b>&lt;g></b>\nx");
    row("<gr&d>\tx", "<gr&d>", "<b>&lt;gr&amp;d></b>\nx");
    row("</\tx", "</", "<b>&lt;/</b>\nx");
    row("a <!2\tx", "a <!2", "<b>a &lt;!&_dc;</b>\nx");
    row("&lt;\tx", "&lt;", "<b>&amp;lt;</b>\nx");
    row("&#60;\tx", "&#60;", "<b>&amp;#&_dg;0;</b>\nx");
    row("&_ede;\tx", "&_ede;", "<b>&amp;_ede;</b>\nx");
    row("<g>\tx\n<g>\ty", "<g>", "<b>&lt;g></b>\n1. x\n2. y");
    row("<д>\tx", "<d>", "<b>&lt;&_ede;></b>\nx");
    row("<д>\tx\n<d>\ty", "<d>", "<b>&lt;&_ede;></b>\nx\n<b>&lt;d></b>\ny");
    row("<g>\t<b>&lt;g></b>\\nx", "<g>", "<b>&lt;g></b>\nx");
    row("<d>\t<b>&lt;&_ede;></b>\\nx", "<d>", "<b>&lt;&_ede;></b>\nx");
    row("<g>\t<b>&lt;h></b>\\nx", "<g>", "<b>&lt;g></b>\n<b>&lt;h></b>\nx");
    row("1 < 2\tx", "1 < 2", "x");
    row("R&D; <3\tx", "R&D; <3", "<b>R&amp;D; &lt;&_dd;</b>\nx");
    row("R & D;\tx", "R & D;", "x");
    row("&;\tx", "&;", "x");
}

void TestLexiconBuilder::headwordThatReadsAsMarkupStandsInItsArticle()
{
    QFETCH(QByteArray, tsv);
    QFETCH(QByteArray, headword);
    QVERIFY(buildTsv(tsv + '\n'));
    verifyValid(output());
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    QTEST(articleOf(dictionary, headword.constData()), "article");
    BuildOptions plain;
    plain.text.form = LatinForm::Plain;
    QVERIFY(buildTsv(tsv + '\n', plain));
    QCOMPARE(dictionary.open(output()), 0);
    if (!tsv.contains("</b>"))
        QVERIFY(!articleOf(dictionary, headword.constData()).contains("<b>"));
}

void TestLexiconBuilder::longArticleIsKeptWhole()
{
    QByteArray tsv;
    for (int i = 0; i < 12; ++i)
        tsv += "house\tsense " + QByteArray::number(i) + ' ' + QByteArray(5000, 'x') + '\n';
    QVERIFY(buildTsv(tsv + "mouse\tMaus\n"));
    verifyValid(output());
    QCOMPARE(_report.headwords, uint64_t{3});
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    const QByteArray first = articleOf(dictionary, "house");
    const QByteArray second = articleOf(dictionary, "house (2)");
    QVERIFY(first.startsWith("1. sense 0 "));
    QVERIFY(second.startsWith("&hellip;\n7. sense &_dg; "));
    QVERIFY(second.contains(".</font></b> sense &_db;&_db; "));
}

void TestLexiconBuilder::malformedLineIsNamed()
{
    QVERIFY(!buildTsv("house\tHaus\n\nmouse Maus\n"));
    QCOMPARE(_error, input() + ":3: no tab between headword and article");
}

void TestLexiconBuilder::sourceWithoutEntriesIsRefused()
{
    QVERIFY(!buildTsv("\tonly a description\n"));
    QVERIFY2(_error.ends_with("in.tsv holds no entries"), _error.c_str());
}

void TestLexiconBuilder::mergesSourcesInTheOrderGiven()
{
    const QTemporaryDir directory;
    const std::string first = directory.filePath(u"1.tsv"_s).toStdString();
    const std::string second = directory.filePath(u"2.tsv"_s).toStdString();
    // The later source's word stands nearer to its beginning.
    QVERIFY(writeFile(QString::fromStdString(first), "ant\tAmeise\nhouse\tHaus\n"));
    QVERIFY(writeFile(QString::fromStdString(second), "\tdescribed\nhouse\tGeb\xC3\xA4ude\n"));
    BuildOptions options;
    for (const auto& sources : {std::vector{first, second}, std::vector{second, first}}) {
        options.sources = sources;
        options.output = directory.filePath(u"out.PDB"_s).toStdString();
        QVERIFY2(LexiconBuilder(options).build(_error), _error.c_str());
        QtDictionary dictionary;
        QCOMPARE(dictionary.open(directory.filePath(u"out.PDB"_s)), 0);
        QCOMPARE(articleOf(dictionary, "house"), sources.front() == first
                                                     ? QByteArray("1. Haus\n2. Geb\xE4ude")
                                                     : QByteArray("1. Geb\xE4ude\n2. Haus"));
        QCOMPARE(articleOf(dictionary, "ant"), QByteArray("Ameise"));
    }
}

void TestLexiconBuilder::alternativeHeadwordsShareAnArticle()
{
    QVERIFY(buildTsv("colour|color\tFarbe\na\\|b\tx\n"));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    for (const char* word : {"colour", "color"})
        QCOMPARE(articleOf(dictionary, word), QByteArray("Farbe"));
    QCOMPARE(articleOf(dictionary, "a|b"), QByteArray("x"));
    QCOMPARE(_report.headwords, uint64_t{3});
}

void TestLexiconBuilder::linesAboutTheDictionaryAreNoEntries()
{
    QVERIFY(buildTsv("##description\tdescribed\n##licence\tMIT\n##description\tagain\n"
                     "house\tHaus\n"));
    QtDictionary dictionary;
    QCOMPARE(dictionary.open(output()), 0);
    char text[512];
    QVERIFY(dictionary.getDescription(text, sizeof text));
    QCOMPARE(QByteArray(text), QByteArray("described"));
    QCOMPARE(_report.headwords, uint64_t{1});
    QCOMPARE(
        _report.diagnostics.lines(),
        (std::vector<std::string>{input() + ":2: warning[unknown-property]: \"##licence\" is left "
                                            "out: \"##description\" alone has a place in a "
                                            "lexicon",
                                  input() + ":3: warning[unknown-property]: \"##description\" is "
                                            "left out: the description is known already"}));
}

void TestLexiconBuilder::failureLeavesNothingBehind()
{
    BuildOptions options;
    options.output = "no/such/directory/out.PDB";
    QVERIFY(!buildTsv("house\tHaus\n", options));
    QVERIFY2(_error.ends_with("out.PDB: No such file or directory"), _error.c_str());
    QCOMPARE(QDir(_directory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{u"in.tsv"_s});
}

QTEST_APPLESS_MAIN(TestLexiconBuilder)
#include "test_lexiconbuilder.moc"
