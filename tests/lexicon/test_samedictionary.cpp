// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"
#include "tests/support/palmwriter.h"
#include "tests/support/stardictwriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::StarDictWriter;
using teskel::test::writeFile;

/// The same dictionary gives the same bytes, whatever kind of source it comes from.
class TestSameDictionary : public QObject
{
    Q_OBJECT

private slots:
    void kindOfSourceLeavesNoTrace_data();
    void kindOfSourceLeavesNoTrace();

private:
    struct Entry {
        QByteArray word;
        QByteArray article; ///< plain text
    };
    static QByteArray dictdNumber(qsizetype value);
    static bool writeDictd(const QString& base, const QList<Entry>& entries);
    static bool writeStarDict(const QString& base, const QList<Entry>& entries, char type,
                              bool repeatsWords);
    static bool writeTable(const QString& path, const QList<Entry>& entries);
    static QByteArray built(const QString& source);

    static constexpr const char* name = "A small dictionary";
};

QByteArray TestSameDictionary::dictdNumber(qsizetype value)
{
    const QByteArray digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    QByteArray number;
    do {
        number.prepend(digits[value % 64]);
        value /= 64;
    } while (value > 0);
    return number;
}

bool TestSameDictionary::writeDictd(const QString& base, const QList<Entry>& entries)
{
    QByteArray data;
    QByteArray index;
    const auto add = [&](const QByteArray& key, const QByteArray& text) {
        index += key + '\t' + dictdNumber(data.size()) + '\t' + dictdNumber(text.size()) + '\n';
        data += text;
    };
    add("00databaseshort", QByteArray("00databaseshort\n     ") + name + "\n");
    for (const Entry& entry : entries)
        add(entry.word.toLower(), entry.word + '\n' + entry.article + '\n');
    return writeFile(base + u".index"_s, index) && writeFile(base + u".dict"_s, data);
}

bool TestSameDictionary::writeStarDict(const QString& base, const QList<Entry>& entries, char type,
                                       bool repeatsWords)
{
    StarDictWriter writer;
    writer.setName(name).setTypeSequence(QByteArray(1, type));
    for (const Entry& entry : entries) {
        QByteArray article = entry.article;
        if (type != 'm')
            article.replace('&', "&amp;").replace('<', "&lt;");
        if (type == 'h')
            article.replace("\n", "<br>\n");
        writer.add(repeatsWords ? entry.word.toLower() : entry.word,
                   repeatsWords ? entry.word + '\n' + article : article);
    }
    return writer.write(base);
}

bool TestSameDictionary::writeTable(const QString& path, const QList<Entry>& entries)
{
    QByteArray table = QByteArray("##description\t") + name + "\n";
    for (const Entry& entry : entries) {
        QByteArray article = entry.article;
        article.replace('&', "&amp;").replace('<', "&lt;").replace("\n", "\\n");
        table += entry.word + '\t' + article + '\n';
    }
    return writeFile(path, table);
}

QByteArray TestSameDictionary::built(const QString& source)
{
    BuildOptions options;
    options.sources = {source.toStdString()};
    options.output = source.toStdString() + ".PDB";
    std::string error;
    if (!LexiconBuilder(options).build(error))
        return QByteArray::fromStdString(error);
    QFile file(QString::fromStdString(options.output));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

void TestSameDictionary::kindOfSourceLeavesNoTrace_data()
{
    QTest::addColumn<QString>("source");
    for (const char* source :
         {"dictd.index", "plain.ifo", "repeating.ifo", "html.ifo", "pango.ifo", "table.tsv"})
        QTest::newRow(source) << QString::fromLatin1(source);
}

void TestSameDictionary::kindOfSourceLeavesNoTrace()
{
    const QList<Entry> entries = {
        {"ant", "Ameise <fem>"},
        {"computer", "Rechner\nComputer"},
        {"house", "Haus & Hof\nsee: building"},
        {"house", "Gebäude"},
        {"lease", "Pacht auf 10 Jahre, am 17. Mai"},
        {"naïve", "naiv, „gutgläubig“"},
        {"set", "1. setzen\n2. stellen\n3. legen"},
        {"Tower", "Kontrollturm"},
        {"word", "слово"},
    };
    const QTemporaryDir directory;
    const auto path = [&](const char* file) {
        return directory.filePath(QString::fromLatin1(file));
    };
    QVERIFY(writeDictd(path("dictd"), entries));
    QVERIFY(writeStarDict(path("plain"), entries, 'm', false));
    QVERIFY(writeStarDict(path("repeating"), entries, 'm', true));
    QVERIFY(writeStarDict(path("html"), entries, 'h', false));
    QVERIFY(writeStarDict(path("pango"), entries, 'g', false));
    QVERIFY(writeTable(path("table.tsv"), entries));
    QFETCH(QString, source);
    const QByteArray expected = built(path("dictd"));
    QVERIFY2(expected.contains("TSKL"), expected.constData()); // it was built
    const QByteArray bytes = built(directory.filePath(source));
    QVERIFY2(bytes.size() == expected.size(), bytes.left(200).constData());
    QVERIFY(bytes == expected);
}

QTEST_GUILESS_MAIN(TestSameDictionary)
#include "test_samedictionary.moc"
