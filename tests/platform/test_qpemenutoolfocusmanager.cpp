// SPDX-License-Identifier: MIT
#include "platform/toolbar/qpemenubar.h"
#include "platform/toolbar/qpemenutoolfocusmanager.h"
#include "platform/toolbar/qpetoolbar.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{

// A window like the reader's: menus and buttons on one tool bar, an entry below.
class Window : public QMainWindow
{
public:
    Window()
        : toolBar(new QPEToolBar(this))
        , menuBar(new QPEMenuBar(toolBar))
        , entry(new QLineEdit)
        , other(new QLineEdit)
    {
        toolBar->addWidget(menuBar);
        for (const QString& title : {u"Lexicon"_s, u"Edit"_s}) {
            QMenu* menu = menuBar->addMenu(title);
            menu->addAction(title + u" 1"_s);
            menu->addAction(title + u" 2"_s);
        }
        for (const QString& text : {u"Open"_s, u"Hidden"_s, u"Off"_s, u"Cross"_s})
            actions[text] = toolBar->addAction(text);
        actions[u"Hidden"_s]->setVisible(false);
        actions[u"Off"_s]->setEnabled(false);
        addToolBar(toolBar);
        auto* centre = new QWidget;
        auto* layout = new QVBoxLayout(centre);
        layout->addWidget(entry);
        layout->addWidget(other);
        setCentralWidget(centre);
        resize(600, 200);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("no active window");
        entry->setFocus();
        QPEMenuToolFocusManager::manager()->addWidget(toolBar);
    }

    QPEToolBar* toolBar;
    QPEMenuBar* menuBar;
    QLineEdit* entry;
    QLineEdit* other;
    QMap<QString, QAction*> actions;

    QAction* menuAction(int menu, int index) const
    {
        return menuBar->actions()[menu]->menu()->actions()[index];
    }
    QWidget* button(const QString& text) const { return toolBar->widgetForAction(actions[text]); }
};

// Where the keyboard is: the title of a menu, the text of a button, or "entry".
QString place(const Window& window)
{
    if (const auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        return u"menu "_s + popup->title();
    // The offscreen platform leaves no window active once a menu has closed.
    QWidget* focus = window.focusWidget();
    if (focus == window.menuBar)
        return window.menuBar->activeAction() != nullptr ? window.menuBar->activeAction()->text()
                                                         : u"bar"_s;
    if (const auto* button = qobject_cast<QToolButton*>(focus))
        return button->text();
    return focus == window.entry ? u"entry"_s : u"elsewhere"_s;
}

void key(Qt::Key which)
{
    QWidget* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), which);
}

QPEMenuToolFocusManager* manager()
{
    return QPEMenuToolFocusManager::manager();
}

} // namespace

class QPEMenuToolFocusManagerTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keysStartAndEnd_data();
    void keysStartAndEnd();
    void otherKeysDoNotStart_data();
    void otherKeysDoNotStart();
    void ringRunsBothWays();
    void ringFollowsRightToLeft();
    void upAndDownAreEatenOnButtons();
    void escapeGivesTheFocusBack_data();
    void escapeGivesTheFocusBack();
    void buttonIsPressedAfterTheFocusIsBack_data();
    void buttonIsPressedAfterTheFocusIsBack();
    void heldKeyPressesOnce();
    void menuEntryIsChosen_data();
    void menuEntryIsChosen();
    void escapeInAMenuEnds();
    void leftAndRightWalkThroughOpenMenus();
    void chosenEntryMayRunADialog();
    void popupButtonOpensItsMenu();
    void otherFocusEndsTheWalk();
    void membersComeAndGo();
    void membersOfOtherWindowsAreLeftAlone();
    void withoutMembersTheKeysPass();
    void menuKeyShowsNoContextMenu();
    void nothingFocusedBeforehand();
    void overflowingButtonsAreReached();
};

