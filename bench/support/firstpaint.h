// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace teskel::bench
{

/// Ends the program when a window has been painted for the first time, and prints how many bytes
/// the program has read by then.
class FirstPaint : public QObject
{
public:
    enum class End {
        AtOnce,   ///< without any clean-up
        AsClosed, ///< as when the person closes the window
    };

    /// To be made before `window` is shown; borrowed.
    FirstPaint(QWidget* window, End end);

    /// Takes "--to-end" out of a command line, which asks for an end as closed.
    [[nodiscard]] static End takeEnd(int& argc, char** argv);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* _window;
    End _end;
    bool _isPainted = false;
};

} // namespace teskel::bench
