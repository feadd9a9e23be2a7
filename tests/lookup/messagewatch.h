// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

namespace teskel::test
{

/// Notes and dismisses the message boxes that open while it lives.
class MessageWatch : public QObject
{
public:
    struct Message {
        QString caption;
        QString text;
        Qt::TextFormat format;
        QMessageBox::Icon icon;
        qsizetype buttons;
    };

    MessageWatch()
    {
        connect(&_timer, &QTimer::timeout, this, [this] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            messages.append({box->windowTitle(), box->text(), box->textFormat(), box->icon(),
                             box->buttons().size()});
            box->done(QMessageBox::Ok);
        });
        _timer.start(0);
    }

    QList<Message> messages;

private:
    QTimer _timer;
};

} // namespace teskel::test
