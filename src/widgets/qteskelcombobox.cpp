// SPDX-License-Identifier: MIT
#include "widgets/qteskelcombobox.h"

#include <QApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

namespace
{

bool isRedirected(int key)
{
    switch (key) {
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    default:
        return false;
    }
}

/// Keeps a line edit silent and, at the end, gives it back its text, caret and selection.
class LineEditKeeper
{
public:
    explicit LineEditKeeper(QLineEdit* edit)
        : _edit(edit)
        , _blocker(edit)
        , _text(edit->text())
        , _caret(edit->cursorPosition())
        , _selectionStart(edit->selectionStart())
        , _selectionEnd(edit->selectionEnd())
    {
    }
    ~LineEditKeeper()
    {
        if (_edit->text() != _text)
            _edit->setText(_text);
        if (_selectionStart < 0)
            _edit->setCursorPosition(_caret);
        else if (_caret == _selectionStart)
            _edit->setSelection(_selectionEnd, _selectionStart - _selectionEnd);
        else
            _edit->setSelection(_selectionStart, _selectionEnd - _selectionStart);
    }
    LineEditKeeper(const LineEditKeeper&) = delete;
    LineEditKeeper& operator=(const LineEditKeeper&) = delete;

private:
    QLineEdit* _edit;
    QSignalBlocker _blocker;
    QString _text;
    int _caret;
    int _selectionStart;
    int _selectionEnd;
};

} // namespace

QTeskelComboBox::QTeskelComboBox(QWidget* redirector, QWidget* parent, const char* name)
    : QComboBox(parent)
    , _redirector(redirector)
{
    setObjectName(QString::fromLatin1(name));
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(InsertAtTop);
    setMaxCount(historySize);
    // The base would do nothing on Return once the list is full, and choose an item when the focus
    // leaves.
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &QTeskelComboBox::enterPressed);
    connect(this, &QComboBox::editTextChanged, this, &QTeskelComboBox::textChanged);
    if (redirector != nullptr)
        connect(redirector, &QObject::destroyed, this, &QTeskelComboBox::redirectorDestroyed);
}

void QTeskelComboBox::redirectorDestroyed()
{
    _redirector = nullptr;
}

/// Removes the last items until `newItems` more fit.
void QTeskelComboBox::makeRoomFor(int newItems, int limit)
{
    while (count() > 0 && count() + newItems > limit)
        removeItem(count() - 1);
}

void QTeskelComboBox::insertHistoryItem(const QString& text)
{
    const QSignalBlocker blocker(this);
    const LineEditKeeper keeper(lineEdit());
    makeRoomFor(1, historySize);
    insertItem(0, text);
    setCurrentIndex(0);
}

/// Return in the entry: an item of that text is chosen, a new text becomes the first item.
void QTeskelComboBox::enterPressed()
{
    const QString text = lineEdit()->text();
    if (text.isEmpty()) {
        // Brings the current item back; that is no choice, so nobody is told.
        const QSignalBlocker blocker(this);
        const QSignalBlocker editBlocker(lineEdit());
        lineEdit()->setText(currentIndex() < 0 ? QString() : itemText(currentIndex()));
        lineEdit()->selectAll();
        return;
    }
    const int known = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (known >= 0) {
        setCurrentIndex(known);
    } else if (insertPolicy() == InsertAtTop) {
        {
            const QSignalBlocker blocker(this);
            const LineEditKeeper keeper(lineEdit());
            makeRoomFor(1, qBound(1, maxCount(), historySize));
            insertItem(0, text);
            setCurrentIndex(0);
        }
    } else {
        return;
    }
    const int chosen = qMax(known, 0);
    const QPointer<QTeskelComboBox> self(this);
    emit activated(chosen);
    if (self)
        emit textActivated(text);
}

bool QTeskelComboBox::redirect(QKeyEvent* event)
{
    if (!isRedirected(event->key()))
        return false;
    if (_redirector != nullptr)
        QCoreApplication::sendEvent(_redirector, event);
    // Whatever the redirector left of it: the key must reach nobody else.
    event->accept();
    return true;
}

void QTeskelComboBox::keyPressEvent(QKeyEvent* event)
{
    if (!redirect(event))
        QComboBox::keyPressEvent(event);
}

/// The line edit would paint itself once more, since it begins to count the time of its caret anew,
/// which it has done at the press; else it does no more than what is done here.
void QTeskelComboBox::keyReleaseEvent(QKeyEvent* event)
{
    if (redirect(event))
        return;
    const auto panel = static_cast<QStyle::RequestSoftwareInputPanel>(
        lineEdit()->style()->styleHint(QStyle::SH_RequestSoftwareInputPanel));
    if (qApp->autoSipEnabled() && panel == QStyle::RSIP_OnMouseClick)
        QGuiApplication::inputMethod()->show();
    event->ignore();
}

void QTeskelComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}
