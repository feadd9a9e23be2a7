// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "tests/lookup/messagewatch.h"
#include "tests/support/warningcapture.h"

#include <QClipboard>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

/// Shows `html` in the article and selects all of it, or the first place of `part`.
void selectInArticle(const LookupBench& bench, const QString& html, const QString& part = QString())
{
    bench.article().setText(html);
    if (part.isNull()) {
        bench.article().selectAll();
        return;
    }
    bench.article().setTextCursor(bench.article().document()->find(part));
}

void findOnEnter(PreferencesData& preferences)
{
    preferences.setFindType(PreferencesData::FindOnEnter);
}

} // namespace

/// Text that moves between the article, the entry and the clipboard.
class TestTransfer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void setTextPutsTheHeadwordFirst();
    void longArticlesAreShownWhole_data();
    void longArticlesAreShownWhole();
    void stripStringStripsPunctuation();

    void withoutASelectionThereIsAMessage();
    void selectionIsStrippedAndPutIntoTheEntry();
    void selectionWithoutAMatchIsCutToTheLongestBeginning_data();
    void selectionWithoutAMatchIsCutToTheLongestBeginning();
    void selectionOfPunctuationIsTriedAsTheEmptyBeginning();
    void selectionInADictionaryWithoutWordsLeavesTheEntry();
    void selectionOfDecomposedLettersIsFound();
    void transferWithNotifyLooksUp();
    void transferWithoutNotifyOnlyShows();
    void transferSelectsTheEntrysText();
    void transferWithoutADictionaryWarnsAndGoesOn();
    void hugeSelectionIsCutDown();
    void crossLookupEndsInTheOtherDictionary();

    void randomWordIsLookedUpAndSelected();
    void randomWordWithFindOnEnterOnlyShows();
    void randomWordWithoutADictionaryDoesNothing();
    void copyTakesTheEntrysText();
    void copyOfAnEmptyEntryLeavesTheClipboard();
    void copyTranslationTakesTheSourceWithItsTags();
    void copyTranslationOfAnEmptyArticleLeavesTheClipboard();
    void pasteLooksUpAndSelectsNothing();
    void pasteOfAnEmptyClipboardLeavesTheEntry();
};

void TestTransfer::init()
{
    failOnUnexpectedWarnings();
    QApplication::clipboard()->clear();
}

void TestTransfer::setTextPutsTheHeadwordFirst()
{
    LookupBench bench;
    bench.widget().setText(u"1. a <i>b</i>"_s, u"1. c\n2 d"_s);
    QCOMPARE(bench.article().text(),
             "<p><b>1. a <i>b</i></b></p>"_L1 + bench.widget().formatText(u"1. c\n2 d"_s));
}

void TestTransfer::longArticlesAreShownWhole_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("fits the first buffer") << 255;
    QTest::newRow("one more than the first buffer") << 256;
    QTest::newRow("1000") << 1000;
    QTest::newRow("as long as a record allows") << 32000;
}

void TestTransfer::longArticlesAreShownWhole()
{
    QFETCH(int, length);
    LookupBench bench;
    bench.open({{"ant", QByteArray(length, 'x')}, {"zebra", "Zebra"}});
    bench.type(u"ant"_s);
    QCOMPARE(bench.article().text(), "<p><b>ant</b></p><p>"_L1 + QString(length, u'x'));
}

void TestTransfer::stripStringStripsPunctuation()
{
    LookupBench bench;
    QString text = u" (rock'n'roll), "_s;
    QCOMPARE(bench.widget().stripString(text), u"rock'n'roll"_s);
    QCOMPARE(bench.widget().stripPunct(text), u"rock'n'roll"_s);
    QCOMPARE(text, u" (rock'n'roll), "_s);
}

void TestTransfer::withoutASelectionThereIsAMessage()
{
    EverydayBench bench;
    bench.type(u"house"_s);
    MessageWatch watch;
    QVERIFY(!bench.widget().transferTranslation2Word(true));
    QCOMPARE(watch.messages.size(), 1);
    const auto message = watch.messages.first();
    QCOMPARE(message.caption, u"Teskel"_s);
    QCOMPARE(message.text, u"The cross-lookup button will only \noperate when there is a word \n"
                           "selected in the article field."_s);
    QCOMPARE(message.icon, QMessageBox::Information);
    QCOMPARE(message.buttons, 1);
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.currentWord(), u"house"_s);
}

