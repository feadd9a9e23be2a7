// SPDX-License-Identifier: MIT
#pragma once

#include "files/mediafilter.h"

#include <QByteArray>
#include <QObject>

class QTeskelFileSelector;

/// Owns what a dictionary selector shows: fills its list again whenever the list was emptied.
class SelectorOwner : public QObject
{
    Q_OBJECT

public:
    /// Fills `selector`, which it does not own and which must outlive it.
    explicit SelectorOwner(QTeskelFileSelector* selector);

private:
    void fill(MediaFilter filter);
    void cardMessage(const QByteArray& message);

    QTeskelFileSelector* _selector;
};
