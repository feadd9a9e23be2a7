// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "widgets/listbox/listboxaccessible.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
struct Event {
    QAccessible::Event type;
    QString name;
    bool operator==(const Event&) const = default;
};
QList<Event> events;

void noteEvent(QAccessibleEvent* event)
{
    if (qobject_cast<QTeskelListBox*>(event->object()) == nullptr || event->child() < 0)
        return;
    QAccessibleInterface* interface = event->accessibleInterface();
    if (interface != nullptr)
        events << Event{event->type(), interface->text(QAccessible::Name)};
}

void doAction(QTeskelListBox& list, int row, const QString& name)
{
    QAccessible::queryAccessibleInterface(&list)->child(row)->actionInterface()->doAction(name);
}

/// One letter an item: "x" selected, "." not.
QString marks(const QTeskelListBox& list)
{
    QString all;
    for (int row = 0; row < list.count(); ++row)
        all += list.isSelected(row) ? u'x' : u'.';
    return all;
}

/// A list box of another class: the interface must reach derived classes.
class DerivedList : public QTeskelListBox
{
    Q_OBJECT
public:
    using QTeskelListBox::QTeskelListBox;
};
} // namespace

class TestListBoxAccessible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void listHasItsItemsAsChildren();
    void itemsTellTheirState();
    void itemsTellTheirPlace();
    void itemsCanBePressed();
    void pressSelectsInEveryMode_data();
    void pressSelectsInEveryMode();
    void severalItemsCanBeSelected_data();
    void severalItemsCanBeSelected();
    void pressedItemComesIntoView();
    void itemMayGoWhileItIsPressed();
    void interfacesGoWithTheirItems();
    void selectionAndFocusAreReported();
    void textChangesAreReported();
};

void TestListBoxAccessible::initTestCase()
{
    teskel::ListBoxAccessible::setReporter(noteEvent);
}

void TestListBoxAccessible::cleanupTestCase()
{
    teskel::ListBoxAccessible::setReporter(nullptr);
}

void TestListBoxAccessible::listHasItsItemsAsChildren()
{
    DerivedList list(nullptr, "words");
    list.setAccessibleName(u"Words"_s);
    list.insertStringList({u"one"_s, u"two"_s});
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&list);
    QVERIFY(interface);
    QCOMPARE(interface->role(), QAccessible::List);
    QCOMPARE(interface->text(QAccessible::Name), u"Words"_s);
    QCOMPARE(interface->childCount(), 2);
    QAccessibleInterface* second = interface->child(1);
    QCOMPARE(second, interface->child(1));
    QCOMPARE(second->role(), QAccessible::ListItem);
    QCOMPARE(second->text(QAccessible::Name), u"two"_s);
    QCOMPARE(second->parent(), interface);
    QCOMPARE(interface->indexOfChild(second), 1);
    QCOMPARE(interface->child(2), nullptr);
    QCOMPARE(interface->child(-1), nullptr);
}

void TestListBoxAccessible::itemsTellTheirState()
{
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s});
    list.show();
    list.activateWindow();
    list.setFocus();
    QTRY_VERIFY(list.hasFocus());
    list.setCurrentItem(1);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&list);
    QAccessible::State state = interface->child(1)->state();
    QVERIFY(state.selectable && state.selected && state.focusable && state.focused);
    state = interface->child(0)->state();
    QVERIFY(state.selectable && !state.selected && !state.focused);
    QCOMPARE(interface->focusChild(), interface->child(1));
    list.setSelectionMode(QTeskelListBox::Extended);
    QVERIFY(interface->state().multiSelectable && interface->state().extSelectable);
    list.setFocusPolicy(Qt::NoFocus);
    QVERIFY(!interface->child(1)->state().focusable);
}

void TestListBoxAccessible::itemsTellTheirPlace()
{
    QTeskelListBox list;
    for (int row = 0; row < 20; ++row)
        list.insertItem(new teskel::test::PlainItem(QString::number(row)));
    list.resize(200, 100);
    list.show();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&list);
    QAccessibleInterface* second = interface->child(1);
    QCOMPARE(second->rect(),
             QRect(list.viewport()->mapToGlobal(QPoint(0, 20)), QSize(list.visibleWidth(), 20)));
    const QPoint middle = second->rect().center();
    QCOMPARE(interface->childAt(middle.x(), middle.y()), second);
    QVERIFY(!second->state().offscreen);
    QVERIFY(interface->child(19)->state().offscreen);
    QCOMPARE(interface->childAt(-5000, -5000), nullptr);
}

void TestListBoxAccessible::itemsCanBePressed()
{
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s});
    QAccessibleInterface* item = QAccessible::queryAccessibleInterface(&list)->child(1);
    QAccessibleActionInterface* action = item->actionInterface();
    QVERIFY(action);
    QCOMPARE(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    action->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(list.currentItem(), 1);
}

void TestListBoxAccessible::pressSelectsInEveryMode_data()
{
    QTest::addColumn<QTeskelListBox::SelectionMode>("mode");
    QTest::addColumn<QString>("once");
    QTest::addColumn<QString>("twice");
    QTest::addColumn<QString>("another");
    // As a tap would: one letter an item, "x" selected.
    QTest::newRow("single") << QTeskelListBox::Single << ".x."
                            << ".x."
                            << "..x";
    QTest::newRow("multi") << QTeskelListBox::Multi << ".x."
                           << "..."
                           << "..x";
    QTest::newRow("extended") << QTeskelListBox::Extended << ".x."
                              << ".x."
                              << "..x";
    QTest::newRow("none") << QTeskelListBox::NoSelection << "..."
                          << "..."
                          << "...";
}

