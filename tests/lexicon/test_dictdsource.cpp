// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryintake.h"
#include "lexicon/sources/dictdindex.h"
#include "lexicon/sources/dictdsource.h"
#include "lexicon/sources/input/inputfile.h"
#include "tests/support/childprocess.h"
#include "tests/support/palmwriter.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::writeFile;

/// Reads dictd dictionaries: index, plain and packed articles, and what can be wrong with them.
class TestDictdSource : public QObject
{
    Q_OBJECT

private slots:
    void readsPlainArticles();
    void keepsPronunciations();
    void givesPlainLatin();
    void readsArticlesPackedByDictzip();
    void readsArticlesPackedByGzip();
    void readsAcrossChunks();
    void describesItself();
    void refusesDamagedIndexes_data();
    void refusesDamagedIndexes();
    void refusesMissingArticles();
    void refusesTruncatedArticles_data();
    void refusesTruncatedArticles();
    void refusesArticlesThatAreNotPacked();
    void saysThatAWholeInputIsDamaged();

private:
    using Pairs = QList<QPair<QByteArray, QByteArray>>;

    static std::string stdPath(const QTemporaryDir& directory, const QString& name)
    {
        return directory.filePath(name).toStdString();
    }
    /// Copies the sample into the directory; `packer` packs its articles.
    static void stage(const QTemporaryDir& directory, const QString& packer);
    static Pairs readAll(const std::string& index, std::string& error,
                         const TextOptions& options = {LatinForm::LetterReferences, false});
};

void TestDictdSource::stage(const QTemporaryDir& directory, const QString& packer)
{
    const QString data = QStringLiteral(TEST_DATA "/sample");
    QVERIFY(QFile::copy(data + u".index"_s, directory.filePath(u"s.index"_s)));
    QVERIFY(QFile::copy(data + u".dict"_s, directory.filePath(u"s.dict"_s)));
    if (packer.isEmpty())
        return;
    QProcess process;
    process.setWorkingDirectory(directory.path());
    QVERIFY2(teskel::test::runToEnd(process, packer, {u"s.dict"_s}).code == 0,
             qPrintable(packer + u" is needed for this test"_s));
    const QString gzipped = directory.filePath(u"s.dict.gz"_s);
    if (QFile::exists(gzipped))
        QVERIFY(QFile::rename(gzipped, directory.filePath(u"s.dict.dz"_s)));
    QVERIFY(QFile::exists(directory.filePath(u"s.dict.dz"_s)));
}

TestDictdSource::Pairs TestDictdSource::readAll(const std::string& index, std::string& error,
                                                const TextOptions& options)
{
    EntrySorter sorter;
    BuildReport report;
    EntryIntake intake(sorter, report, options);
    DictdSource source(index);
    if (!source.read(intake, error))
        return {};
    const auto sorted = sorter.sorted();
    Pairs result;
    LexiconEntry entry;
    while (sorted->next(entry))
        result.append({QByteArray(entry.text), QByteArray(entry.article().data())});
    return result;
}

namespace
{

const QList<QPair<QByteArray, QByteArray>> sample = {
    {"$", "dollar sign ($)\nDollar-Zeichen &lt;neut> $"},
    {"... and no mistake.", "<b>&_cacg; and no mistake.</b>\nund nichts anderes&_cacg;"},
    {"abbr.", "abbreviation (abbr.)\nAbk\xFCrzung &lt;fem> Abk."},
    {"abbreviation", "(abbr.) Abk\xFCrzung &lt;fem> Abk."},
    {"house", "Haus &lt;neut>, Geb\xE4ude &lt;neut>\n\"build a house\" - ein Haus bauen\n"
              "Synonyms: home; place, building\nsee: houses"},
    {"house", "House-Musik &lt;fem>"},
    {"seventeenth year", "&_db;&_dh;. Lebensjahr &amp; mehr"},
    {"tower", "&lt;v> emporragen &lt;v, intr>"},
    {"Tower", "Kontrollturm &lt;masc>\nNote: im &_dd;. Stock"},
};

} // namespace

