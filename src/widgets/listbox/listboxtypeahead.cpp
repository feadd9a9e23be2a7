// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxtypeahead.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace teskel
{

ListBoxTypeAhead::ListBoxTypeAhead(QObject* parent)
    : QObject(parent)
    , _timer(new QTimer(this))
{
    _timer->setObjectName(u"listbox input timer"_s);
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
