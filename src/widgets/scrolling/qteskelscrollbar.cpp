// SPDX-License-Identifier: MIT
#include "widgets/scrolling/qteskelscrollbar.h"

#include "widgets/scrolling/lostrelease.h"
#include "widgets/scrolling/saturatedsum.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QTimer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{
constexpr int firstRepeatDelay = 500;
constexpr int repeatInterval = 50;
constexpr QStyle::SubControls arrows = QStyle::SC_ScrollBarAddLine | QStyle::SC_ScrollBarSubLine;
constexpr QStyle::SubControls trough = QStyle::SC_ScrollBarAddPage | QStyle::SC_ScrollBarSubPage;

/// The base class knows the left button in every style, the middle one only in some.
QMouseEvent asLeftButton(const QMouseEvent& event, Qt::MouseButtons buttons)
{
    const auto button = event.type() == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    return {event.type(), event.position(), event.globalPosition(),
            button,       buttons,          event.modifiers()};
}
} // namespace

QTeskelScrollBar::QTeskelScrollBar(Qt::Orientation orientation, QWidget* parent, const char* name)
    : QScrollBar(orientation, parent)
    , _repeatTimer(new QTimer(this))
{
    setObjectName(QString::fromLatin1(name));
    setContextMenuPolicy(Qt::NoContextMenu);
    _repeatTimer->setObjectName(u"auto-repeat timer"_s);
    _repeatTimer->setTimerType(Qt::PreciseTimer);
    connect(_repeatTimer, &QTimer::timeout, this, &QTeskelScrollBar::doAutoRepeat);
}

QRect QTeskelScrollBar::sliderRect() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

int QTeskelScrollBar::sliderStart() const
{
    const QRect slider = sliderRect();
    return orientation() == Qt::Horizontal ? slider.left() : slider.top();
}

QStyle::SubControl QTeskelScrollBar::controlAt(QPoint position) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->hitTestComplexControl(QStyle::CC_ScrollBar, &option, position, this);
}

/// A held trough stays held when the slider passes below the pointer; an arrow must be hit.
bool QTeskelScrollBar::isHeldAt(QPoint position) const
{
    return trough.testFlag(_pressedControl) ? rect().contains(position)
                                            : controlAt(position) == _pressedControl;
}

void QTeskelScrollBar::performAction()
{
    const bool adds =
        (QStyle::SC_ScrollBarAddLine | QStyle::SC_ScrollBarAddPage).testFlag(_pressedControl);
    const QPointer<QTeskelScrollBar> self(this);
    const teskel::DialogWatch watch;
    if (adds)
        emit nextLine();
    else
        emit prevLine();
    if (!self)
        return;
    _stepsLine = true;
    setValue(teskel::saturatedSum(value(), adds ? lineStep() : -lineStep()));
    if (!self)
        return;
    _stepsLine = false;
    if (watch.sawDialog())
        releaseControl();
}

void QTeskelScrollBar::doAutoRepeat()
{
    if (_pressedControl == QStyle::SC_None)
        return;
    if (teskel::isReleaseLost(this)) {
        releaseControl();
        return;
    }
    _repeatTimer->start(repeatInterval);
    if (_pointerInside)
        performAction();
}

void QTeskelScrollBar::releaseControl()
{
    _repeatTimer->stop();
    _pressedControl = QStyle::SC_None;
    _pointerInside = false;
    update();
}

/// Ends whatever is held, as if the button had been released.
void QTeskelScrollBar::endPress()
{
    releaseControl();
    _middleDrag = false;
    if (isSliderDown())
        setSliderDown(false);
}

/// Puts the middle of the slider below the pointer and goes on as if the slider had been pressed.
void QTeskelScrollBar::startMiddleDrag(const QMouseEvent& event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto part = [&](QStyle::SubControl control) {
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
    };
    const QRect groove = part(QStyle::SC_ScrollBarGroove);
    const QRect slider = part(QStyle::SC_ScrollBarSlider);
    const bool horizontal = orientation() == Qt::Horizontal;
    const QPoint start = event.position().toPoint() - groove.topLeft() -
                         QPoint(slider.width() / 2, slider.height() / 2);
    const int span =
        horizontal ? groove.width() - slider.width() : groove.height() - slider.height();
    const QPointer<QTeskelScrollBar> self(this);
    setSliderPosition(QStyle::sliderValueFromPosition(
        minimum(), maximum(), horizontal ? start.x() : start.y(), span, option.upsideDown));
    if (!self)
        return;
    _middleDrag = true;
    QMouseEvent press = asLeftButton(event, Qt::LeftButton);
    QScrollBar::mousePressEvent(&press);
}

