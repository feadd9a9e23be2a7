// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictsource.h"
#include "tests/support/palmwriter.h"
#include "tests/support/stardictwriter.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::StarDictWriter;

/// Reads StarDict dictionaries: every type of article, alternatives, packed files, and what can be
/// wrong with them.
class TestStarDictSource : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsWordsInTheOrderOfTheIndex_data();
    void readsWordsInTheOrderOfTheIndex();
    void alternativesHaveTheSameArticle();
    void readsEveryType_data();
    void readsEveryType();
    void notesWhatIsLeftOut_data();
    void notesWhatIsLeftOut();
    void knowsArticlesThatRepeatTheirWord();
    void wordsThatAreTheSameInBothLanguagesStay();
    void readsPackedFiles_data();
    void readsPackedFiles();
    void isNamedByAnyOfItsFiles_data();
    void isNamedByAnyOfItsFiles();
    void describesItself();
    void notesAWrongCountOfWords();
    void refusesDamage_data();
    void refusesDamage();
    void refusesEveryTruncation_data();
    void refusesEveryTruncation();

private:
    QString file(const char* name) const { return _directory->filePath(QString::fromUtf8(name)); }
    /// "word: article" for each entry in the order of lexicons; after a failure, the reason.
    QByteArrayList read(const QString& path);

    std::unique_ptr<QTemporaryDir> _directory;
    BuildReport _report;
    std::string _description;
};

void TestStarDictSource::init()
{
    _directory = std::make_unique<QTemporaryDir>();
    _report = {};
}

QByteArrayList TestStarDictSource::read(const QString& path)
{
    EntrySorter sorter;
    EntryIntake intake(sorter, _report);
    StarDictSource source(path.toStdString());
    std::string error;
    if (!source.read(intake, error))
        return {QByteArray::fromStdString(error).replace(_directory->path().toUtf8(), "DIR")};
    _description = source.description();
    const auto entries = sorter.sorted();
    QByteArrayList result;
    for (LexiconEntry entry; entries->next(entry);)
        result += QByteArray(entry.text) + ": " + QByteArray(entry.article().data());
    return result;
}

void TestStarDictSource::readsWordsInTheOrderOfTheIndex_data()
{
    QTest::addColumn<bool>("longOffsets");
    QTest::newRow("32 bits") << false;
    QTest::newRow("64 bits") << true;
}

void TestStarDictSource::readsWordsInTheOrderOfTheIndex()
{
    QFETCH(bool, longOffsets);
    StarDictWriter writer;
    if (longOffsets)
        writer.setLongOffsets();
    writer.add("ant", "Ameise").add("bee", "Biene\nImme").add("cow", "");
    writer.claimPlace(0, 6); // the first article again
    QVERIFY(writer.write(file("s")));
    QCOMPARE(read(file("s.ifo")),
             (QByteArrayList{"ant: Ameise", "bee: Biene\nImme", "cow: Ameise"}));
    QVERIFY(_report.diagnostics.lines().empty());
}

void TestStarDictSource::alternativesHaveTheSameArticle()
{
    QVERIFY(StarDictWriter()
                .add("color", "Farbe")
                .addAlternative("colour")
                .addAlternative("tint")
                .add("house", "Haus")
                .write(file("s")));
    QCOMPARE(read(file("s.ifo")),
             (QByteArrayList{"color: Farbe", "colour: Farbe", "house: Haus", "tint: Farbe"}));
}

void TestStarDictSource::readsEveryType_data()
{
    QTest::addColumn<QByteArray>("types");
    QTest::addColumn<QByteArray>("article");
    QTest::addColumn<QByteArray>("shown");
    const auto row = [](const char* name, const QByteArray& types, const QByteArray& article,
                        const QByteArray& shown) {
        QTest::newRow(name) << types << article << shown;
    };
    const QByteArray end(1, '\0');
    row("plain", "m", "a < b\nc", "a &lt; b\nc");
    row("locale's encoding, UTF-8", "l", "\xC3\xA4", "\xE4");
    row("locale's encoding, Latin-1", "l", "\xE4", "\xE4");
    row("HTML", "h", "<p>a<br>b</p>\n<i>c</i>", "a\nb\n<i>c</i>");
    row("XDXF", "x", "<k>word</k>\n<ex>c</ex>", "<b>word</b>\n<i>c</i>");
    row("Pango", "g", "<span foreground=\"red\">a</span> <b>c</b>", "a <b>c</b>");
    row("a spelled letter reference, HTML", "h", "<b>&_db;</b> &_db &amp;",
        "<b>&amp;_db;</b> &_db &amp;");
    row("a spelled letter reference, XDXF", "x", "&_db;", "&amp;_db;");
    row("a spelled letter reference, Pango", "g", "&_db;", "&amp;_db;");
    row("a spelled letter reference, plain", "m", "&_db;", "&amp;_db;");
    row("several", "mh", "a < b" + end + "<b>c</b>", "a &lt; b\n<b>c</b>");
    row("several of one type", "mm", "a" + end + "b", "a\nb");
    row("own type", "", "ma" + end, "a");
    row("own type without an end", "", "ma", "a");
    row("own types", "", "ma < b" + end + "h<b>c</b>" + end, "a &lt; b\n<b>c</b>");
    row("own types, a picture between", "",
        "ma" + end + "P" + QByteArray("\0\0\0\3xyz", 7) + "mb" + end, "a\nb");
}

