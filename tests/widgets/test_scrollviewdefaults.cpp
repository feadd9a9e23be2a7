// SPDX-License-Identifier: MIT
#include "widgets/scrolling/qteskelscrollbar.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QMouseEvent>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
/// Notes what its children leave to it.
class Parent : public QWidget
{
public:
    QList<QEvent::Type> left;

protected:
    bool event(QEvent* event) override
    {
        left.append(event->type());
        return QWidget::event(event);
    }
};
} // namespace

/// What a scroll view is before anything is set, and what it leaves to others.
class TestScrollViewDefaults : public QObject
{
    Q_OBJECT

private slots:
    void barsStandAtTheOrigin();
    void barsStepTwentyPixels();
    void contentsCountFromTheLeftInEveryLanguage();
    void mouseIsLeftToTheParent_data();
    void mouseIsLeftToTheParent();
    void flagsAreThoseThatAreGiven();
    void noChildIsNowhere();
    void shrinkingViewKeepsTheRange();
};

void TestScrollViewDefaults::barsStandAtTheOrigin()
{
    const QTeskelScrollView view;
    for (const QTeskelScrollBar* const bar :
         {view.horizontalScrollBar(), view.verticalScrollBar()}) {
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 0);
        QCOMPARE(bar->value(), 0);
        QCOMPARE(bar->pageStep(), 1);
    }
    QCOMPARE(view.contentsWidth(), 0);
    QCOMPARE(view.contentsHeight(), 0);
}

void TestScrollViewDefaults::barsStepTwentyPixels()
{
    const QTeskelScrollView view;
    QCOMPARE(view.horizontalScrollBar()->lineStep(), 20);
    QCOMPARE(view.verticalScrollBar()->lineStep(), 20);
}

void TestScrollViewDefaults::contentsCountFromTheLeftInEveryLanguage()
{
    QTeskelScrollView view;
    view.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(view.horizontalScrollBar()->layoutDirection(), Qt::LeftToRight);
}

void TestScrollViewDefaults::mouseIsLeftToTheParent_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addRow("press") << QEvent::MouseButtonPress;
    QTest::addRow("move") << QEvent::MouseMove;
    QTest::addRow("release") << QEvent::MouseButtonRelease;
    QTest::addRow("double click") << QEvent::MouseButtonDblClick;
}

void TestScrollViewDefaults::mouseIsLeftToTheParent()
{
    QFETCH(QEvent::Type, type);
    Parent parent;
    const QTeskelScrollView view(&parent);
    QMouseEvent event(type, QPointF(10, 10), view.viewport()->mapToGlobal(QPointF(10, 10)),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
    QVERIFY(parent.left.contains(type));
}

void TestScrollViewDefaults::flagsAreThoseThatAreGiven()
{
    QWidget parent;
    const QTeskelScrollView plain(&parent);
    QVERIFY(!plain.isWindow());
    const QTeskelScrollView window(&parent, "view", Qt::Window | Qt::FramelessWindowHint);
    QVERIFY(window.isWindow());
    QVERIFY(window.windowFlags().testFlag(Qt::FramelessWindowHint));
}

void TestScrollViewDefaults::noChildIsNowhere()
{
    QTeskelScrollView view;
    view.addChild(nullptr);
    view.moveChild(nullptr, 1, 2);
    view.removeChild(nullptr);
    QWidget stranger;
    view.moveChild(&stranger, 5, 6);
    view.removeChild(&stranger);
    QCOMPARE(stranger.pos(), QPoint(0, 0));
    QCOMPARE(view.contentsWidth(), 0);
}

void TestScrollViewDefaults::shrinkingViewKeepsTheRange()
{
    QTeskelScrollView view;
    view.setFrameStyle(QFrame::NoFrame);
    view.setHScrollBarMode(QTeskelScrollView::AlwaysOff);
    view.setVScrollBarMode(QTeskelScrollView::AlwaysOff);
    view.resize(200, 200);
    view.show();
    view.resizeContents(300, 400);
    QCOMPARE(view.verticalScrollBar()->maximum(), 200);
    view.resize(150, 100);
    QCOMPARE(view.verticalScrollBar()->maximum(), 300);
    QCOMPARE(view.verticalScrollBar()->pageStep(), 100);
    QCOMPARE(view.horizontalScrollBar()->maximum(), 150);
    QCOMPARE(view.horizontalScrollBar()->pageStep(), 150);
}

QTEST_MAIN(TestScrollViewDefaults)
#include "test_scrollviewdefaults.moc"
