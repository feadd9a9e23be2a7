// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

/// An editable combo box that hands the keys for moving in a list to another widget.
///
/// Home, End, Up, Down, Page Up and Page Down go to the redirector, pressed and released; without
/// one they do nothing. The list of the combo box is a history of at most 6 texts that changes only
/// by Return in the entry and by insertHistoryItem(): nothing is completed while typing, and
/// neither the wheel nor losing the focus chooses an item.
class QTeskelComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// The most texts that the history holds.
    static constexpr int historySize = 6;

    /// @param redirector receives the keys; not owned, may be null and may die first
    explicit QTeskelComboBox(QWidget* redirector, QWidget* parent = nullptr,
                             const char* name = nullptr);

    /// The item's text, empty for an index that does not exist.
    QString text(int index) const { return itemText(index); }
    /// Puts `text` at index 0 and drops what is beyond historySize. The typed text, its caret and
    /// selection stay as they are, and nothing is emitted.
    void insertHistoryItem(const QString& text);

signals:
    /// The text in the entry changed, by typing or by the program.
    void textChanged(const QString& text);

public slots:
    /// Forgets the redirector.
    void redirectorDestroyed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void enterPressed();
    bool redirect(QKeyEvent* event);
    void makeRoomFor(int newItems, int limit);

    QWidget* _redirector;
};
