// SPDX-License-Identifier: MIT
#include "tests/widgets/signallog.h"
#include "widgets/scrolling/qteskelscrollbar.h"

#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTimer>

#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usualLineStep = 3;
constexpr int usualPageStep = 30;

/// A shown bar of its own style and layout direction, and the places of its controls.
struct Bar {
    explicit Bar(const QString& styleName = u"Fusion"_s, Qt::Orientation orientation = Qt::Vertical,
                 Qt::LayoutDirection direction = Qt::LeftToRight)
        : style(QStyleFactory::create(styleName))
        , bar(orientation, &parent, "bar")
    {
        parent.setLayoutDirection(direction);
        parent.resize(200, 200);
        bar.setStyle(style.get());
        bar.setRange(0, 100);
        bar.setLineStep(usualLineStep);
        bar.setPageStep(usualPageStep);
        bar.setGeometry(orientation == Qt::Vertical ? QRect(0, 0, 20, 200) : QRect(0, 0, 200, 20));
        parent.show();
    }
    QRect rectOf(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.state.setFlag(QStyle::State_Horizontal, bar.orientation() == Qt::Horizontal);
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.sliderPosition = bar.sliderPosition();
        option.sliderValue = bar.value();
        option.singleStep = bar.singleStep();
        option.pageStep = bar.pageStep();
        option.upsideDown = bar.invertedAppearance() !=
                            (bar.orientation() == Qt::Horizontal && bar.isRightToLeft());
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, control, &bar);
    }
    QPoint middleOf(QStyle::SubControl control) const { return rectOf(control).center(); }

    std::unique_ptr<QStyle> style;
    QWidget parent;
    QTeskelScrollBar bar;
};

/// What a widget shows, in the one format that pictures are compared in.
QImage shotOf(QWidget& widget, const QRect& part = QRect(QPoint(0, 0), QSize(-1, -1)))
{
    return widget.grab(part).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

const QStringList styles{u"Fusion"_s, u"Windows"_s};
} // namespace

class TestScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void signalsAreDeclaredInOrder();
    void pressActsOnce_data();
    void pressActsOnce();
    void signalComesBeforeTheStep();
    void actsAtTheLimit_data();
    void actsAtTheLimit();
    void arrowsActWithEmptyRange_data();
    void arrowsActWithEmptyRange();
    void heldPressRepeatsAfter500msAndEvery50ms();
    void heldTroughGoesOnUnderTheSlider();
    void leavingAnArrowPausesIt();
    void releaseStopsRepeating();
    void releaseOfAnotherButtonGoesOnRepeating();
    void dialogInTheSlotEndsThePress_data();
    void dialogInTheSlotEndsThePress();
    void otherButtonsDoNothingOnArrows_data();
    void otherButtonsDoNothingOnArrows();
    void hidingStopsRepeating();
    void hidingEndsADrag_data();
    void hidingEndsADrag();
    void disablingEndsADrag();
    void lostReleaseOfTheSliderIsMadeUpFor();
    void popupStopsRepeating();
    void barInAPopupRepeats();
    void stepsEndAtTheLimitsOfInt();
    void emptyRangeAtTheLimitOfIntIsDrawn();
    void deletingInTheSlotIsSafe_data();
    void deletingInTheSlotIsSafe();
    void troughMovesByTheLineStep_data();
    void troughMovesByTheLineStep();
    void downKeyEmitsNoNextLine();
    void keys_data();
    void keys();
    void arrowKeysFollowTheLayoutDirection();
    void draggingMovesTheSlider();
    void draggingWithoutTrackingSetsTheValueAtRelease();
    void middleButtonJumps_data();
    void middleButtonJumps();
    void pressedArrowIsDrawnPressed_data();
    void pressedArrowIsDrawnPressed();
    void arrowsLookEnabledWithEmptyRange_data();
    void arrowsLookEnabledWithEmptyRange();
    void hasNoContextMenu();
    void standardNames();
};

void TestScrollBar::signalsAreDeclaredInOrder()
{
    const QStringList wanted{
        u"valueChanged(int)"_s, u"sliderPressed()"_s, u"sliderMoved(int)"_s, u"sliderReleased()"_s,
        u"nextLine()"_s,        u"prevLine()"_s,      u"nextPage()"_s,       u"prevPage()"_s,
    };
    QStringList found =
        teskel::test::methodsOf(QTeskelScrollBar::staticMetaObject, QMetaMethod::Signal, false);
    found.removeIf([&](const QString& name) { return !wanted.contains(name); });
    QCOMPARE(found, wanted);
    QCOMPARE(teskel::test::methodsOf(QTeskelScrollBar::staticMetaObject, QMetaMethod::Slot),
             QStringList{u"doAutoRepeat()"_s});
}

