// SPDX-License-Identifier: MIT
#include "lookup/plainmessage.h"

#include <QPointer>

namespace teskel
{

void showPlainMessage(QWidget* parent, QMessageBox::Icon icon, const QString& caption,
                      const QString& text)
{
    const QPointer<QMessageBox> box(new QMessageBox(icon, caption, text, QMessageBox::Ok, parent));
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

} // namespace teskel
