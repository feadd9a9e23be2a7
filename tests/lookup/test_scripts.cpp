// SPDX-License-Identifier: MIT
#include "script/letterreference.h"
#include "tests/lookup/lookupbench.h"

#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

/// As an article of a lexicon holds the text.
QByteArray stored(const QString& text)
{
    std::string article;
    for (const char32_t character : text.toUcs4())
        article += teskel::letterReference(character);
    return QByteArray::fromStdString(article);
}

/// Headwords as they are made of words in several scripts.
QList<Entry> foreignEntries()
{
    return {
        {"ant", "Ameise"},    {"bpgaa", "smile"}, {"don't", "tu nicht"},
        {"hindi", "Hindi"},   {"mizu", "water"},  {"rock", "Fels"},
        {"shui", "water"},    {"slam", "peace"},  {"voda", stored(u"вода"_s) + " water"},
        {"vodka", "spirits"}, {"ydor", "water"},  {"zebra", "Zebra"},
    };
}

void findOnEnter(PreferencesData& preferences)
{
    preferences.setFindType(PreferencesData::FindOnEnter);
}

} // namespace

/// Words of every script lead to the headwords that are made of them.
class TestScripts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void typedWordIsFound_data();
    void typedWordIsFound();
    void everyLetterLeadsOn();
    void entryKeepsWhatWasTyped();
    void pastedWordIsFound();
    void wordChosenOnEnterIsFound();
    void historyHoldsTheHeadword();
    void articleShowsItsOwnScript();
    void selectedWordIsFoundInTheOtherDictionary_data();
    void selectedWordIsFoundInTheOtherDictionary();
    void selectedWordIsCutToTheLongestBeginning();
    void wholeForeignArticleCanBeSelected();
};

/// Which scripts the fonts of the display have is not what is looked at.
void TestScripts::init()
{
    QTest::failOnWarning(QRegularExpression(
        u"^(?!This plugin does not support | *OpenType support missing for )"_s));
}

void TestScripts::typedWordIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word");
    QTest::newRow("Russian") << u"вода"_s << u"voda"_s;
    QTest::newRow("Russian in capitals") << u"ВОДА"_s << u"voda"_s;
    QTest::newRow("Russian with its stress") << u"вода\u0301"_s << u"voda"_s;
    QTest::newRow("as the headword stands") << u"voda"_s << u"voda"_s;
    QTest::newRow("Greek") << u"ύδωρ"_s << u"ydor"_s;
    QTest::newRow("Arabic") << u"سلام"_s << u"slam"_s;
    QTest::newRow("Arabic with vowel signs") << u"سَلَامٌ"_s << u"slam"_s;
    QTest::newRow("Hindi") << u"हिन्दी"_s << u"hindi"_s;
    QTest::newRow("kanji") << u"水"_s << u"shui"_s;
    QTest::newRow("hiragana") << u"みず"_s << u"mizu"_s;
    QTest::newRow("emoji") << u"😀"_s << u"bpgaa"_s;
    QTest::newRow("typographic apostrophe") << u"don\u2019t"_s << u"don't"_s;
    QTest::newRow("accent that no letter is composed with") << u"ant\u0323"_s << u"ant"_s;
    QTest::newRow("between blanks") << u" вода\u2003"_s << u"voda"_s;
}

void TestScripts::typedWordIsFound()
{
    QFETCH(QString, text);
    QFETCH(QString, word);
    LookupBench bench;
    bench.open(foreignEntries());
    bench.entry().lineEdit()->setText(text);
    QCOMPARE(bench.currentWord(), word);
    QVERIFY(bench.article().text().startsWith("<p><b>"_L1 + word + "</b></p>"_L1));
    QCOMPARE(bench.typed(), text);
}

void TestScripts::everyLetterLeadsOn()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.type(u"р"_s);
    QCOMPARE(bench.currentWord(), u"rock"_s);
    QCOMPARE(bench.article().text(), QString());
    bench.type(u"во"_s);
    QCOMPARE(bench.currentWord(), u"voda"_s);
    QCOMPARE(bench.article().text(), QString());
    bench.typeLetter(u'д');
    bench.typeLetter(u'к');
    QCOMPARE(bench.currentWord(), u"vodka"_s);
    QCOMPARE(bench.article().text(), QString());
    bench.typeLetter(u'а');
    QCOMPARE(bench.articleText(), u"vodka\nspirits"_s);
}

