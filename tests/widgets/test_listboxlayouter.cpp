// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxlayouter.h"

#include <QTest>

using teskel::ListBoxLayouter;
using Rules = ListBoxLayouter::Rules;

namespace
{
ListBoxLayouter laidOut(
    const Rules& rules, int count, QSize viewport = {100, 100},
    const ListBoxLayouter::Measure& width = [](int) { return 30; },
    const ListBoxLayouter::Measure& height = [](int) { return 20; })
{
    ListBoxLayouter layouter;
    layouter.layOut(rules, count, viewport, width, height);
    return layouter;
}
} // namespace

Q_DECLARE_METATYPE(Rules)

class TestListBoxLayouter : public QObject
{
    Q_OBJECT

private slots:
    void grid_data();
    void grid();
    void emptyListHasNoCells();
    void oneColumnFillsTheViewport();
    void cutColumnAsksForNoWidth();
    void fillsColumnsFromTopToBottom();
    void variableSizes();
    void positionsOutsideHaveNoItem();
    void countsPartlyVisibleItems_data();
    void countsPartlyVisibleItems();
    void variableWidthFitsMoreColumns();
    void countsItemsOfEachColumnInView();
    void oneColumnOfGivenRowsFillsTheViewport();
    void columnsOfGivenRowsKeepTheirWidth();
    void spareRoomIsShared();
};

void TestListBoxLayouter::grid_data()
{
    using List = teskel::ListBoxLayoutMode;
    QTest::addColumn<Rules>("rules");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addRow("one column") << Rules{} << 7 << 1 << 7;
    QTest::addRow("three columns") << Rules{.columns = 3} << 7 << 3 << 3;
    QTest::addRow("more columns than items") << Rules{.columns = 9} << 2 << 2 << 1;
    QTest::addRow("four columns need only three") << Rules{.columns = 4} << 6 << 3 << 2;
    QTest::addRow("fit to width") << Rules{.columnMode = List::FitToWidth} << 7 << 3 << 3;
    QTest::addRow("two rows") << Rules{.columnMode = List::Variable,
                                       .rowMode = List::FixedNumber,
                                       .rows = 2}
                              << 7 << 4 << 2;
    QTest::addRow("fit to height")
        << Rules{.columnMode = List::Variable, .rowMode = List::FitToHeight} << 7 << 2 << 5;
    QTest::addRow("variable both")
        << Rules{.columnMode = List::Variable, .rowMode = List::Variable} << 7 << 1 << 7;
}

void TestListBoxLayouter::grid()
{
    QFETCH(Rules, rules);
    QFETCH(int, count);
    QFETCH(int, columns);
    QFETCH(int, rows);
    const ListBoxLayouter layouter = laidOut(rules, count);
    QCOMPARE(layouter.columns(), columns);
    QCOMPARE(layouter.rows(), rows);
    for (int index = 0; index < count; ++index) {
        QVERIFY(layouter.cell(index).isValid());
        QCOMPARE(layouter.indexAt(layouter.cell(index).center()), index);
        QCOMPARE(layouter.indexOf(layouter.rowOf(index), layouter.columnOf(index)), index);
    }
}

void TestListBoxLayouter::emptyListHasNoCells()
{
    const ListBoxLayouter layouter = laidOut({}, 0);
    QCOMPARE(layouter.columns(), 0);
    QCOMPARE(layouter.rows(), 0);
    QCOMPARE(layouter.size(), QSize(0, 0));
    QVERIFY(!layouter.cell(0).isValid());
    QCOMPARE(layouter.indexAt({0, 0}), -1);
    QCOMPARE(layouter.itemsIn({0, 0, 100, 100}), 0);
}

void TestListBoxLayouter::oneColumnFillsTheViewport()
{
    QCOMPARE(laidOut({}, 3).size(), QSize(100, 60));
    QCOMPARE(laidOut({}, 3, {10, 10}).size(), QSize(30, 60));
}

void TestListBoxLayouter::cutColumnAsksForNoWidth()
{
    bool asked = false;
    const ListBoxLayouter layouter = laidOut({.cutToViewport = true}, 3, {10, 10}, [&](int) {
        asked = true;
        return 500;
    });
    QVERIFY(!asked);
    QCOMPARE(layouter.size(), QSize(10, 60));
}

void TestListBoxLayouter::fillsColumnsFromTopToBottom()
{
    const ListBoxLayouter layouter = laidOut({.columns = 2}, 5);
    QCOMPARE(layouter.cell(0), QRect(0, 0, 50, 20));
    QCOMPARE(layouter.cell(2), QRect(0, 40, 50, 20));
    QCOMPARE(layouter.cell(3), QRect(50, 0, 50, 20));
    QVERIFY(!layouter.cell(5).isValid());
}

