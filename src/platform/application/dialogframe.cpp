// SPDX-License-Identifier: MIT
#include "platform/application/dialogframe.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

constexpr int edge = 6;

// What a dialog that places its controls itself needs; it may not have been shown yet, so that
// QWidget::childrenRect() knows nothing.
QRect controlsOf(const QDialog* dialog)
{
    QRect rect;
    const auto controls = dialog->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* control : controls) {
        if (!control->isWindow())
            rect |= control->geometry();
    }
    return rect;
}

} // namespace

void DialogFrame::addTo(QDialog* dialog)
{
    if (dialog->findChild<QDialogButtonBox*>() != nullptr)
        return;
    if (dialog->layout() == nullptr) {
        const QRect controls = controlsOf(dialog);
        dialog->setMinimumSize(
            dialog->minimumSize().expandedTo(QSize(controls.right() + 1, controls.bottom() + 1)));
    }
    new DialogFrame(dialog);
}

DialogFrame::DialogFrame(QDialog* dialog)
    : QObject(dialog)
    , _dialog(dialog)
    , _buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog))
    , _margin(dialog->contentsMargins().bottom())
    , _reserved(_margin)
{
    _buttons->setObjectName(u"dialogFrame"_s);
    _buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(_buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    connect(_buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    if (dialog->layout() == nullptr)
        dialog->setMinimumHeight(dialog->minimumHeight() + _buttons->sizeHint().height() +
                                 2 * edge);
    reserveRoom();
    dialog->installEventFilter(this);
    _buttons->setVisible(true);
}

bool DialogFrame::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Show:
        placeButtons();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::LayoutRequest:
        reserveRoom();
        break;
    default:
        break;
    }
    return false;
}

void DialogFrame::reserveRoom()
{
    const int reserved = _margin + _buttons->sizeHint().height() + edge;
    if (reserved != _reserved) {
        QMargins margins = _dialog->contentsMargins();
        margins.setBottom(reserved);
        _dialog->setContentsMargins(margins);
        _reserved = reserved;
    }
    placeButtons();
}

void DialogFrame::placeButtons()
{
    const int height = _buttons->sizeHint().height();
    _buttons->setGeometry(edge, _dialog->height() - height - edge, _dialog->width() - 2 * edge,
                          height);
}

} // namespace teskel
