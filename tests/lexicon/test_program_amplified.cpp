// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"
#include "tests/support/sanitized.h"

#include <QFile>
#include <QTest>
#include <QtEndian>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Small sources whose entries would fill a disk, because thousands of words share an article.
class TestProgramAmplified : public QObject
{
    Q_OBJECT

private slots:
    void isToldEarly_data();
    void isToldEarly();
    void sharedArticlesAreTaken();

private:
    using Files = QList<std::pair<QByteArray, QByteArray>>; ///< name, content

    LexiconProgram _program;
};

namespace
{

constexpr int wordCount = 10000;
constexpr int articleBytes = 100000;

QByteArray article()
{
    return QByteArray("x y ").repeated(articleBytes / 4);
}

/// Something for each word, by its number.
template<typename Make>
QByteArray forWords(Make make)
{
    QByteArray all;
    for (int word = 0; word < wordCount; ++word)
        all += make(QByteArray::number(word).rightJustified(6, '0'));
    return all;
}

QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray starDictInfo(const QByteArray& index, int count)
{
    return "StarDict's dict ifo file\nversion=2.4.2\nwordcount=" + QByteArray::number(count) +
           "\nidxfilesize=" + QByteArray::number(index.size()) +
           "\nbookname=x\nsametypesequence=m\n";
}

} // namespace

void TestProgramAmplified::isToldEarly_data()
{
    QTest::addColumn<Files>("files");
    QTest::addColumn<QByteArray>("place");
    const auto row = [](const char* name, const Files& files, const QByteArray& place) {
        QTest::newRow(name) << files << place;
    };
    const auto bars = forWords([](const QByteArray& word) { return word + '|'; });
    row("table", {{"a.tsv", bars.chopped(1) + '\t' + article() + '\n'}}, "a.tsv:1");
    row("dictd",
        {{"a.index", forWords([](const QByteArray& word) { return word + "\tA\tYag\n"; })},
         {"a.dict", article()}},
        "a.index:");
    if (isSanitized) // where each takes a minute; the measure is the same
        return;
    const QByteArray place = bigEndian(0) + bigEndian(articleBytes);
    const QByteArray index = forWords([&](const QByteArray& word) { return word + '\0' + place; });
    row("StarDict",
        {{"a.ifo", starDictInfo(index, wordCount)}, {"a.idx", index}, {"a.dict", article()}},
        "a.idx:");
    const QByteArray one = QByteArray("house\0", 6) + place;
    row("StarDict, other words",
        {{"a.ifo", starDictInfo(one, 1)},
         {"a.idx", one},
         {"a.syn", forWords([](const QByteArray& word) { return word + '\0' + bigEndian(0); })},
         {"a.dict", article()}},
        "a.syn:");
    row("TEI",
        {{"a.tei", "<TEI><text><entry><form>" + forWords([](const QByteArray& word) {
                       return "<orth>" + word + "</orth>";
                   }) + "</form><note>" +
                       article() + "</note></entry></text></TEI>"}},
        "a.tei:1");
}

void TestProgramAmplified::isToldEarly()
{
    QFETCH(Files, files);
    QFETCH(QByteArray, place);
    for (const auto& [name, content] : files)
        QVERIFY(writeFile(_program.path(name.constData()), content));
    const ProgramResult result = _program.run(
        {u"build"_s, QString::fromUtf8(files.front().first), u"-q"_s, u"-o"_s, u"a.PDB"_s});
    for (const auto& [name, content] : files)
        QVERIFY(QFile::remove(_program.path(name.constData())));
    QCOMPARE(result.code, 3);
    QVERIFY2(result.err.startsWith("teskel-lexicon: " + place), result.err.constData());
    QVERIFY2(result.err.endsWith(": the entries up to here are 64 MiB, more than a hundred times "
                                 "as much as they are made of: too many words share long "
                                 "articles\n"),
             result.err.constData());
    QVERIFY(!QFile::exists(_program.path("a.PDB")));
}

/// As far as it is less than that.
void TestProgramAmplified::sharedArticlesAreTaken()
{
    QVERIFY(writeFile(_program.path("a.tsv"),
                      forWords([](const QByteArray& word) { return word + '|'; }).chopped(1) +
                          "\tday &#8211; " + QByteArray("x ").repeated(500) + '\n'));
    QCOMPARE(_program.run({u"build"_s, u"a.tsv"_s, u"-q"_s, u"-o"_s, u"a.PDB"_s}).code, 0);
    const auto found = [&](const char* word) {
        return _program.run({u"find"_s, u"a.PDB"_s, QString::fromLatin1(word)}).out;
    };
    QCOMPARE(found("009999").mid(6), found("000000").mid(6));
    QVERIFY(found("009999").startsWith("009999\nday \xE2\x80\x93 x x "));
}

QTEST_GUILESS_MAIN(TestProgramAmplified)
#include "test_program_amplified.moc"
