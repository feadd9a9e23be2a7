// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "widgets/qteskelscrollbar.h"

#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

QStyleOptionSlider optionOf(const QTeskelScrollBar& bar)
{
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.subControls = QStyle::SC_All;
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.singleStep = bar.singleStep();
    option.sliderPosition = option.sliderValue = bar.value();
    return option;
}

/// The middle of one control of a scroll bar.
QPoint controlCentre(const QTeskelScrollBar& bar, QStyle::SubControl control)
{
    const QStyleOptionSlider option = optionOf(bar);
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, control, &bar).center();
}

/// The article above the list.
void stacked(PreferencesData& preferences)
{
    preferences.setLayout(PreferencesData::Horizontal);
}

void click(QTeskelScrollBar& bar, QStyle::SubControl control)
{
    QTest::mouseClick(&bar, Qt::LeftButton, {}, controlCentre(bar, control));
}

} // namespace

/// A walk through the dictionary with keys, taps and the scroll bar, on a window as a person has
/// it.
class TestNavigation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void arrowKeysWalkOnFromTheTypedWord();
    void downFromTheLastRowWalksToTheEndOfTheDictionary();
    void upFromTheFirstRowWalksToTheBeginningOfTheDictionary();
    void pageKeysWalkThroughTheDictionary();
    void homeAndEndKeysReachTheEdgesOfTheRows();
    void scrollBarArrowsStepOneWord_data();
    void scrollBarArrowsStepOneWord();
    void scrollBarTroughStepsOneWord();
    void heldScrollBarArrowWalksOn();
    void anotherDictionaryShowsItsFirstWords();

    void tapShowsTheArticleAndSelectsTheEntrysText();
    void choosingARowStartsNoLookup();
    void typingReplacesTheWordOfAChosenRow();
    void navigationKeysAddNothingToTheHistory();
    void tapsEnterTheHistory();
    void scrollBarDownAddsNothingToTheHistory();
    void scrollBarUpOnTheFirstRowAddsTheWordThatScrollsIn();
    void emptyRowIsIgnored();
    void leftAndRightMoveTheCaretOnly();
};

void TestNavigation::init()
{
    failOnUnexpectedWarnings();
}

/// A bench whose view is shown and open.
class ShownBench : public LookupBench
{
public:
    explicit ShownBench(QSize size = {240, 320})
        : ShownBench(nullptr, size)
    {
    }

    explicit ShownBench(Prepare prepare, QSize size = {240, 320})
        : LookupBench(prepare)
    {
        open(everydayEntries());
        widget().resize(size);
        widget().show();
        if (!QTest::qWaitForWindowExposed(&widget()))
            qFatal("the view does not show");
    }

    void press(Qt::Key key) { QTest::keyClick(&entry(), key); }

    /// The current row in the viewport of the list.
    QRect currentRow() const { return list().itemRect(list().item(list().currentItem())); }

    bool isCurrentWhollyInView() const
    {
        return currentRow().isValid() && list().viewport()->rect().contains(currentRow());
    }
};

void TestNavigation::arrowKeysWalkOnFromTheTypedWord()
{
    ShownBench bench;
    bench.type(u"house"_s);
    for (const QString& word : {u"houseboat"_s, u"houses"_s, u"m\u00FCesli"_s, u"w000"_s}) {
        bench.press(Qt::Key_Down);
        QCOMPARE(bench.currentWord(), word);
        QCOMPARE(bench.typed(), word);
        QVERIFY(bench.article().text().startsWith("<p><b>"_L1 + word + "</b></p>"_L1));
    }
    bench.press(Qt::Key_Up);
    QCOMPARE(bench.typed(), u"m\u00FCesli"_s);
    QCOMPARE(bench.rows().first(), u"house"_s); // nothing was looked up, nothing scrolled
}

void TestNavigation::downFromTheLastRowWalksToTheEndOfTheDictionary()
{
    ShownBench bench;
    bench.type(u"w020"_s);
    for (int row = 1; row < 19; ++row) {
        bench.press(Qt::Key_Down);
        QCOMPARE(bench.typed(), numberedWord(20 + row));
    }
    // On the last row the release scrolls one further.
    bench.press(Qt::Key_Down);
    QCOMPARE(bench.typed(), u"w040"_s);
    for (int more = 0; more < 20; ++more)
        bench.press(Qt::Key_Down);
    QCOMPARE(bench.typed(), u"zebra"_s);
    QCOMPARE(bench.list().currentItem(), 19);
    QCOMPARE(bench.rows(), numberedWords(31, 49) << u"zebra"_s);
    QCOMPARE(bench.articleText(), u"zebra\nZebra"_s);
}

