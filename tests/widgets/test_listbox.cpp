// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "tests/widgets/signallog.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/listbox/qteskellistboxpixmap.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

using teskel::test::PlainItem;
using teskel::test::SignalLog;

namespace
{
QStringList entries(std::initializer_list<const char*> names)
{
    QStringList all;
    for (const char* name : names)
        all << QString::fromLatin1(name);
    return all;
}

void sendKey(QTeskelListBox& list, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    static_cast<QObject&>(list).event(&event);
}

/// A shown list of ten rows of 20 pixels, "a" to "j", in a view of 100 pixels.
struct List {
    explicit List(int rows = 10)
    {
        list.setFrameStyle(QFrame::NoFrame);
        list.setHScrollBarMode(QTeskelScrollView::AlwaysOff);
        list.resize(200, 100);
        for (int row = 0; row < rows; ++row)
            list.insertItem(new PlainItem(QString(QChar(u'a' + row))));
        list.show();
        list.refreshSlot();
    }
    bool press(int key, const QString& text = QString(), Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        static_cast<QObject&>(list).event(&event);
        return event.isAccepted();
    }
    QTeskelListBox list{nullptr, "list"};
    SignalLog log{&list};
};
} // namespace

class TestListBox : public QObject
{
    Q_OBJECT

private slots:
    void declarationOrder();
    void timersHaveTheirNames();

    void insertsChangesAndRemoves();
    void itemsKnowTheirNeighbours();
    void itemMovesFromOneListToAnother();
    void deletingAnItemTakesItOut();
    void badIndexesAreIgnored();
    void sortsAndInsertsSorted();
    void clearEmitsNothing();
    void clearGoesBackToTheTop();
    void itemInsertedByADestructorIsReported();
    void itemDeletedByADestructorIsReported();
    void removingTheCurrentItemMovesOn();
    void removingTheLastItemReportsNoCurrent();
    void changeItemKeepsTheCurrentRow();
    void changedItemMayDisappearMeanwhile();

    void setCurrentItemEmitsInOrder();
    void setCurrentItemSelectsBeforeItShows();
    void itemRemovedWhileAnotherBecomesCurrent();
    void setCurrentItemIsSilentForTheSameAndForNull();
    void setCurrentItemWithoutTextEmitsNoText();
    void setCurrentItemToUnselectable();
    void setCurrentItemBringsIntoView();
    void setSelectedEmitsInOrder();
    void setSelectedIsSilentWhenSelected();
    void setSelectedDoesNotStartTheVisibilityTimer();
    void setSelectedInMultiKeepsTheCurrentItem();
    void deselectingReports();
    void selectionOfSeveral();

    void keyInAnEmptyListIsIgnored();
    void keyWithoutCurrentItemSelectsTheFirst();
    void keys_data();
    void keys();
    void keysAtTheEndsEmitNothing_data();
    void keysAtTheEndsEmitNothing();
    void pageDownMakesTheRowTheBottomOne();
    void pageUpMakesTheRowTheTopOne();
    void returnEmitsInOrder();
    void spaceTogglesInMulti();
    void shiftExtendsTheSelection();
    void keyReleaseIsIgnored();
    void otherKeysAreIgnored();
    void leftAndRightMoveBetweenColumns();

    void typeAheadFindsTheFirstBeginning();
    void typeAheadStartsAgainAfterHalfASecond();
    void typeAheadIgnoresControlKeys();
    void spaceJoinsATypedAheadText();

    void focusSelectsTheFirstItem();
    void focusByMouseSelectsNothing();

    void numItemsVisible_data();
    void numItemsVisible();
    void ensureCurrentVisibleShowsTheWholeRow();
    void topAndBottomItem();
    void horizontalRangeIsZeroWithoutABar();
    void fittedLayoutComesToRest_data();
    void fittedLayoutComesToRest();
    void setTextLaysOutOnce();
    void geometryFollowsAChangedFont();
    void deletingTheListInASlotIsSafe();
    void deletingTheListWhileItScrollsIsSafe_data();
    void deletingTheListWhileItScrollsIsSafe();
    void removingTheItemInASlotIsSafe();
    void tenThousandItems();
};

void TestListBox::declarationOrder()
{
    const auto& meta = QTeskelListBox::staticMetaObject;
    QCOMPARE(teskel::test::methodsOf(meta, QMetaMethod::Signal),
             entries({"highlighted(int)",
                      "selected(int)",
                      "highlighted(QString)",
                      "selected(QString)",
                      "highlighted(QTeskelListBoxItem*)",
                      "selected(QTeskelListBoxItem*)",
                      "selectionChanged()",
                      "selectionChanged(QTeskelListBoxItem*)",
                      "currentChanged(QTeskelListBoxItem*)",
                      "clicked(QTeskelListBoxItem*)",
                      "clicked(QTeskelListBoxItem*,QPoint)",
                      "pressed(QTeskelListBoxItem*)",
                      "pressed(QTeskelListBoxItem*,QPoint)",
                      "doubleClicked(QTeskelListBoxItem*)",
                      "returnPressed(QTeskelListBoxItem*)",
                      "rightButtonClicked(QTeskelListBoxItem*,QPoint)",
                      "rightButtonPressed(QTeskelListBoxItem*,QPoint)",
                      "mouseButtonPressed(int,QTeskelListBoxItem*,QPoint)",
                      "mouseButtonClicked(int,QTeskelListBoxItem*,QPoint)",
                      "onItem(QTeskelListBoxItem*)",
                      "onViewport()"}));
    QCOMPARE(teskel::test::methodsOf(meta, QMetaMethod::Slot),
             entries({"ensureCurrentVisible()", "clearSelection()", "selectAll(bool)",
                      "invertSelection()", "clearInputString()", "refreshSlot()", "doAutoScroll()",
                      "adjustItems()"}));
}

