// SPDX-License-Identifier: MIT
#include "tests/widgets/signallog.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
/// A view that may take wheel events itself and notes where they were.
class WheelView : public QTeskelScrollView
{
public:
    using QTeskelScrollView::QTeskelScrollView;
    bool takesWheel = false;
    QList<QPointF> offered;

protected:
    void viewportWheelEvent(QWheelEvent* event) override
    {
        offered << event->position();
        event->setAccepted(takesWheel);
    }
};

/// Where a slot that ends the view is connected.
enum Slot { Moving, Horizontal, Vertical };

/// A view of 200 by 200 pixels without bars and frame.
class ShownView : public QTeskelScrollView
{
public:
    explicit ShownView(int contentsWidth = 0, int contentsHeight = 0)
    {
        resize(200, 200);
        setHScrollBarMode(AlwaysOff);
        setVScrollBarMode(AlwaysOff);
        setFrameStyle(NoFrame);
        show();
        if (contentsWidth > 0)
            resizeContents(contentsWidth, contentsHeight);
    }
};

/// A left button's event; unlike Qt Test's it leaves alone a receiver that it ended.
void sendMouse(QWidget* receiver, QEvent::Type type, QPoint position)
{
    const bool moves = type == QEvent::MouseMove;
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, position, receiver->mapToGlobal(position),
                      moves ? Qt::NoButton : Qt::LeftButton, held ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &event);
}

bool turnWheel(QWidget* receiver, QPoint position, QPoint angle = {0, -120})
{
    QWheelEvent event(position, receiver->mapToGlobal(position), QPoint(), angle, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(receiver, &event);
    return event.isAccepted();
}
} // namespace

class TestScrollView : public QObject
{
    Q_OBJECT

private slots:
    void declarationOrder();
    void partsHaveTheirNames();
    void frameIsSunkenStyledPanel();
    void rangesFollowContents();
    void rangeIsEmptyWhenContentsFit();
    void barsMoveContents();
    void contentsMovingComesBeforeTheMove();
    void contentsMovingTellsOfBothDirections();
    void scrollingOnInASlotWins();
    void slidesTakeTheBarsAlong();
    void contentsAndBarAgreeFromTheRight();
    void deletingInASlotIsSafe_data();
    void deletingInASlotIsSafe();
    void positionIsCutToTheRange();
    void positionsAtTheLimitsOfIntAreCut();
    void ensureVisible_data();
    void ensureVisible();
    void marginsAreZeroWhenContentsFit();
    void centerPutsThePointInTheMiddle();
    void coordinatesConvert();
    void childrenMoveWithContents();
    void childrenMoveWithTheClipper();
    void autoOneFollowsTheChild();
    void resizeContentsIsManual();
    void deletedChildIsForgotten();
    void childrenOutliveTheView();
    void clipperAfterChildrenWarns_data();
    void clipperAfterChildrenWarns();
    void wheelIsOfferedToTheViewportFirst();
    void wheelGoesToTheVerticalBar();
    void sidewaysWheelGoesToTheHorizontalBar();
    void wheelOnTheViewportArrivesOnce_data();
    void wheelOnTheViewportArrivesOnce();
    void scrollingKeepsOtherChildWidgets();
    void scrollBarModes();
    void marginsShrinkTheViewport();
    void disablingReachesTheBars();
};

void TestScrollView::declarationOrder()
{
    const auto& meta = QTeskelScrollView::staticMetaObject;
    QCOMPARE(teskel::test::methodsOf(meta, QMetaMethod::Slot),
             (QStringList{u"resizeContents(int,int)"_s, u"scrollBy(int,int)"_s,
                          u"setContentsPos(int,int)"_s, u"ensureVisible(int,int)"_s,
                          u"ensureVisible(int,int,int,int)"_s, u"center(int,int)"_s,
                          u"center(int,int,float,float)"_s, u"updateScrollBars()"_s,
                          u"setEnabled(bool)"_s, u"hslide(int)"_s, u"vslide(int)"_s}));
    QCOMPARE(teskel::test::methodsOf(meta, QMetaMethod::Signal),
             QStringList{u"contentsMoving(int,int)"_s});
}

