// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/scrolling/qteskelscrollbar.h"

#include <QFontMetrics>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

using teskel::test::PlainItem;

namespace
{

/// A shown list without frame and bars whose view is 100 by 100 pixels.
class List : public QTeskelListBox
{
public:
    explicit List(int count, QSize size = {60, 20})
    {
        setFrameStyle(NoFrame);
        setHScrollBarMode(AlwaysOff);
        setVScrollBarMode(AlwaysOff);
        resize(100, 100);
        for (int number = 0; number < count; ++number)
            insertItem(new PlainItem(QString::number(number), size));
        show();
        refreshSlot();
    }

    QRect cell(int index) const { return itemRect(item(index)); }
    QPoint position() const { return {contentsX(), contentsY()}; }
    QTimer* updateTimer() const { return findChild<QTimer*>(u"listbox update timer"_s); }
    /// Whether all is laid out and painted that was asked for.
    void comeToRest()
    {
        QVERIFY(QTest::qWaitForWindowExposed(this));
        QTRY_VERIFY(!updateTimer()->isActive());
    }
};

} // namespace

class TestListBoxGrid : public QObject
{
    Q_OBJECT

private slots:
    void hintsAtWidth_data();
    void hintsAtWidth();
    void hintsAtHeight_data();
    void hintsAtHeight();
    void hintOfAnEmptyListIsARow();
    void hintHoldsTheFrame();
    void thereIsAtLeastOneColumnAndRow();
    void columnsAndRowsAreSetOneOrTheOther();
    void modesLayOutAtOnce();
    void itemSizesLayOutAtOnce();
    void widestItemIsThatOfAll();
    void itemRectFollowsScrolling();
    void topItemInColumns();
    void topAndBottomScrollSidewaysInColumnsAlone();
    void aColumnWiderThanTheViewIsShownFromItsMiddle();
    void aRowOfOddHeightIsWhollyShown();
    void indexesThatAreNotThereDoNotScroll();
    void updatesAreGathered();
    void contentsHaveTheSizeOfTheGridAtTheEventLoop();
    void refreshLaysOutAtOnce();
    void changesLayOutAnew_data();
    void changesLayOutAnew();
    void changesOfTheLookRepaint_data();
    void changesOfTheLookRepaint();
    void otherChangesDoNotLayOut();
    void typedTextCanBeEnded();
    void viewportIsSetUp();
};

void TestListBoxGrid::hintsAtWidth_data()
{
    QTest::addColumn<int>("widest");
    QTest::addColumn<int>("hinted");
    const int character = QFontMetrics(QTeskelListBox().font()).averageCharWidth();
    QTest::addRow("at least ten characters") << 3 * character << 10 * character;
    QTest::addRow("the widest item") << 20 * character + 1 << 20 * character + 1;
    QTest::addRow("at most forty characters") << 90 * character << 40 * character;
}

void TestListBoxGrid::hintsAtWidth()
{
    QFETCH(int, widest);
    QFETCH(int, hinted);
    List list(2, {1, 20});
    list.insertItem(new PlainItem(u"wide"_s, {widest, 20}), 1);
    QCOMPARE(list.sizeHint().width(), hinted + list.verticalScrollBar()->sizeHint().width());
}

void TestListBoxGrid::hintsAtHeight_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows");
    QTest::addRow("one") << 1 << 1;
    QTest::addRow("three") << 3 << 3;
    QTest::addRow("ten") << 10 << 10;
    QTest::addRow("at most ten") << 11 << 10;
}

void TestListBoxGrid::hintsAtHeight()
{
    QFETCH(int, count);
    QFETCH(int, rows);
    const List list(count, {60, 23});
    QCOMPARE(list.sizeHint().height(), rows * 23);
}

void TestListBoxGrid::hintOfAnEmptyListIsARow()
{
    const List list(0);
    QCOMPARE(list.sizeHint().height(), list.fontMetrics().lineSpacing() + 2);
}