void TestListBox::timersHaveTheirNames()
{
    QTeskelListBox list(nullptr, "list");
    QCOMPARE(list.objectName(), u"list"_s);
    QVERIFY(list.findChild<QTimer*>(u"listbox update timer"_s));
    auto* visible = list.findChild<QTimer*>(u"listbox visible timer"_s);
    if (visible == nullptr)
        QFAIL("no visibility timer");
    QVERIFY(visible->isSingleShot());
    list.insertStringList({u"a"_s, u"b"_s});
    list.setCurrentItem(1);
    QVERIFY(visible->isActive());
    QCOMPARE(visible->interval(), 1);
}

void TestListBox::insertsChangesAndRemoves()
{
    QTeskelListBox list;
    list.insertItem(u"b"_s);
    list.insertItem(u"a"_s, 0);
    list.insertStringList({u"x"_s, u"y"_s}, 1);
    auto* last = new QTeskelListBoxText(&list, u"z"_s);
    auto* behind = new QTeskelListBoxText(&list, u"b2"_s, list.item(3));
    QCOMPARE(list.index(behind), 4);
    QCOMPARE(list.index(last), 5);
    QCOMPARE(list.count(), 6);
    list.changeItem(u"X"_s, 1);
    list.removeItem(2);
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts << list.text(row);
    QCOMPARE(texts.join(u' '), u"a X b b2 z"_s);
    list.insertItem(new QTeskelListBoxText(u"first"_s),
                    static_cast<const QTeskelListBoxItem*>(nullptr));
    QCOMPARE(list.text(0), u"first"_s);

    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    list.insertItem(picture, u"pic"_s, 0);
    QVERIFY(list.pixmap(0));
    QCOMPARE(list.pixmap(1), nullptr);
    list.changeItem(picture, 1);
    QVERIFY(list.pixmap(1));
    QVERIFY(list.text(1).isEmpty());
}

void TestListBox::itemsKnowTheirNeighbours()
{
    List l(3);
    QTeskelListBoxItem* middle = l.list.item(1);
    QCOMPARE(middle->prev(), l.list.firstItem());
    QCOMPARE(middle->next(), l.list.item(2));
    QCOMPARE(middle->next()->next(), nullptr);
    QCOMPARE(middle->prev()->prev(), nullptr);
    QCOMPARE(middle->listBox(), &l.list);
    PlainItem loose;
    QCOMPARE(loose.next(), nullptr);
    QCOMPARE(loose.listBox(), nullptr);
    QVERIFY(!loose.current());
}

void TestListBox::itemMovesFromOneListToAnother()
{
    List from(3);
    List to(2);
    QTeskelListBoxItem* item = from.list.item(1);
    from.list.setSelected(item, true);
    to.list.setSelected(1, true);
    to.list.insertItem(item, 0);
    QCOMPARE(from.list.count(), 2);
    QCOMPARE(to.list.item(0), item);
    QCOMPARE(item->listBox(), &to.list);
    QVERIFY(!item->selected());
    QCOMPARE(to.list.selectedItem(), to.list.item(2));
}

void TestListBox::deletingAnItemTakesItOut()
{
    List l(3);
    delete l.list.item(1);
    QCOMPARE(l.list.count(), 2);
    QCOMPARE(l.list.text(1), u"c"_s);
}

void TestListBox::badIndexesAreIgnored()
{
    List l(3);
    for (const int index : {-1, 3, 999}) {
        l.list.setCurrentItem(index);
        l.list.setSelected(index, true);
        l.list.removeItem(index);
        l.list.changeItem(u"x"_s, index);
        l.list.setTopItem(index);
        l.list.setBottomItem(index);
        QCOMPARE(l.list.item(index), nullptr);
        QVERIFY(l.list.text(index).isEmpty());
        QVERIFY(!l.list.isSelected(index));
        QVERIFY(!l.list.itemVisible(index));
    }
    l.list.insertItem(static_cast<QTeskelListBoxItem*>(nullptr));
    l.list.takeItem(nullptr);
    QVERIFY(!l.list.itemRect(nullptr).isValid());
    QCOMPARE(l.log.take(), QStringList());
    QCOMPARE(l.list.count(), 3);
    QCOMPARE(l.list.currentItem(), -1);
}

void TestListBox::sortsAndInsertsSorted()
{
    QTeskelListBox list;
    list.insertStringList({u"c"_s, u"a"_s});
    list.sort();
    list.inSort(u"b"_s);
    QCOMPARE(list.text(0) + list.text(1) + list.text(2), u"abc"_s);
    list.sort(false);
    QCOMPARE(list.text(0), u"c"_s);
    QCOMPARE(list.findItem(u"B"_s), list.item(1));
}

