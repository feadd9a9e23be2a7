// SPDX-License-Identifier: MIT
#include "lexicon/build/sourcetable.h"
#include "tests/support/palmwriter.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::writeFile;

/// Finds the kind of a source by its content, then by its name, unless it is told.
class TestSourceTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void takesSourcesByContentThenByName_data();
    void takesSourcesByContentThenByName();
    void refusesWhatIsOfNoKind_data();
    void refusesWhatIsOfNoKind();

private:
    std::string stdPath(const QByteArray& name) const
    {
        return _directory.filePath(QString::fromUtf8(name)).toStdString();
    }
    QTemporaryDir _directory;
};

void TestSourceTable::initTestCase()
{
    const QList<QPair<const char*, QByteArray>> files = {
        {"pair.index", "house\tA\tF\n"},
        {"pair.dict", "Haus\n"},
        {"odd.txt", "house\tA\tF\n"},
        {"odd.txt.dict", "Haus\n"},
        {"alone.txt", "house\tA\tF\n"},
        {"alone.index", "house\tA\tF\n"},
        {"words.tsv", "house\tHaus\n"},
        {"words.txt", "house\tHaus\n"},
        {"prose.txt", "A house is a Haus.\n"},
        {"binary", QByteArray("house\tHaus\0\n", 12)},
        {"empty", ""},
        {"empty.tsv", ""},
        {"damaged", QByteArray("\x1F\x8B") + QByteArray(40, 'x')},
    };
    for (const auto& [name, content] : files)
        QVERIFY(writeFile(_directory.filePath(QString::fromLatin1(name)), content));
    QVERIFY(QFile::copy(_directory.filePath(u"words.txt"_s), _directory.filePath(u"packed.txt"_s)));
    QCOMPARE(QProcess::execute(u"xz"_s, {_directory.filePath(u"packed.txt"_s)}), 0);
}

void TestSourceTable::takesSourcesByContentThenByName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("articles"); // of "house", or the reason why not
    QTest::newRow("index") << QByteArray("pair.index") << QByteArray() << QByteArray("Haus");
    QTest::newRow("articles") << QByteArray("pair.dict") << QByteArray() << QByteArray("Haus");
    QTest::newRow("base name") << QByteArray("pair") << QByteArray() << QByteArray("Haus");
    QTest::newRow("index of another name")
        << QByteArray("odd.txt") << QByteArray() << QByteArray("Haus");
    QTest::newRow("index without articles")
        << QByteArray("alone.index") << QByteArray()
        << QByteArray("cannot find DIR/alone.dict.dz or DIR/alone.dict beside the index");
    QTest::newRow("table that looks like an index")
        << QByteArray("alone.txt") << QByteArray() << QByteArray("A\tF");
    QTest::newRow("index as a table")
        << QByteArray("pair.index") << QByteArray("tsv") << QByteArray("A\tF");
    QTest::newRow("table as an index")
        << QByteArray("words.tsv") << QByteArray("dictd")
        << QByteArray("DIR/words.tsv:1: not a line of a dictd index (word, offset and length, "
                      "divided by tabs)");
    QTest::newRow("table") << QByteArray("words.tsv") << QByteArray() << QByteArray("Haus");
    QTest::newRow("table of another name")
        << QByteArray("words.txt") << QByteArray() << QByteArray("Haus");
    QTest::newRow("packed table of another name")
        << QByteArray("packed.txt.xz") << QByteArray() << QByteArray("Haus");
    QTest::newRow("empty table") << QByteArray("empty.tsv") << QByteArray() << QByteArray();
}

void TestSourceTable::takesSourcesByContentThenByName()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, articles);
    EntrySorter sorter;
    BuildReport report;
    EntryIntake intake(sorter, report);
    std::string error;
    const auto source = sourceFor(stdPath(name), kind.toStdString(), error);
    QVERIFY2(source, error.c_str());
    QByteArray read;
    if (source->read(intake, error)) {
        const auto entries = sorter.sorted();
        for (LexiconEntry entry; entries->next(entry);)
            read += QByteArray(entry.article().data());
    } else {
        read = QByteArray::fromStdString(error).replace(_directory.path().toUtf8(), "DIR");
    }
    QCOMPARE(read, articles);
}

void TestSourceTable::refusesWhatIsOfNoKind_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray unknown =
        " is no dictionary of a known kind (dictd, stardict, tei, tsv); --from says what it is";
    for (const char* name : {"prose.txt", "binary", "empty"})
        QTest::newRow(name) << QByteArray(name) << "DIR/" + QByteArray(name) + unknown;
    QTest::newRow("damaged") << QByteArray("damaged")
                             << QByteArray("DIR/damaged is damaged: it cannot be unpacked");
    QTest::newRow("missing") << QByteArray("missing.tsv")
                             << QByteArray(
                                    "cannot read DIR/missing.tsv: No such file or directory");
    QTest::newRow("directory") << QByteArray() << QByteArray("cannot read DIR/: Is a directory");
    QTest::newRow("articles without an index")
        << QByteArray("odd.txt.dict") << "DIR/odd.txt.dict" + unknown;
}

void TestSourceTable::refusesWhatIsOfNoKind()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, reason);
    const std::string path = name.isEmpty() ? _directory.path().toStdString() + "/" : stdPath(name);
    std::string error;
    QVERIFY(!sourceFor(path, {}, error));
    QCOMPARE(QByteArray::fromStdString(error).replace(_directory.path().toUtf8(), "DIR"), reason);
}

QTEST_GUILESS_MAIN(TestSourceTable)
#include "test_sourcetable.moc"
