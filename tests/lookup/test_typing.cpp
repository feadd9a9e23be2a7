// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "tests/support/warningcapture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

void findOnEnter(PreferencesData& preferences)
{
    preferences.setFindType(PreferencesData::FindOnEnter);
}

/// Opens the entry's list and chooses the item at `index` by keys.
void chooseFromTheList(const LookupBench& bench, int index)
{
    bench.entry().showPopup();
    QAbstractItemView* const list = bench.entry().view();
    QVERIFY(list->isVisible());
    list->setCurrentIndex(bench.entry().model()->index(index, 0));
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(!list->isVisible());
}

} // namespace

/// What a person types into the entry, and what becomes of it.
class TestTyping : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void looksUpAfterEveryChange();
    void showsTheArticleOfTheExactWord();
    void unknownBeginningLeavesTheListAndClearsTheArticle();
    void caseDoesNotMatter();
    void decomposedLettersAreFound();
    void whatNoHeadwordIsWrittenLikeMatchesNothing_data();
    void whatNoHeadwordIsWrittenLikeMatchesNothing();
    void emptyTextLooksNothingUp();
    void pastedControlCharactersAndBlanksDoNotHideTheWord_data();
    void pastedControlCharactersAndBlanksDoNotHideTheWord();
    void blankBehindAWordLeadsOnToLongerOnes();
    void blanksAloneMatchNothing();
    void oneCharacterFillsTheListAndTheArticleOnce();
    void typingBeforeADictionaryOpensDoesNothing();
    void emptyWordIsReported();

    void exactMatchesEnterTheHistory();
    void historyNeverHoldsMoreThanSix();
    void wordInTheHistoryIsNotAddedAgainAndStays();
    void historyTellsCaseApart();
    void emptyWordDoesNotEnterTheHistory();
    void historyUpkeepStartsNoLookup();
    void historySurvivesARestart();
    void returnPutsTheTypedTextIntoTheEntrysList();
    void choosingFromTheHistoryLooksTheWordUp();

    void findOnEnterTypingMovesNothing();
    void findOnEnterMovesTheListToTheExactWord();
    void findOnEnterLeavesTheListWithoutAMatch();
    void findOnEnterFindsWhatWasPastedWithALineFeed();
    void findOnEnterWorksWithAFullHistory();
    void findOnEnterTakesAChoiceFromTheList();
    void findOnEnterTakesAChosenWordWithoutItsBlanks();
    void findOnEnterReportsAnEmptyItem();
    void findOnEnterShowsTheArticleOfAChosenRow();
    void activationDoesNothingWhenTypingFinds();
};

void TestTyping::init()
{
    failOnUnexpectedWarnings();
}

void TestTyping::looksUpAfterEveryChange()
{
    EverydayBench bench;
    const QList<QPair<QString, QString>> expected{
        {u"h"_s, u"home"_s},     {u"ho"_s, u"home"_s},     {u"hou"_s, u"house"_s},
        {u"hous"_s, u"house"_s}, {u"house"_s, u"house"_s}, {u"houseb"_s, u"houseboat"_s},
    };
    bench.entry().lineEdit()->clear();
    for (const auto& [text, word] : expected) {
        bench.typeLetter(text.back());
        QCOMPARE(bench.typed(), text);
        QCOMPARE(bench.rows().first(), word);
        QCOMPARE(bench.currentWord(), word);
        QCOMPARE(bench.article().text().isEmpty(), text != word);
    }
}

void TestTyping::showsTheArticleOfTheExactWord()
{
    EverydayBench bench;
    bench.type(u"home"_s);
    QCOMPARE(bench.article().text(),
             u"<p><b>home</b></p><p><b><font color=\"#0000FF\">1.</font></b> Heim</p><p>\n"
             "<b><font color=\"#0000FF\">2.</font></b> Zuhause"_s);
    QCOMPARE(bench.articleText(), u"home\n1. Heim\n2. Zuhause"_s);
}

void TestTyping::unknownBeginningLeavesTheListAndClearsTheArticle()
{
    EverydayBench bench;
    bench.type(u"house"_s);
    const QStringList rows = bench.rows();
    bench.typeLetter(u'x');
    QCOMPARE(bench.article().text(), QString());
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.currentWord(), u"house"_s);
}

