// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

#include <sys/types.h>

namespace teskel::test
{

/// A program on a terminal of its own, which the test reads and types into.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    /// `command` is the program and its arguments, `kind` that of the terminal (TERM).
    [[nodiscard]] bool start(const QStringList& command, const QString& directory,
                             const char* kind = "xterm");
    void type(const QByteArray& bytes);
    /// Reads until `text` was shown; false when the program ends or half a minute passes before.
    [[nodiscard]] bool waitFor(const QByteArray& text);
    /// Reads until the program ends; its status as of waitpid(), -1 when it did not.
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
