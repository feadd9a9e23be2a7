// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace teskel::test
{

/// Collects the warnings that are printed while it lives, instead of printing them.
///
/// Captures must end in the reverse order of their making. For one known message
/// QTest::ignoreMessage() says more.
class WarningCapture
{
public:
    WarningCapture();
    Q_DISABLE_COPY_MOVE(WarningCapture)
    ~WarningCapture();

    [[nodiscard]] const QStringList& messages() const { return _messages; }
    /// How many messages contain `part`.
    [[nodiscard]] int count(const QString& part) const;
    void clear() { _messages.clear(); }

private:
    static void receive(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QStringList _messages;
    WarningCapture* _outer;
    QtMessageHandler _previous;
};

} // namespace teskel::test
