// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "platform/qpeapplication.h"

int main(int argc, char* argv[])
{
    QPEApplication application(argc, argv);
    TeskelMainWindow window(nullptr, nullptr, Qt::Window);

    // Counted after Qt has taken its own options out of the command line.
    const QStringList arguments = QPEApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == u"-f")
        window.openFile(arguments.at(2));

    application.showMainWidget(&window);
    window.tryOpen();
    return QPEApplication::exec();
}