void TestDictdSource::readsPlainArticles()
{
    std::string error;
    const Pairs entries = readAll(TEST_DATA "/sample.index", error);
    QCOMPARE(error, std::string());
    QCOMPARE(entries, sample);
}

void TestDictdSource::keepsPronunciations()
{
    std::string error;
    const Pairs entries = readAll(TEST_DATA "/sample.index", error, {});
    QCOMPARE(entries.size(), sample.size());
    const QByteArray tower = "t&_cmi;a&_cik;&_cfj;";
    QCOMPARE(entries[7].second,
             "<font color=\"gray\">/" + tower + "/</font> &lt;v> emporragen &lt;v, intr>");
    QCOMPARE(entries[2].second,
             QByteArray("abbreviation <font color=\"gray\">/&_cfa;b&_chj;&_cmm;i&_cna;"
                        "v&_cgk;&_cmi;e&_cgk;&_cid;&_cfj;n/</font> "
                        "(abbr. <font color=\"gray\">/&_cmi;ab&_cfj;/</font>)\n"
                        "Abk\xFCrzung &lt;fem> Abk., /&_cmi;abk/"));
    for (qsizetype i = 0; i < sample.size(); ++i)
        QCOMPARE(entries[i].first, sample[i].first);
}

void TestDictdSource::givesPlainLatin()
{
    std::string error;
    const Pairs entries = readAll(TEST_DATA "/sample.index", error, {LatinForm::Plain});
    QCOMPARE(entries.size(), sample.size());
    QCOMPARE(entries[1].second, QByteArray("und nichts anderes&hellip;"));
    QCOMPARE(entries[2], sample[2]);
    QCOMPARE(entries[6].second, QByteArray("17<i></i>. Lebensjahr &amp; mehr"));
    QCOMPARE(entries[7], sample[7]);
    QCOMPARE(entries[8].second, QByteArray("Kontrollturm &lt;masc>\nNote: im 3<i></i>. Stock"));
}

void TestDictdSource::readsArticlesPackedByDictzip()
{
    const QTemporaryDir directory;
    stage(directory, u"dictzip"_s);
    std::string error;
    QCOMPARE(readAll(stdPath(directory, u"s.index"_s), error), sample);
}

void TestDictdSource::readsArticlesPackedByGzip()
{
    const QTemporaryDir directory;
    stage(directory, u"gzip"_s);
    std::string error;
    QCOMPARE(readAll(stdPath(directory, u"s.index"_s), error), sample);
}

void TestDictdSource::readsAcrossChunks()
{
    const QTemporaryDir directory;
    QByteArray content;
    for (int i = 0; content.size() < 300000; ++i)
        content += QByteArray::number(i * i) + ' ';
    QVERIFY(writeFile(directory.filePath(u"big"_s), content));
    QProcess dictzip;
    QCOMPARE(teskel::test::runToEnd(dictzip, u"dictzip"_s, {directory.filePath(u"big"_s)}).code, 0);
    InputFile reader;
    std::string error;
    QVERIFY(reader.open(stdPath(directory, u"big.dz"_s), error));
    std::string piece;
    // In both directions, from single bytes to pieces of several chunks.
    for (const qsizetype size : {1, 1000, 70000, 250000}) {
        for (qsizetype offset = 0; offset + size <= content.size(); offset += 49999) {
            QVERIFY(reader.read(static_cast<uint64_t>(offset), static_cast<uint64_t>(size), piece,
                                error));
            QVERIFY(QByteArray::fromStdString(piece) == content.mid(offset, size));
        }
    }
    const auto end = static_cast<uint64_t>(content.size());
    QVERIFY(reader.read(end - 1, 1, piece, error));
    QVERIFY(!reader.read(end, 1, piece, error));
    QVERIFY(!reader.read(end - 1, 2, piece, error));
}

void TestDictdSource::describesItself()
{
    EntrySorter sorter;
    BuildReport report;
    EntryIntake intake(sorter, report);
    DictdSource source(TEST_DATA "/sample.index");
    std::string error;
    QVERIFY(source.read(intake, error));
    QCOMPARE(source.description(), std::string("English - German, a sample for tests ver. 0.1"));
}

