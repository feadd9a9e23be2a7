// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <csignal>
#include <cstdlib>

#include <unistd.h>

namespace teskel::test
{

/// Ends the program, naming what it was at, when this lives longer than `seconds` of wall time.
///
/// That is far more than anything takes on a busy machine: it catches what never ends.
class HangGuard
{
public:
    HangGuard(const QByteArray& work, unsigned seconds)
    {
        text() = "still at it: " + work + '\n';
        std::signal(SIGALRM, [](int) {
            [[maybe_unused]] const auto written =
                ::write(STDERR_FILENO, text().constData(), static_cast<size_t>(text().size()));
            std::abort();
        });
        ::alarm(seconds);
    }
    ~HangGuard() { ::alarm(0); }
    Q_DISABLE_COPY_MOVE(HangGuard)

private:
    static QByteArray& text()
    {
        static QByteArray words;
        return words;
    }
};

} // namespace teskel::test