void TestStarDictSource::readsEveryType()
{
    QFETCH(QByteArray, types);
    QFETCH(QByteArray, article);
    QFETCH(QByteArray, shown);
    QVERIFY(StarDictWriter().setTypeSequence(types).add("word", article).write(file("s")));
    QCOMPARE(read(file("s.ifo")), QByteArrayList{"word: " + shown});
}

void TestStarDictSource::notesWhatIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("types");
    QTest::addColumn<QByteArray>("article");
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<QByteArray>("note");
    const QByteArray end(1, '\0');
    QTest::newRow("unknown type") << QByteArray("mr") << "a" + end + "img:x.png"
                                  << QByteArray("unknown-field")
                                  << QByteArray(
                                         "a field of type \"r\" is left out: it cannot be shown");
    QTest::newRow("picture") << QByteArray("") << QByteArray("ma\0W\0\0\0\1x", 9)
                             << QByteArray("unknown-field")
                             << QByteArray("a field of type \"W\" is left out: it cannot be shown");
    QTest::newRow("Latin-1") << QByteArray("l") << QByteArray("\xE4")
                             << QByteArray("field-encoding")
                             << QByteArray(
                                    "a field of type \"l\" is no UTF-8; it is read as Latin-1");
    QTest::newRow("size beyond the article")
        << QByteArray("mWm") << QByteArray("a\0\xFF\xFF\xFF\xFFx", 7) << QByteArray("field-length")
        << QByteArray("a field is longer than its article; what is there is taken");
    QTest::newRow("no end") << QByteArray("mm") << QByteArray("a") << QByteArray("field-length")
                            << QByteArray(
                                   "a field is longer than its article; what is there is taken");
}

void TestStarDictSource::notesWhatIsLeftOut()
{
    QFETCH(QByteArray, types);
    QFETCH(QByteArray, article);
    QFETCH(QByteArray, code);
    QFETCH(QByteArray, note);
    QVERIFY(StarDictWriter().setTypeSequence(types).add("word", article).write(file("s")));
    QCOMPARE(read(file("s.ifo")).size(), 1);
    const std::string place = file("s.idx").toStdString() + ":1: warning[" + code.toStdString();
    const std::vector<std::string> lines = _report.diagnostics.lines();
    QVERIFY2(std::find(lines.begin(), lines.end(), place + "]: " + note.toStdString()) !=
                 lines.end(),
             lines.empty() ? "no note" : lines.front().c_str());
}

void TestStarDictSource::knowsArticlesThatRepeatTheirWord()
{
    QVERIFY(StarDictWriter()
                .add("house", "house\nHaus")
                .add("tower", "Tower\nKontrollturm")
                .add("zoo", "Tiergarten")
                .write(file("s")));
    QCOMPARE(read(file("s.ifo")),
             (QByteArrayList{"house: Haus", "Tower: Kontrollturm", "zoo: Tiergarten"}));
}

void TestStarDictSource::wordsThatAreTheSameInBothLanguagesStay()
{
    QVERIFY(StarDictWriter()
                .add("computer", "Computer\nRechner")
                .add("house", "Haus")
                .add("tree", "Baum")
                .write(file("s")));
    QCOMPARE(read(file("s.ifo")),
             (QByteArrayList{"computer: Computer\nRechner", "house: Haus", "tree: Baum"}));
}

void TestStarDictSource::readsPackedFiles_data()
{
    QTest::addColumn<QString>("packer");
    QTest::addColumn<QStringList>("files");
    QTest::newRow("dictzip") << u"dictzip"_s << QStringList{u"s.dict"_s};
    QTest::newRow("gzip") << u"gzip"_s << QStringList{u"s.idx"_s, u"s.dict"_s, u"s.syn"_s};
    QTest::newRow("xz") << u"xz"_s << QStringList{u"s.idx"_s, u"s.dict"_s, u"s.syn"_s, u"s.ifo"_s};
}

void TestStarDictSource::readsPackedFiles()
{
    QFETCH(QString, packer);
    QFETCH(QStringList, files);
    QVERIFY(StarDictWriter().add("a", "x").addAlternative("b").write(file("s")));
    QProcess process;
    process.setWorkingDirectory(_directory->path());
    process.start(packer, files);
    QVERIFY2(process.waitForFinished() && process.exitCode() == 0, qPrintable(packer));
    QVERIFY(!QFile::exists(file("s.dict")));
    const QString info = QFile::exists(file("s.ifo")) ? file("s.ifo") : file("s.ifo.xz");
    QCOMPARE(read(info), (QByteArrayList{"a: x", "b: x"}));
}