void QTeskelScrollBar::mousePressEvent(QMouseEvent* event)
{
    const QPointer<QTeskelScrollBar> self(this);
    // A first button means that the release of an earlier press was lost.
    if (event->buttons() == event->button())
        endPress();
    if (!self || _pressedControl != QStyle::SC_None || isSliderDown())
        return;
    const QStyle::SubControl control = controlAt(event->position().toPoint());
    if (event->button() == Qt::MiddleButton && !arrows.testFlag(control)) {
        if (minimum() != maximum())
            startMiddleDrag(*event);
    } else if (event->button() != Qt::LeftButton) {
        event->ignore();
    } else if ((arrows | trough).testFlag(control) && control != QStyle::SC_None) {
        _pressedControl = control;
        _pointerInside = true;
        _repeatTimer->start(firstRepeatDelay);
        update();
        performAction();
    } else if (control == QStyle::SC_ScrollBarSlider) {
        QScrollBar::mousePressEvent(event);
    }
}

void QTeskelScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    if (_pressedControl != QStyle::SC_None) {
        const bool inside = isHeldAt(event->position().toPoint());
        if (inside != _pointerInside) {
            _pointerInside = inside;
            update();
        }
    } else if (_middleDrag) {
        QMouseEvent move = asLeftButton(*event, Qt::LeftButton);
        QScrollBar::mouseMoveEvent(&move);
    } else {
        QScrollBar::mouseMoveEvent(event);
    }
}

void QTeskelScrollBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (_pressedControl != QStyle::SC_None) {
        if (event->button() == Qt::LeftButton)
            releaseControl();
    } else if (_middleDrag) {
        if (event->button() != Qt::MiddleButton)
            return;
        _middleDrag = false;
        QMouseEvent release = asLeftButton(*event, Qt::NoButton);
        releaseSlider(&release);
    } else {
        releaseSlider(event);
    }
}

/// The base class goes on after the value has changed, when a slot may have deleted the bar; so the
/// value changes before the base class is asked.
void QTeskelScrollBar::releaseSlider(QMouseEvent* event)
{
    const QPointer<QTeskelScrollBar> self(this);
    if (isSliderDown() && event->button() == Qt::LeftButton)
        setSliderDown(false);
    if (self)
        QScrollBar::mouseReleaseEvent(event);
}

/// The signal waits until the base class is done, because a slot may delete the bar.
void QTeskelScrollBar::wheelEvent(QWheelEvent* event)
{
    const int before = value();
    {
        const QSignalBlocker blocker(this);
        QScrollBar::wheelEvent(event);
    }
    if (value() != before)
        emit valueChanged(value());
}

void QTeskelScrollBar::keyPressEvent(QKeyEvent* event)
{
    const bool horizontal = orientation() == Qt::Horizontal;
    // A horizontal bar has its minimum on the right in a right-to-left layout.
    const bool reversed = horizontal && isRightToLeft();
    const SliderAction back = reversed ? SliderSingleStepAdd : SliderSingleStepSub;
    const SliderAction forth = reversed ? SliderSingleStepSub : SliderSingleStepAdd;
    SliderAction action = SliderNoAction;
    switch (event->key()) {
    case Qt::Key_Home:
        action = SliderToMinimum;
        break;
    case Qt::Key_End:
        action = SliderToMaximum;
        break;
    case Qt::Key_PageUp:
        action = SliderPageStepSub;
        break;
    case Qt::Key_PageDown:
        action = SliderPageStepAdd;
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (horizontal)
            action = event->key() == Qt::Key_Left ? back : forth;
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!horizontal)
            action = event->key() == Qt::Key_Up ? back : forth;
        break;
    default:
        break;
    }
    event->setAccepted(action != SliderNoAction);
    if (action != SliderNoAction)
        triggerAction(action);
}

void QTeskelScrollBar::paintEvent(QPaintEvent* event)
{
    const bool emptyRange = minimum() == maximum();
    if (_pressedControl == QStyle::SC_None && !(emptyRange && isEnabled())) {
        QScrollBar::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_None;
    if (_pressedControl != QStyle::SC_None) {
        option.activeSubControls = _pressedControl;
        if (_pointerInside)
            option.state |= QStyle::State_Sunken;
    } else if (underMouse()) {
        option.activeSubControls = controlAt(mapFromGlobal(QCursor::pos()));
    }
    if (emptyRange) {
        // Styles grey the arrows out when there is nothing to scroll, but these still act.
        option.state |= QStyle::State_Enabled;
        constexpr int almostAll = 1'000'000;
        option.pageStep = almostAll;
        option.minimum = option.sliderPosition = option.sliderValue = 0;
        option.maximum = 1;
    }
    painter.drawComplexControl(QStyle::CC_ScrollBar, option);
}

void QTeskelScrollBar::hideEvent(QHideEvent* event)
{
    QScrollBar::hideEvent(event);
    endPress();
}

void QTeskelScrollBar::changeEvent(QEvent* event)
{
    QScrollBar::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endPress();
}
