// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

using teskel::ListBoxModel;
using teskel::ListBoxSelection;
using teskel::test::PlainItem;

namespace
{
struct Fixture {
    explicit Fixture(ListBoxSelection::Mode mode)
    {
        for (PlainItem& item : items)
            model.insert(&item, -1);
        selection.setMode(mode);
    }
    /// One letter an item: "x" selected, "." not.
    QString marks() const
    {
        QString all;
        for (const PlainItem& item : items)
            all += item.selected() ? u'x' : u'.';
        return all;
    }
    std::array<PlainItem, 5> items;
    ListBoxModel model{nullptr};
    ListBoxSelection selection{model};
};
} // namespace

class TestListBoxSelection : public QObject
{
    Q_OBJECT

private slots:
    void singleHoldsOneItem();
    void singleSelectMovesTheCurrentItem();
    void selectIsSilentWithoutAChange();
    void unselectableBecomesCurrentOnly();
    void multiKeepsOthers();
    void noSelectionSelectsNothing();
    void rangesCountFromTheAnchor();
    void allAndInvertSkipUnselectable();
    void allIsForSeveralOnly();
    void changingTheModeDropsWhatItForbids();
    void forgottenItemIsNotCurrent();
};

void TestListBoxSelection::singleHoldsOneItem()
{
    Fixture f(ListBoxSelection::Mode::Single);
    auto change = f.selection.makeCurrent(&f.items[1]);
    QVERIFY(change.itemSelected && change.selectionChanged);
    change = f.selection.makeCurrent(&f.items[3]);
    QCOMPARE(change.previous, static_cast<QTeskelListBoxItem*>(&f.items[1]));
    QCOMPARE(f.marks(), u"...x."_s);
}

void TestListBoxSelection::singleSelectMovesTheCurrentItem()
{
    Fixture f(ListBoxSelection::Mode::Single);
    f.selection.makeCurrent(&f.items[1]);
    const auto change = f.selection.select(&f.items[2], true);
    QVERIFY(change.currentMoved && change.itemSelected && change.selectionChanged);
    QCOMPARE(f.selection.current(), static_cast<QTeskelListBoxItem*>(&f.items[2]));
    QCOMPARE(f.marks(), u"..x.."_s);
}

void TestListBoxSelection::selectIsSilentWithoutAChange()
{
    Fixture f(ListBoxSelection::Mode::Single);
    f.selection.select(&f.items[2], true);
    const auto change = f.selection.select(&f.items[2], true);
    QVERIFY(!change.currentMoved && !change.itemSelected && !change.selectionChanged);
    f.items[3].setSelectable(false);
    QVERIFY(!f.selection.select(&f.items[3], true).selectionChanged);
    QCOMPARE(f.selection.current(), static_cast<QTeskelListBoxItem*>(&f.items[2]));
}

void TestListBoxSelection::unselectableBecomesCurrentOnly()
{
    Fixture f(ListBoxSelection::Mode::Single);
    f.selection.makeCurrent(&f.items[0]);
    f.items[1].setSelectable(false);
    const auto change = f.selection.makeCurrent(&f.items[1]);
    QVERIFY(!change.itemSelected && change.selectionChanged);
    QCOMPARE(f.marks(), u"....."_s);
}

void TestListBoxSelection::multiKeepsOthers()
{
    Fixture f(ListBoxSelection::Mode::Multi);
    f.selection.select(&f.items[0], true);
    const auto change = f.selection.select(&f.items[2], true);
    QVERIFY(!change.itemSelected && !change.currentMoved && change.selectionChanged);
    f.selection.makeCurrent(&f.items[4]);
    QCOMPARE(f.marks(), u"x.x.."_s);
}

void TestListBoxSelection::noSelectionSelectsNothing()
{
    Fixture f(ListBoxSelection::Mode::NoSelection);
    QVERIFY(!f.selection.select(&f.items[0], true).selectionChanged);
    f.selection.makeCurrent(&f.items[1]);
    QCOMPARE(f.marks(), u"....."_s);
}

void TestListBoxSelection::rangesCountFromTheAnchor()
{
    Fixture f(ListBoxSelection::Mode::Extended);
    f.selection.selectOnly(&f.items[2]);
    f.selection.selectFromAnchor(&f.items[4], true);
    QCOMPARE(f.marks(), u"..xxx"_s);
    f.selection.selectFromAnchor(&f.items[0], true);
    QCOMPARE(f.marks(), u"xxx.."_s);
    QVERIFY(!f.selection.selectFromAnchor(&f.items[0], true));
}

void TestListBoxSelection::allAndInvertSkipUnselectable()
{
    Fixture f(ListBoxSelection::Mode::Multi);
    f.items[1].setSelectable(false);
    QVERIFY(f.selection.selectAll(true));
    QCOMPARE(f.marks(), u"x.xxx"_s);
    f.selection.select(&f.items[0], false);
    f.selection.invert();
    QCOMPARE(f.marks(), u"x...."_s);
    QVERIFY(f.selection.selectAll(false));
    QVERIFY(!f.selection.clear());
}

void TestListBoxSelection::allIsForSeveralOnly()
{
    Fixture f(ListBoxSelection::Mode::Single);
    QVERIFY(!f.selection.selectAll(true));
    QVERIFY(!f.selection.invert());
    QCOMPARE(f.marks(), u"....."_s);
}

void TestListBoxSelection::changingTheModeDropsWhatItForbids()
{
    Fixture f(ListBoxSelection::Mode::Multi);
    f.selection.selectAll(true);
    f.selection.makeCurrent(&f.items[2]);
    QVERIFY(f.selection.setMode(ListBoxSelection::Mode::Single));
    QCOMPARE(f.marks(), u"..x.."_s);
    QVERIFY(f.selection.setMode(ListBoxSelection::Mode::NoSelection));
    QCOMPARE(f.marks(), u"....."_s);
}

void TestListBoxSelection::forgottenItemIsNotCurrent()
{
    Fixture f(ListBoxSelection::Mode::Extended);
    f.selection.makeCurrent(&f.items[2]);
    f.selection.selectOnly(&f.items[2]);
    f.selection.forget(&f.items[2]);
    QCOMPARE(f.selection.current(), nullptr);
    f.selection.selectFromAnchor(&f.items[0], true);
    QCOMPARE(f.marks(), u"x...."_s);
}

QTEST_APPLESS_MAIN(TestListBoxSelection)
#include "test_listboxselection.moc"