void TestScrollBar::pressActsOnce_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<QStyle::SubControl>("control");
    QTest::addColumn<int>("next");
    QTest::addColumn<int>("prev");
    QTest::addColumn<int>("moved");
    const auto rows = [](const QString& style, Qt::Orientation orientation,
                         Qt::LayoutDirection direction) {
        const auto row = [&](const char* name, QStyle::SubControl control, int next, int prev) {
            QTest::addRow("%s %s%s, %s", qPrintable(style),
                          orientation == Qt::Vertical ? "vertical" : "horizontal",
                          direction == Qt::RightToLeft ? " from the right" : "", name)
                << style << orientation << direction << control << next << prev
                << (next - prev) * usualLineStep;
        };
        row("add line", QStyle::SC_ScrollBarAddLine, 1, 0);
        row("add page", QStyle::SC_ScrollBarAddPage, 1, 0);
        row("subtract line", QStyle::SC_ScrollBarSubLine, 0, 1);
        row("subtract page", QStyle::SC_ScrollBarSubPage, 0, 1);
        row("slider", QStyle::SC_ScrollBarSlider, 0, 0);
    };
    for (const QString& style : styles) {
        for (const auto orientation : {Qt::Vertical, Qt::Horizontal}) {
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft})
                rows(style, orientation, direction);
        }
    }
}

void TestScrollBar::pressActsOnce()
{
    QFETCH(QString, style);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(QStyle::SubControl, control);
    QFETCH(int, next);
    QFETCH(int, prev);
    QFETCH(int, moved);
    Bar b(style, orientation, direction);
    b.bar.setValue(50);
    QSignalSpy nextLine(&b.bar, &QTeskelScrollBar::nextLine);
    QSignalSpy prevLine(&b.bar, &QTeskelScrollBar::prevLine);
    QSignalSpy nextPage(&b.bar, &QTeskelScrollBar::nextPage);
    QSignalSpy prevPage(&b.bar, &QTeskelScrollBar::prevPage);
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(control));
    QCOMPARE(nextLine.count(), next);
    QCOMPARE(prevLine.count(), prev);
    QCOMPARE(nextPage.count() + prevPage.count(), 0);
    QCOMPARE(b.bar.value(), 50 + moved);
}

void TestScrollBar::signalComesBeforeTheStep()
{
    Bar b;
    QList<int> values;
    connect(&b.bar, &QTeskelScrollBar::nextLine, this, [&] { values << b.bar.value(); });
    connect(&b.bar, &QTeskelScrollBar::valueChanged, this, [&](int value) { values << value; });
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(values, (QList<int>{0, usualLineStep}));
}

void TestScrollBar::actsAtTheLimit_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("add");
    for (const QString& style : styles) {
        QTest::addRow("%s maximum", qPrintable(style)) << style << true;
        QTest::addRow("%s minimum", qPrintable(style)) << style << false;
    }
}

void TestScrollBar::actsAtTheLimit()
{
    QFETCH(QString, style);
    QFETCH(bool, add);
    Bar b(style);
    b.bar.setValue(add ? 100 : 0);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QSignalSpy prev(&b.bar, &QTeskelScrollBar::prevLine);
    QSignalSpy changed(&b.bar, &QTeskelScrollBar::valueChanged);
    const auto control = add ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine;
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(control));
    QCOMPARE(next.count(), add ? 1 : 0);
    QCOMPARE(prev.count(), add ? 0 : 1);
    QCOMPARE(changed.count(), 0);
}

void TestScrollBar::arrowsActWithEmptyRange_data()
{
    actsAtTheLimit_data();
}

void TestScrollBar::arrowsActWithEmptyRange()
{
    QFETCH(QString, style);
    QFETCH(bool, add);
    Bar b(style);
    b.bar.setRange(0, 0);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QSignalSpy prev(&b.bar, &QTeskelScrollBar::prevLine);
    const auto control = add ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine;
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(control));
    QCOMPARE(next.count(), add ? 1 : 0);
    QCOMPARE(prev.count(), add ? 0 : 1);
    QCOMPARE(b.bar.value(), 0);
}

