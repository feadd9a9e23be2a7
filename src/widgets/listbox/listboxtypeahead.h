// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QTimer;

namespace teskel
{

/// Collects the text typed into a list until nothing was typed for half a second.
class ListBoxTypeAhead : public QObject
{
    Q_OBJECT

public:
    /// How long typed text is kept after the last key, in milliseconds.
    static constexpr int keptFor = 500;

    explicit ListBoxTypeAhead(QObject* parent = nullptr);

    /// Appends in lower case; returns all that is collected.
    const QString& append(const QString& typed);
    void clear();
    bool isEmpty() const { return _text.isEmpty(); }

signals:
    /// Half a second passed since the last key.
    void expired();

private:
    QTimer* _timer;
    QString _text;
};

} // namespace teskel
