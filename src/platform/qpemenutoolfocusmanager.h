// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

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
    /// The one manager, created at the first call; needs the application object.
    static QPEMenuToolFocusManager* manager();
    ~QPEMenuToolFocusManager() override;
    QPEMenuToolFocusManager(const QPEMenuToolFocusManager&) = delete;
    QPEMenuToolFocusManager& operator=(const QPEMenuToolFocusManager&) = delete;

    /// Adds a menu bar, a button, or a tool bar, which stands for everything on it. The order of
    /// adding is the order of the ring. Destroyed widgets leave by themselves.
    void addWidget(QWidget* widget);
    void removeWidget(QWidget* widget);

    /// Whether the focus is on a member because of the key.
    bool isActive() const { return _active; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPEMenuToolFocusManager();

    QList<QWidget*> ring(const QWidget* window) const;
    bool start();
    void end(bool giveBack);
    void focusMember(QWidget* member, bool last);
    bool step(QWidget* from, int direction);
    bool keyOnButton(QWidget* button, const QKeyEvent* event);
    bool keyOnMenuBar(QMenuBar* bar, const QKeyEvent* event);
    void focusChanged(QWidget* old, QWidget* now);

    QList<QPointer<QWidget>> _members;
    QPointer<QWidget> _oldFocus;
    bool _active = false;
};