void QPEMenuToolFocusManagerTest::init()
{
    // Which of Left and Right leads on depends on it, and a command line may turn it round.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void QPEMenuToolFocusManagerTest::keysStartAndEnd_data()
{
    QTest::addColumn<Qt::Key>("start");
    QTest::newRow("Menu") << Qt::Key_Menu;
    QTest::newRow("F10") << Qt::Key_F10;
}

void QPEMenuToolFocusManagerTest::keysStartAndEnd()
{
    QFETCH(Qt::Key, start);
    const Window window;
    QCOMPARE(place(window), u"entry"_s);
    key(start);
    QCOMPARE(place(window), u"Lexicon"_s);
    QVERIFY(manager()->isActive());
    key(start);
    QCOMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
    QVERIFY(window.menuBar->activeAction() == nullptr);
}

void QPEMenuToolFocusManagerTest::otherKeysDoNotStart_data()
{
    QTest::addColumn<Qt::Key>("which");
    QTest::addColumn<Qt::KeyboardModifier>("modifier");
    QTest::newRow("F9") << Qt::Key_F9 << Qt::NoModifier;
    QTest::newRow("Shift+F10") << Qt::Key_F10 << Qt::ShiftModifier;
    QTest::newRow("Ctrl+F10") << Qt::Key_F10 << Qt::ControlModifier;
}

void QPEMenuToolFocusManagerTest::otherKeysDoNotStart()
{
    QFETCH(Qt::Key, which);
    QFETCH(Qt::KeyboardModifier, modifier);
    const Window window;
    QTest::keyClick(window.entry, which, modifier);
    QCOMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
}

void QPEMenuToolFocusManagerTest::ringRunsBothWays()
{
    const Window window;
    key(Qt::Key_F10);
    QStringList forward;
    for (int i = 0; i < 5; ++i) {
        forward.append(place(window));
        key(Qt::Key_Right);
    }
    QCOMPARE(forward, QStringList({u"Lexicon"_s, u"Edit"_s, u"Open"_s, u"Cross"_s, u"Lexicon"_s}));
    QStringList back;
    for (int i = 0; i < 5; ++i) {
        back.append(place(window));
        key(Qt::Key_Left);
    }
    QCOMPARE(back, QStringList({u"Edit"_s, u"Lexicon"_s, u"Cross"_s, u"Open"_s, u"Edit"_s}));
    key(Qt::Key_Escape);
}

void QPEMenuToolFocusManagerTest::ringFollowsRightToLeft()
{
    Window window;
    window.setLayoutDirection(Qt::RightToLeft);
    key(Qt::Key_F10);
    QStringList forward;
    for (int i = 0; i < 5; ++i) {
        forward.append(place(window));
        key(Qt::Key_Left);
    }
    QCOMPARE(forward, QStringList({u"Lexicon"_s, u"Edit"_s, u"Open"_s, u"Cross"_s, u"Lexicon"_s}));
    key(Qt::Key_Escape);
}

void QPEMenuToolFocusManagerTest::upAndDownAreEatenOnButtons()
{
    const Window window;
    key(Qt::Key_F10);
    key(Qt::Key_Left);
    QCOMPARE(place(window), u"Cross"_s);
    key(Qt::Key_Up);
    key(Qt::Key_Down);
    QCOMPARE(place(window), u"Cross"_s);
    QVERIFY(manager()->isActive());
    key(Qt::Key_Escape);
}

void QPEMenuToolFocusManagerTest::escapeGivesTheFocusBack_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("from a title") << 0;
    QTest::newRow("from a button") << 2;
}

void QPEMenuToolFocusManagerTest::escapeGivesTheFocusBack()
{
    QFETCH(int, steps);
    const Window window;
    window.entry->setText(u"house"_s);
    window.entry->setCursorPosition(2);
    key(Qt::Key_F10);
    for (int i = 0; i < steps; ++i)
        key(Qt::Key_Right);
    key(Qt::Key_Escape);
    QCOMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
    QCOMPARE(window.entry->cursorPosition(), 2);
    QVERIFY(!window.entry->hasSelectedText());
}

