// SPDX-License-Identifier: MIT
// Draws the program's icons as PNG files: drawicons PICS_DIRECTORY HICOLOR_DIRECTORY
//
// The colours are of middle brightness, so that every icon stands out from a white and from a dark
// grey background.
#include "iconcanvas.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

#include <vector>

using namespace Qt::StringLiterals;

using teskel::IconCanvas;

namespace
{

const QColor grey(0x7C, 0x84, 0x8E);
const QColor blue(0x3B, 0x82, 0xE0);
const QColor green(0x2F, 0x9E, 0x5A);
const QColor orange(0xD2, 0x75, 0x2A);
const QColor red(0xD6, 0x45, 0x45);
const QColor paper(0xFF, 0xFF, 0xFF);

void sheet(IconCanvas& c, qreal x, qreal y, const QColor& colour)
{
    c.box(x, y, x + 12, y + 15, paper);
    c.frame(x, y, x + 12, y + 15, 2, colour);
}

void customWord(IconCanvas& c)
{
    sheet(c, 2, 3, grey);
    c.box(5, 7, 11, 9, grey);
    c.box(5, 11, 9, 13, grey);
    c.line({10, 19}, {19.5, 9.5}, 4.2, orange);
    c.polygon({{{7, 22}, {8, 17}, {12, 21}}}, orange);
    c.line({20.5, 8.5}, {20.7, 8.3}, 4.2, red);
}

void openBook(IconCanvas& c, const QColor& cover, const QColor& lines)
{
    c.polygon({{{1, 5}, {9, 3}, {12, 5}, {12, 21}, {9, 19}, {1, 21}}}, cover);
    c.polygon({{{23, 5}, {15, 3}, {12, 5}, {12, 21}, {15, 19}, {23, 21}}}, cover);
    c.polygon({{{3, 7}, {9, 5}, {11, 7}, {11, 18}, {9, 17}, {3, 19}}}, paper);
    c.polygon({{{21, 7}, {15, 5}, {13, 7}, {13, 18}, {15, 17}, {21, 19}}}, paper);
    for (const qreal y : {8.0, 11.0, 14.0}) {
        c.line({4.5, y + 1}, {9.3, y}, 1.4, lines);
        c.line({14.7, y}, {19.5, y + 1}, 1.4, lines);
    }
}

void open(IconCanvas& c)
{
    openBook(c, blue, grey);
}

void crossLookup(IconCanvas& c)
{
    c.box(2, 7, 15, 10, blue);
    c.polygon({{{14, 3}, {22, 8.5}, {14, 14}}}, blue);
    c.box(9, 15, 22, 18, green);
    c.polygon({{{10, 11}, {2, 16.5}, {10, 22}}}, green);
}

void toggleView(IconCanvas& c)
{
    c.box(2, 3, 22, 21, paper);
    c.box(4, 5, 10, 19, blue);
    c.frame(2, 3, 22, 21, 2, grey);
    c.box(10, 3, 12, 21, grey);
    c.box(14, 8, 19, 10, grey);
    c.box(14, 13, 19, 15, grey);
}

void preferences(IconCanvas& c)
{
    for (const qreal y : {5.0, 12.0, 19.0})
        c.box(2, y - 1, 22, y + 1, grey);
    c.disc(15, 5, 3.2, blue);
    c.disc(8, 12, 3.2, orange);
    c.disc(16, 19, 3.2, blue);
}

void card(IconCanvas& c)
{
    c.polygon({{{4, 2}, {15, 2}, {20, 7}, {20, 22}, {4, 22}}}, orange);
    for (const qreal x : {7.0, 10.5, 14.0})
        c.box(x, 4, x + 2, 9, paper);
    c.box(7, 13, 17, 19, paper);
}

void drive(IconCanvas& c)
{
    c.polygon({{{5, 4}, {19, 4}, {22, 13}, {2, 13}}}, grey);
    c.roundBox(2, 12, 22, 20, 1.5, grey);
    c.box(4, 14, 20, 18, paper);
    c.box(15, 15, 18, 17, green);
    c.box(6, 15, 12, 17, grey);
}

void clear(IconCanvas& c)
{
    c.polygon({{{1, 12}, {8, 4}, {23, 4}, {23, 20}, {8, 20}}}, grey);
    c.line({11.5, 8.5}, {18.5, 15.5}, 2.4, paper);
    c.line({18.5, 8.5}, {11.5, 15.5}, 2.4, paper);
}

void copy(IconCanvas& c)
{
    sheet(c, 3, 2, grey);
    c.clear(8, 6, 22, 23);
    sheet(c, 9, 7, blue);
    c.box(12, 11, 18, 13, blue);
    c.box(12, 15, 18, 17, blue);
}

void paste(IconCanvas& c)
{
    c.roundBox(3, 3, 18, 22, 1.5, orange);
    c.box(5, 6, 16, 20, paper);
    c.box(7, 2, 14, 6, grey);
    c.clear(8, 9, 24, 24);
    c.box(9, 10, 22, 23, paper);
    c.frame(9, 10, 22, 23, 2, blue);
    c.box(12, 14, 19, 16, blue);
    c.box(12, 18, 19, 20, blue);
}

void close(IconCanvas& c)
{
    c.line({5, 5}, {19, 19}, 4, grey);
    c.line({19, 5}, {5, 19}, 4, grey);
}

void program(IconCanvas& c)
{
    c.roundBox(0, 0, 24, 24, 4, blue);
    c.polygon({{{3, 6}, {9, 5}, {12, 7}, {12, 20}, {9, 18}, {3, 19}}}, paper);
    c.polygon({{{21, 6}, {15, 5}, {12, 7}, {12, 20}, {15, 18}, {21, 19}}},
              QColor(0xE4, 0xEA, 0xF2));
    // A "T" on the left page, lines on the right one, and a ribbon.
    c.box(5, 9, 10, 11, blue);
    c.box(7, 9, 8, 16, blue);
    c.box(14, 9, 19, 10, grey);
    c.box(14, 12, 19, 13, grey);
    c.box(14, 15, 18, 16, grey);
    c.polygon({{{16, 3}, {18, 3}, {18, 8}, {17, 7}, {16, 8}}}, orange);
}

struct Drawing {
    const char* name;
    void (*draw)(IconCanvas&);
};

constexpr Drawing drawings[] = {
    {"teskel-custom-word", customWord},
    {"teskel-open", open},
    {"teskel-crosslookup", crossLookup},
    {"teskel-toggleview", toggleView},
    {"teskel-preferences", preferences},
    {"teskel-floppy", card},
    {"teskel-hard", drive},
    {"teskel-clear", clear},
    {"copy", copy},
    {"paste", paste},
    {"close", close},
    {"teskel", program},
};

/// @param quality as of QImage::save(): 100 leaves a PNG uncompressed, -1 compresses it as usual
bool save(const Drawing& drawing, int size, const QString& path, int quality)
{
    IconCanvas canvas(size);
    drawing.draw(canvas);
    QFile file(path);
    // QImage::save() takes no notice of bytes that could not be flushed.
    if (QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
        canvas.finish().save(&file, "PNG", quality) && file.flush())
        return true;
    QTextStream(stderr) << path << " cannot be written\n";
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: drawicons PICS_DIRECTORY HICOLOR_DIRECTORY\n";
        return 2;
    }
    bool done = true;
    for (const Drawing& drawing : drawings) {
        // Under X the program's icon is read in every size before its window is there.
        const int quality = drawing.draw == program ? 100 : -1;
        for (const int size : {16, 20, 24, 32, 40, 48})
            done = save(drawing, size,
                        arguments[1] + u"/%1/%2.png"_s.arg(size).arg(QLatin1String(drawing.name)),
                        quality) &&
                   done;
    }
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        done = save({"teskel", program}, size, arguments[2] + u"/%1x%1/apps/teskel.png"_s.arg(size),
                    -1) &&
               done;
    return done ? 0 : 3;
}
