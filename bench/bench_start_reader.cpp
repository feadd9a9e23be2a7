// SPDX-License-Identifier: MIT
// The reader, as its own main() starts it, up to the first painting of its window.
#include "app/commandline.h"
#include "app/teskelmainwindow.h"
#include "bench/support/firstpaint.h"
#include "platform/application/qpeapplication.h"

int main(int argc, char* argv[])
{
    QPEApplication application(argc, argv);
    TeskelMainWindow window(nullptr, nullptr, Qt::Window);
    const teskel::bench::FirstPaint end(&window);

    const QStringList arguments = QPEApplication::arguments();
    if (const auto path = teskel::fileFromCommandLine(arguments); path.has_value())
        window.openFile(*path);

    application.showMainWidget(&window);
    window.tryOpen();
    return QPEApplication::exec();
}