void TestListBox::clearEmitsNothing()
{
    List l;
    l.list.setCurrentItem(3);
    l.log.take();
    l.list.clear();
    QCOMPARE(l.log.take(), QStringList());
    QCOMPARE(l.list.count(), 0);
    QCOMPARE(l.list.currentItem(), -1);
    QVERIFY(!l.list.signalsBlocked());
}

void TestListBox::clearGoesBackToTheTop()
{
    List l;
    l.list.setContentsPos(0, 70);
    QCOMPARE(l.list.contentsY(), 70);
    l.list.clear();
    QCOMPARE(l.list.contentsY(), 0);
    QCOMPARE(l.list.verticalScrollBar()->value(), 0);
}

void TestListBox::itemInsertedByADestructorIsReported()
{
    struct Inserter : PlainItem {
        Inserter() = default;
        Q_DISABLE_COPY_MOVE(Inserter)
        ~Inserter() override { target->insertItem(another); }
        QTeskelListBox* target = nullptr;
        QTeskelListBoxItem* another = nullptr;
    };
    QTeskelListBox list;
    auto* inserter = new Inserter;
    inserter->target = &list;
    inserter->another = new PlainItem;
    list.insertItem(inserter);
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(uR"(^ASSERT: "!head" in qteskellistbox\.cpp \(\d+\)$)"_s));
    list.clear();
    QCOMPARE(list.count(), 1);
}

void TestListBox::itemDeletedByADestructorIsReported()
{
    struct Deleter : PlainItem {
        Deleter() = default;
        Q_DISABLE_COPY_MOVE(Deleter)
        ~Deleter() override { delete victim; }
        QTeskelListBoxItem* victim = nullptr;
    };
    QTeskelListBox list;
    auto* deleter = new Deleter;
    deleter->victim = new PlainItem;
    list.insertItem(deleter->victim);
    list.insertItem(deleter);
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(uR"(^ASSERT: "i==0" in qteskellistbox\.cpp \(\d+\)$)"_s));
    list.clear();
    QCOMPARE(list.count(), 0);
}

void TestListBox::removingTheCurrentItemMovesOn()
{
    List l(3);
    l.list.setCurrentItem(1);
    l.list.removeItem(1);
    QCOMPARE(l.list.currentText(), u"c"_s);
    QVERIFY(l.list.isSelected(1));
    l.list.removeItem(1);
    QCOMPARE(l.list.currentText(), u"a"_s);
}

void TestListBox::removingTheLastItemReportsNoCurrent()
{
    List l(1);
    l.list.setCurrentItem(0);
    l.log.take();
    l.list.removeItem(0);
    QCOMPARE(l.log.take(), entries({"selectionChanged()", "currentChanged(-)"}));
}

void TestListBox::changeItemKeepsTheCurrentRow()
{
    List l(3);
    l.list.setCurrentItem(1);
    l.list.changeItem(new PlainItem(u"new"_s), 1);
    QCOMPARE(l.list.count(), 3);
    QCOMPARE(l.list.currentItem(), 1);
    QCOMPARE(l.list.currentText(), u"new"_s);
}

void TestListBox::changedItemMayDisappearMeanwhile()
{
    List from(3);
    List to(3);
    from.list.setCurrentItem(0);
    QTeskelListBoxItem* const item = from.list.item(0);
    connect(&from.list, &QTeskelListBox::currentChanged, this, [&] { to.list.removeItem(1); });
    to.list.changeItem(item, 1);
    QCOMPARE(to.list.count(), 3);
    QCOMPARE(to.list.item(1), item);
    QCOMPARE(to.list.text(2), u"c"_s);
}

void TestListBox::setCurrentItemEmitsInOrder()
{
    List l;
    l.list.setCurrentItem(2);
    QCOMPARE(l.log.take(), entries({"selectionChanged(c)", "selectionChanged()", "highlighted(c)",
                                    "highlighted(\"c\")", "highlighted(2)", "currentChanged(c)"}));
    QVERIFY(l.list.isSelected(2));
    l.list.setCurrentItem(4);
    QVERIFY(!l.list.isSelected(2));
    QCOMPARE(l.list.selectedItem(), l.list.item(4));
    QVERIFY(l.list.item(4)->current());
}

void TestListBox::setCurrentItemSelectsBeforeItShows()
{
    List l;
    l.list.setCurrentItem(2);
    const auto* const timer = l.list.findChild<QTimer*>(u"listbox visible timer"_s);
    QTRY_VERIFY(!timer->isActive());
    QStringList running;
    const auto note = [&](const char* name) {
        running << QString::fromLatin1(name) + (timer->isActive() ? u'+' : u'-');
    };
    using List = QTeskelListBox;
    using Item = QTeskelListBoxItem*;
    connect(&l.list, qOverload<Item>(&List::selectionChanged), this, [&] { note("item"); });
    connect(&l.list, qOverload<>(&List::selectionChanged), this, [&] { note("any"); });
    connect(&l.list, qOverload<Item>(&List::highlighted), this, [&] { note("highlighted"); });
    connect(&l.list, &List::currentChanged, this, [&] { note("current"); });
    l.list.setCurrentItem(9);
    QCOMPARE(running, entries({"item-", "any-", "highlighted+", "current+"}));
}