void TestStarDictSource::isNamedByAnyOfItsFiles_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"s.ifo", "s.idx", "s.dict", "s.syn", "s"})
        QTest::newRow(name) << QByteArray(name);
}

void TestStarDictSource::isNamedByAnyOfItsFiles()
{
    QFETCH(QByteArray, name);
    QVERIFY(StarDictWriter().add("a", "x").addAlternative("b").write(file("s")));
    const QString path = file(name.constData());
    QFile head(path);
    const QByteArray begin = head.open(QIODevice::ReadOnly) ? head.readAll() : QByteArray();
    QVERIFY(StarDictSource::looksLike(path.toStdString(), begin.toStdString()) >= Likeness::Named);
    QCOMPARE(read(path), (QByteArrayList{"a: x", "b: x"}));
}

void TestStarDictSource::describesItself()
{
    QVERIFY(StarDictWriter().setName("English < German").add("a", "x").write(file("s")));
    QCOMPARE(read(file("s.ifo")).size(), 1);
    QCOMPARE(_description, std::string("English < German"));
}

void TestStarDictSource::notesAWrongCountOfWords()
{
    QVERIFY(StarDictWriter().add("a", "x").claim("wordcount", "7").write(file("s")));
    QCOMPARE(read(file("s.ifo")), QByteArrayList{"a: x"});
    QCOMPARE(
        _report.diagnostics.lines(),
        std::vector<std::string>{
            file("s.ifo").toStdString() +
            ": warning[word-count]: it counts 7 words, the index has 1; all of them are taken"});
}

void TestStarDictSource::refusesDamage_data()
{
    QTest::addColumn<StarDictWriter>("writer");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char* name, const StarDictWriter& writer, const QByteArray& reason) {
        QTest::newRow(name) << writer << reason;
    };
    const StarDictWriter one = StarDictWriter().add("a", "x");
    row("offset beyond the articles", StarDictWriter(one).claimPlace(2, 1),
        "DIR/s.idx:1: DIR/s.dict is damaged or too short: 1 byte at 2 cannot be read");
    row("size beyond the articles", StarDictWriter(one).claimPlace(0, 0xFFFFFFFF),
        "DIR/s.idx:1: DIR/s.dict: 4294967295 bytes at 0 are more than the 4 MiB that an article "
        "may have");
    row("offset of 64 bits",
        StarDictWriter(one).setLongOffsets().claimPlace(0xFFFFFFFFFFFFFFFFULL, 1),
        "DIR/s.idx:1: DIR/s.dict is damaged or too short: 1 byte at 18446744073709551615 cannot "
        "be read");
    row("index larger than it says", StarDictWriter(one).claim("idxfilesize", "9"),
        "DIR/s.idx has 10 bytes unpacked, but the .ifo says 9");
    row("offsets wider than they are", StarDictWriter(one).claim("idxoffsetbits", "64"),
        "DIR/s.idx:1: the file ends within this word");
    row("no known width", StarDictWriter(one).claim("idxoffsetbits", "48"),
        "DIR/s.ifo:7: idxoffsetbits is neither 32 nor 64");
    row("count that is none", StarDictWriter(one).claim("wordcount", "-1"),
        "DIR/s.ifo:7: wordcount is no number");
    row("alternative of no word", StarDictWriter(one).addAlternative("b").claimTarget(1),
        "DIR/s.syn:1: it stands for word 1 of the index, which has 1");
}

void TestStarDictSource::refusesDamage()
{
    QFETCH(StarDictWriter, writer);
    QFETCH(QByteArray, reason);
    QVERIFY(writer.write(file("s")));
    QCOMPARE(read(file("s.ifo")), QByteArrayList{reason});
}

void TestStarDictSource::refusesEveryTruncation_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"s.idx", "s.syn", "s.dict"})
        QTest::newRow(name) << QByteArray(name);
}

void TestStarDictSource::refusesEveryTruncation()
{
    QFETCH(QByteArray, name);
    const StarDictWriter writer =
        StarDictWriter().add("ant", "Ameise").add("bee", "Biene").addAlternative("drone");
    QVERIFY(writer.write(file("s")));
    QFile damaged(file(name.constData()));
    for (qint64 size = damaged.size() - 1; size > 0; --size) {
        QVERIFY(damaged.resize(size));
        const QByteArrayList result = read(file("s.ifo"));
        QCOMPARE(result.size(), 1);
        QVERIFY2(result.front().startsWith("DIR/s."), result.front().constData());
    }
}

QTEST_GUILESS_MAIN(TestStarDictSource)
#include "test_stardictsource.moc"
