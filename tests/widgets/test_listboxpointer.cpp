// SPDX-License-Identifier: MIT
// The list box under a pen or mouse.
#include "tests/widgets/plainitem.h"
#include "tests/widgets/signallog.h"
#include "widgets/listbox/qteskellistbox.h"

#include <QDialog>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

using teskel::test::PlainItem;
using teskel::test::SignalLog;

namespace
{
struct List {
    explicit List(int rows = 10)
    {
        list.setFrameStyle(QFrame::NoFrame);
        list.resize(200, 100);
        for (int row = 0; row < rows; ++row)
            list.insertItem(new PlainItem(QString(QChar(u'a' + row))));
        list.show();
        list.refreshSlot();
        log.take();
    }
    static QPoint at(int row) { return {20, row * 20 + 10}; }
    void press(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(list.viewport(), button, keys, at(row));
    }
    void release(int row, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(list.viewport(), button, {}, at(row));
    }
    void click(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, at(row));
    }
    void drag(QPoint position)
    {
        QMouseEvent move(QEvent::MouseMove, position, list.viewport()->mapToGlobal(position),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(list.viewport(), &move);
    }
    QString marks() const
    {
        QString all;
        for (int row = 0; row < list.count(); ++row)
            all += list.isSelected(row) ? u'x' : u'.';
        return all;
    }
    QTeskelListBox list;
    SignalLog log{&list};
};

QStringList choosing(const char* name, int index)
{
    const QString text = QString::fromLatin1(name);
    return {u"selectionChanged(%1)"_s.arg(text), u"selectionChanged()"_s,
            u"highlighted(%1)"_s.arg(text),      u"highlighted(\"%1\")"_s.arg(text),
            u"highlighted(%1)"_s.arg(index),     u"currentChanged(%1)"_s.arg(text)};
}
} // namespace

class TestListBoxPointer : public QObject
{
    Q_OBJECT

private slots:
    void pressSelectsAndReports_data();
    void pressSelectsAndReports();
    void releaseOnTheSameItemIsAClick_data();
    void releaseOnTheSameItemIsAClick();
    void releaseElsewhereIsNoClick();
    void pressOnNothingReportsNothing();
    void doubleClickEmitsInOrder();
    void dragMovesTheCurrentItem();
    void dragOutsideScrolls();
    void dragEndsWhenTheReleaseIsLost_data();
    void dragEndsWhenTheReleaseIsLost();
    void moveWithoutTheButtonEndsTheDrag();
    void rightButtonDoesNotDrag();
    void hoverReportsItemsOnce();
    void multiTogglesAndDragsOn();
    void extendedSelectsRanges();
    void removedItemIsNotClicked();
};

void TestListBoxPointer::pressSelectsAndReports_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addRow("left") << Qt::LeftButton;
    QTest::addRow("right") << Qt::RightButton;
    QTest::addRow("middle") << Qt::MiddleButton;
}

void TestListBoxPointer::pressSelectsAndReports()
{
    QFETCH(Qt::MouseButton, button);
    List l;
    l.press(2, button);
    QStringList expected = choosing("c", 2);
    expected << u"pressed(c)"_s << u"pressed(c,pos)"_s
             << u"mouseButtonPressed(%1,c)"_s.arg(int(button));
    if (button == Qt::RightButton)
        expected << u"rightButtonPressed(c,pos)"_s;
    QCOMPARE(l.log.take(), expected);
}

void TestListBoxPointer::releaseOnTheSameItemIsAClick_data()
{
    pressSelectsAndReports_data();
}

void TestListBoxPointer::releaseOnTheSameItemIsAClick()
{
    QFETCH(Qt::MouseButton, button);
    List l;
    l.press(2, button);
    l.log.take();
    l.release(2, button);
    QStringList expected{u"clicked(c)"_s, u"clicked(c,pos)"_s,
                         u"mouseButtonClicked(%1,c)"_s.arg(int(button))};
    if (button == Qt::RightButton)
        expected << u"rightButtonClicked(c,pos)"_s;
    QCOMPARE(l.log.take(), expected);
}

void TestListBoxPointer::releaseElsewhereIsNoClick()
{
    List l;
    l.press(2);
    l.log.take();
    l.release(3);
    QCOMPARE(l.log.take(), QStringList());
}

void TestListBoxPointer::pressOnNothingReportsNothing()
{
    List l(2);
    l.press(3);
    QCOMPARE(l.log.take(),
             (QStringList{u"pressed(-)"_s, u"pressed(-,pos)"_s, u"mouseButtonPressed(1,-)"_s}));
    l.release(3);
    QCOMPARE(l.log.take(),
             (QStringList{u"clicked(-)"_s, u"clicked(-,pos)"_s, u"mouseButtonClicked(1,-)"_s}));
    QCOMPARE(l.list.currentItem(), -1);
}

