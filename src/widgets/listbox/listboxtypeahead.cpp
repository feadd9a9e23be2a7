// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxtypeahead.h"

#include <QTimer>

namespace teskel
{

ListBoxTypeAhead::ListBoxTypeAhead(QObject* parent)
    : QObject(parent)
    , _timer(new QTimer(this))
{
    _timer->setObjectName(QStringLiteral("listbox input timer"));
    _timer->setTimerType(Qt::PreciseTimer);
    _timer->setSingleShot(true);
    connect(_timer, &QTimer::timeout, this, &ListBoxTypeAhead::expired);
}

const QString& ListBoxTypeAhead::append(const QString& typed)
{
    _text += typed.toLower();
    _timer->start(keptFor);
    return _text;
}

void ListBoxTypeAhead::clear()
{
    _timer->stop();
    _text.clear();
}

} // namespace teskel
