// SPDX-License-Identifier: MIT
// Shows the reader without a display: teskel-snapshot LEXICON WORD PICTURE [WIDTHxHEIGHT]
#include <QApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include "app/teskelmainwindow.h"
#include "lookup/teskelmainwidget.h"

namespace
{

QSize parseSize(const QString& text)
{
    const QStringList parts = text.split(u'x');
    return parts.size() == 2 ? QSize(parts.at(0).toInt(), parts.at(1).toInt()) : QSize();
}

int takePicture(const QStringList& arguments)
{
    TeskelMainWindow window;
    auto* view = window.findChild<TeskelMainWidget*>();
    if (!view->fileOpen(arguments.at(1), true)) {
        QTextStream(stderr) << arguments.at(1) << ": not a valid dictionary\n";
        return 1;
    }
    window.updateGUI();
    view->setComboText(arguments.at(2), true);
    window.resize(parseSize(arguments.value(4, QStringLiteral("640x480"))));
    window.show();
    QApplication::processEvents();
    if (!window.grab().save(arguments.at(3), "PNG")) {
        QTextStream(stderr) << arguments.at(3) << ": the picture cannot be written\n";
        return 1;
    }
    QTextStream(stdout) << arguments.at(3) << '\n';
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    // A picture must not touch the person's settings and needs no screen.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");

    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4 || arguments.size() > 5 ||
        (arguments.size() == 5 && parseSize(arguments.at(4)).isEmpty())) {
        QTextStream(stderr) << "usage: teskel-snapshot LEXICON WORD PICTURE [WIDTHxHEIGHT]\n";
        return 2;
    }
    return takePicture(arguments);
}