void TestScrollView::partsHaveTheirNames()
{
    QTeskelScrollView view(nullptr, "view");
    QCOMPARE(view.objectName(), u"view"_s);
    QCOMPARE(view.horizontalScrollBar(), view.findChild<QTeskelScrollBar*>(u"qt_hbar"_s));
    QCOMPARE(view.verticalScrollBar(), view.findChild<QTeskelScrollBar*>(u"qt_vbar"_s));
    QCOMPARE(view.viewport()->objectName(), u"qt_viewport"_s);
    QCOMPARE(view.clipper(), view.viewport());
    view.enableClipper(true);
    QCOMPARE(view.clipper()->objectName(), u"qt_clipped_viewport"_s);
    for (const QTeskelScrollBar* bar : {view.horizontalScrollBar(), view.verticalScrollBar()}) {
        QCOMPARE(bar->lineStep(), 20);
        QCOMPARE(bar->pageStep(), 1);
    }
}

void TestScrollView::frameIsSunkenStyledPanel()
{
    QTeskelScrollView view;
    QCOMPARE(view.frameStyle(), int(QFrame::StyledPanel) | int(QFrame::Sunken));
}

void TestScrollView::rangesFollowContents()
{
    ShownView view(500, 1000);
    QCOMPARE(view.horizontalScrollBar()->maximum(), 300);
    QCOMPARE(view.verticalScrollBar()->maximum(), 800);
    QCOMPARE(view.verticalScrollBar()->pageStep(), 200);
    view.resize(200, 300);
    QCOMPARE(view.verticalScrollBar()->maximum(), 700);
}

void TestScrollView::rangeIsEmptyWhenContentsFit()
{
    QTeskelScrollView view;
    view.resize(200, 200);
    view.show();
    view.resizeContents(view.visibleWidth(), view.visibleHeight());
    QCOMPARE(view.verticalScrollBar()->maximum(), 0);
    QVERIFY(!view.verticalScrollBar()->isVisible());
    view.resizeContents(10, 1000);
    QTRY_VERIFY(view.verticalScrollBar()->isVisible());
    QVERIFY(!view.horizontalScrollBar()->isVisible());
}

void TestScrollView::barsMoveContents()
{
    ShownView view(500, 1000);
    view.verticalScrollBar()->setValue(40);
    view.horizontalScrollBar()->setValue(30);
    QCOMPARE(view.contentsY(), 40);
    QCOMPARE(view.contentsX(), 30);
    view.scrollBy(5, -10);
    QCOMPARE(view.horizontalScrollBar()->value(), 35);
    QCOMPARE(view.verticalScrollBar()->value(), 30);
}

void TestScrollView::contentsMovingComesBeforeTheMove()
{
    ShownView view(500, 1000);
    QList<int> seen;
    connect(&view, &QTeskelScrollView::contentsMoving, this,
            [&](int x, int y) { seen << x << y << view.contentsY(); });
    view.setContentsPos(0, 100);
    QCOMPARE(seen, (QList<int>{0, 100, 0}));
}

void TestScrollView::contentsMovingTellsOfBothDirections()
{
    ShownView view(500, 1000);
    QSignalSpy moving(&view, &QTeskelScrollView::contentsMoving);
    view.setContentsPos(30, 0);
    QCOMPARE(moving.takeFirst(), (QVariantList{30, 0}));
    view.horizontalScrollBar()->setValue(70);
    QCOMPARE(moving.takeFirst(), (QVariantList{70, 0}));
    view.verticalScrollBar()->setValue(40);
    QCOMPARE(moving.takeFirst(), (QVariantList{70, 40}));
    view.setContentsPos(70, 40);
    QCOMPARE(moving.count(), 0);
}

void TestScrollView::scrollingOnInASlotWins()
{
    ShownView view(500, 1000);
    connect(
        &view, &QTeskelScrollView::contentsMoving, &view, [&] { view.setContentsPos(20, 300); },
        Qt::SingleShotConnection);
    view.verticalScrollBar()->setValue(100);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(20, 300));
    QCOMPARE(view.verticalScrollBar()->value(), 300);
}