void TestListBoxGrid::hintHoldsTheFrame()
{
    List list(3);
    const QSize before = list.sizeHint();
    list.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    list.setLineWidth(4);
    QCOMPARE(list.sizeHint() - before, QSize(8, 8));
}

void TestListBoxGrid::thereIsAtLeastOneColumnAndRow()
{
    List list(6);
    list.setColumnMode(0);
    QCOMPARE(list.numColumns(), 1);
    QCOMPARE(list.numRows(), 6);
    list.setRowMode(0);
    QCOMPARE(list.numRows(), 1);
    QCOMPARE(list.numColumns(), 6);
}

void TestListBoxGrid::columnsAndRowsAreSetOneOrTheOther()
{
    List list(6);
    list.setColumnMode(3);
    QCOMPARE(list.columnMode(), QTeskelListBox::FixedNumber);
    QCOMPARE(list.rowMode(), QTeskelListBox::Variable);
    list.setRowMode(3);
    QCOMPARE(list.rowMode(), QTeskelListBox::FixedNumber);
    QCOMPARE(list.columnMode(), QTeskelListBox::Variable);
    list.setColumnMode(QTeskelListBox::FitToWidth);
    QCOMPARE(list.columnMode(), QTeskelListBox::FitToWidth);
    QCOMPARE(list.rowMode(), QTeskelListBox::Variable);
    list.setRowMode(QTeskelListBox::FitToHeight);
    QCOMPARE(list.rowMode(), QTeskelListBox::FitToHeight);
    QCOMPARE(list.columnMode(), QTeskelListBox::Variable);
}

void TestListBoxGrid::modesLayOutAtOnce()
{
    List list(12, {25, 20});
    QCOMPARE(list.numColumns(), 1);
    list.setColumnMode(2);
    QCOMPARE(list.numColumns(), 2);
    list.setRowMode(3);
    QCOMPARE(list.numRows(), 3);
    list.setColumnMode(QTeskelListBox::FitToWidth);
    QCOMPARE(list.numColumns(), 4);
    list.setRowMode(QTeskelListBox::FitToHeight);
    QCOMPARE(list.numRows(), 5);
}

void TestListBoxGrid::itemSizesLayOutAtOnce()
{
    List list(2, {20, 20});
    list.insertItem(new PlainItem(u"large"_s, {40, 40}));
    list.setRowMode(1);
    QCOMPARE(list.cell(0).size(), QSize(40, 40));
    list.setVariableWidth(true);
    QCOMPARE(list.cell(0).width(), 20);
    QVERIFY(list.variableWidth());
    list.setVariableWidth(false);
    QCOMPARE(list.cell(0).width(), 40);
    list.setColumnMode(1);
    list.setVariableHeight(true);
    QCOMPARE(list.cell(0).height(), 20);
    QVERIFY(list.variableHeight());
    list.setVariableHeight(false);
    QCOMPARE(list.cell(0).height(), 40);
}

void TestListBoxGrid::widestItemIsThatOfAll()
{
    List list(0);
    QCOMPARE(list.maxItemWidth(), 0);
    for (const int width : {70, 30, 50})
        list.insertItem(new PlainItem(u"item"_s, {width, 20}));
    QCOMPARE(list.maxItemWidth(), 70);
}

void TestListBoxGrid::itemRectFollowsScrolling()
{
    List list(10);
    list.setRowMode(5);
    QCOMPARE(list.cell(6), QRect(60, 20, 60, 20));
    list.refreshSlot();
    list.setContentsPos(13, 0);
    QCOMPARE(list.cell(6), QRect(47, 20, 60, 20));
    QVERIFY(!list.itemRect(nullptr).isValid());
}