void TestNavigation::upFromTheFirstRowWalksToTheBeginningOfTheDictionary()
{
    ShownBench bench;
    bench.type(u"cat"_s);
    for (const QString& word : {u"bear"_s, u"apple"_s, u"ant"_s, u"ant"_s}) {
        bench.press(Qt::Key_Up);
        QCOMPARE(bench.typed(), word);
        QCOMPARE(bench.list().currentItem(), 0);
    }
}

void TestNavigation::pageKeysWalkThroughTheDictionary()
{
    ShownBench bench;
    bench.type(u"ant"_s);
    const int page = bench.list().numItemsVisible();
    QVERIFY(page > 2 && page < 20);
    bench.press(Qt::Key_PageDown);
    QCOMPARE(bench.list().currentItem(), page);
    QVERIFY(bench.list().itemVisible(page));
    for (int more = 0; more < 100; ++more)
        bench.press(Qt::Key_PageDown);
    QCOMPARE(bench.typed(), u"zebra"_s);
    QVERIFY(bench.list().itemVisible(19));
    for (int more = 0; more < 100; ++more)
        bench.press(Qt::Key_PageUp);
    QCOMPARE(bench.typed(), u"ant"_s);
    QVERIFY(bench.list().itemVisible(0));
}

void TestNavigation::homeAndEndKeysReachTheEdgesOfTheRows()
{
    ShownBench bench;
    bench.type(u"w010"_s);
    bench.press(Qt::Key_End);
    QCOMPARE(bench.typed(), u"w030"_s);
    QCOMPARE(bench.rows(), numberedWords(11, 30));
    bench.press(Qt::Key_Home);
    QCOMPARE(bench.typed(), u"w010"_s);
    QCOMPARE(bench.rows(), numberedWords(10, 29));
}

void TestNavigation::scrollBarArrowsStepOneWord_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("rows fit badly") << QSize(240, 320);
    QTest::newRow("all rows fit") << QSize(800, 1000);
}

void TestNavigation::scrollBarArrowsStepOneWord()
{
    QFETCH(QSize, size);
    ShownBench bench(size);
    bench.type(u"w000"_s);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    for (int number = 1; number <= 25; ++number) {
        click(bar, QStyle::SC_ScrollBarAddLine);
        QCOMPARE(bench.typed(), numberedWord(number));
        QVERIFY(bench.list().itemVisible(bench.list().currentItem()));
    }
    for (int number = 24; number >= 0; --number) {
        click(bar, QStyle::SC_ScrollBarSubLine);
        QCOMPARE(bench.typed(), numberedWord(number));
        QVERIFY(bench.list().itemVisible(bench.list().currentItem()));
    }
    click(bar, QStyle::SC_ScrollBarSubLine);
    QCOMPARE(bench.typed(), u"m\u00FCesli"_s);
}

void TestNavigation::scrollBarTroughStepsOneWord()
{
    ShownBench bench;
    bench.type(u"w000"_s);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    QTRY_VERIFY(bar.maximum() > 0);
    click(bar, QStyle::SC_ScrollBarAddPage);
    QCOMPARE(bench.typed(), u"w001"_s);
    bar.setValue(bar.maximum());
    click(bar, QStyle::SC_ScrollBarSubPage);
    QCOMPARE(bench.typed(), u"w000"_s);
}

void TestNavigation::heldScrollBarArrowWalksOn()
{
    ShownBench bench;
    bench.type(u"w000"_s);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    const QPoint arrow = controlCentre(bar, QStyle::SC_ScrollBarAddLine);
    QTest::mousePress(&bar, Qt::LeftButton, {}, arrow);
    QTRY_VERIFY(bench.typed() >= u"w003"_s);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, arrow);
    QVERIFY(bench.history() == QStringList{u"w000"_s});
}

void TestNavigation::anotherDictionaryShowsItsFirstWords()
{
    ShownBench bench(&stacked);
    const QString other = bench.write(u"Other.PDB"_s, numberedEntries(50));
    bench.type(u"house"_s);
    for (int times = 0; times < 30; ++times)
        bench.press(Qt::Key_Down);
    QVERIFY(bench.list().contentsY() > 0);
    bench.type(QString());
    QVERIFY(bench.widget().fileOpen(other, true));
    QCOMPARE(bench.rows(), numberedWords(0, 19));
    QCOMPARE(bench.list().contentsY(), 0);
    QCOMPARE(bench.list().topItem(), 0);
    QCOMPARE(bench.list().verticalScrollBar()->value(), 0);
}

