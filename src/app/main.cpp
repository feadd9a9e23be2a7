// SPDX-License-Identifier: MIT
#include "app/commandline.h"
#include "app/teskelmainwindow.h"
#include "base/standardstreams.h"
#include "platform/application/qpeapplication.h"

int main(int argc, char* argv[])
{
    teskel::openStandardStreams();
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