void QPEMenuToolFocusManagerTest::buttonIsPressedAfterTheFocusIsBack_data()
{
    QTest::addColumn<Qt::Key>("which");
    QTest::newRow("Space") << Qt::Key_Space;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void QPEMenuToolFocusManagerTest::buttonIsPressedAfterTheFocusIsBack()
{
    QFETCH(Qt::Key, which);
    Window window;
    QString placeThen;
    int triggered = 0;
    connect(window.actions[u"Cross"_s], &QAction::triggered, this, [&] {
        ++triggered;
        placeThen = place(window);
    });
    key(Qt::Key_F10);
    key(Qt::Key_Left);
    key(which);
    QCOMPARE(triggered, 1);
    QCOMPARE(placeThen, u"entry"_s);
    QVERIFY(!manager()->isActive());
    QCOMPARE(window.entry->text(), QString());
}

void QPEMenuToolFocusManagerTest::heldKeyPressesOnce()
{
    const Window window;
    QSignalSpy triggered(window.actions[u"Cross"_s], &QAction::triggered);
    key(Qt::Key_F10);
    key(Qt::Key_Left);
    QWidget* button = window.button(u"Cross"_s);
    QTest::keyPress(button, Qt::Key_Space);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &release);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
    }
    QCOMPARE(triggered.count(), 0);
    QTest::keyRelease(button, Qt::Key_Space);
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(window.entry->text(), QString());
}

void QPEMenuToolFocusManagerTest::menuEntryIsChosen_data()
{
    QTest::addColumn<Qt::Key>("open");
    QTest::addColumn<Qt::Key>("choose");
    QTest::newRow("Return, Return") << Qt::Key_Return << Qt::Key_Return;
    QTest::newRow("Down, Enter") << Qt::Key_Down << Qt::Key_Enter;
}

void QPEMenuToolFocusManagerTest::menuEntryIsChosen()
{
    QFETCH(Qt::Key, open);
    QFETCH(Qt::Key, choose);
    const Window window;
    QSignalSpy triggered(window.menuAction(1, 1), &QAction::triggered);
    key(Qt::Key_F10);
    key(Qt::Key_Right);
    key(open);
    QCOMPARE(place(window), u"menu Edit"_s);
    key(Qt::Key_Down);
    key(choose);
    QCOMPARE(triggered.count(), 1);
    QTRY_COMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
    QVERIFY(window.menuBar->activeAction() == nullptr);
}

void QPEMenuToolFocusManagerTest::escapeInAMenuEnds()
{
    const Window window;
    key(Qt::Key_F10);
    key(Qt::Key_Down);
    QCOMPARE(place(window), u"menu Lexicon"_s);
    key(Qt::Key_Escape);
    QTRY_COMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
    QVERIFY(window.menuBar->activeAction() == nullptr);
}

void QPEMenuToolFocusManagerTest::leftAndRightWalkThroughOpenMenus()
{
    const Window window;
    key(Qt::Key_F10);
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    QCOMPARE(place(window), u"menu Edit"_s);
    QCoreApplication::processEvents();
    QVERIFY(manager()->isActive());
    key(Qt::Key_Left);
    QCOMPARE(place(window), u"menu Lexicon"_s);
    key(Qt::Key_F10);
    QTRY_COMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
}

void QPEMenuToolFocusManagerTest::chosenEntryMayRunADialog()
{
    Window window;
    bool ran = false;
    connect(window.menuAction(0, 0), &QAction::triggered, this, [&] {
        QDialog dialog(&window);
        QTimer::singleShot(0, &dialog, [&] {
            ran = true;
            dialog.reject();
        });
        dialog.exec();
    });
    key(Qt::Key_F10);
    key(Qt::Key_Down);
    QCOMPARE(place(window), u"menu Lexicon"_s);
    key(Qt::Key_Return);
    QVERIFY(ran);
    QTRY_COMPARE(place(window), u"entry"_s);
    QVERIFY(!manager()->isActive());
}