void TestScrollBar::heldPressRepeatsAfter500msAndEvery50ms()
{
    Bar b;
    b.bar.setValue(100);
    auto* timer = b.bar.findChild<QTimer*>(u"auto-repeat timer"_s);
    QVERIFY(timer);
    QCOMPARE(timer->timerType(), Qt::PreciseTimer);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(next.count(), 1);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 500);
    for (int repeats = 1; repeats <= 3; ++repeats) {
        QSignalSpy due(timer, &QTimer::timeout);
        timer->start(1);
        QVERIFY(due.wait());
        QCOMPARE(next.count(), 1 + repeats);
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 50);
    }
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(b.bar.value(), 100);
}

void TestScrollBar::heldTroughGoesOnUnderTheSlider()
{
    Bar b;
    b.bar.setValue(95);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    const QPoint trough(10, b.rectOf(QStyle::SC_ScrollBarAddPage).bottom());
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, trough);
    for (int repeats = 0; repeats < 10 && b.bar.value() < 100; ++repeats)
        b.bar.doAutoRepeat();
    QCOMPARE(b.bar.value(), 100);
    const auto reached = next.count();
    b.bar.doAutoRepeat();
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), reached + 2);
    QCOMPARE(b.bar.value(), 100);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, trough);
}

void TestScrollBar::leavingAnArrowPausesIt()
{
    Bar b;
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    const QPoint arrow = b.middleOf(QStyle::SC_ScrollBarAddLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, arrow);
    QTest::mouseMove(&b.bar, QPoint(100, 100));
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), 1);
    QTest::mouseMove(&b.bar, arrow);
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), 2);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, arrow);
}

void TestScrollBar::releaseStopsRepeating()
{
    Bar b;
    auto* timer = b.bar.findChild<QTimer*>(u"auto-repeat timer"_s);
    const QPoint arrow = b.middleOf(QStyle::SC_ScrollBarAddLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, arrow);
    QVERIFY(timer->isActive());
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, arrow);
    QVERIFY(!timer->isActive());
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), 0);
}

void TestScrollBar::releaseOfAnotherButtonGoesOnRepeating()
{
    Bar b;
    const auto* const timer = b.bar.findChild<QTimer*>(u"auto-repeat timer"_s);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    const QPoint arrow = b.middleOf(QStyle::SC_ScrollBarAddLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, arrow);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        QMouseEvent release(QEvent::MouseButtonRelease, arrow, b.bar.mapToGlobal(arrow), button,
                            Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&b.bar, &release);
        QVERIFY(timer->isActive());
    }
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), 2);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, arrow);
    QVERIFY(!timer->isActive());
}

void TestScrollBar::dialogInTheSlotEndsThePress_data()
{
    QTest::addColumn<QString>("opened");
    QTest::addColumn<bool>("held");
    QTest::addColumn<bool>("ends");
    for (const bool held : {false, true}) {
        for (const char* opened : {"modal dialog", "menu", "plain window"}) {
            QTest::addRow("%s, %s", opened, held ? "held" : "pressed")
                << QString::fromLatin1(opened) << held << (opened[0] == 'm');
        }
    }
}

void TestScrollBar::dialogInTheSlotEndsThePress()
{
    QFETCH(QString, opened);
    QFETCH(bool, held);
    QFETCH(bool, ends);
    Bar b;
    QDialog window;
    QMenu menu;
    menu.addAction(u"entry"_s);
    int actions = 0;
    connect(&b.bar, &QTeskelScrollBar::nextLine, this, [&] {
        if (++actions != (held ? 2 : 1))
            return;
        // It is gone again when the slot returns, and the release went with it.
        if (opened == QLatin1String("menu")) {
            QTimer::singleShot(0, &menu, &QMenu::close);
            menu.exec(QPoint(10, 10));
        } else if (opened == QLatin1String("modal dialog")) {
            QTimer::singleShot(0, &window, &QDialog::reject);
            window.exec();
        } else {
            window.show();
            window.hide();
        }
    });
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    if (held)
        b.bar.doAutoRepeat();
    const int before = actions;
    QCOMPARE(b.bar.value(), before * usualLineStep);
    QCOMPARE(!b.bar.findChild<QTimer*>(u"auto-repeat timer"_s)->isActive(), ends);
    b.bar.doAutoRepeat();
    QCOMPARE(actions, ends ? before : before + 1);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
}