void TestTyping::caseDoesNotMatter()
{
    EverydayBench bench;
    bench.type(u"HOUSEBoat"_s);
    QCOMPARE(bench.currentWord(), u"houseboat"_s);
    QCOMPARE(bench.articleText(), u"houseboat\nHausboot"_s);
    QVERIFY(bench.history().contains(u"HOUSEBoat"_s));
}

void TestTyping::decomposedLettersAreFound()
{
    EverydayBench bench;
    bench.entry().lineEdit()->setText(u"mu\u0308esli"_s);
    QCOMPARE(bench.currentWord(), u"m\u00FCesli"_s);
    QCOMPARE(bench.articleText(), u"m\u00FCesli\nM\u00FCsli"_s);
    QCOMPARE(bench.storedHistory(), QStringList{u"m\u00FCesli"_s});
}

void TestTyping::whatNoHeadwordIsWrittenLikeMatchesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Cyrillic after a word") << u"ant\u0436"_s;
    QTest::newRow("Cyrillic alone") << u"\u0436"_s;
    QTest::newRow("NUL after a word") << QString(u"ant"_s + QChar(0));
    QTest::newRow("NUL alone") << QString(QChar(0));
    QTest::newRow("emoji alone") << u"\U0001F600"_s;
}

void TestTyping::whatNoHeadwordIsWrittenLikeMatchesNothing()
{
    QFETCH(QString, text);
    LookupBench bench;
    // Headwords as a careless conversion would ask for them.
    bench.open({{"?", "question mark"}, {"ant", "Ameise"}, {"ant?", "ant?"}, {"zebra", "Zebra"}});
    bench.entry().lineEdit()->setText(u"zebra"_s);
    const QStringList rows = bench.rows();
    bench.entry().lineEdit()->setText(text);
    QCOMPARE(bench.article().text(), QString());
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.currentWord(), u"zebra"_s);
    QCOMPARE(bench.history(), QStringList{u"zebra"_s});
}

void TestTyping::emptyTextLooksNothingUp()
{
    EverydayBench bench;
    bench.type(u"house"_s);
    const QString article = bench.article().text();
    bench.entry().lineEdit()->clear();
    bench.widget().find();
    QCOMPARE(bench.article().text(), article);
    QCOMPARE(bench.currentWord(), u"house"_s);
}

void TestTyping::pastedControlCharactersAndBlanksDoNotHideTheWord_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("word");
    QTest::newRow("line feed") << u"house\n"_s << u"house"_s;
    QTest::newRow("tab") << u"\thouse"_s << u"house"_s;
    QTest::newRow("blanks") << u"  house "_s << u"house"_s;
    QTest::newRow("line feed inside") << u"ice\ncream\r\n"_s << u"ice cream"_s;
}

void TestTyping::pastedControlCharactersAndBlanksDoNotHideTheWord()
{
    QFETCH(QString, pasted);
    QFETCH(QString, word);
    LookupBench bench;
    bench.open({{"house", "Haus"}, {"house arrest", "Hausarrest"}, {"ice cream", "Eis"}});
    QApplication::clipboard()->setText(pasted);
    bench.widget().editPaste();
    QCOMPARE(bench.typed(), pasted);
    QCOMPARE(bench.currentWord(), word);
    QVERIFY(bench.article().text().startsWith("<p><b>"_L1 + word + "</b></p>"_L1));
    QCOMPARE(bench.history(), QStringList{word});
    QCOMPARE(bench.storedHistory(), QStringList{word});
}

void TestTyping::blankBehindAWordLeadsOnToLongerOnes()
{
    LookupBench bench;
    bench.open({{"ice", "Eis"}, {"ice age", "Eiszeit"}, {"ice cream", "Speiseeis"}});
    bench.type(u"ice "_s);
    QCOMPARE(bench.currentWord(), u"ice age"_s);
    QCOMPARE(bench.article().text(), QString());
    QCOMPARE(bench.history(), QStringList{u"ice"_s}); // from before the blank
}

void TestTyping::blanksAloneMatchNothing()
{
    EverydayBench bench;
    bench.type(u"house"_s);
    bench.entry().lineEdit()->setText(u" \n"_s);
    QCOMPARE(bench.article().text(), QString());
    QCOMPARE(bench.currentWord(), u"house"_s);
    QCOMPARE(bench.history(), QStringList{u"house"_s});
}

