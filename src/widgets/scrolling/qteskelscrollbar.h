// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>
#include <QStyle>

class QTimer;

/// A scroll bar that says that its arrows and its trough are pressed before it moves.
///
/// A press on an arrow or in the trough emits nextLine() or prevLine() and then moves the value by
/// one line step, also when the value is at its limit or the range is empty: a listener that holds
/// only a part of its contents learns so that the person wants to go on. A held press repeats after
/// 500 ms and then every 50 ms. Keys and the slider emit neither signal.
class QTeskelScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit QTeskelScrollBar(Qt::Orientation orientation, QWidget* parent = nullptr,
                              const char* name = nullptr);

    bool tracking() const { return hasTracking(); }
    /// Whether the person holds the slider at this moment.
    bool draggingSlider() const { return isSliderDown(); }
    /// Whether the value moves at this moment because an arrow or the trough is pressed.
    bool steppingLine() const { return _stepsLine; }

    int minValue() const { return minimum(); }
    int maxValue() const { return maximum(); }
    void setMinValue(int value) { setMinimum(value); }
    void setMaxValue(int value) { setMaximum(value); }
    int lineStep() const { return singleStep(); }
    void setLineStep(int step) { setSingleStep(step); }

    /// The slider within the bar, in the bar's coordinates.
    QRect sliderRect() const;
    /// The pixel along the bar at which the slider begins.
    int sliderStart() const;

public slots:
    /// Repeats the action of the control that is held, if one is.
    void doAutoRepeat();

    // valueChanged(), sliderPressed(), sliderMoved() and sliderReleased() come first, from the
    // base.
signals:
    /// The add-line arrow or the trough after the slider is pressed; the value has not moved yet.
    void nextLine();
    /// The subtract-line arrow or the trough before the slider is pressed.
    void prevLine();
    /// Never emitted: the trough moves by a line.
    void nextPage();
    /// Never emitted.
    void prevPage();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QStyle::SubControl controlAt(QPoint position) const;
    bool isHeldAt(QPoint position) const;
    void performAction();
    void startMiddleDrag(const QMouseEvent& event);
    void releaseControl();
    void releaseSlider(QMouseEvent* event);
    void endPress();

    QTimer* _repeatTimer;
    QStyle::SubControl _pressedControl = QStyle::SC_None;
    bool _pointerInside = false;
    bool _stepsLine = false;
    bool _middleDrag = false;
};