void TestScrollBar::otherButtonsDoNothingOnArrows_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addRow("right") << Qt::RightButton;
    QTest::addRow("middle") << Qt::MiddleButton;
}

void TestScrollBar::otherButtonsDoNothingOnArrows()
{
    QFETCH(Qt::MouseButton, button);
    Bar b;
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::mouseClick(&b.bar, button, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(next.count(), 0);
    QCOMPARE(b.bar.value(), 0);
}

void TestScrollBar::hidingStopsRepeating()
{
    Bar b;
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    b.bar.hide();
    QVERIFY(!b.bar.findChild<QTimer*>(u"auto-repeat timer"_s)->isActive());
}

void TestScrollBar::hidingEndsADrag_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addRow("left") << Qt::LeftButton;
    QTest::addRow("middle") << Qt::MiddleButton;
}

void TestScrollBar::hidingEndsADrag()
{
    QFETCH(Qt::MouseButton, button);
    Bar b;
    QSignalSpy released(&b.bar, &QTeskelScrollBar::sliderReleased);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::mousePress(&b.bar, button, {}, b.bar.sliderRect().center());
    QVERIFY(b.bar.draggingSlider());
    b.bar.hide();
    QVERIFY(!b.bar.draggingSlider());
    QCOMPARE(released.count(), 1);
    b.bar.show();
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(next.count(), 1);
}

void TestScrollBar::disablingEndsADrag()
{
    Bar b;
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.bar.sliderRect().center());
    b.bar.setEnabled(false);
    QVERIFY(!b.bar.draggingSlider());
}

void TestScrollBar::lostReleaseOfTheSliderIsMadeUpFor()
{
    Bar b;
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.bar.sliderRect().center());
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QVERIFY(!b.bar.draggingSlider());
    QCOMPARE(next.count(), 1);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
}

void TestScrollBar::popupStopsRepeating()
{
    Bar b;
    QWidget popup(nullptr, Qt::Popup);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    popup.show();
    QCOMPARE(QApplication::activePopupWidget(), &popup);
    b.bar.doAutoRepeat();
    QCOMPARE(next.count(), 1);
    QVERIFY(!b.bar.findChild<QTimer*>(u"auto-repeat timer"_s)->isActive());
}

void TestScrollBar::barInAPopupRepeats()
{
    QWidget popup(nullptr, Qt::Popup);
    QTeskelScrollBar bar(Qt::Vertical, &popup);
    bar.resize(20, 200);
    popup.resize(200, 200);
    popup.show();
    QCOMPARE(QApplication::activePopupWidget(), &popup);
    QSignalSpy next(&bar, &QTeskelScrollBar::nextLine);
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(10, 198));
    bar.doAutoRepeat();
    QCOMPARE(next.count(), 2);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(10, 198));
}

void TestScrollBar::stepsEndAtTheLimitsOfInt()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    Bar b;
    b.bar.setRange(0, most);
    b.bar.setValue(most - 1);
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddLine));
    QCOMPARE(b.bar.value(), most);
    b.bar.setRange(least, 0);
    b.bar.setValue(least + 1);
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarSubLine));
    QCOMPARE(b.bar.value(), least);
}

void TestScrollBar::emptyRangeAtTheLimitOfIntIsDrawn()
{
    constexpr int most = std::numeric_limits<int>::max();
    Bar b;
    b.bar.setRange(0, 0);
    const QImage expected = shotOf(b.bar);
    b.bar.setPageStep(most);
    b.bar.setRange(most, most);
    QCOMPARE(shotOf(b.bar), expected);
}

void TestScrollBar::deletingInTheSlotIsSafe_data()
{
    QTest::addColumn<bool>("add");
    QTest::addColumn<bool>("held");
    QTest::addRow("nextLine, pressed") << true << false;
    QTest::addRow("nextLine, held") << true << true;
    QTest::addRow("prevLine, pressed") << false << false;
    QTest::addRow("prevLine, held") << false << true;
}

void TestScrollBar::deletingInTheSlotIsSafe()
{
    QFETCH(bool, add);
    QFETCH(bool, held);
    QWidget parent;
    auto* bar = new QTeskelScrollBar(Qt::Vertical, &parent);
    bar->resize(20, 200);
    parent.show();
    const QPointer<QTeskelScrollBar> alive(bar);
    int actions = 0;
    connect(bar, add ? &QTeskelScrollBar::nextLine : &QTeskelScrollBar::prevLine, this, [&] {
        if (++actions == (held ? 2 : 1))
            delete bar;
    });
    const QPointF arrow(10, add ? 198 : 2);
    QMouseEvent press(QEvent::MouseButtonPress, arrow, bar->mapToGlobal(arrow), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &press);
    QCOMPARE(alive.isNull(), !held);
    if (alive)
        bar->doAutoRepeat();
    QVERIFY(alive.isNull());
}

