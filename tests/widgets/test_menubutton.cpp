// SPDX-License-Identifier: MIT
#include "widgets/menubutton.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

using teskel::MenuButton;

namespace
{
/// A shown button with a menu of one entry.
struct Button {
    Button()
    {
        menu.addAction(u"Entry"_s);
        button.setMenu(&menu);
        button.show();
    }
    QAccessibleInterface* interface() { return QAccessible::queryAccessibleInterface(&button); }
    QMenu menu;
    MenuButton button;
};
} // namespace

/// The button with a menu as a person and as a screen reader sees it.
class TestMenuButton : public QObject
{
    Q_OBJECT

private slots:
    void opensAtThePressAndTakesNoFocus();
    void isAButtonWithItsMenuAsTheOneChild();
    void withoutAMenuHasNoChild();
    void otherButtonsAreLeftToQt();
    void actionOpensTheMenuAfterwards();
    void otherActionsDoNothing();
    void disabledOpensNothing();
};

void TestMenuButton::opensAtThePressAndTakesNoFocus()
{
    const Button b;
    QCOMPARE(b.button.popupMode(), QToolButton::InstantPopup);
    QCOMPARE(b.button.focusPolicy(), Qt::NoFocus);
}

void TestMenuButton::isAButtonWithItsMenuAsTheOneChild()
{
    Button b;
    QAccessibleInterface* const seen = b.interface();
    QCOMPARE(seen->role(), QAccessible::ButtonMenu);
    QVERIFY(seen->state().hasPopup);
    QCOMPARE(seen->childCount(), 1);
    QVERIFY(seen->child(0) != nullptr);
    QCOMPARE(seen->child(0)->object(), &b.menu);
    QVERIFY(seen->child(1) == nullptr);
    QCOMPARE(seen->indexOfChild(seen->child(0)), 0);
    QMenu other;
    QCOMPARE(seen->indexOfChild(QAccessible::queryAccessibleInterface(&other)), -1);
}

void TestMenuButton::withoutAMenuHasNoChild()
{
    MenuButton button;
    QMenu other;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(!seen->state().hasPopup);
    QCOMPARE(seen->childCount(), 0);
    QCOMPARE(seen->indexOfChild(QAccessible::queryAccessibleInterface(&other)), -1);
}

void TestMenuButton::otherButtonsAreLeftToQt()
{
    const MenuButton first;
    QToolButton button;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&button);
    if (seen == nullptr)
        QFAIL("a screen reader does not see it");
    QVERIFY(!seen->actionInterface()->actionNames().isEmpty());
    QCOMPARE(seen->role(), QAccessible::Button);
}

void TestMenuButton::actionOpensTheMenuAfterwards()
{
    Button b;
    QVERIFY(QTest::qWaitForWindowExposed(&b.button));
    QAccessibleActionInterface* const actions = b.interface()->actionInterface();
    QCOMPARE(actions->actionNames(), QStringList{QAccessibleActionInterface::showMenuAction()});
    bool shown = false;
    connect(&b.menu, &QMenu::aboutToShow, this, [&] {
        shown = true;
        QMetaObject::invokeMethod(&b.menu, &QWidget::close, Qt::QueuedConnection);
    });
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(!shown);
    QTRY_VERIFY(shown);
    QTRY_VERIFY(!b.menu.isVisible());
}

void TestMenuButton::otherActionsDoNothing()
{
    Button b;
    bool shown = false;
    connect(&b.menu, &QMenu::aboutToShow, this, [&] {
        shown = true;
        QMetaObject::invokeMethod(&b.menu, &QWidget::close, Qt::QueuedConnection);
    });
    b.interface()->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    QVERIFY(!shown);
}

void TestMenuButton::disabledOpensNothing()
{
    Button b;
    b.button.setEnabled(false);
    bool shown = false;
    connect(&b.menu, &QMenu::aboutToShow, this, [&] {
        shown = true;
        QMetaObject::invokeMethod(&b.menu, &QWidget::close, Qt::QueuedConnection);
    });
    b.interface()->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QCoreApplication::processEvents();
    QVERIFY(!shown);
}

QTEST_MAIN(TestMenuButton)
#include "test_menubutton.moc"
