// SPDX-License-Identifier: MIT
#include "app/commandline.h"
#include "app/teskelmainwindow.h"
#include "platform/application/qpeapplication.h"

int main(int argc, char* argv[])
{
    QPEApplication application(argc, argv);
    TeskelMainWindow window(nullptr, nullptr, Qt::Window);

    // Asked only now, so that Qt has taken its own options out.
    const QStringList arguments = QPEApplication::arguments();
    if (const auto path = teskel::fileFromCommandLine(arguments); path.has_value())
        window.openFile(*path);

    application.showMainWidget(&window);
    window.tryOpen();
    return QPEApplication::exec();
}