void TestDictdSource::refusesDamagedIndexes_data()
{
    QTest::addColumn<QByteArray>("index");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray form =
        "not a line of a dictd index (word, offset and length, divided by tabs)";
    QTest::newRow("no tabs") << QByteArray("house\n") << QByteArray("1: " + form);
    QTest::newRow("no length") << QByteArray("house\tA\tB\nhouse\tA\n") << QByteArray("2: " + form);
    QTest::newRow("bad digit") << QByteArray("house\tA\t-\n") << QByteArray("1: " + form);
    QTest::newRow("huge number") << QByteArray("house\tA\tAAAAAAAAA\n") << QByteArray("1: " + form);
    QTest::newRow("behind the articles") << QByteArray("house\tZZZ\tB\n") << QByteArray("1: ");
}

void TestDictdSource::refusesDamagedIndexes()
{
    QFETCH(QByteArray, index);
    QFETCH(QByteArray, reason);
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath(u"s.index"_s), index));
    QVERIFY(writeFile(directory.filePath(u"s.dict"_s), "Haus\n"));
    const std::string path = stdPath(directory, u"s.index"_s);
    std::string error;
    QVERIFY(readAll(path, error).isEmpty());
    QVERIFY2(error.starts_with(path + ":" + reason.toStdString()), error.c_str());
}

void TestDictdSource::refusesMissingArticles()
{
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath(u"s.index"_s), "house\tA\tB\n"));
    std::string error;
    QVERIFY(readAll(stdPath(directory, u"s.index"_s), error).isEmpty());
    const std::string base = stdPath(directory, u"s.dict"_s);
    QCOMPARE(error, "cannot find " + base + ".dz or " + base + " beside the index");
}

void TestDictdSource::refusesTruncatedArticles_data()
{
    QTest::addColumn<QString>("packer");
    QTest::addColumn<QString>("file");
    QTest::newRow("plain") << QString() << u"s.dict"_s;
    QTest::newRow("dictzip") << u"dictzip"_s << u"s.dict.dz"_s;
    QTest::newRow("gzip") << u"gzip"_s << u"s.dict.dz"_s;
}

void TestDictdSource::refusesTruncatedArticles()
{
    QFETCH(QString, packer);
    QFETCH(QString, file);
    const QTemporaryDir directory;
    stage(directory, packer);
    QFile articles(directory.filePath(file));
    QVERIFY(articles.resize(articles.size() * 2 / 3));
    std::string error;
    QVERIFY(readAll(stdPath(directory, u"s.index"_s), error).isEmpty());
    QVERIFY2(error.find("is damaged") != std::string::npos, error.c_str());
}

void TestDictdSource::refusesArticlesThatAreNotPacked()
{
    const QTemporaryDir directory;
    QVERIFY(writeFile(directory.filePath(u"s.index"_s), "house\tA\tB\n"));
    QVERIFY(writeFile(directory.filePath(u"s.dict.dz"_s), "Haus, not packed"));
    std::string error;
    QVERIFY(readAll(stdPath(directory, u"s.index"_s), error).isEmpty());
    QCOMPARE(error, stdPath(directory, u"s.dict.dz"_s) + " is not packed by dictzip or gzip");
}

void TestDictdSource::saysThatAWholeInputIsDamaged()
{
    const QTemporaryDir directory;
    stage(directory, u"gzip"_s);
    QFile packed(directory.filePath(u"s.dict.dz"_s));
    QVERIFY(packed.resize(packed.size() * 2 / 3));
    const std::string path = stdPath(directory, u"s.dict.dz"_s);
    InputFile file;
    std::string piece;
    std::string error;
    QVERIFY(file.open(path, error));
    while (file.readNext(piece, error) && !piece.empty()) {
    }
    QCOMPARE(error, path + " is damaged: it cannot be unpacked");
}

QTEST_GUILESS_MAIN(TestDictdSource)
#include "test_dictdsource.moc"