void TestScrollView::slidesTakeTheBarsAlong()
{
    ShownView view(500, 1000);
    QSignalSpy moving(&view, &QTeskelScrollView::contentsMoving);
    view.hslide(40);
    view.vslide(60);
    QCOMPARE(moving.count(), 2);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(40, 60));
    QCOMPARE(view.horizontalScrollBar()->value(), 40);
    QCOMPARE(view.verticalScrollBar()->value(), 60);
    view.vslide(9999);
    QCOMPARE(view.contentsY(), 800);
    view.hslide(-7);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(0, 800));
}

void TestScrollView::contentsAndBarAgreeFromTheRight()
{
    QTeskelScrollView view;
    view.setLayoutDirection(Qt::RightToLeft);
    view.resize(200, 200);
    view.show();
    view.resizeContents(1000, 100);
    QTRY_VERIFY(view.horizontalScrollBar()->isVisible());
    QTeskelScrollBar& bar = *view.horizontalScrollBar();
    // The left end of the contents shows, so the slider is on the left as well.
    QCOMPARE(view.contentsX(), 0);
    QVERIFY(bar.sliderRect().center().x() < bar.width() / 2);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(bar.width() - 2, bar.height() / 2));
    QCOMPARE(view.contentsX(), 20);
    view.setContentsPos(1000, 0);
    QVERIFY(bar.sliderRect().center().x() > bar.width() / 2);
}

void TestScrollView::deletingInASlotIsSafe_data()
{
    using Act = void (*)(QTeskelScrollView&);
    QTest::addColumn<Act>("act");
    QTest::addColumn<Slot>("slot");
    const auto row = [](const char* name, std::initializer_list<Slot> slotsReached, Act act) {
        for (const Slot slot : slotsReached) {
            QTest::addRow("%s, %s", name,
                          slot == Moving       ? "contents moving"
                          : slot == Horizontal ? "horizontal value"
                                               : "vertical value")
                << act << slot;
        }
    };
    const auto all = {Moving, Horizontal, Vertical};
    const auto upright = {Moving, Vertical};
    row("setContentsPos", all, [](QTeskelScrollView& view) { view.setContentsPos(50, 60); });
    row("scrollBy", all, [](QTeskelScrollView& view) { view.scrollBy(5, 6); });
    row("ensureVisible", all, [](QTeskelScrollView& view) { view.ensureVisible(700, 700); });
    row("center", all, [](QTeskelScrollView& view) { view.center(700, 700); });
    row("hslide", {Moving, Horizontal}, [](QTeskelScrollView& view) { view.hslide(9); });
    row("vslide", upright, [](QTeskelScrollView& view) { view.vslide(9); });
    row("smaller contents", all, [](QTeskelScrollView& view) { view.resizeContents(210, 210); });
    row("tap", upright, [](QTeskelScrollView& view) {
        sendMouse(view.verticalScrollBar(), QEvent::MouseButtonPress, QPoint(5, 2));
    });
    row("key on the bar", upright, [](QTeskelScrollView& view) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
        static_cast<QObject*>(view.verticalScrollBar())->event(&key);
    });
    row("wheel", upright, [](QTeskelScrollView& view) { turnWheel(&view, {50, 60}); });
    row("sideways wheel", {Moving, Horizontal}, [](QTeskelScrollView& view) {
        turnWheel(&view, {50, 60}, {-120, 0});
    });
    row("slider", upright, [](QTeskelScrollView& view) {
        QTeskelScrollBar* const bar = view.verticalScrollBar();
        const QPoint slider = bar->sliderRect().center();
        sendMouse(bar, QEvent::MouseButtonPress, slider);
        sendMouse(bar, QEvent::MouseMove, slider + QPoint(0, 30));
    });
    row("slider without tracking", upright, [](QTeskelScrollView& view) {
        QTeskelScrollBar* const bar = view.verticalScrollBar();
        bar->setTracking(false);
        const QPoint slider = bar->sliderRect().center();
        sendMouse(bar, QEvent::MouseButtonPress, slider);
        sendMouse(bar, QEvent::MouseMove, slider + QPoint(0, 30));
        sendMouse(bar, QEvent::MouseButtonRelease, slider + QPoint(0, 30));
    });
}