void QPEMenuToolFocusManagerTest::popupButtonOpensItsMenu()
{
    Window window;
    QMenu menu(u"Files"_s);
    menu.addAction(u"Eng2Ger"_s);
    auto* button = qobject_cast<QToolButton*>(window.button(u"Open"_s));
    button->setMenu(&menu);
    button->setPopupMode(QToolButton::InstantPopup);
    QSignalSpy triggered(&menu, &QMenu::triggered);
    key(Qt::Key_F10);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    QCOMPARE(place(window), u"Open"_s);
    QTimer::singleShot(0, &menu, [&menu] {
        QCOMPARE(QApplication::activePopupWidget(), &menu);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    key(Qt::Key_Space);
    QTRY_COMPARE(triggered.count(), 1);
    QCOMPARE(place(window), u"entry"_s);
}

void QPEMenuToolFocusManagerTest::otherFocusEndsTheWalk()
{
    const Window window;
    key(Qt::Key_F10);
    window.other->setFocus();
    QVERIFY(!manager()->isActive());
    QCOMPARE(QApplication::focusWidget(), window.other);
    QVERIFY(window.menuBar->activeAction() == nullptr);
}

void QPEMenuToolFocusManagerTest::membersComeAndGo()
{
    Window window;
    manager()->removeWidget(window.toolBar);
    key(Qt::Key_F10);
    QCOMPARE(place(window), u"entry"_s);
    manager()->addWidget(window.button(u"Cross"_s));
    manager()->addWidget(window.button(u"Cross"_s));
    key(Qt::Key_F10);
    QCOMPARE(place(window), u"Cross"_s);
    key(Qt::Key_Right);
    QCOMPARE(place(window), u"Cross"_s);
    delete window.actions.take(u"Cross"_s);
    key(Qt::Key_F10);
    key(Qt::Key_F10);
    QCOMPARE(place(window), u"entry"_s);
}

void QPEMenuToolFocusManagerTest::membersOfOtherWindowsAreLeftAlone()
{
    const Window first;
    QDialog dialog;
    auto* edit = new QLineEdit(&dialog);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_F10);
    QCOMPARE(QApplication::focusWidget(), edit);
    QVERIFY(!manager()->isActive());
}

void QPEMenuToolFocusManagerTest::withoutMembersTheKeysPass()
{
    QLineEdit edit;
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QVERIFY(!manager()->eventFilter(&edit, &event));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F10, Qt::NoModifier);
    QVERIFY(!manager()->eventFilter(&edit, &press));
}

void QPEMenuToolFocusManagerTest::menuKeyShowsNoContextMenu()
{
    const Window window;
    QContextMenuEvent keyboard(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QVERIFY(manager()->eventFilter(window.entry, &keyboard));
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, QPoint(1, 1), QPoint(1, 1));
    QVERIFY(!manager()->eventFilter(window.entry, &mouse));
}

void QPEMenuToolFocusManagerTest::nothingFocusedBeforehand()
{
    const Window window;
    window.entry->clearFocus();
    QVERIFY(QApplication::focusWidget() == nullptr);
    QTest::keyClick(const_cast<Window*>(&window), Qt::Key_F10);
    QCOMPARE(place(window), u"Lexicon"_s);
    key(Qt::Key_Escape);
    QVERIFY(!manager()->isActive());
    QVERIFY(QApplication::focusWidget() == nullptr);
}

void QPEMenuToolFocusManagerTest::overflowingButtonsAreReached()
{
    Window window;
    window.resize(window.menuBar->sizeHint().width() + 60, 200);
    auto* more = window.toolBar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    QTRY_VERIFY(more->isVisible());
    key(Qt::Key_F10);
    key(Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), more);
    key(Qt::Key_Escape);
}

QTEST_MAIN(QPEMenuToolFocusManagerTest)
#include "test_qpemenutoolfocusmanager.moc"
