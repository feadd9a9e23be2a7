// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace teskel::test
{

/// A shell command on a terminal of its own, which the test reads and types into.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    [[nodiscard]] bool start(const QString& command, const QString& directory);
    void type(const QByteArray& bytes);
    /// Reads until `text` was shown; false when the command ends or half a minute passes before.
    [[nodiscard]] bool waitFor(const QByteArray& text);
    /// Reads until the command ends; its status as of waitpid(), -1 when it did not.
    [[nodiscard]] int finish();

    /// Everything that was shown.
    [[nodiscard]] const QByteArray& shown() const { return _shown; }

private:
    [[nodiscard]] bool readStep();

    int _terminal = -1;
    pid_t _child = -1;
    QByteArray _shown;
};

} // namespace teskel::test