void TestScrollView::deletingInASlotIsSafe()
{
    using Act = void (*)(QTeskelScrollView&);
    QFETCH(Act, act);
    QFETCH(Slot, slot);
    auto* view = new ShownView;
    const QPointer<QTeskelScrollView> alive(view);
    view->setVScrollBarMode(QTeskelScrollView::AlwaysOn);
    view->resizeContents(1000, 1000);
    view->setContentsPos(100, 100);
    const auto remove = [view] { delete view; };
    if (slot == Moving)
        connect(view, &QTeskelScrollView::contentsMoving, this, remove);
    else if (slot == Horizontal)
        connect(view->horizontalScrollBar(), &QScrollBar::valueChanged, this, remove);
    else
        connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, remove);
    act(*view);
    QVERIFY(alive.isNull());
}

void TestScrollView::positionsAtTheLimitsOfIntAreCut()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    ShownView view(1000, 1000);
    view.setContentsPos(100, 100);
    view.scrollBy(most, most);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(800, 800));
    view.ensureVisible(least, least);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(0, 0));
    view.ensureVisible(most, most);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(800, 800));
    view.scrollBy(least, least);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(0, 0));
}

void TestScrollView::positionIsCutToTheRange()
{
    ShownView view(500, 1000);
    view.setContentsPos(9999, 9999);
    QCOMPARE(view.contentsX(), 300);
    QCOMPARE(view.contentsY(), 800);
    view.setContentsPos(-5, -5);
    QCOMPARE(view.contentsX(), 0);
    QCOMPARE(view.contentsY(), 0);
}

void TestScrollView::ensureVisible_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("expected");
    QTest::addRow("in view stays") << 300 << 400 << 20 << 300;
    QTest::addRow("above") << 300 << 250 << 20 << 230;
    QTest::addRow("below") << 300 << 600 << 20 << 420;
    QTest::addRow("margin cut to half the view") << 300 << 600 << 5000 << 500;
    QTest::addRow("cut at the end") << 300 << 995 << 20 << 800;
    QTest::addRow("cut at the beginning") << 300 << 5 << 20 << 0;
}

void TestScrollView::ensureVisible()
{
    QFETCH(int, from);
    QFETCH(int, y);
    QFETCH(int, margin);
    QFETCH(int, expected);
    ShownView view(500, 1000);
    view.setContentsPos(0, from);
    view.ensureVisible(0, y, 0, margin);
    QCOMPARE(view.contentsY(), expected);
}

void TestScrollView::marginsAreZeroWhenContentsFit()
{
    ShownView view(100, 1000);
    view.ensureVisible(90, 500);
    QCOMPARE(view.contentsX(), 0);
    QCOMPARE(view.contentsY(), 500 - 200 + 50);
}

void TestScrollView::centerPutsThePointInTheMiddle()
{
    ShownView view(1000, 1000);
    view.center(500, 500);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(400, 400));
    view.setContentsPos(0, 0);
    view.center(500, 500, 0.0F, 0.0F);
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(300, 300));
}

void TestScrollView::coordinatesConvert()
{
    ShownView view(1000, 1000);
    view.setContentsPos(10, 20);
    QCOMPARE(view.contentsToViewport({15, 30}), QPoint(5, 10));
    QCOMPARE(view.viewportToContents({5, 10}), QPoint(15, 30));
}

void TestScrollView::childrenMoveWithContents()
{
    ShownView view;
    auto* child = new QWidget;
    view.setResizePolicy(QTeskelScrollView::Manual);
    view.addChild(child, 50, 60);
    view.resizeContents(1000, 1000);
    QCOMPARE(child->parentWidget(), view.viewport());
    view.setContentsPos(10, 20);
    QCOMPARE(child->pos(), QPoint(40, 40));
    QCOMPARE(QPoint(view.childX(child), view.childY(child)), QPoint(50, 60));
    view.moveChild(child, 100, 100);
    QCOMPARE(child->pos(), QPoint(90, 80));
    view.removeChild(child);
    view.setContentsPos(0, 0);
    QCOMPARE(child->pos(), QPoint(90, 80));
    view.addChild(nullptr);
}