void TestTyping::oneCharacterFillsTheListAndTheArticleOnce()
{
    EverydayBench bench;
    bench.type(u"hous"_s);
    const QSignalSpy typed(&bench.entry(), &QTeskelComboBox::textChanged);
    const QSignalSpy shown(bench.article().document(), &QTextDocument::contentsChanged);
    const QSignalSpy chosen(&bench.list(),
                            qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged));
    bench.typeLetter(u'e');
    QCOMPARE(bench.articleText(), u"house\n1. Haus"_s);
    QCOMPARE(typed.count(), 1);
    QCOMPARE(shown.count(), 1);
    QVERIFY(chosen.count() <= 1);
}

void TestTyping::typingBeforeADictionaryOpensDoesNothing()
{
    LookupBench bench;
    const QString initial = bench.article().text();
    bench.type(u"house"_s);
    QCOMPARE(bench.article().text(), initial);
    QCOMPARE(bench.history(), QStringList());
}

void TestTyping::emptyWordIsReported()
{
    EverydayBench bench;
    const WarningCapture warnings;
    QVERIFY(bench.widget().findWord("", false).isInvalid());
    QCOMPARE(warnings.count(u"ASSERT: \"strlen(word)>0\" in teskelmainwidget.cpp ("_s), 1);
}

void TestTyping::exactMatchesEnterTheHistory()
{
    EverydayBench bench;
    bench.type(u"houses"_s);
    QCOMPARE(bench.history(), (QStringList{u"houses"_s, u"house"_s}));
    QCOMPARE(bench.storedHistory(), (QStringList{u"house"_s, u"houses"_s}));
}

void TestTyping::historyNeverHoldsMoreThanSix()
{
    EverydayBench bench;
    QStringList expected;
    for (int number = 0; number < 10; ++number) {
        bench.type(numberedWord(number));
        expected.prepend(numberedWord(number));
        expected = expected.first(qMin(expected.size(), 6));
        QCOMPARE(bench.history(), expected);
        QCOMPARE(bench.typed(), numberedWord(number));
        QVERIFY(bench.storedHistory().size() <= 6);
    }
}

void TestTyping::wordInTheHistoryIsNotAddedAgainAndStays()
{
    EverydayBench bench;
    for (const QString& word : {u"ant"_s, u"bear"_s, u"cat"_s, u"ant"_s})
        bench.type(word);
    QCOMPARE(bench.history(), (QStringList{u"cat"_s, u"bear"_s, u"ant"_s}));
}

void TestTyping::historyTellsCaseApart()
{
    EverydayBench bench;
    bench.type(u"ant"_s);
    bench.type(u"Ant"_s);
    QCOMPARE(bench.history(), (QStringList{u"Ant"_s, u"ant"_s}));
}

void TestTyping::emptyWordDoesNotEnterTheHistory()
{
    LookupBench bench;
    QString word;
    bench.widget().saveMRUList(word);
    QCOMPARE(bench.history(), QStringList());
    QCOMPARE(bench.storedHistory(), QStringList());
}

void TestTyping::historyUpkeepStartsNoLookup()
{
    EverydayBench bench;
    bench.type(u"hou"_s);
    const QSignalSpy typed(&bench.entry(), &QTeskelComboBox::textChanged);
    for (const QString& text : numberedWords(0, 7)) {
        QString word = text;
        bench.widget().saveMRUList(word);
    }
    QCOMPARE(typed.count(), 0);
    QCOMPARE(bench.typed(), u"hou"_s);
    QCOMPARE(bench.currentWord(), u"house"_s);
    QCOMPARE(bench.article().text(), QString());
}

void TestTyping::historySurvivesARestart()
{
    EverydayBench bench;
    bench.type(u"ant"_s);
    bench.type(u"m\u00FCesli"_s);
    bench.stop();
    bench.start();
    QCOMPARE(bench.history(), (QStringList{u"ant"_s, u"m\u00FCesli"_s}));
}

void TestTyping::returnPutsTheTypedTextIntoTheEntrysList()
{
    EverydayBench bench;
    bench.type(u"xyz"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Return);
    QCOMPARE(bench.history(), QStringList{u"xyz"_s});
    QCOMPARE(bench.storedHistory(), QStringList());
}

