// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/listbox/qteskellistboxpixmap.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

/// Where an item has painted anything, and where in a colour.
class Canvas
{
public:
    explicit Canvas(QTeskelListBoxItem& item)
        : _picture(200, 120, QImage::Format_ARGB32_Premultiplied)
    {
        _picture.fill(Qt::transparent);
        QPainter painter(&_picture);
        metrics = painter.fontMetrics();
        item.paint(&painter);
    }
    template<typename Wanted>
    QRect where(Wanted wanted) const
    {
        QRect found;
        for (int y = 0; y < _picture.height(); ++y) {
            for (int x = 0; x < _picture.width(); ++x) {
                if (wanted(_picture.pixelColor(x, y)))
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found;
    }
    QRect red() const
    {
        return where([](QColor colour) { return colour == QColor(Qt::red); });
    }
    QRect other() const
    {
        return where([](QColor colour) { return colour.alpha() > 0 && colour.red() < 100; });
    }
    QFontMetrics metrics{QFont()};

private:
    QImage _picture;
};

QPixmap redPixmap(int width, int height)
{
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::red);
    return pixmap;
}

} // namespace

/// The sizes of rows with texts and pictures, and what they paint where.
class TestListBoxItems : public QObject
{
    Q_OBJECT

private slots:
    void textHasAMarginRoundIt();
    void textWithoutAListHasNoSize();
    void textIsPaintedBehindItsMargin();
    void pictureHasAMarginBesideIt();
    void pictureWithATextHasRoomForBoth();
    void pictureWithoutAListHasItsOwnSize();
    void pictureIsPaintedBehindItsMargin();
    void pictureAndTextStandInTheMiddle_data();
    void pictureAndTextStandInTheMiddle();
};

void TestListBoxItems::textHasAMarginRoundIt()
{
    QTeskelListBox list;
    const auto* const item = new QTeskelListBoxText(&list, u"word"_s);
    QCOMPARE(item->width(&list), list.fontMetrics().horizontalAdvance(u"word"_s) + 6);
    QCOMPARE(item->height(&list), list.fontMetrics().lineSpacing() + 2);
}

void TestListBoxItems::textWithoutAListHasNoSize()
{
    const QTeskelListBoxText item(u"word"_s);
    QCOMPARE(item.width(nullptr), 0);
    QCOMPARE(item.height(nullptr), 0);
}

void TestListBoxItems::textIsPaintedBehindItsMargin()
{
    QTeskelListBoxText item(u"\u2588\u2588"_s);
    const Canvas canvas(item);
    QImage wanted(200, 120, QImage::Format_ARGB32_Premultiplied);
    wanted.fill(Qt::transparent);
    QPainter painter(&wanted);
    const QFontMetrics metrics = painter.fontMetrics();
    painter.drawText(3, metrics.ascent() + metrics.leading() / 2, item.text());
    painter.end();
    QRect ink;
    for (int y = 0; y < wanted.height(); ++y) {
        for (int x = 0; x < wanted.width(); ++x) {
            if (wanted.pixelColor(x, y).alpha() > 0)
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(ink.isValid());
    QCOMPARE(canvas.where([](QColor colour) { return colour.alpha() > 0; }), ink);
}

void TestListBoxItems::pictureHasAMarginBesideIt()
{
    QTeskelListBox list;
    const auto* const item = new QTeskelListBoxPixmap(&list, redPixmap(30, 40));
    QCOMPARE(item->width(&list), 36);
    QCOMPARE(item->height(&list), 40);
}

void TestListBoxItems::pictureWithATextHasRoomForBoth()
{
    QTeskelListBox list;
    const QFontMetrics metrics = list.fontMetrics();
    const int line = metrics.lineSpacing() + 2;
    const auto* const low = new QTeskelListBoxPixmap(&list, redPixmap(30, 2), u"word"_s);
    QCOMPARE(low->width(&list), 30 + 6 + 2 + metrics.horizontalAdvance(u"word"_s));
    QCOMPARE(low->height(&list), line);
    const auto* const high = new QTeskelListBoxPixmap(&list, redPixmap(30, line + 9), u"word"_s);
    QCOMPARE(high->height(&list), line + 9);
}

void TestListBoxItems::pictureWithoutAListHasItsOwnSize()
{
    const QTeskelListBoxPixmap item(redPixmap(30, 2), u"word"_s);
    QCOMPARE(item.width(nullptr), 36);
    QCOMPARE(item.height(nullptr), 2);
}

void TestListBoxItems::pictureIsPaintedBehindItsMargin()
{
    QTeskelListBoxPixmap item(redPixmap(10, 20));
    const Canvas canvas(item);
    QCOMPARE(canvas.red(), QRect(3, 0, 10, 20));
    QVERIFY(!canvas.other().isValid());
}

void TestListBoxItems::pictureAndTextStandInTheMiddle_data()
{
    QTest::addColumn<int>("height");
    QTest::addRow("low picture") << 4;
    QTest::addRow("high picture") << 80;
}

void TestListBoxItems::pictureAndTextStandInTheMiddle()
{
    QFETCH(int, height);
    QTeskelListBoxPixmap item(redPixmap(10, height), u"\u2588"_s);
    const Canvas canvas(item);
    const QFontMetrics& metrics = canvas.metrics;
    const int row = qMax(height, metrics.lineSpacing() + 2);
    QCOMPARE(canvas.red(), QRect(3, (row - height) / 2, 10, height));

    QImage wanted(200, 120, QImage::Format_ARGB32_Premultiplied);
    wanted.fill(Qt::transparent);
    QPainter painter(&wanted);
    painter.drawText(15, (row - metrics.height()) / 2 + metrics.ascent(), item.text());
    painter.end();
    QRect ink;
    for (int y = 0; y < wanted.height(); ++y) {
        for (int x = 0; x < wanted.width(); ++x) {
            const QColor colour = wanted.pixelColor(x, y);
            if (colour.alpha() > 0 && colour.red() < 100)
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(ink.isValid());
    QCOMPARE(canvas.other(), ink);
}

QTEST_MAIN(TestListBoxItems)
#include "test_listboxitems.moc"