void TestListBox::itemRemovedWhileAnotherBecomesCurrent()
{
    List l(3);
    l.list.setCurrentItem(0);
    l.log.take();
    connect(
        &l.list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged), &l.list,
        [&] { l.list.removeItem(0); }, Qt::SingleShotConnection);
    l.list.setCurrentItem(2);
    QCOMPARE(l.list.currentText(), u"c"_s);
    QCOMPARE(l.log.take(), entries({"selectionChanged(c)", "selectionChanged()", "highlighted(c)",
                                    "highlighted(\"c\")", "highlighted(1)", "currentChanged(c)"}));
}

void TestListBox::setCurrentItemIsSilentForTheSameAndForNull()
{
    List l;
    l.list.setCurrentItem(2);
    l.log.take();
    l.list.setCurrentItem(2);
    l.list.setCurrentItem(nullptr);
    QCOMPARE(l.log.take(), QStringList());
    QCOMPARE(l.list.currentItem(), 2);
}

void TestListBox::setCurrentItemWithoutTextEmitsNoText()
{
    List l(1);
    l.list.insertItem(QPixmap(5, 5));
    l.list.setCurrentItem(1);
    QCOMPARE(l.log.take(), entries({"selectionChanged()", "selectionChanged()", "highlighted()",
                                    "highlighted(1)", "currentChanged()"}));
}

void TestListBox::setCurrentItemToUnselectable()
{
    List l;
    l.list.setCurrentItem(0);
    l.list.item(1)->setSelectable(false);
    l.log.take();
    l.list.setCurrentItem(1);
    QCOMPARE(l.log.take(), entries({"selectionChanged()", "highlighted(b)", "highlighted(\"b\")",
                                    "highlighted(1)", "currentChanged(b)"}));
    QCOMPARE(l.list.selectedItem(), nullptr);
}

void TestListBox::setCurrentItemBringsIntoView()
{
    List l;
    QCOMPARE(l.list.contentsY(), 0);
    l.list.setCurrentItem(9);
    QTRY_COMPARE(l.list.contentsY(), 100);
}

void TestListBox::setSelectedEmitsInOrder()
{
    List l;
    l.list.setCurrentItem(0);
    l.log.take();
    l.list.setSelected(2, true);
    QCOMPARE(l.log.take(), entries({"selectionChanged(c)", "selectionChanged()", "highlighted(c)",
                                    "highlighted(\"c\")", "highlighted(2)", "currentChanged(c)"}));
    QCOMPARE(l.list.currentItem(), 2);
    QVERIFY(!l.list.isSelected(0));
}

void TestListBox::setSelectedIsSilentWhenSelected()
{
    List l;
    l.list.setSelected(2, true);
    l.list.item(3)->setSelectable(false);
    l.log.take();
    l.list.setSelected(2, true);
    l.list.setSelected(3, true);
    l.list.setSelected(4, false);
    l.list.setSelected(nullptr, true);
    QCOMPARE(l.log.take(), QStringList());
    QCOMPARE(l.list.currentItem(), 2);
}

void TestListBox::setSelectedDoesNotStartTheVisibilityTimer()
{
    List l;
    l.list.setSelected(9, true);
    QVERIFY(!l.list.findChild<QTimer*>(u"listbox visible timer"_s)->isActive());
}

void TestListBox::setSelectedInMultiKeepsTheCurrentItem()
{
    List l;
    l.list.setSelectionMode(QTeskelListBox::Multi);
    QVERIFY(l.list.isMultiSelection());
    l.list.setSelected(2, true);
    l.list.setSelected(4, true);
    QCOMPARE(l.log.take(), entries({"selectionChanged()", "selectionChanged()"}));
    QCOMPARE(l.list.currentItem(), -1);
    QVERIFY(l.list.isSelected(2) && l.list.isSelected(4));
}

void TestListBox::deselectingReports()
{
    List l;
    l.list.setCurrentItem(2);
    l.log.take();
    l.list.setSelected(2, false);
    QCOMPARE(l.log.take(), entries({"selectionChanged()"}));
    QCOMPARE(l.list.currentItem(), 2);
    l.list.clearSelection();
    QCOMPARE(l.log.take(), QStringList());
}

void TestListBox::selectionOfSeveral()
{
    List l(3);
    l.list.selectAll(true);
    QCOMPARE(l.log.take(), QStringList());
    l.list.setMultiSelection(true);
    l.list.selectAll(true);
    QVERIFY(l.list.isSelected(0) && l.list.isSelected(2));
    l.list.invertSelection();
    QCOMPARE(l.list.selectedItem(), nullptr);
    QCOMPARE(l.log.take(), entries({"selectionChanged()", "selectionChanged()"}));
}

void TestListBox::keyInAnEmptyListIsIgnored()
{
    List l(0);
    QVERIFY(!l.press(Qt::Key_Down));
    QVERIFY(!l.press(Qt::Key_A, u"a"_s));
    QCOMPARE(l.log.take(), QStringList());
}