void TestTransfer::selectionIsStrippedAndPutIntoTheEntry()
{
    EverydayBench bench;
    selectInArticle(bench, u"my home, house. and garden"_s, u", house."_s);
    QVERIFY(bench.widget().transferTranslation2Word(false));
    QCOMPARE(bench.typed(), u"house"_s);
}

void TestTransfer::selectionWithoutAMatchIsCutToTheLongestBeginning_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("expected");
    QTest::newRow("longer than a word") << u"houseboats"_s << u"houseboat"_s;
    QTest::newRow("parts from all words early") << u"hoary"_s << u"ho"_s;
    QTest::newRow("case is the selection's") << u"HOUSING"_s << u"HOUS"_s;
    QTest::newRow("nothing in common") << u"quark"_s << QString();
    QTest::newRow("two words") << u"house of cards"_s << u"house"_s;
    QTest::newRow("begins a word itself") << u"hou"_s << u"ho"_s;
    QTest::newRow("foreign letter that no word goes on with") << u"hous\u0436boat"_s << u"hous"_s;
    QTest::newRow("begins with a foreign letter") << u"\u0436house"_s << u"z"_s;
    QTest::newRow("foreign letter that the word goes on with") << u"hou\u0441x"_s << u"hous"_s;
    QTest::newRow("NUL in a foreign word")
        << QString(u"ho\u0443"_s + QChar(0) + u"se"_s) << u"hou"_s;
}

void TestTransfer::selectionWithoutAMatchIsCutToTheLongestBeginning()
{
    QFETCH(QString, selected);
    QFETCH(QString, expected);
    EverydayBench bench;
    bench.type(u"cat"_s);
    selectInArticle(bench, selected);
    QVERIFY(bench.widget().transferTranslation2Word(false));
    QCOMPARE(bench.typed(), expected);
}

void TestTransfer::selectionOfPunctuationIsTriedAsTheEmptyBeginning()
{
    EverydayBench bench;
    bench.type(u"cat"_s);
    selectInArticle(bench, u"house., house"_s, u".,"_s);
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), QString()); // every dictionary with words begins with nothing
    QCOMPARE(bench.currentWord(), u"cat"_s);
}

void TestTransfer::selectionInADictionaryWithoutWordsLeavesTheEntry()
{
    LookupBench bench;
    bench.open({});
    bench.type(u"cat"_s);
    selectInArticle(bench, u"house"_s);
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), u"cat"_s);
}

void TestTransfer::selectionOfDecomposedLettersIsFound()
{
    EverydayBench bench;
    selectInArticle(bench, u"mu\u0308esli"_s);
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), u"m\u00FCesli"_s);
    QCOMPARE(bench.currentWord(), u"m\u00FCesli"_s);
}

void TestTransfer::transferWithNotifyLooksUp()
{
    EverydayBench bench;
    selectInArticle(bench, u"house"_s);
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.currentWord(), u"house"_s);
    QCOMPARE(bench.articleText(), u"house\n1. Haus"_s);
}

void TestTransfer::transferWithoutNotifyOnlyShows()
{
    EverydayBench bench;
    const QStringList rows = bench.rows();
    selectInArticle(bench, u"house"_s);
    QVERIFY(bench.widget().transferTranslation2Word(false));
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.article().text(), u"house"_s);
    QCOMPARE(bench.history(), QStringList());
    bench.typeLetter(u'c'); // still connected afterwards
    QCOMPARE(bench.currentWord(), u"cat"_s);
}

void TestTransfer::transferSelectsTheEntrysText()
{
    EverydayBench bench;
    selectInArticle(bench, u"house"_s);
    bench.widget().transferTranslation2Word(true);
    QCOMPARE(bench.selectedInEntry(), u"house"_s);
}

void TestTransfer::transferWithoutADictionaryWarnsAndGoesOn()
{
    LookupBench bench;
    bench.article().selectAll();
    const WarningCapture warnings;
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(warnings.count(u"ASSERT: \"_dictionary.isOpen()\" in teskelmainwidget.cpp ("_s), 1);
    QCOMPARE(bench.typed(), QString());
}

