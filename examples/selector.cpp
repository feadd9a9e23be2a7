// SPDX-License-Identifier: MIT

// Shows the dictionary selector over the dictionaries of this machine. Prints the path of the one
// that is chosen and ends; ends with code 1 when it is closed without a choice, or the path cannot
// be printed.

#include "files/qteskelfileselector.h"
#include "platform/application/qpeapplication.h"
#include "selectorowner.h"

#include <QTextStream>

int main(int argc, char** argv)
{
    QPEApplication application(argc, argv);
    QTeskelFileSelector selector(nullptr, "selector");
    selector.setWindowTitle(QTeskelFileSelector::tr("Dictionary Selector"));
    const SelectorOwner owner(&selector);

    int result = 1;
    QObject::connect(&selector, &QTeskelFileSelector::fileSelected, &selector,
                     [&result](const QString& path) {
                         QTextStream out(stdout);
                         out << path << Qt::endl;
                         result = out.status() == QTextStream::Ok ? 0 : 1;
                     });
    QObject::connect(&selector, &QTeskelFileSelector::closeMe, &selector, &QWidget::close);
    application.showMainWidget(&selector);
    QPEApplication::exec();
    return result;
}