void TestListBoxGrid::topItemInColumns()
{
    List list(0);
    QCOMPARE(list.topItem(), -1);
    for (int number = 0; number < 7; ++number)
        list.insertItem(new PlainItem(QString::number(number), {60, 40}));
    list.setColumnMode(2);
    list.refreshSlot();
    QCOMPARE(list.topItem(), 0);
    list.setContentsPos(20, 60);
    QCOMPARE(list.position(), QPoint(20, 60));
    QCOMPARE(list.topItem(), 1);
    // Where there is no item, the last one.
    list.resize(40, 20);
    list.setContentsPos(70, 130);
    QCOMPARE(list.topItem(), 6);
}

void TestListBoxGrid::topAndBottomScrollSidewaysInColumnsAlone()
{
    List list(40);
    list.setColumnMode(4);
    list.refreshSlot();
    list.setTopItem(12);
    QCOMPARE(list.position(), QPoint(60, 40));
    list.setBottomItem(27);
    QCOMPARE(list.position(), QPoint(180 - 100, 160 - 100));

    List single(40, {300, 20});
    single.setVScrollBarMode(QTeskelListBox::AlwaysOff);
    single.setHScrollBarMode(QTeskelListBox::Auto);
    single.refreshSlot();
    single.setContentsPos(17, 0);
    QCOMPARE(single.position(), QPoint(17, 0));
    single.setTopItem(12);
    QCOMPARE(single.position(), QPoint(17, 240));
    single.setBottomItem(27);
    QCOMPARE(single.position(), QPoint(17, 560 - single.visibleHeight()));
}

void TestListBoxGrid::aColumnWiderThanTheViewIsShownFromItsMiddle()
{
    List list(4, {60, 20});
    list.setRowMode(1);
    list.refreshSlot();
    list.setCurrentItem(2);
    list.ensureCurrentVisible();
    QCOMPARE(list.position(), QPoint(180 - 100, 0));
    list.setCurrentItem(1);
    list.ensureCurrentVisible();
    QCOMPARE(list.position(), QPoint(60, 0));

    List wide(3, {160, 20});
    wide.setRowMode(1);
    wide.refreshSlot();
    wide.setCurrentItem(1);
    wide.ensureCurrentVisible();
    QCOMPARE(wide.position(), QPoint(160, 0));
}

void TestListBoxGrid::aRowOfOddHeightIsWhollyShown()
{
    List list(20, {60, 21});
    list.setCurrentItem(9);
    list.ensureCurrentVisible();
    QCOMPARE(list.position(), QPoint(0, 10 * 21 + 1 - 100));
    list.setContentsPos(0, 400);
    list.ensureCurrentVisible();
    QCOMPARE(list.position(), QPoint(0, 9 * 21));
}

void TestListBoxGrid::indexesThatAreNotThereDoNotScroll()
{
    List list(20);
    list.setContentsPos(0, 70);
    for (const int index : {-1, 20}) {
        list.setTopItem(index);
        list.setBottomItem(index);
    }
    list.ensureCurrentVisible();
    QCOMPARE(list.position(), QPoint(0, 70));
}

void TestListBoxGrid::updatesAreGathered()
{
    List list(3);
    list.comeToRest();
    list.triggerUpdate(false);
    QVERIFY(list.updateTimer()->isActive());
    QVERIFY(list.updateTimer()->isSingleShot());
    QCOMPARE(list.updateTimer()->interval(), 0);
    list.comeToRest();
}

void TestListBoxGrid::contentsHaveTheSizeOfTheGridAtTheEventLoop()
{
    List list(20);
    list.comeToRest();
    QCOMPARE(list.contentsHeight(), 400);
    list.insertItem(new PlainItem(u"another"_s, {60, 20}));
    QCOMPARE(list.contentsHeight(), 400);
    QTRY_COMPARE(list.contentsHeight(), 420);
}

void TestListBoxGrid::refreshLaysOutAtOnce()
{
    List list(20);
    list.comeToRest();
    list.insertItem(new PlainItem(u"another"_s, {60, 20}));
    list.refreshSlot();
    QCOMPARE(list.contentsHeight(), 420);
    QVERIFY(!list.updateTimer()->isActive());
}

