// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "widgets/scrolling/qteskelscrollbar.h"

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

QStyle::SubControl controlAt(const QTeskelScrollBar& bar, QPoint position)
{
    const QStyleOptionSlider option = optionOf(bar);
    return bar.style()->hitTestComplexControl(QStyle::CC_ScrollBar, &option, position, &bar);
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
    void tappedBarKeepsTheCurrentRowWhollyInView_data();
    void tappedBarKeepsTheCurrentRowWhollyInView();
    void tapKeepsTheCurrentRowInItsPlace();
    void tapBringsBackARowThatWasScrolledAway_data();
    void tapBringsBackARowThatWasScrolledAway();
    void wheelAndSliderScrollFreely();
    void resizingKeepsTheCurrentRowWhollyInView();
    void resizingLeavesARowThatWasScrolledAway();
    void togglingTheViewKeepsTheCurrentRowWhollyInView();
    void rearrangingKeepsTheCurrentRowWhollyInView();
    void rowsOfAnyHeightAreShownWhole_data();
    void rowsOfAnyHeightAreShownWhole();

    void tapShowsTheArticleAndSelectsTheEntrysText();
    void choosingARowStartsNoLookup();
    void typingReplacesTheWordOfAChosenRow();
    void navigationKeysAddNothingToTheHistory();
    void keyWhoseReleaseIsLostKeepsTheHistory_data();
    void keyWhoseReleaseIsLostKeepsTheHistory();
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
class ShownBench : public EverydayBench
{
public:
    explicit ShownBench(QSize size = {240, 320})
        : ShownBench(nullptr, size)
    {
    }

    explicit ShownBench(Prepare prepare, QSize size = {240, 320})
        : EverydayBench(prepare)
    {
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
    for (int repeats = 0; repeats < 2; ++repeats)
        bar.doAutoRepeat();
    QCOMPARE(bench.typed(), u"w003"_s);
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

void TestNavigation::tappedBarKeepsTheCurrentRowWhollyInView_data()
{
    QTest::addColumn<bool>("stack");
    QTest::addColumn<QSize>("size");
    QTest::newRow("stacked") << true << QSize(240, 320);
    QTest::newRow("side by side") << false << QSize(240, 320);
    QTest::newRow("all rows fit") << false << QSize(800, 1000);
}

void TestNavigation::tappedBarKeepsTheCurrentRowWhollyInView()
{
    QFETCH(bool, stack);
    QFETCH(QSize, size);
    ShownBench bench(stack ? &stacked : nullptr, size);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    const auto tap = [&](QStyle::SubControl arrow, QStyle::SubControl trough, int times) {
        // The trough has no room where all rows fit, nor at the end that is reached.
        const QPoint point = controlCentre(bar, trough);
        const bool hasTrough = times % 3 == 0 && controlAt(bar, point) == trough;
        QTest::mouseClick(&bar, Qt::LeftButton, {}, hasTrough ? point : controlCentre(bar, arrow));
    };
    bench.type(u"w000"_s);
    for (int number = 1; number <= 30; ++number) {
        tap(QStyle::SC_ScrollBarAddLine, QStyle::SC_ScrollBarAddPage, number);
        QCOMPARE(bench.typed(), numberedWord(number));
        QVERIFY2(bench.isCurrentWhollyInView(), qPrintable(bench.typed()));
    }
    for (int number = 29; number >= 0; --number) {
        tap(QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarSubPage, number);
        QCOMPARE(bench.typed(), numberedWord(number));
        QVERIFY2(bench.isCurrentWhollyInView(), qPrintable(bench.typed()));
    }
}

void TestNavigation::tapKeepsTheCurrentRowInItsPlace()
{
    ShownBench bench(&stacked);
    bench.type(u"w000"_s);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    bench.list().setSelected(5, true);
    bench.list().setContentsPos(0, bench.list().itemYPos(bench.list().item(4)));
    const int place = bench.currentRow().top();
    for (const auto arrow :
         {QStyle::SC_ScrollBarAddLine, QStyle::SC_ScrollBarAddLine, QStyle::SC_ScrollBarSubLine}) {
        click(bar, arrow);
        QCOMPARE(bench.currentRow().top(), place);
    }
    QCOMPARE(bench.list().currentItem(), 6);
}

void TestNavigation::tapBringsBackARowThatWasScrolledAway_data()
{
    QTest::addColumn<QStyle::SubControl>("arrow");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("toTheEnd");
    QTest::newRow("down, row above") << QStyle::SC_ScrollBarAddLine << 3 << true;
    QTest::newRow("down, row below") << QStyle::SC_ScrollBarAddLine << 14 << false;
    QTest::newRow("up, row above") << QStyle::SC_ScrollBarSubLine << 4 << true;
    QTest::newRow("up, row below") << QStyle::SC_ScrollBarSubLine << 15 << false;
    QTest::newRow("down, last row below") << QStyle::SC_ScrollBarAddLine << 19 << false;
    QTest::newRow("up, first row above") << QStyle::SC_ScrollBarSubLine << 0 << true;
}

void TestNavigation::tapBringsBackARowThatWasScrolledAway()
{
    QFETCH(QStyle::SubControl, arrow);
    QFETCH(int, row);
    QFETCH(bool, toTheEnd);
    ShownBench bench(&stacked);
    bench.type(u"w000"_s);
    bench.list().setSelected(row, true);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    bar.setValue(toTheEnd ? bar.maximum() : 0);
    QVERIFY(!bench.list().itemVisible(row));
    click(bar, arrow);
    QVERIFY(bench.isCurrentWhollyInView());
}

void TestNavigation::wheelAndSliderScrollFreely()
{
    ShownBench bench(&stacked);
    bench.type(u"w000"_s);
    QTeskelScrollBar& bar = *bench.list().verticalScrollBar();
    click(bar, QStyle::SC_ScrollBarAddLine);
    QWidget* const viewport = bench.list().viewport();
    const QPointF centre = viewport->rect().center();
    for (int notch = 0; notch < 20; ++notch) {
        QWheelEvent turn(centre, viewport->mapToGlobal(centre), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &turn);
    }
    QCOMPARE(bar.value(), bar.maximum());
    QVERIFY(!bench.list().itemVisible(bench.list().currentItem()));
    const QPoint slider = bar.sliderRect().center();
    bench.list().setSelected(19, true);
    QTest::mousePress(&bar, Qt::LeftButton, {}, slider);
    QTest::mouseMove(&bar, slider - QPoint(0, 500));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, slider - QPoint(0, 500));
    QCOMPARE(bar.value(), 0);
    QVERIFY(!bench.list().itemVisible(19));
    QCOMPARE(bench.typed(), u"w019"_s);
}

void TestNavigation::resizingKeepsTheCurrentRowWhollyInView()
{
    ShownBench bench(&stacked, {240, 480});
    bench.type(u"w000"_s);
    const int last = bench.list().numItemsVisible() - 2;
    bench.list().setSelected(last, true);
    QVERIFY(bench.isCurrentWhollyInView());
    const int height = bench.list().height();
    bench.widget().resize(240, 240);
    QTRY_VERIFY(bench.list().height() < height);
    QVERIFY(bench.isCurrentWhollyInView());
    QCOMPARE(bench.list().currentItem(), last);
}

void TestNavigation::resizingLeavesARowThatWasScrolledAway()
{
    ShownBench bench(&stacked, {240, 480});
    bench.type(u"w000"_s);
    bench.list().setContentsPos(0, bench.list().itemYPos(bench.list().item(3)));
    const int before = bench.list().contentsY();
    const int height = bench.list().height();
    bench.widget().resize(240, 440);
    QTRY_VERIFY(bench.list().height() < height);
    QCOMPARE(bench.list().contentsY(), before);
}

void TestNavigation::togglingTheViewKeepsTheCurrentRowWhollyInView()
{
    ShownBench bench(&stacked);
    bench.preferences().setViewType(PreferencesData::ToggleViewOff);
    bench.widget().resetMainLayout();
    bench.type(u"w000"_s);
    const int tall = bench.list().height();
    const int last = bench.list().numItemsVisible() - 2;
    bench.list().setSelected(last, true);
    QVERIFY(bench.isCurrentWhollyInView());
    bench.preferences().setViewType(PreferencesData::ToggleViewOn);
    bench.widget().resetMainLayout();
    QTRY_VERIFY(bench.list().height() < tall);
    QVERIFY(bench.isCurrentWhollyInView());
}

// The view is hidden meanwhile, as after the preferences.
void TestNavigation::rearrangingKeepsTheCurrentRowWhollyInView()
{
    ShownBench bench;
    bench.type(u"w000"_s);
    const int last = bench.list().numItemsVisible() - 2;
    bench.list().setSelected(last, true);
    QVERIFY(bench.isCurrentWhollyInView());
    const int height = bench.list().height();
    bench.preferences().setLayout(PreferencesData::Horizontal);
    bench.widget().resetLayout();
    QTRY_VERIFY(bench.list().height() < height);
    QTRY_VERIFY(bench.isCurrentWhollyInView());
    QCOMPARE(bench.list().currentItem(), last);
}

void TestNavigation::rowsOfAnyHeightAreShownWhole_data()
{
    QTest::addColumn<int>("remainder");
    QTest::newRow("even") << 0;
    QTest::newRow("odd") << 1;
}

void TestNavigation::rowsOfAnyHeightAreShownWhole()
{
    QFETCH(int, remainder);
    ShownBench bench(&stacked);
    QFont font = bench.list().font();
    for (int size = 8; size < 40 && bench.list().itemHeight() % 2 != remainder; ++size) {
        font.setPixelSize(size);
        bench.list().setFont(font);
    }
    QCOMPARE(bench.list().itemHeight() % 2, remainder);
    const auto isInView = [&bench] { return bench.isCurrentWhollyInView(); };
    bench.type(u"w000"_s);
    for (int row = 1; row < bench.list().count(); ++row) {
        QTest::keyClick(&bench.entry(), Qt::Key_Down);
        QVERIFY2(QTest::qWaitFor(isInView), qPrintable(bench.typed()));
    }
    for (int row = 1; row < bench.list().count(); ++row) {
        QTest::keyClick(&bench.entry(), Qt::Key_Up);
        QVERIFY2(QTest::qWaitFor(isInView), qPrintable(bench.typed()));
    }
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

void TestNavigation::keyWhoseReleaseIsLostKeepsTheHistory_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End})
        QTest::addRow("key %x", key) << key;
}

void TestNavigation::keyWhoseReleaseIsLostKeepsTheHistory()
{
    QFETCH(Qt::Key, key);
    ShownBench bench;
    bench.type(u"w010"_s);
    QTest::keyPress(&bench.entry(), key);
    // Another window, a menu or a dialog takes the keyboard, and with it the release.
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    other.activateWindow();
    other.setFocus();
    QTRY_VERIFY(!bench.entry().hasFocus());
    const QString passed = bench.typed();
    const int row = bench.list().currentItem() == 2 ? 3 : 2;
    QTest::mouseClick(bench.list().viewport(), Qt::LeftButton, {},
                      bench.list().itemRect(bench.list().item(row)).center());
    QVERIFY(bench.typed() != passed);
    QCOMPARE(bench.history(), (QStringList{bench.typed(), u"w010"_s}));
    // The rest of the navigation is none once more.
    bench.press(Qt::Key_Down);
    QCOMPARE(bench.history().size(), 2);
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
