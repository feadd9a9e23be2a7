// SPDX-License-Identifier: MIT
// Shows the reader without a display: teskel-snapshot LEXICON WORD PICTURE [WIDTHxHEIGHT]
#include "app/teskelmainwindow.h"
#include "lookup/teskelmainwidget.h"

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace
{

QSize parseSize(const QString& text)
{
    const QStringList parts = text.split(u'x');
    return parts.size() == 2 ? QSize(parts.at(0).toInt(), parts.at(1).toInt()) : QSize();
}

// QPixmap::save() takes no notice of bytes that could not be flushed.
bool savePicture(const QPixmap& picture, const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.flush();
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
    window.resize(parseSize(arguments.value(4, u"640x480"_s)));
    window.show();
    QApplication::processEvents();
    if (!savePicture(window.grab(), arguments.at(3))) {
        QTextStream(stderr) << arguments.at(3) << ": the picture cannot be written\n";
        return 1;
    }
    QTextStream out(stdout);
    out << arguments.at(3) << Qt::endl;
    return out.status() == QTextStream::Ok ? 0 : 1;
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