void TestScrollBar::troughMovesByTheLineStep_data()
{
    middleButtonJumps_data();
}

void TestScrollBar::troughMovesByTheLineStep()
{
    QFETCH(QString, style);
    Bar b(style);
    b.bar.setValue(50);
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarAddPage));
    QCOMPARE(b.bar.value(), 50 + usualLineStep);
    QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.middleOf(QStyle::SC_ScrollBarSubPage));
    QCOMPARE(b.bar.value(), 50);
}

void TestScrollBar::downKeyEmitsNoNextLine()
{
    Bar b;
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QTest::keyClick(&b.bar, Qt::Key_Down);
    QCOMPARE(b.bar.value(), usualLineStep);
    b.bar.setValue(100);
    QTest::keyClick(&b.bar, Qt::Key_Down);
    QCOMPARE(next.count(), 0);
}

void TestScrollBar::keys_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("taken");
    const auto both = {Qt::Vertical, Qt::Horizontal};
    for (const auto orientation : both) {
        const bool vertical = orientation == Qt::Vertical;
        const auto row = [&](const char* name, int key, int value, bool taken) {
            QTest::addRow("%s %s", vertical ? "vertical" : "horizontal", name)
                << orientation << key << value << taken;
        };
        row("Home", Qt::Key_Home, 0, true);
        row("End", Qt::Key_End, 100, true);
        row("Page Up", Qt::Key_PageUp, 50 - usualPageStep, true);
        row("Page Down", Qt::Key_PageDown, 50 + usualPageStep, true);
        row("Up", Qt::Key_Up, vertical ? 50 - usualLineStep : 50, vertical);
        row("Down", Qt::Key_Down, vertical ? 50 + usualLineStep : 50, vertical);
        row("Left", Qt::Key_Left, vertical ? 50 : 50 - usualLineStep, !vertical);
        row("Right", Qt::Key_Right, vertical ? 50 : 50 + usualLineStep, !vertical);
        row("a", Qt::Key_A, 50, false);
        row("Space", Qt::Key_Space, 50, false);
    }
}

void TestScrollBar::keys()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, key);
    QFETCH(int, value);
    QFETCH(bool, taken);
    Bar b(u"Fusion"_s, orientation);
    b.bar.setValue(50);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    QSignalSpy prev(&b.bar, &QTeskelScrollBar::prevLine);
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    static_cast<QObject&>(b.bar).event(&press);
    QCOMPARE(b.bar.value(), value);
    QCOMPARE(press.isAccepted(), taken);
    QCOMPARE(next.count() + prev.count(), 0);
}

void TestScrollBar::arrowKeysFollowTheLayoutDirection()
{
    Bar b(u"Fusion"_s, Qt::Horizontal, Qt::RightToLeft);
    b.bar.setValue(50);
    QTest::keyClick(&b.bar, Qt::Key_Left);
    QCOMPARE(b.bar.value(), 50 + usualLineStep);
    QTest::keyClick(&b.bar, Qt::Key_Right);
    QCOMPARE(b.bar.value(), 50);
}

void TestScrollBar::draggingMovesTheSlider()
{
    Bar b;
    QSignalSpy pressed(&b.bar, &QTeskelScrollBar::sliderPressed);
    QSignalSpy released(&b.bar, &QTeskelScrollBar::sliderReleased);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    const QPoint start = b.bar.sliderRect().center();
    QCOMPARE(b.bar.sliderStart(), b.bar.sliderRect().top());
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, start);
    QVERIFY(b.bar.draggingSlider());
    QTest::mouseMove(&b.bar, start + QPoint(0, 40));
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, start + QPoint(0, 40));
    QVERIFY(!b.bar.draggingSlider());
    QVERIFY(b.bar.value() > 10);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);
    QCOMPARE(next.count(), 0);
}