void TestListBox::keyWithoutCurrentItemSelectsTheFirst()
{
    List l;
    QVERIFY(!l.press(Qt::Key_End));
    QCOMPARE(l.list.currentItem(), 0);
    QVERIFY(l.list.isSelected(0));
}

void TestListBox::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addRow("Down") << int(Qt::Key_Down) << 3 << 4;
    QTest::addRow("Up") << int(Qt::Key_Up) << 3 << 2;
    QTest::addRow("Page Down") << int(Qt::Key_PageDown) << 1 << 6;
    QTest::addRow("Page Down clamped") << int(Qt::Key_PageDown) << 7 << 9;
    QTest::addRow("Page Up clamped") << int(Qt::Key_PageUp) << 2 << 0;
    QTest::addRow("Home") << int(Qt::Key_Home) << 4 << 0;
    QTest::addRow("End") << int(Qt::Key_End) << 4 << 9;
}

void TestListBox::keys()
{
    QFETCH(int, key);
    QFETCH(int, from);
    QFETCH(int, to);
    List l;
    l.list.setCurrentItem(from);
    l.list.setContentsPos(0, 0);
    l.log.take();
    QVERIFY(l.press(key));
    QCOMPARE(l.list.currentItem(), to);
    const QString text(QChar(u'a' + to));
    QCOMPARE(l.log.take(),
             (QStringList{u"selectionChanged(%1)"_s.arg(text), u"selectionChanged()"_s,
                          u"highlighted(%1)"_s.arg(text), u"highlighted(\"%1\")"_s.arg(text),
                          u"highlighted(%1)"_s.arg(to), u"currentChanged(%1)"_s.arg(text)}));
}

void TestListBox::keysAtTheEndsEmitNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("row");
    QTest::addRow("Up") << int(Qt::Key_Up) << 0;
    QTest::addRow("Page Up") << int(Qt::Key_PageUp) << 0;
    QTest::addRow("Home") << int(Qt::Key_Home) << 0;
    QTest::addRow("Down") << int(Qt::Key_Down) << 9;
    QTest::addRow("Page Down") << int(Qt::Key_PageDown) << 9;
    QTest::addRow("End") << int(Qt::Key_End) << 9;
}

void TestListBox::keysAtTheEndsEmitNothing()
{
    QFETCH(int, key);
    QFETCH(int, row);
    List l;
    l.list.setCurrentItem(row);
    l.log.take();
    QVERIFY(l.press(key));
    QCOMPARE(l.log.take(), QStringList());
    QCOMPARE(l.list.currentItem(), row);
}

void TestListBox::pageDownMakesTheRowTheBottomOne()
{
    List l;
    l.list.setCurrentItem(1);
    l.press(Qt::Key_PageDown);
    QCOMPARE(l.list.currentItem(), 6);
    QCOMPARE(l.list.contentsY(), 7 * 20 - 100);
}

void TestListBox::pageUpMakesTheRowTheTopOne()
{
    List l;
    l.list.setCurrentItem(8);
    l.list.setContentsPos(0, 100);
    l.press(Qt::Key_PageUp);
    QCOMPARE(l.list.currentItem(), 3);
    QCOMPARE(l.list.contentsY(), 3 * 20);
    QCOMPARE(l.list.topItem(), 3);
}

void TestListBox::returnEmitsInOrder()
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        List l;
        l.list.setCurrentItem(1);
        l.log.take();
        QVERIFY(l.press(key, u"\r"_s));
        QCOMPARE(l.log.take(),
                 entries({"selected(1)", "selected(b)", "selected(\"b\")", "returnPressed(b)"}));
    }
}

void TestListBox::spaceTogglesInMulti()
{
    List l;
    l.list.setMultiSelection(true);
    l.list.setCurrentItem(1);
    l.press(Qt::Key_Space, u" "_s);
    QVERIFY(l.list.isSelected(1));
    l.press(Qt::Key_Space, u" "_s);
    QVERIFY(!l.list.isSelected(1));
}

void TestListBox::shiftExtendsTheSelection()
{
    List l;
    l.list.setSelectionMode(QTeskelListBox::Extended);
    l.list.setCurrentItem(0);
    l.press(Qt::Key_Down);
    l.press(Qt::Key_Down, {}, Qt::ShiftModifier);
    l.press(Qt::Key_Down, {}, Qt::ShiftModifier);
    QVERIFY(!l.list.isSelected(0));
    QVERIFY(l.list.isSelected(1) && l.list.isSelected(2) && l.list.isSelected(3));
    l.press(Qt::Key_Down);
    QVERIFY(l.list.isSelected(4) && !l.list.isSelected(3));
    l.press(Qt::Key_A, u"\x01"_s, Qt::ControlModifier);
    QVERIFY(l.list.isSelected(0) && l.list.isSelected(9));
}

void TestListBox::keyReleaseIsIgnored()
{
    List l;
    l.list.setCurrentItem(1);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Down, Qt::NoModifier);
    static_cast<QObject&>(l.list).event(&release);
    QVERIFY(!release.isAccepted());
    QCOMPARE(l.list.currentItem(), 1);
}

