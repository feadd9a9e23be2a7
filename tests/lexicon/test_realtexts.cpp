// SPDX-License-Identifier: MIT
#include "dictionary/articleformatter.h"
#include "lexicon/file/lexiconreader.h"
#include "lexicon/sources/dictdindex.h"
#include "lexicon/sources/input/inputfile.h"
#include "tests/support/childprocess.h"
#include "widgets/article/qteskeledit.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace teskel;

/// What the reader's view shows of real dictionaries, compared with their sources.
class TestRealTexts : public QObject
{
    Q_OBJECT

private slots:
    void viewShowsTheTextOfTheSource_data();
    void viewShowsTheTextOfTheSource();
};

namespace
{

constexpr size_t sampleSize = 500;

struct SourceEntry {
    QString key;
    QString text;
};

std::vector<SourceEntry> sampleOf(const QString& base)
{
    struct Line {
        std::string key;
        uint64_t offset;
        uint64_t size;
    };
    DictdIndex index;
    InputFile articles;
    std::string error;
    if (!index.open((base + ".index"_L1).toStdString(), error) ||
        !articles.open((base + ".dict.dz"_L1).toStdString(), error))
        return {};
    std::vector<Line> lines;
    DictdIndex::Line read;
    for (bool isEnd = false; index.next(read, isEnd, error) && !isEnd;) {
        if (!read.isMetadata())
            lines.push_back({std::string(read.key), read.offset, read.size});
    }
    QRandomGenerator random(500);
    std::shuffle(lines.begin(), lines.end(), random);
    lines.resize(std::min(lines.size(), sampleSize));
    // The data are unpacked once, from the beginning to the end.
    std::sort(lines.begin(), lines.end(),
              [](const auto& a, const auto& b) { return a.offset < b.offset; });
    std::vector<SourceEntry> sample;
    std::string text;
    for (const Line& line : lines) {
        if (!articles.read(line.offset, line.size, text, error))
            return {};
        sample.push_back({QString::fromStdString(line.key), QString::fromStdString(text)});
    }
    return sample;
}

QString withoutWhiteSpace(const QString& text)
{
    static const QRegularExpression whiteSpace(u"\\s+"_s,
                                               QRegularExpression::UseUnicodePropertiesOption);
    return text.normalized(QString::NormalizationForm_C).remove(whiteSpace);
}

QString lettersOf(const QString& text)
{
    QString letters;
    for (const QChar character : text.toLower()) {
        if (character.isLetterOrNumber())
            letters += character;
    }
    return letters;
}

/// The word of an article's first line, in front of its pronunciation and tags.
QString wordOf(const QString& text)
{
    static const QRegularExpression end(u" /[^ /]| <|$"_s);
    const QString line = text.section(u'\n', 0, 0);
    return line.left(line.indexOf(end));
}

/// The text that the article of an entry is to show, without white space. The word is its headword;
/// the numbers of senses have full stops; lists of references have no braces.
QString expectedText(const SourceEntry& entry)
{
    static const QRegularExpression sense(
        u"^(\\s*(?:(?:n|v|adj|adv|a|s|r) )?[0-9]{1,2}):(?=\\s)"_s);
    static const QRegularExpression references(u"^\\s*(?:see|Synonyms?): \\{.*\\}\\s*$"_s);
    const QString word = wordOf(entry.text);
    const bool isHeadword = lettersOf(word) == lettersOf(entry.key);
    QString expected;
    for (QString line : entry.text.mid(isHeadword ? word.size() : 0).split(u'\n')) {
        line.replace(sense, u"\\1."_s);
        if (references.match(line).hasMatch())
            line.replace("}, {"_L1, "; "_L1).remove(u'{').remove(u'}');
        expected += withoutWhiteSpace(line);
    }
    return expected;
}

} // namespace

void TestRealTexts::viewShowsTheTextOfTheSource_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"freedict-eng-rus", "freedict-ell-eng", "wn"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestRealTexts::viewShowsTheTextOfTheSource()
{
    QFETCH(QString, name);
    const QString base = u"/usr/share/dictd/"_s + name;
    const std::vector<SourceEntry> sample = sampleOf(base);
    QVERIFY2(sample.size() == sampleSize, qPrintable("install dict-"_L1 + name));

    const QTemporaryDir directory;
    const QString file = directory.filePath(u"real.PDB"_s);
    QProcess process;
    const auto built =
        test::runToEnd(process, QStringLiteral(TESKEL_LEXICON),
                       {u"build"_s, base + ".index"_L1, u"-o"_s, file, u"--quiet"_s});
    QVERIFY2(built.code == 0, built.err.constData());

    LexiconReader reader;
    std::string error;
    QCOMPARE(reader.open(file.toStdString(), error), LexiconReader::Status::Ok);
    QTeskelEdit view;
    for (const SourceEntry& entry : sample) {
        const QString expected = expectedText(entry);
        QStringList shown;
        const auto show = [&](std::string_view headword, std::string_view article) {
            const auto text = [](std::string_view latin1) {
                return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
            };
            view.setText(ArticleFormatter::headword(text(headword)) +
                         ArticleFormatter::format(text(article)));
            shown += withoutWhiteSpace(view.toPlainText());
            return !shown.back().contains(expected);
        };
        const auto isShown = [&] { return !shown.isEmpty() && shown.back().contains(expected); };
        // The entry of a form, or of a line that begins with more than a word, is below its key.
        reader.visitMatches(wordOf(entry.text).toStdString(), false, show, error);
        if (!isShown())
            reader.visitMatches(entry.key.toStdString(), false, show, error);
        QVERIFY2(isShown(), qPrintable(expected + "\nis not in\n"_L1 + shown.join(u'\n')));
    }
}

QTEST_MAIN(TestRealTexts)
#include "test_realtexts.moc"