void TestScrollView::childrenMoveWithTheClipper()
{
    ShownView view;
    view.enableClipper(true);
    view.setResizePolicy(QTeskelScrollView::Manual);
    auto* child = new QWidget;
    view.addChild(child, 50, 60);
    view.resizeContents(1000, 1000);
    view.setContentsPos(10, 20);
    QCOMPARE(child->parentWidget(), view.clipper());
    QCOMPARE(child->mapTo(view.viewport(), QPoint(0, 0)), QPoint(40, 40));
}

void TestScrollView::autoOneFollowsTheChild()
{
    ShownView view;
    auto* child = new QWidget;
    child->resize(300, 400);
    view.addChild(child);
    QCOMPARE(view.resizePolicy(), QTeskelScrollView::AutoOne);
    QCOMPARE(QSize(view.contentsWidth(), view.contentsHeight()), QSize(300, 400));
    child->resize(310, 500);
    QCOMPARE(view.contentsHeight(), 500);
}

void TestScrollView::resizeContentsIsManual()
{
    QTeskelScrollView view;
    view.resizeContents(-1, 10);
    QCOMPARE(view.resizePolicy(), QTeskelScrollView::Manual);
    QCOMPARE(QSize(view.contentsWidth(), view.contentsHeight()), QSize(0, 10));
}

void TestScrollView::deletedChildIsForgotten()
{
    ShownView view;
    auto* child = new QWidget;
    view.addChild(child, 5, 5);
    delete child;
    view.resizeContents(1000, 1000);
    view.setContentsPos(0, 50);
    QCOMPARE(view.childX(child), 0);
}

void TestScrollView::childrenOutliveTheView()
{
    auto view = std::make_unique<QTeskelScrollView>();
    auto* child = new QWidget;
    QPointer<QWidget> alive(child);
    view->addChild(child, 5, 5);
    view.reset();
    QVERIFY(alive.isNull());
}

void TestScrollView::clipperAfterChildrenWarns_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("enable");
    for (const bool enabled : {false, true}) {
        for (const bool enable : {false, true})
            QTest::addRow("%s, asked for %s", enabled ? "on" : "off", enable ? "on" : "off")
                << enabled << enable;
    }
}

void TestScrollView::clipperAfterChildrenWarns()
{
    QFETCH(bool, enabled);
    QFETCH(bool, enable);
    QTeskelScrollView view;
    view.enableClipper(enabled);
    auto* child = new QWidget;
    view.addChild(child);
    QTest::ignoreMessage(QtWarningMsg,
                         "May only call QScrollView::enableClipper() before adding widgets");
    view.enableClipper(enable);
    QCOMPARE(view.clipper() != view.viewport(), enabled);
    QTest::failOnWarning(QRegularExpression(u"enableClipper"_s));
    delete child;
    view.enableClipper(enable);
    QCOMPARE(view.clipper() != view.viewport(), enable);
}

void TestScrollView::wheelIsOfferedToTheViewportFirst()
{
    WheelView view;
    view.resize(200, 200);
    view.show();
    view.resizeContents(100, 1000);
    view.takesWheel = true;
    QVERIFY(turnWheel(&view, {50, 60}));
    QCOMPARE(view.offered,
             QList<QPointF>{QPointF(view.viewport()->mapFrom(&view, QPoint(50, 60)))});
    QCOMPARE(view.contentsY(), 0);
}

void TestScrollView::wheelGoesToTheVerticalBar()
{
    WheelView view;
    view.resize(200, 200);
    view.show();
    view.resizeContents(100, 1000);
    QVERIFY(turnWheel(&view, {50, 60}));
    QCOMPARE(view.contentsY(), 3 * 20);
    view.setContentsPos(0, 1000);
    QVERIFY(!turnWheel(&view, {50, 60}));
    QCOMPARE(view.offered.size(), 2);
}

