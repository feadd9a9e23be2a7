// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class QAbstractButton;
class QKeyEvent;
class QMenuBar;

/// Lets the keyboard reach menu bars and tool buttons, and leads the focus back afterwards.
///
/// The Menu key or F10 moves the focus to the first usable member of the active window. Left and
/// Right walk through menu titles and buttons in a ring. Return, Enter or Space presses a button,
/// Return and Enter choose in a menu, Escape leaves; each ends the walk and gives the focus back.
/// Pressing the key again, or another widget taking the focus, ends it too.
class QPEMenuToolFocusManager : public QObject
{
    Q_OBJECT

public:
    /// The one manager, created at the first call; the application object must exist and owns it.
    static QPEMenuToolFocusManager* manager();

    /// Adds a menu bar, a button, or a tool bar, which stands for everything on it. The order of
    /// adding is the order of the ring. Destroyed widgets leave by themselves.
    void addWidget(QWidget* widget);
    void removeWidget(QWidget* widget);

    /// Whether the focus is on a member because of the key.
    bool isActive() const { return _active; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit QPEMenuToolFocusManager(QObject* parent);

    QWidgetList ring(const QWidget* window) const;
    bool toggle(const QKeyEvent* event);
    void end(bool giveBack);
    void enter(QWidget* member, bool atEnd);
    void step(QWidget* from, int direction);
    bool keyPressed(QWidget* widget, const QKeyEvent* event);
    bool keyReleased(QWidget* widget, const QKeyEvent* event);
    bool keyOnMenuBar(QMenuBar* bar, const QKeyEvent* event);
    bool keyOnButton(QAbstractButton* button, const QKeyEvent* event);
    void focusChanged(const QWidget* now);

    QList<QPointer<QWidget>> _members;
    QPointer<QWidget> _oldFocus;
    QPointer<QAbstractButton> _pressed;
    bool _active = false;
};