void TestScrollBar::draggingWithoutTrackingSetsTheValueAtRelease()
{
    Bar b;
    b.bar.setTracking(false);
    QVERIFY(!b.bar.tracking());
    QStringList order;
    connect(&b.bar, &QTeskelScrollBar::sliderReleased, this, [&] { order << u"released"_s; });
    connect(&b.bar, &QTeskelScrollBar::valueChanged, this, [&] { order << u"value"_s; });
    QSignalSpy moved(&b.bar, &QTeskelScrollBar::sliderMoved);
    const QPoint start = b.bar.sliderRect().center();
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, start);
    QTest::mouseMove(&b.bar, start + QPoint(0, 40));
    QVERIFY(moved.count() > 0);
    QCOMPARE(b.bar.value(), 0);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, start + QPoint(0, 40));
    QVERIFY(b.bar.value() > 10);
    QCOMPARE(order, (QStringList{u"released"_s, u"value"_s}));
}

void TestScrollBar::middleButtonJumps_data()
{
    QTest::addColumn<QString>("style");
    for (const QString& style : styles)
        QTest::addRow("%s", qPrintable(style)) << style;
}

void TestScrollBar::middleButtonJumps()
{
    QFETCH(QString, style);
    Bar b(style);
    QSignalSpy next(&b.bar, &QTeskelScrollBar::nextLine);
    const QRect groove = b.rectOf(QStyle::SC_ScrollBarGroove);
    QTest::mousePress(&b.bar, Qt::MiddleButton, {}, groove.center());
    QVERIFY2(qAbs(b.bar.value() - 50) <= 3, qPrintable(QString::number(b.bar.value())));
    QVERIFY(b.bar.draggingSlider());
    QMouseEvent move(QEvent::MouseMove, QPointF(10, groove.bottom()),
                     b.bar.mapToGlobal(QPointF(10, groove.bottom())), Qt::NoButton,
                     Qt::MiddleButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&b.bar, &move);
    QCOMPARE(b.bar.value(), 100);
    QTest::mouseRelease(&b.bar, Qt::MiddleButton, {}, groove.center());
    QVERIFY(!b.bar.draggingSlider());
    QCOMPARE(next.count(), 0);
}

void TestScrollBar::pressedArrowIsDrawnPressed_data()
{
    middleButtonJumps_data();
}

void TestScrollBar::pressedArrowIsDrawnPressed()
{
    QFETCH(QString, style);
    Bar b(style);
    b.bar.setValue(100);
    const QRect arrow = b.rectOf(QStyle::SC_ScrollBarAddLine);
    const QImage before = shotOf(b.bar, arrow);
    QTest::mousePress(&b.bar, Qt::LeftButton, {}, arrow.center());
    const QImage pressed = shotOf(b.bar, arrow);
    QTest::mouseRelease(&b.bar, Qt::LeftButton, {}, arrow.center());
    QVERIFY(before != pressed);
}

void TestScrollBar::arrowsLookEnabledWithEmptyRange_data()
{
    middleButtonJumps_data();
}

void TestScrollBar::arrowsLookEnabledWithEmptyRange()
{
    QFETCH(QString, style);
    Bar b(style);
    const QRect add = b.rectOf(QStyle::SC_ScrollBarAddLine);
    const QRect sub = b.rectOf(QStyle::SC_ScrollBarSubLine);
    const QImage addInRange = shotOf(b.bar, add);
    const QImage subInRange = shotOf(b.bar, sub);
    b.bar.setRange(0, 0);
    QCOMPARE(shotOf(b.bar, add), addInRange);
    QCOMPARE(shotOf(b.bar, sub), subInRange);
    b.bar.setEnabled(false);
    QVERIFY(shotOf(b.bar, add) != addInRange);
}

void TestScrollBar::hasNoContextMenu()
{
    QCOMPARE(QTeskelScrollBar(Qt::Vertical).contextMenuPolicy(), Qt::NoContextMenu);
}

void TestScrollBar::standardNames()
{
    QTeskelScrollBar bar(Qt::Horizontal, nullptr, "named");
    QCOMPARE(bar.objectName(), u"named"_s);
    QCOMPARE(bar.orientation(), Qt::Horizontal);
    bar.setMinValue(-5);
    bar.setMaxValue(50);
    bar.setLineStep(7);
    QCOMPARE(bar.minValue(), -5);
    QCOMPARE(bar.maxValue(), 50);
    QCOMPARE(bar.lineStep(), 7);
    QVERIFY(bar.tracking());
}

QTEST_MAIN(TestScrollBar)
#include "test_scrollbar.moc"