void TestNavigation::tapShowsTheArticleAndSelectsTheEntrysText()
{
    ShownBench bench;
    const QTeskelListBoxItem* const row = bench.list().item(3);
    QTest::mouseClick(bench.list().viewport(), Qt::LeftButton, {},
                      bench.list().itemRect(row).center());
    QCOMPARE(bench.typed(), u"cat"_s);
    QCOMPARE(bench.selectedInEntry(), u"cat"_s);
    QCOMPARE(bench.articleText(), u"cat\nKatze"_s);
}

void TestNavigation::choosingARowStartsNoLookup()
{
    ShownBench bench;
    const QSignalSpy typed(&bench.entry(), &QTeskelComboBox::textChanged);
    const QSignalSpy chosen(&bench.list(),
                            qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged));
    const QStringList rows = bench.rows();
    bench.list().setSelected(6, true);
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.selectedInEntry(), u"house"_s);
    QCOMPARE(typed.count(), 1);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(bench.rows(), rows); // a lookup would have brought the word to the top
    bench.typeLetter(u'c');
    QCOMPARE(typed.count(), 2); // connected again, once
    QCOMPARE(bench.currentWord(), u"cat"_s);
}

void TestNavigation::typingReplacesTheWordOfAChosenRow()
{
    ShownBench bench;
    bench.list().setSelected(6, true);
    bench.typeLetter(u'd');
    QCOMPARE(bench.typed(), u"d"_s);
    QCOMPARE(bench.currentWord(), u"dog"_s);
}

void TestNavigation::navigationKeysAddNothingToTheHistory()
{
    ShownBench bench;
    bench.type(u"w010"_s);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Home,
                              Qt::Key_Up, Qt::Key_PageDown}) {
        for (int times = 0; times < 3; ++times)
            bench.press(key);
    }
    QCOMPARE(bench.history(), QStringList{u"w010"_s});
    QCOMPARE(bench.storedHistory(), QStringList{u"w010"_s});
}

void TestNavigation::tapsEnterTheHistory()
{
    ShownBench bench;
    for (const int row : {3, 1}) {
        QTest::mouseClick(bench.list().viewport(), Qt::LeftButton, {},
                          bench.list().itemRect(bench.list().item(row)).center());
    }
    QCOMPARE(bench.history(), (QStringList{u"apple"_s, u"cat"_s}));
}

void TestNavigation::scrollBarDownAddsNothingToTheHistory()
{
    ShownBench bench;
    bench.type(u"w010"_s);
    for (int times = 0; times < 25; ++times)
        click(*bench.list().verticalScrollBar(), QStyle::SC_ScrollBarAddLine);
    QCOMPARE(bench.typed(), u"w035"_s);
    QCOMPARE(bench.history(), QStringList{u"w010"_s});
}

void TestNavigation::scrollBarUpOnTheFirstRowAddsTheWordThatScrollsIn()
{
    ShownBench bench;
    bench.type(u"w010"_s);
    click(*bench.list().verticalScrollBar(), QStyle::SC_ScrollBarSubLine);
    QCOMPARE(bench.history(), (QStringList{u"w009"_s, u"w010"_s}));
}

void TestNavigation::emptyRowIsIgnored()
{
    ShownBench bench;
    bench.type(u"house"_s);
    const QString article = bench.article().text();
    bench.list().insertItem(new QDictionaryListBoxItem(QString(), CursorPosition::invalid()));
    bench.list().setSelected(bench.list().count() - 1, true);
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.article().text(), article);
    bench.widget().listBoxSelectionChanged(nullptr);
    QCOMPARE(bench.typed(), u"house"_s);
}

void TestNavigation::leftAndRightMoveTheCaretOnly()
{
    ShownBench bench;
    bench.type(u"house"_s);
    bench.press(Qt::Key_Left);
    QCOMPARE(bench.entry().lineEdit()->cursorPosition(), 4);
    bench.press(Qt::Key_Right);
    QCOMPARE(bench.entry().lineEdit()->cursorPosition(), 5);
    QCOMPARE(bench.currentWord(), u"house"_s);
}

QTEST_MAIN(TestNavigation)
#include "test_navigation.moc"