void TestScrollView::sidewaysWheelGoesToTheHorizontalBar()
{
    WheelView view;
    view.resize(200, 200);
    view.show();
    view.resizeContents(1000, 1000);
    view.setContentsPos(100, 100);
    QVERIFY(turnWheel(&view, {50, 60}, {-120, 0}));
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(100 + 3 * 20, 100));
    QVERIFY(turnWheel(&view, {50, 60}, {120, 10}));
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(100, 100));
    QVERIFY(turnWheel(&view, {50, 60}, {10, -120}));
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(100, 100 + 3 * 20));
    view.setContentsPos(0, 100);
    QVERIFY(!turnWheel(&view, {50, 60}, {120, 0}));
    QCOMPARE(QPoint(view.contentsX(), view.contentsY()), QPoint(0, 100));
    QCOMPARE(view.offered.size(), 4);
    view.takesWheel = true;
    QVERIFY(turnWheel(&view, {50, 60}, {-120, 0}));
    QCOMPARE(view.contentsX(), 0);
}

void TestScrollView::wheelOnTheViewportArrivesOnce_data()
{
    QTest::addColumn<bool>("fromWindowSystem");
    QTest::addColumn<bool>("atTheEnd");
    for (const bool fromWindowSystem : {false, true}) {
        for (const bool atTheEnd : {false, true}) {
            QTest::addRow("%s, %s", fromWindowSystem ? "window system" : "program",
                          atTheEnd ? "at the end" : "at the beginning")
                << fromWindowSystem << atTheEnd;
        }
    }
}

void TestScrollView::wheelOnTheViewportArrivesOnce()
{
    QFETCH(bool, fromWindowSystem);
    QFETCH(bool, atTheEnd);
    WheelView view;
    view.resize(200, 200);
    view.show();
    view.resizeContents(100, 1000);
    if (atTheEnd)
        view.setContentsPos(0, 1000);
    const int before = view.contentsY();
    QWheelEvent event(QPointF(50, 60), view.viewport()->mapToGlobal(QPointF(50, 60)), QPoint(),
                      QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    if (fromWindowSystem)
        QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(view.viewport(), &event);
    QCOMPARE(view.offered, QList<QPointF>{QPointF(50, 60)});
    QCOMPARE(view.contentsY(), atTheEnd ? before : 3 * 20);
    QCOMPARE(event.isAccepted(), !atTheEnd);
}

void TestScrollView::scrollingKeepsOtherChildWidgets()
{
    ShownView view;
    auto* overlay = new QWidget(view.viewport());
    overlay->move(10, 10);
    view.resizeContents(1000, 1000);
    view.setContentsPos(50, 50);
    QCOMPARE(overlay->pos(), QPoint(10, 10));
}

void TestScrollView::scrollBarModes()
{
    QTeskelScrollView view;
    QCOMPARE(view.vScrollBarMode(), QTeskelScrollView::Auto);
    view.resize(200, 200);
    view.setVScrollBarMode(QTeskelScrollView::AlwaysOn);
    view.setHScrollBarMode(QTeskelScrollView::AlwaysOff);
    view.resizeContents(1000, 10);
    view.show();
    QCOMPARE(view.vScrollBarMode(), QTeskelScrollView::AlwaysOn);
    QCOMPARE(view.hScrollBarMode(), QTeskelScrollView::AlwaysOff);
    QVERIFY(view.verticalScrollBar()->isVisible());
    QVERIFY(!view.horizontalScrollBar()->isVisible());
}

void TestScrollView::marginsShrinkTheViewport()
{
    ShownView view;
    view.setMargins(10, 20, 30, 40);
    QCOMPARE(view.viewport()->geometry(), QRect(10, 20, 160, 140));
    QCOMPARE(view.leftMargin() + view.topMargin() + view.rightMargin() + view.bottomMargin(), 100);
}

void TestScrollView::disablingReachesTheBars()
{
    QTeskelScrollView view;
    view.setEnabled(false);
    QVERIFY(!view.isEnabled());
    QVERIFY(!view.verticalScrollBar()->isEnabled());
}

QTEST_MAIN(TestScrollView)
#include "test_scrollview.moc"