void TestListBox::otherKeysAreIgnored()
{
    List l;
    l.list.setCurrentItem(1);
    QVERIFY(!l.press(Qt::Key_Escape, u"\x1b"_s));
    QVERIFY(!l.press(Qt::Key_F5));
    QVERIFY(l.press(Qt::Key_Left));
    QCOMPARE(l.list.currentItem(), 1);
}

void TestListBox::leftAndRightMoveBetweenColumns()
{
    List l;
    l.list.setColumnMode(2);
    QCOMPARE(l.list.numColumns(), 2);
    QCOMPARE(l.list.numRows(), 5);
    l.list.setCurrentItem(1);
    l.press(Qt::Key_Right);
    QCOMPARE(l.list.currentItem(), 6);
    l.press(Qt::Key_Left);
    QCOMPARE(l.list.currentItem(), 1);
    l.list.setRowMode(QTeskelListBox::FitToHeight);
    QCOMPARE(l.list.rowMode(), QTeskelListBox::FitToHeight);
    QCOMPARE(l.list.numRows(), 5);
}

void TestListBox::typeAheadFindsTheFirstBeginning()
{
    QTeskelListBox list;
    list.insertStringList({u"Hound"_s, u"House"_s, u"household"_s});
    list.setCurrentItem(0);
    QTest::keyClicks(&list, u"HoUs"_s);
    QCOMPARE(list.currentItem(), 1);
    QTest::keyClicks(&list, u"x"_s);
    QCOMPARE(list.currentItem(), 1);
}

void TestListBox::typeAheadStartsAgainAfterHalfASecond()
{
    List l;
    l.list.setCurrentItem(0);
    l.press(Qt::Key_C, u"c"_s);
    QCOMPARE(l.list.currentItem(), 2);
    l.press(Qt::Key_D, u"d"_s);
    QCOMPARE(l.list.currentItem(), 2);
    auto* timer = l.list.findChild<QTimer*>(u"listbox input timer"_s);
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 500);
    QTRY_VERIFY(!timer->isActive());
    l.press(Qt::Key_D, u"d"_s);
    QCOMPARE(l.list.currentItem(), 3);
    l.list.clearInputString();
    l.press(Qt::Key_E, u"e"_s);
    QCOMPARE(l.list.currentItem(), 4);
}

void TestListBox::typeAheadIgnoresControlKeys()
{
    List l;
    l.list.setCurrentItem(0);
    QVERIFY(!l.press(Qt::Key_C, u"\x03"_s, Qt::ControlModifier));
    QVERIFY(!l.press(Qt::Key_C, u"c"_s, Qt::AltModifier));
    QCOMPARE(l.list.currentItem(), 0);
}

void TestListBox::spaceJoinsATypedAheadText()
{
    List l(0);
    l.list.insertStringList({u"newt"_s, u"newsstand"_s, u"new York"_s, u"New Zealand"_s});
    l.list.setMultiSelection(true);
    l.list.setCurrentItem(0);
    for (const QChar letter : u"new z"_s)
        l.press(letter == u' ' ? int(Qt::Key_Space) : int(Qt::Key_unknown), QString(letter));
    QCOMPARE(l.list.currentText(), u"New Zealand"_s);
    QCOMPARE(l.list.selectedItem(), nullptr);
    l.list.clearInputString();
    l.press(Qt::Key_Space, u" "_s);
    QCOMPARE(l.list.selectedItem(), l.list.item(3));
}

void TestListBox::focusSelectsTheFirstItem()
{
    List l;
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&l.list, &event);
    QCOMPARE(l.list.currentItem(), 0);
    QVERIFY(l.list.isSelected(0));
}

void TestListBox::focusByMouseSelectsNothing()
{
    List l;
    QFocusEvent event(QEvent::FocusIn, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&l.list, &event);
    QCOMPARE(l.list.currentItem(), -1);
}

void TestListBox::numItemsVisible_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("visible");
    QTest::addRow("100 pixels") << 100 << 5;
    QTest::addRow("101 pixels") << 101 << 6;
    QTest::addRow("more than the rows") << 500 << 10;
}

void TestListBox::numItemsVisible()
{
    QFETCH(int, height);
    QFETCH(int, visible);
    List l;
    l.list.resize(200, height);
    QCOMPARE(l.list.numItemsVisible(), visible);
}

void TestListBox::ensureCurrentVisibleShowsTheWholeRow()
{
    List l;
    l.list.setSelected(6, true);
    l.list.ensureCurrentVisible();
    QCOMPARE(l.list.contentsY(), 7 * 20 - 100);
    QCOMPARE(l.list.itemRect(l.list.item(6)), QRect(0, 80, l.list.visibleWidth(), 20));
    l.list.setSelected(1, true);
    l.list.ensureCurrentVisible();
    QCOMPARE(l.list.contentsY(), 20);
    QVERIFY(l.list.itemVisible(1));
    QVERIFY(!l.list.itemVisible(0));
    QCOMPARE(l.list.itemYPos(l.list.item(3)), 60);
}

void TestListBox::topAndBottomItem()
{
    List l;
    l.list.setTopItem(3);
    QCOMPARE(l.list.topItem(), 3);
    l.list.setBottomItem(9);
    QCOMPARE(l.list.topItem(), 5);
    QCOMPARE(List(0).list.topItem(), -1);
}

