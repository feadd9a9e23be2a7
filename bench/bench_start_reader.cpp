// SPDX-License-Identifier: MIT
// The reader, as its own main() starts it, up to the first painting of its window; with
// "--to-end" to the end of the program.
#include "app/commandline.h"
#include "app/teskelmainwindow.h"
#include "bench/support/firstpaint.h"
#include "platform/application/qpeapplication.h"

int main(int argc, char* argv[])
{
    const auto asked = teskel::bench::FirstPaint::takeEnd(argc, argv);
    QPEApplication application(argc, argv);
    TeskelMainWindow window(nullptr, nullptr, Qt::Window);
    const teskel::bench::FirstPaint end(&window, asked);

    const QStringList arguments = QPEApplication::arguments();
    if (const auto path = teskel::fileFromCommandLine(arguments); path.has_value())
        window.openFile(*path);

    application.showMainWidget(&window);
    window.tryOpen();
    return QPEApplication::exec();
}
