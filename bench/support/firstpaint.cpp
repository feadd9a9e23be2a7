// SPDX-License-Identifier: MIT
#include "bench/support/firstpaint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QTimer>
#include <QWidget>

#include <iostream>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace teskel::bench
{

namespace
{
// "rchar: N" of the process's own counters.
QByteArray bytesRead()
{
    QFile file(u"/proc/self/io"_s);
    if (!file.open(QIODevice::ReadOnly))
        return "-1";
    return file.readLine().mid(qstrlen("rchar: ")).trimmed();
}
} // namespace

FirstPaint::End FirstPaint::takeEnd(int& argc, char** argv)
{
    if (argc < 2 || qstrcmp(argv[argc - 1], "--to-end") != 0)
        return End::AtOnce;
    argv[--argc] = nullptr;
    return End::AsClosed;
}

FirstPaint::FirstPaint(QWidget* window, End end)
    : _window(window)
    , _end(end)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event)
{
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && !_isPainted && widget && widget->window() == _window) {
        _isPainted = true;
        // Runs after the whole window was painted and handed to the display.
        QTimer::singleShot(0, this, [this] {
            std::cout << bytesRead().constData() << std::endl;
            if (_end == End::AtOnce)
                _exit(0);
            _window->close();
        });
    }
    return QObject::eventFilter(watched, event);
}

} // namespace teskel::bench