void TestTransfer::hugeSelectionIsCutDown()
{
    EverydayBench bench;
    selectInArticle(bench, u"houseb"_s + QString(30000, u'x'));
    QVERIFY(bench.widget().transferTranslation2Word(true));
    QCOMPARE(bench.typed(), u"houseb"_s);
}

void TestTransfer::crossLookupEndsInTheOtherDictionary()
{
    EverydayBench bench;
    const QString reverse = bench.write(u"Ger2Eng.PDB"_s, {{"House", "Musikstil"}});
    bench.type(u"home"_s);
    selectInArticle(bench, u"a (house)"_s, u"(house)"_s);
    QVERIFY(bench.widget().transferTranslation2Word(false));
    QVERIFY(bench.widget().fileOpen(reverse, false));
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.articleText(), u"House\nMusikstil"_s);
}

void TestTransfer::randomWordIsLookedUpAndSelected()
{
    EverydayBench bench;
    QStringList words;
    for (int times = 0; times < 5; ++times) {
        bench.widget().randomWord();
        words.append(bench.typed());
        QVERIFY(!words.last().isEmpty());
        QCOMPARE(bench.currentWord(), words.last());
        QCOMPARE(bench.selectedInEntry(), words.last());
        QVERIFY(bench.article().text().startsWith("<p><b>"_L1 + words.last()));
    }
    words.removeDuplicates();
    QVERIFY(words.size() > 1);
}

void TestTransfer::randomWordWithFindOnEnterOnlyShows()
{
    EverydayBench bench(findOnEnter);
    bench.widget().randomWord();
    QVERIFY(!bench.typed().isEmpty());
    QCOMPARE(bench.list().currentItem(), -1);
}

void TestTransfer::randomWordWithoutADictionaryDoesNothing()
{
    LookupBench bench;
    bench.widget().randomWord();
    QCOMPARE(bench.typed(), QString());
}

void TestTransfer::copyTakesTheEntrysText()
{
    LookupBench bench;
    bench.type(u"m\u00FCesli"_s);
    bench.widget().editCopy();
    QCOMPARE(QApplication::clipboard()->text(), u"m\u00FCesli"_s);
}

void TestTransfer::copyOfAnEmptyEntryLeavesTheClipboard()
{
    LookupBench bench;
    QApplication::clipboard()->setText(u"kept"_s);
    bench.widget().editCopy();
    QCOMPARE(QApplication::clipboard()->text(), u"kept"_s);
}

void TestTransfer::copyTranslationTakesTheSourceWithItsTags()
{
    EverydayBench bench;
    bench.type(u"house"_s);
    bench.widget().editCopyTranslation();
    QVERIFY(QApplication::clipboard()->text().startsWith(u"<p><b>"_s));
    QCOMPARE(QApplication::clipboard()->text(),
             u"<p><b>house</b></p><p><b><font color=\"#0000FF\">1.</font></b> Haus"_s);
}

void TestTransfer::copyTranslationOfAnEmptyArticleLeavesTheClipboard()
{
    LookupBench bench;
    QApplication::clipboard()->setText(u"kept"_s);
    bench.article().clear();
    bench.widget().editCopyTranslation();
    QCOMPARE(QApplication::clipboard()->text(), u"kept"_s);
}

void TestTransfer::pasteLooksUpAndSelectsNothing()
{
    EverydayBench bench;
    QApplication::clipboard()->setText(u"houseboat"_s);
    bench.widget().editPaste();
    QCOMPARE(bench.typed(), u"houseboat"_s);
    QCOMPARE(bench.selectedInEntry(), QString());
    QCOMPARE(bench.currentWord(), u"houseboat"_s);
}

void TestTransfer::pasteOfAnEmptyClipboardLeavesTheEntry()
{
    EverydayBench bench;
    bench.type(u"cat"_s);
    bench.widget().editPaste();
    QCOMPARE(bench.typed(), u"cat"_s);
}

QTEST_MAIN(TestTransfer)
#include "test_transfer.moc"