void TestListBox::horizontalRangeIsZeroWithoutABar()
{
    List l;
    l.list.insertItem(new PlainItem(u"wide"_s, QSize(5000, 20)));
    l.list.adjustItems();
    QCOMPARE(l.list.horizontalScrollBar()->maximum(), 0);
    l.list.setHScrollBarMode(QTeskelScrollView::Auto);
    l.list.adjustItems();
    QVERIFY(l.list.horizontalScrollBar()->maximum() > 4000);
    QCOMPARE(l.list.maxItemWidth(), 5000);
}

/// Counts how often any of its kind is measured, and ends a layout that is done over and over.
class MeasuredItem : public PlainItem
{
public:
    static constexpr int tooOften = 5'000;
    using PlainItem::PlainItem;
    int height(const QTeskelListBox* list) const override
    {
        if (++_measured == tooOften) {
            auto* const endless = const_cast<QTeskelListBox*>(list);
            QMetaObject::invokeMethod(
                endless,
                [endless] {
                    endless->setHScrollBarMode(QTeskelScrollView::AlwaysOff);
                    endless->setVScrollBarMode(QTeskelScrollView::AlwaysOff);
                },
                Qt::QueuedConnection);
        }
        return PlainItem::height(list);
    }
    static inline int _measured = 0;
};

void TestListBox::fittedLayoutComesToRest_data()
{
    QTest::addColumn<bool>("rows");
    QTest::addColumn<QSize>("room");
    QTest::addColumn<QList<QSize>>("sizes");
    QTest::addColumn<QSize>("grid");
    QTest::addColumn<bool>("bar");
    // Three rows are 200 pixels wide, two are 120; a bar takes the room of the third.
    const QList<QSize> widths{{20, 20}, {20, 20}, {100, 20}, {100, 20}};
    QTest::newRow("rows fit") << true << QSize(210, 65) << widths << QSize(2, 3) << false;
    QTest::newRow("fewer rows fit") << true << QSize(130, 65) << widths << QSize(2, 2) << false;
    QTest::newRow("no rows fit") << true << QSize(110, 65) << widths << QSize(2, 2) << true;
    // Three columns are 100 pixels high, two are 70; a bar takes the room of the third.
    const QList<QSize> heights{{30, 50}, {30, 10}, {30, 10}, {30, 50}, {30, 10}, {30, 10}};
    QTest::newRow("columns fit") << false << QSize(95, 110) << heights << QSize(3, 2) << false;
    QTest::newRow("fewer columns fit") << false << QSize(95, 80) << heights << QSize(2, 3) << false;
    QTest::newRow("no columns fit") << false << QSize(95, 60) << heights << QSize(2, 3) << true;
}

void TestListBox::fittedLayoutComesToRest()
{
    QFETCH(bool, rows);
    QFETCH(QSize, room);
    QFETCH(QList<QSize>, sizes);
    QFETCH(QSize, grid);
    QFETCH(bool, bar);
    MeasuredItem::_measured = 0;
    QTeskelListBox list;
    list.setFrameStyle(QFrame::NoFrame);
    list.setVariableWidth(true);
    if (rows)
        list.setRowMode(QTeskelListBox::FitToHeight);
    else
        list.setColumnMode(QTeskelListBox::FitToWidth);
    for (const QSize& size : sizes)
        list.insertItem(new MeasuredItem(u"x"_s, size));
    list.resize(room);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const auto comesToRest = [] {
        const int before = MeasuredItem::_measured;
        QCoreApplication::processEvents();
        return MeasuredItem::_measured == before;
    };
    QTRY_VERIFY(comesToRest());
    QVERIFY2(MeasuredItem::_measured < MeasuredItem::tooOften, "the list is laid out for ever");
    QCOMPARE(QSize(list.numColumns(), list.numRows()), grid);
    QCOMPARE(list.horizontalScrollBar()->isVisible(), rows && bar);
    QCOMPARE(list.verticalScrollBar()->isVisible(), !rows && bar);
    list.adjustItems();
    QTRY_VERIFY(comesToRest());
    QCOMPARE(QSize(list.numColumns(), list.numRows()), grid);
}

/// Counts how often its height is asked for.
class CountingItem : public QTeskelListBoxText
{
public:
    using QTeskelListBoxText::QTeskelListBoxText;
    int height(const QTeskelListBox* list) const override
    {
        ++asked;
        return QTeskelListBoxText::height(list);
    }
    mutable int asked = 0;
};

void TestListBox::setTextLaysOutOnce()
{
    QTeskelListBox list;
    QList<CountingItem*> items;
    for (int row = 0; row < 20; ++row) {
        items << new CountingItem(u"word"_s);
        list.insertItem(items.last());
    }
    list.resize(200, 400);
    list.show();
    auto* update = list.findChild<QTimer*>(u"listbox update timer"_s);
    QTRY_VERIFY(!update->isActive());
    for (CountingItem* item : items)
        item->asked = 0;
    for (CountingItem* item : items)
        item->setText(u"other"_s);
    QCOMPARE(items.first()->asked, 0);
    list.setSelected(3, true);
    list.ensureCurrentVisible();
    list.triggerUpdate(true);
    QTRY_VERIFY(!update->isActive());
    // Once for ensureCurrentVisible, once for the update that was asked for after it.
    for (const CountingItem* item : items)
        QCOMPARE(item->asked, 2);
}