void TestListBoxAccessible::pressSelectsInEveryMode()
{
    QFETCH(QTeskelListBox::SelectionMode, mode);
    QFETCH(QString, once);
    QFETCH(QString, twice);
    QFETCH(QString, another);
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s, u"three"_s});
    list.setSelectionMode(mode);
    const auto act = [&](int row) {
        doAction(list, row, QAccessibleActionInterface::pressAction());
    };
    act(1);
    QCOMPARE(marks(list), once);
    QCOMPARE(list.currentItem(), 1);
    act(1);
    QCOMPARE(marks(list), twice);
    act(2);
    QCOMPARE(marks(list), another);
    QCOMPARE(list.currentItem(), 2);
    list.setEnabled(false);
    act(0);
    QCOMPARE(marks(list), another);
}

void TestListBoxAccessible::severalItemsCanBeSelected_data()
{
    QTest::addColumn<QTeskelListBox::SelectionMode>("mode");
    QTest::addColumn<bool>("several");
    QTest::newRow("single") << QTeskelListBox::Single << false;
    QTest::newRow("multi") << QTeskelListBox::Multi << true;
    QTest::newRow("extended") << QTeskelListBox::Extended << true;
    QTest::newRow("none") << QTeskelListBox::NoSelection << false;
}

void TestListBoxAccessible::severalItemsCanBeSelected()
{
    QFETCH(QTeskelListBox::SelectionMode, mode);
    QFETCH(bool, several);
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s, u"three"_s});
    list.setSelectionMode(mode);
    list.item(1)->setSelectable(false);
    const QString toggle = QAccessibleActionInterface::toggleAction();
    const auto offersToggle = [&](int row) {
        return QAccessible::queryAccessibleInterface(&list)
            ->child(row)
            ->actionInterface()
            ->actionNames()
            .contains(toggle);
    };
    QCOMPARE(offersToggle(0), several);
    QVERIFY(!offersToggle(1));
    for (int row = 0; row < 3; ++row)
        doAction(list, row, toggle);
    QCOMPARE(marks(list), several ? u"x.x"_s : u"..."_s);
    doAction(list, 0, toggle);
    QCOMPARE(marks(list), several ? u"..x"_s : u"..."_s);
}

void TestListBoxAccessible::pressedItemComesIntoView()
{
    QTeskelListBox list;
    for (int row = 0; row < 20; ++row)
        list.insertItem(new teskel::test::PlainItem(QString::number(row)));
    list.resize(200, 100);
    list.show();
    QVERIFY(!list.itemVisible(15));
    doAction(list, 15, QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(list.itemVisible(15));
}

void TestListBoxAccessible::itemMayGoWhileItIsPressed()
{
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s});
    list.setMultiSelection(true);
    connect(&list, &QTeskelListBox::currentChanged, &list, &QTeskelListBox::clear);
    doAction(list, 1, QAccessibleActionInterface::pressAction());
    QCOMPARE(list.count(), 0);
}

void TestListBoxAccessible::interfacesGoWithTheirItems()
{
    auto list = std::make_unique<QTeskelListBox>();
    list->insertStringList({u"one"_s, u"two"_s, u"three"_s});
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(list.get());
    QList<QAccessible::Id> ids;
    for (int row = 0; row < 3; ++row)
        ids << QAccessible::uniqueId(interface->child(row));
    list->removeItem(0);
    QCOMPARE(QAccessible::accessibleInterface(ids[0]), nullptr);
    QCOMPARE(QAccessible::accessibleInterface(ids[1])->text(QAccessible::Name), u"two"_s);
    std::unique_ptr<QTeskelListBoxItem> taken(list->item(0));
    list->takeItem(taken.get());
    QCOMPARE(QAccessible::accessibleInterface(ids[1]), nullptr);
    list.reset();
    QCOMPARE(QAccessible::accessibleInterface(ids[2]), nullptr);
}

void TestListBoxAccessible::selectionAndFocusAreReported()
{
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s});
    list.show();
    events.clear();
    list.setCurrentItem(1);
    const QString two = u"two"_s;
    QCOMPARE(events, (QList<Event>{{QAccessible::ActiveDescendantChanged, two},
                                   {QAccessible::Selection, two}}));
    list.activateWindow();
    list.setFocus();
    QTRY_VERIFY(list.hasFocus());
    events.clear();
    list.setSelected(0, true);
    const QString one = u"one"_s;
    QCOMPARE(events, (QList<Event>{{QAccessible::Focus, one}, {QAccessible::Selection, one}}));
}

void TestListBoxAccessible::textChangesAreReported()
{
    QTeskelListBox list;
    list.insertStringList({u"one"_s, u"two"_s});
    events.clear();
    list.item(1)->setText(u"three"_s);
    QCOMPARE(events, (QList<Event>{{QAccessible::NameChanged, u"three"_s}}));
}

QTEST_MAIN(TestListBoxAccessible)
#include "test_listboxaccessible.moc"
