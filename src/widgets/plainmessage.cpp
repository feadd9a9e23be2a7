// SPDX-License-Identifier: MIT
#include "widgets/plainmessage.h"

#include <QLabel>
#include <QLayout>
#include <QPointer>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

// Left alone, the box wraps its text at half the screen's width; on a handheld it would grow higher
// than the screen.
void useScreenWidth(QMessageBox* box)
{
    constexpr int widest = 480;
    constexpr int frame = 8;
    auto* const label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
    if (label == nullptr || box->layout() == nullptr)
        return;
    const int room = qMin(box->screen()->availableGeometry().width(), widest);
    const int text = label->sizeHint().width();
    const int rest = box->layout()->totalMinimumSize().width() - text;
    label->setMinimumWidth(qMax(0, qMin(text, room - rest - frame)));
}

} // namespace

void showPlainMessage(QWidget* parent, QMessageBox::Icon icon, const QString& caption,
                      const QString& text)
{
    const QPointer<QMessageBox> box(new QMessageBox(icon, caption, text, QMessageBox::Ok, parent));
    box->setTextFormat(Qt::PlainText);
    useScreenWidth(box);
    box->exec();
    delete box;
}

} // namespace teskel
