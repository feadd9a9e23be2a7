// SPDX-License-Identifier: MIT
// A bare window up to its first painting; with "--to-end" to the end of the program, and with
// "--stay" it stays.
#include "bench/support/barewindow.h"
#include "bench/support/firstpaint.h"

#include <QApplication>

#include <optional>

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    const auto asked = teskel::bench::FirstPaint::takeEnd(argc, argv);
    const QApplication application(argc, argv);
    teskel::bench::BareWindow window;
    QStringList rows;
    for (int row = 0; row < 20; ++row)
        rows.append(u"word %1"_s.arg(row));
    window.setView({rows, 0, u"<p><b>word</b></p><p>article</p>"_s});
    std::optional<teskel::bench::FirstPaint> end;
    if (!QApplication::arguments().contains(u"--stay"_s))
        end.emplace(&window, asked);
    window.showMaximized();
    return QApplication::exec();
}