void TestListBox::geometryFollowsAChangedFont()
{
    QTeskelListBox list;
    list.insertItem(u"a"_s);
    list.show();
    const int before = list.itemHeight();
    QFont font = list.font();
    font.setPixelSize(60);
    list.setFont(font);
    QVERIFY(list.itemHeight() > before);
    QCOMPARE(list.itemHeight(), QFontMetrics(font).lineSpacing() + 2);
    QCOMPARE(list.item(0)->width(&list), QFontMetrics(font).horizontalAdvance(u"a"_s) + 6);
}

void TestListBox::deletingTheListInASlotIsSafe()
{
    auto* list = new QTeskelListBox;
    list->insertStringList({u"a"_s, u"b"_s});
    QPointer<QTeskelListBox> alive(list);
    connect(list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged), this,
            [list] { delete list; });
    list->setCurrentItem(1);
    QVERIFY(alive.isNull());
}

void TestListBox::deletingTheListWhileItScrollsIsSafe_data()
{
    using Act = void (*)(QTeskelListBox&);
    QTest::addColumn<Act>("act");
    QTest::addColumn<bool>("byTheBar");
    const auto row = [](const char* name, Act act) {
        QTest::addRow("%s, contents moving", name) << act << false;
        QTest::addRow("%s, vertical value", name) << act << true;
    };
    row("ensureCurrentVisible", [](QTeskelListBox& list) {
        list.setSelected(9, true);
        list.ensureCurrentVisible();
    });
    row("ensureCurrentVisible of fewer items", [](QTeskelListBox& list) {
        while (list.count() > 3)
            list.removeItem(3);
        list.setSelected(0, true);
        list.ensureCurrentVisible();
    });
    row("setTopItem", [](QTeskelListBox& list) { list.setTopItem(0); });
    row("setTopItem of fewer items", [](QTeskelListBox& list) {
        list.removeItem(9);
        list.removeItem(8);
        list.removeItem(7);
        list.setTopItem(0);
    });
    row("setBottomItem", [](QTeskelListBox& list) { list.setBottomItem(9); });
    row("setBottomItem of fewer items", [](QTeskelListBox& list) {
        while (list.count() > 3)
            list.removeItem(3);
        list.setBottomItem(0);
    });
    row("clear", [](QTeskelListBox& list) { list.clear(); });
    row("adjustItems", [](QTeskelListBox& list) {
        while (list.count() > 3)
            list.removeItem(3);
        list.adjustItems();
    });
    row("refreshSlot", [](QTeskelListBox& list) {
        while (list.count() > 3)
            list.removeItem(3);
        list.refreshSlot();
    });
    row("Page Down", [](QTeskelListBox& list) {
        list.setSelected(3, true);
        sendKey(list, Qt::Key_PageDown);
    });
    row("Page Up", [](QTeskelListBox& list) {
        list.setSelected(5, true);
        sendKey(list, Qt::Key_PageUp);
    });
    row("key after items went", [](QTeskelListBox& list) {
        list.setSelected(0, true);
        while (list.count() > 3)
            list.removeItem(3);
        sendKey(list, Qt::Key_Down);
    });
    row("drag outside", [](QTeskelListBox& list) {
        const auto send = [&list](QEvent::Type type, QPoint position) {
            QMouseEvent event(type, position, list.viewport()->mapToGlobal(position),
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(list.viewport(), &event);
        };
        send(QEvent::MouseButtonPress, {20, 90});
        send(QEvent::MouseMove, {20, 130});
        list.doAutoScroll();
    });
}

void TestListBox::deletingTheListWhileItScrollsIsSafe()
{
    using Act = void (*)(QTeskelListBox&);
    QFETCH(Act, act);
    QFETCH(bool, byTheBar);
    auto l = std::make_unique<List>();
    l->list.setContentsPos(0, 50);
    auto* const list = &l->list;
    const QPointer<QTeskelListBox> alive(list);
    const auto remove = [&l] { l.reset(); };
    if (byTheBar)
        connect(list->verticalScrollBar(), &QScrollBar::valueChanged, this, remove);
    else
        connect(list, &QTeskelListBox::contentsMoving, this, remove);
    act(*list);
    QVERIFY(alive.isNull());
}

void TestListBox::removingTheItemInASlotIsSafe()
{
    List l(3);
    connect(&l.list, qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged), &l.list,
            [&] { l.list.clear(); });
    l.list.setCurrentItem(1);
    QCOMPARE(l.list.count(), 0);
    QCOMPARE(l.log.take(), entries({"selectionChanged(b)"}));
}

void TestListBox::tenThousandItems()
{
    QTeskelListBox list;
    for (int row = 0; row < 10'000; ++row)
        list.insertItem(QString::number(row), 0);
    QCOMPARE(list.index(list.item(5'000)), 5'000);
    list.setCurrentItem(9'999);
    while (list.count() > 0)
        list.removeItem(list.count() - 1);
    QCOMPARE(list.currentItem(), -1);
}

QTEST_MAIN(TestListBox)
#include "test_listbox.moc"