void TestListBoxGrid::changesLayOutAnew_data()
{
    using Act = void (*)(List&);
    QTest::addColumn<Act>("act");
    QTest::addColumn<QList<int>>("tops");
    const auto row = [](const char* name, Act act, const QList<int>& tops) {
        QTest::addRow("%s", name) << act << tops;
    };
    // At first the items 0 to 2 are 10, 20 and 30 pixels high.
    row("nothing", [](List&) {}, {0, 10, 30});
    row("insert",
        [](List& l) {
            l.insertItem(new PlainItem(u"5"_s, {10, 40}), 0);
        },
        {0, 40, 50, 70});
    row("insert sorted",
        [](List& l) {
            l.inSort(new PlainItem(u"11"_s, {10, 40}));
        },
        {0, 10, 30, 70});
    row("take", [](List& l) { delete l.item(0); }, {0, 20});
    row("sort downwards", [](List& l) { l.sort(false); }, {0, 30, 50});
    row("clear", [](List& l) { l.clear(); }, {});
    row("change", [](List& l) { l.changeItem(new PlainItem(u"5"_s, {10, 40}), 1); }, {0, 10, 50});
}

void TestListBoxGrid::changesLayOutAnew()
{
    using Act = void (*)(List&);
    QFETCH(Act, act);
    QFETCH(QList<int>, tops);
    List list(0);
    list.setVariableHeight(true);
    for (int number = 0; number < 3; ++number)
        list.insertItem(new PlainItem(QString::number(number), {10, 10 * (number + 1)}));
    list.comeToRest();
    act(list);
    QCOMPARE(list.updateTimer()->isActive(), QByteArray(QTest::currentDataTag()) != "nothing");
    QList<int> seen;
    for (int index = 0; index < list.count(); ++index)
        seen.append(list.cell(index).top());
    QCOMPARE(seen, tops);
}

void TestListBoxGrid::changesOfTheLookRepaint_data()
{
    using Act = void (*)(List&);
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, Act act) { QTest::addRow("%s", name) << act; };
    row("text", [](List& l) { l.item(1)->setText(u"other"_s); });
    row("select all", [](List& l) { l.selectAll(true); });
    row("invert", [](List& l) { l.invertSelection(); });
    row("font", [](List& l) {
        QFont font = l.font();
        font.setPointSize(font.pointSize() + 3);
        l.setFont(font);
    });
    row("bar", [](List& l) { l.setHScrollBarMode(QTeskelListBox::AlwaysOn); });
}

void TestListBoxGrid::changesOfTheLookRepaint()
{
    using Act = void (*)(List&);
    QFETCH(Act, act);
    List list(3);
    list.setMultiSelection(true);
    list.comeToRest();
    act(list);
    QVERIFY(list.updateTimer()->isActive());
    list.comeToRest();
}

void TestListBoxGrid::otherChangesDoNotLayOut()
{
    List list(3);
    list.comeToRest();
    list.setEnabled(false);
    QVERIFY(!list.updateTimer()->isActive());
}

void TestListBoxGrid::typedTextCanBeEnded()
{
    List list(0);
    for (const char* const text : {"ab", "ba", "bb"})
        list.insertItem(new PlainItem(QString::fromLatin1(text)));
    list.setCurrentItem(2);
    QTest::keyClick(&list, Qt::Key_B);
    QCOMPARE(list.currentText(), u"ba"_s);
    list.clearInputString();
    QTest::keyClick(&list, Qt::Key_A);
    QCOMPARE(list.currentText(), u"ab"_s);
}

void TestListBoxGrid::viewportIsSetUp()
{
    const QTeskelListBox list;
    QCOMPARE(list.focusPolicy(), Qt::StrongFocus);
    QVERIFY(list.viewport()->hasMouseTracking());
    QCOMPARE(list.viewport()->backgroundRole(), QPalette::Base);
    QVERIFY(list.viewport()->autoFillBackground());
}

QTEST_MAIN(TestListBoxGrid)
#include "test_listboxgrid.moc"