void TestScripts::entryKeepsWhatWasTyped()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.type(u"вода"_s);
    QCOMPARE(bench.currentWord(), u"voda"_s);
    QCOMPARE(bench.typed(), u"вода"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Down);
    QCOMPARE(bench.typed(), u"vodka"_s);
}

void TestScripts::pastedWordIsFound()
{
    LookupBench bench;
    bench.open(foreignEntries());
    QApplication::clipboard()->setText(u"вода"_s);
    bench.widget().editPaste();
    QCOMPARE(bench.currentWord(), u"voda"_s);
    QCOMPARE(bench.typed(), u"вода"_s);
}

void TestScripts::wordChosenOnEnterIsFound()
{
    LookupBench bench(findOnEnter);
    bench.open(foreignEntries());
    bench.type(u"вода"_s);
    QVERIFY(bench.currentWord() != u"voda"_s);
    QTest::keyClick(bench.entry().lineEdit(), Qt::Key_Return);
    QCOMPARE(bench.currentWord(), u"voda"_s);
    QCOMPARE(bench.typed(), u"вода"_s);
}

/// The settings hold Latin-1.
void TestScripts::historyHoldsTheHeadword()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.type(u"вода"_s);
    QCOMPARE(bench.history(), QStringList{u"voda"_s});
    QCOMPARE(bench.storedHistory(), QStringList{u"voda"_s});
}

void TestScripts::articleShowsItsOwnScript()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.type(u"voda"_s);
    QCOMPARE(bench.articleText(), u"voda\nвода water"_s);
    bench.widget().editCopyTranslation();
    QCOMPARE(QApplication::clipboard()->text(),
             "<p><b>voda</b></p><p>"_L1 + QString::fromLatin1(stored(u"вода"_s)) + " water"_L1);
}

void TestScripts::selectedWordIsFoundInTheOtherDictionary_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("headword");
    QTest::newRow("Russian") << u"вода"_s << u"voda"_s;
    QTest::newRow("Greek") << u"ύδωρ"_s << u"ydor"_s;
    QTest::newRow("Arabic") << u"سَلَام"_s << u"slam"_s;
    QTest::newRow("Hindi") << u"हिन्दी"_s << u"hindi"_s;
    QTest::newRow("Greek decomposed") << u"υ\u0301δωρ"_s << u"ydor"_s;
}

void TestScripts::selectedWordIsFoundInTheOtherDictionary()
{
    QFETCH(QString, word);
    QFETCH(QString, headword);
    LookupBench bench;
    const QString reverse = bench.write(u"Words2Eng.PDB"_s, foreignEntries());
    // The transfer asks the dictionary that is still open.
    QList<Entry> entries = foreignEntries();
    entries.insert(entries.size() - 1, Entry("zeal", stored(u"(%1), x"_s.arg(word))));
    bench.open(entries);
    bench.type(u"zeal"_s);
    bench.article().setTextCursor(bench.article().document()->find(u"("_s + word + u"),"_s));
    QVERIFY(bench.widget().transferTranslation2Word(false));
    const QString composed = word.normalized(QString::NormalizationForm_C);
    QCOMPARE(bench.typed(), composed);
    QVERIFY(bench.widget().fileOpen(reverse, false));
    QCOMPARE(bench.typed(), composed);
    QCOMPARE(bench.currentWord(), headword);
    QVERIFY(bench.article().text().startsWith("<p><b>"_L1 + headword));
}

void TestScripts::selectedWordIsCutToTheLongestBeginning()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.article().setText(u"водами"_s);
    bench.article().selectAll();
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), u"voda"_s);
    QCOMPARE(bench.currentWord(), u"voda"_s);
}

void TestScripts::wholeForeignArticleCanBeSelected()
{
    LookupBench bench;
    bench.open(foreignEntries());
    bench.article().setText(u"вод"_s + u"वाنщ漢ά"_s.repeated(3000));
    bench.article().selectAll();
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), u"vod"_s);
}

QTEST_MAIN(TestScripts)
#include "test_scripts.moc"