void TestListBoxPointer::doubleClickEmitsInOrder()
{
    List l;
    l.click(1);
    l.log.take();
    QMouseEvent twice(QEvent::MouseButtonDblClick, List::at(1),
                      l.list.viewport()->mapToGlobal(List::at(1)), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(l.list.viewport(), &twice);
    l.release(1);
    QCOMPARE(l.log.take(), (QStringList{u"selected(1)"_s, u"selected(b)"_s, u"selected(\"b\")"_s,
                                        u"doubleClicked(b)"_s}));
}

void TestListBoxPointer::dragMovesTheCurrentItem()
{
    List l;
    l.press(1);
    l.log.take();
    l.drag(List::at(3));
    QCOMPARE(l.log.take(), choosing("d", 3));
    l.release(3);
    l.drag(List::at(0));
    QCOMPARE(l.list.currentItem(), 3);
}

void TestListBoxPointer::dragOutsideScrolls()
{
    List l;
    l.press(3);
    l.drag({20, 130});
    auto* timer = l.list.findChild<QTimer*>(u"listbox scroll timer"_s);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 100);
    QCOMPARE(l.list.currentItem(), 4);
    QTRY_COMPARE(l.list.currentItem(), 9);
    QCOMPARE(l.list.contentsY(), 100);
    l.drag(List::at(2));
    QVERIFY(!timer->isActive());
    l.drag({20, -30});
    QVERIFY(timer->isActive());
    l.release(2);
    QVERIFY(!timer->isActive());
    const int before = l.list.contentsY();
    l.list.doAutoScroll();
    QCOMPARE(l.list.contentsY(), before);
}

void TestListBoxPointer::dragEndsWhenTheReleaseIsLost_data()
{
    QTest::addColumn<QString>("cause");
    for (const char* cause : {"hidden", "modal dialog", "popup"})
        QTest::addRow("%s", cause) << QString::fromLatin1(cause);
}

void TestListBoxPointer::dragEndsWhenTheReleaseIsLost()
{
    QFETCH(QString, cause);
    List l;
    l.press(3);
    l.drag({20, 130});
    auto* timer = l.list.findChild<QTimer*>(u"listbox scroll timer"_s);
    QVERIFY(timer->isActive());
    QDialog dialog;
    QWidget popup(nullptr, Qt::Popup);
    if (cause == QLatin1String("hidden"))
        l.list.hide();
    else if (cause == QLatin1String("popup"))
        popup.show();
    else
        dialog.open();
    l.list.doAutoScroll();
    QVERIFY(!timer->isActive());
    QCOMPARE(l.list.contentsY(), 0);
    dialog.hide();
    popup.hide();
    l.list.show();
    l.drag(List::at(1));
    QCOMPARE(l.list.currentItem(), 4);
}

void TestListBoxPointer::moveWithoutTheButtonEndsTheDrag()
{
    List l;
    l.press(3);
    l.drag({20, 130});
    l.log.take();
    const QPoint position = List::at(1);
    QMouseEvent move(QEvent::MouseMove, position, l.list.viewport()->mapToGlobal(position),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(l.list.viewport(), &move);
    QCOMPARE(l.log.take(), QStringList{u"onItem(b)"_s});
    QVERIFY(!l.list.findChild<QTimer*>(u"listbox scroll timer"_s)->isActive());
    l.drag(List::at(0));
    QCOMPARE(l.list.currentItem(), 4);
    l.release(3);
    QCOMPARE(l.log.take(), QStringList());
}

void TestListBoxPointer::rightButtonDoesNotDrag()
{
    List l;
    l.press(1, Qt::RightButton);
    QMouseEvent move(QEvent::MouseMove, List::at(3), l.list.viewport()->mapToGlobal(List::at(3)),
                     Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(l.list.viewport(), &move);
    QCOMPARE(l.list.currentItem(), 1);
}

void TestListBoxPointer::hoverReportsItemsOnce()
{
    List l(2);
    const auto hover = [&](QPoint position) {
        QMouseEvent move(QEvent::MouseMove, position, l.list.viewport()->mapToGlobal(position),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(l.list.viewport(), &move);
    };
    hover(List::at(0));
    hover(List::at(0) + QPoint(3, 3));
    hover(List::at(1));
    hover(List::at(3));
    hover(List::at(4));
    QCOMPARE(l.log.take(), (QStringList{u"onItem(a)"_s, u"onItem(b)"_s, u"onViewport()"_s}));
    QVERIFY(l.list.viewport()->hasMouseTracking());
}

void TestListBoxPointer::multiTogglesAndDragsOn()
{
    List l(5);
    l.list.setSelectionMode(QTeskelListBox::Multi);
    l.press(0);
    l.drag(List::at(1));
    l.drag(List::at(2));
    l.release(2);
    QCOMPARE(l.marks(), u"xxx.."_s);
    l.click(1);
    QCOMPARE(l.marks(), u"x.x.."_s);
}

void TestListBoxPointer::extendedSelectsRanges()
{
    List l(5);
    l.list.setSelectionMode(QTeskelListBox::Extended);
    l.click(1);
    l.click(3, Qt::ShiftModifier);
    QCOMPARE(l.marks(), u".xxx."_s);
    l.click(2, Qt::ControlModifier);
    QCOMPARE(l.marks(), u".x.x."_s);
    l.click(4);
    QCOMPARE(l.marks(), u"....x"_s);
}

void TestListBoxPointer::removedItemIsNotClicked()
{
    List l;
    l.press(2);
    l.list.removeItem(2);
    l.log.take();
    l.release(2);
    QCOMPARE(l.log.take(), QStringList());
}

QTEST_MAIN(TestListBoxPointer)
#include "test_listboxpointer.moc"