void TestListBoxLayouter::variableSizes()
{
    const auto growing = [](int index) { return 10 * (index + 1); };
    const auto variable =
        laidOut({.columns = 2, .variableWidth = true}, 4, {0, 0}, growing, growing);
    QCOMPARE(variable.cell(0), QRect(0, 0, 20, 30));
    QCOMPARE(variable.cell(3), QRect(20, 30, 40, 40));
    const auto uniform =
        laidOut({.columns = 2, .variableHeight = false}, 4, {0, 0}, growing, growing);
    QCOMPARE(uniform.cell(0), QRect(0, 0, 40, 40));
    QCOMPARE(uniform.cell(3), QRect(40, 40, 40, 40));
}

void TestListBoxLayouter::positionsOutsideHaveNoItem()
{
    const ListBoxLayouter layouter = laidOut({.columns = 2}, 3);
    for (const QPoint& outside : {QPoint(-1, 0), QPoint(0, -1), QPoint(0, 40), QPoint(100, 0),
                                  layouter.cell(1).bottomRight() + QPoint(1, 0)})
        QCOMPARE(layouter.indexAt(outside), -1);
}

void TestListBoxLayouter::countsPartlyVisibleItems_data()
{
    QTest::addColumn<QRect>("area");
    QTest::addColumn<int>("items");
    QTest::addRow("100 pixels of 20-pixel rows") << QRect(0, 0, 100, 100) << 5;
    QTest::addRow("one pixel more") << QRect(0, 0, 100, 101) << 6;
    QTest::addRow("cut above and below") << QRect(0, 10, 100, 100) << 6;
    QTest::addRow("never more than there are") << QRect(0, 0, 100, 9999) << 10;
    QTest::addRow("at the end") << QRect(0, 180, 100, 100) << 1;
    QTest::addRow("nothing") << QRect(0, 0, 100, 0) << 0;
}

void TestListBoxLayouter::countsPartlyVisibleItems()
{
    QFETCH(QRect, area);
    QFETCH(int, items);
    QCOMPARE(laidOut({}, 10).itemsIn(area), items);
}

void TestListBoxLayouter::variableWidthFitsMoreColumns()
{
    const auto width = [](int index) { return index < 2 ? 60 : 20; };
    Rules rules{.columnMode = teskel::ListBoxLayoutMode::FitToWidth};
    QCOMPARE(laidOut(rules, 6, {100, 100}, width).columns(), 1);
    rules.variableWidth = true;
    const auto layouter = laidOut(rules, 6, {100, 100}, width);
    QCOMPARE(layouter.columns(), 3);
    QCOMPARE(layouter.size().width(), 100);
}

void TestListBoxLayouter::countsItemsOfEachColumnInView()
{
    // Three columns of 30 pixels: 0 to 2, 3 to 5, and 6 alone.
    const ListBoxLayouter uneven = laidOut({.columns = 3}, 7, {90, 100});
    QCOMPARE(uneven.rows(), 3);
    QCOMPARE(uneven.itemsIn({0, 0, 90, 60}), 7);
    QCOMPARE(uneven.itemsIn({0, 20, 90, 40}), 4);
    QCOMPARE(uneven.itemsIn({60, 20, 30, 40}), 0);
    QCOMPARE(uneven.itemsIn({60, 0, 30, 60}), 1);
    QCOMPARE(uneven.itemsIn({30, 0, 31, 20}), 2);
    QCOMPARE(uneven.itemsIn({30, 0, 30, 20}), 1);
}

void TestListBoxLayouter::oneColumnOfGivenRowsFillsTheViewport()
{
    const Rules rules{.columnMode = teskel::ListBoxLayoutMode::Variable,
                      .rowMode = teskel::ListBoxLayoutMode::FixedNumber,
                      .rows = 3};
    QCOMPARE(laidOut(rules, 3).size(), QSize(100, 60));
}

void TestListBoxLayouter::columnsOfGivenRowsKeepTheirWidth()
{
    const Rules rules{.columnMode = teskel::ListBoxLayoutMode::Variable,
                      .rowMode = teskel::ListBoxLayoutMode::FixedNumber,
                      .rows = 3};
    QCOMPARE(laidOut(rules, 4).size(), QSize(60, 60));
}

void TestListBoxLayouter::spareRoomIsShared()
{
    const ListBoxLayouter layouter = laidOut({.columns = 3}, 3);
    QCOMPARE(layouter.cell(0), QRect(0, 0, 33, 20));
    QCOMPARE(layouter.cell(1), QRect(33, 0, 33, 20));
    QCOMPARE(layouter.cell(2), QRect(66, 0, 34, 20));
    // Exactly as much as they need: none is left.
    QCOMPARE(laidOut({.columns = 3}, 3, {90, 100}).cell(2), QRect(60, 0, 30, 20));
}

QTEST_APPLESS_MAIN(TestListBoxLayouter)
#include "test_listboxlayouter.moc"