void TestTyping::choosingFromTheHistoryLooksTheWordUp()
{
    EverydayBench bench;
    bench.type(u"cat"_s);
    bench.type(u"dog"_s);
    bench.widget().show();
    chooseFromTheList(bench, 1);
    QCOMPARE(bench.typed(), u"cat"_s);
    QCOMPARE(bench.currentWord(), u"cat"_s);
    QCOMPARE(bench.articleText(), u"cat\nKatze"_s);
}

void TestTyping::findOnEnterTypingMovesNothing()
{
    EverydayBench bench(findOnEnter);
    const QStringList rows = bench.rows();
    const QString article = bench.article().text();
    bench.type(u"house"_s);
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.list().currentItem(), -1);
    QCOMPARE(bench.article().text(), article);
    QCOMPARE(bench.history(), QStringList());
}

void TestTyping::findOnEnterMovesTheListToTheExactWord()
{
    EverydayBench bench(findOnEnter);
    const QString article = bench.article().text();
    bench.type(u"House"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Return);
    QCOMPARE(bench.currentWord(), u"house"_s);
    QCOMPARE(bench.article().text(), article);
    QCOMPARE(bench.typed(), u"House"_s);
}

void TestTyping::findOnEnterLeavesTheListWithoutAMatch()
{
    EverydayBench bench(findOnEnter);
    const QStringList rows = bench.rows();
    bench.type(u"hou"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Return);
    bench.type(u"hou\u0436"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Return);
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.list().currentItem(), -1);
}

void TestTyping::findOnEnterFindsWhatWasPastedWithALineFeed()
{
    EverydayBench bench(findOnEnter);
    for (const QString& text : {u"house\n"_s, u"\t"_s}) {
        bench.entry().lineEdit()->setText(text);
        QTest::keyClick(&bench.entry(), Qt::Key_Return);
        QCOMPARE(bench.currentWord(), u"house"_s);
    }
}

void TestTyping::findOnEnterWorksWithAFullHistory()
{
    EverydayBench bench(findOnEnter);
    for (int number = 0; number < 9; ++number) {
        bench.type(numberedWord(number));
        QTest::keyClick(&bench.entry(), Qt::Key_Return);
        QCOMPARE(bench.currentWord(), numberedWord(number));
        QVERIFY(bench.entry().count() <= 6);
    }
}

void TestTyping::findOnEnterTakesAChoiceFromTheList()
{
    EverydayBench bench(findOnEnter);
    bench.entry().addItems({u"cat"_s, u"dog"_s});
    bench.widget().show();
    chooseFromTheList(bench, 1);
    QCOMPARE(bench.currentWord(), u"dog"_s);
}

// First as it stands, and no further once it is found.
void TestTyping::findOnEnterTakesAChosenWordWithoutItsBlanks()
{
    EverydayBench bench(findOnEnter);
    bench.entry().addItems({u"cat"_s, u" dog "_s});
    bench.widget().show();
    chooseFromTheList(bench, 1);
    QCOMPARE(bench.currentWord(), u"dog"_s);
    chooseFromTheList(bench, 0);
    QCOMPARE(bench.currentWord(), u"cat"_s);
}

void TestTyping::findOnEnterReportsAnEmptyItem()
{
    EverydayBench bench(findOnEnter);
    const WarningCapture warnings;
    bench.widget().comboActivated(99);
    QCOMPARE(warnings.count(u"ASSERT: \"item.length()>0\" in teskelmainwidget.cpp ("_s), 1);
    QCOMPARE(bench.list().currentItem(), -1);
}

void TestTyping::findOnEnterShowsTheArticleOfAChosenRow()
{
    EverydayBench bench(findOnEnter);
    bench.type(u"house"_s);
    QTest::keyClick(&bench.entry(), Qt::Key_Return);
    QTest::keyClick(&bench.entry(), Qt::Key_Down);
    QCOMPARE(bench.articleText(), u"houseboat\nHausboot"_s);
}

void TestTyping::activationDoesNothingWhenTypingFinds()
{
    EverydayBench bench;
    bench.entry().addItems({u"cat"_s, u"dog"_s});
    const QStringList rows = bench.rows();
    bench.widget().comboActivated(1);
    QCOMPARE(bench.rows(), rows);
}

QTEST_MAIN(TestTyping)
#include "test_typing.moc"
