// SPDX-License-Identifier: MIT
#include "tests/widgets/plainitem.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/listbox/qteskellistboxpixmap.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QPainter>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
const QColor baseColour(10, 20, 30);
const QColor textColour(200, 210, 220);
const QColor highlightColour(0, 200, 0);
const QColor highlightedTextColour(255, 0, 255);

/// Notes what it is painted with.
class SpyItem : public teskel::test::PlainItem
{
public:
    using PlainItem::PlainItem;
    void paint(QPainter* painter) override
    {
        pen = painter->pen().color();
        background = painter->background().color();
        origin = painter->worldTransform().map(QPoint(0, 0));
        ++painted;
    }
    QColor pen;
    QColor background;
    QPoint origin;
    int painted = 0;
};

/// What the list shows. Premultiplied: the way out of that format and back rounds by the processor.
QImage shotOf(const QTeskelListBox& list)
{
    return list.viewport()->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The colour at a position of the viewport, whatever the scale factor.
QColor colourAt(const QImage& shot, int x, int y)
{
    const auto inPixels = [&shot](int position) {
        return static_cast<int>((position + 0.5) * shot.devicePixelRatio());
    };
    return shot.pixelColor(inPixels(x), inPixels(y));
}

/// A part of a picture, given in positions of the viewport and cut to whole pixels.
QImage partOf(const QImage& shot, const QRect& part)
{
    const qreal ratio = shot.devicePixelRatio();
    const QRectF scaled(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio);
    return shot.copy(scaled.toAlignedRect().intersected(shot.rect()));
}

struct List {
    List()
    {
        QPalette palette;
        palette.setColor(QPalette::Base, baseColour);
        palette.setColor(QPalette::Text, textColour);
        palette.setColor(QPalette::Highlight, highlightColour);
        palette.setColor(QPalette::HighlightedText, highlightedTextColour);
        list.setPalette(palette);
        list.setFrameStyle(QFrame::NoFrame);
        list.resize(200, 100);
        for (int row = 0; row < 4; ++row) {
            items << new SpyItem(u"item"_s);
            list.insertItem(items.last());
        }
        list.show();
    }
    QImage shot() const { return shotOf(list); }
    /// Forgets what was painted and tells whether nothing more is.
    bool comesToRest()
    {
        for (SpyItem* item : items)
            item->painted = 0;
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
        for (const SpyItem* item : items) {
            if (item->painted > 0)
                return false;
        }
        return !list.findChild<QTimer*>(u"listbox visible timer"_s)->isActive();
    }
    QTeskelListBox list;
    QList<SpyItem*> items;
};
} // namespace

class TestListBoxPainting : public QObject
{
    Q_OBJECT

private slots:
    void unselectedIsOnBase();
    void selectedFillsTheCell();
    void selectedFillsTheItemWidthInColumns();
    void customHighlightingKeepsTheBase();
    void focusRectangleIsAroundTheCurrentItem();
    void focusRectangleIsAroundNoOtherItem();
    void textIsDrawnAtItsPlace();
    void pixmapIsDrawn();
    void rowsAreWhereTheyAreScrolledTo();
    void onlyTheExposedRowsArePainted();
    void changingTheCurrentItemRepaintsBoth_data();
    void changingTheCurrentItemRepaintsBoth();
    void changingAllTextsPaintsOnce();
};

void TestListBoxPainting::unselectedIsOnBase()
{
    List l;
    QCOMPARE(colourAt(l.shot(), 150, 30), baseColour);
    QCOMPARE(l.items[1]->pen, textColour);
    QCOMPARE(l.items[1]->origin, QPoint(0, 20));
    QVERIFY(!l.items[1]->customHighlighting());
}

void TestListBoxPainting::selectedFillsTheCell()
{
    List l;
    l.list.setCurrentItem(1);
    const QImage shot = l.shot();
    QCOMPARE(colourAt(shot, 150, 30), highlightColour);
    QCOMPARE(colourAt(shot, 150, 10), baseColour);
    QCOMPARE(colourAt(shot, 150, 50), baseColour);
    QCOMPARE(l.items[1]->pen, highlightedTextColour);
    QCOMPARE(l.items[1]->background, highlightColour);
    QCOMPARE(l.items[0]->pen, textColour);
}

void TestListBoxPainting::selectedFillsTheItemWidthInColumns()
{
    List l;
    l.list.setColumnMode(2);
    l.list.setCurrentItem(0);
    const QImage shot = l.shot();
    QCOMPARE(colourAt(shot, 39, 10), highlightColour);
    QCOMPARE(colourAt(shot, 41, 10), baseColour);
}

void TestListBoxPainting::customHighlightingKeepsTheBase()
{
    List l;
    l.items[1]->setCustomHighlighting(true);
    l.list.setCurrentItem(1);
    QCOMPARE(colourAt(l.shot(), 150, 30), baseColour);
    QCOMPARE(l.items[1]->pen, highlightedTextColour);
    QCOMPARE(l.items[1]->background, highlightColour);
}

void TestListBoxPainting::focusRectangleIsAroundTheCurrentItem()
{
    List l;
    l.list.activateWindow();
    l.list.setCurrentItem(1);
    l.list.setFocus();
    QTRY_VERIFY(l.list.hasFocus());
    const QImage focused = l.shot();
    l.items[1]->setCustomHighlighting(true);
    const QImage custom = l.shot();
    l.items[1]->setCustomHighlighting(false);
    l.list.clearFocus();
    const QImage plain = l.shot();
    const QRect row(0, 20, 200, 20);
    QVERIFY(partOf(focused, row) != partOf(plain, row));
    QCOMPARE(colourAt(custom, 0, 20), baseColour);
}

void TestListBoxPainting::focusRectangleIsAroundNoOtherItem()
{
    List l;
    l.list.activateWindow();
    l.list.setCurrentItem(1);
    l.list.setFocus();
    QTRY_VERIFY(l.list.hasFocus());
    const QImage focused = l.shot();
    l.list.clearFocus();
    const QImage plain = l.shot();
    for (const int row : {0, 2, 3}) {
        // A row less its edges, which at some scale factors share a pixel with the next row.
        const QRect inner(0, row * 20 + 1, 200, 18);
        QVERIFY2(partOf(focused, inner) == partOf(plain, inner), qPrintable(QString::number(row)));
    }
}

void TestListBoxPainting::textIsDrawnAtItsPlace()
{
    QTeskelListBox list;
    auto* item = new QTeskelListBoxText(&list, u"Wg"_s);
    const QFontMetrics metrics(list.font());
    QImage painted(100, 50, QImage::Format_ARGB32_Premultiplied);
    QImage expected = painted;
    for (QImage* image : {&painted, &expected}) {
        image->fill(Qt::white);
        QPainter painter(image);
        painter.setFont(list.font());
        if (image == &painted)
            item->paint(&painter);
        else
            painter.drawText(
                3, painter.fontMetrics().ascent() + painter.fontMetrics().leading() / 2, u"Wg"_s);
    }
    QCOMPARE(painted, expected);
    QCOMPARE(item->height(&list), metrics.lineSpacing() + 2);
}

void TestListBoxPainting::pixmapIsDrawn()
{
    QPixmap red(30, 40);
    red.fill(Qt::red);
    QTeskelListBox list;
    list.setFrameStyle(QFrame::NoFrame);
    auto* item = new QTeskelListBoxPixmap(&list, red, u"x"_s);
    auto* bare = new QTeskelListBoxPixmap(&list, red);
    QCOMPARE(bare->width(&list), 36);
    QCOMPARE(bare->height(&list), 40);
    QVERIFY(item->width(&list) > 36);
    list.resize(200, 100);
    list.show();
    const QImage shot = shotOf(list);
    QCOMPARE(colourAt(shot, 4, 5), QColor(Qt::red));
    QCOMPARE(colourAt(shot, 32, 60), QColor(Qt::red));
    QVERIFY(colourAt(shot, 1, 5) != QColor(Qt::red));
}

void TestListBoxPainting::rowsAreWhereTheyAreScrolledTo()
{
    List l;
    l.list.resize(200, 40);
    l.list.setContentsPos(0, 30);
    l.list.setCurrentItem(2);
    l.list.setContentsPos(0, 30);
    const QImage shot = l.shot();
    QCOMPARE(colourAt(shot, 100, 5), baseColour);
    QCOMPARE(colourAt(shot, 100, 15), highlightColour);
}

void TestListBoxPainting::onlyTheExposedRowsArePainted()
{
    List l;
    QVERIFY(QTest::qWaitForWindowExposed(&l.list));
    l.shot();
    for (SpyItem* item : l.items)
        item->painted = 0;
    l.list.viewport()->grab(QRect(0, 25, 50, 5));
    QCOMPARE(l.items[1]->painted, 1);
    QCOMPARE(l.items[0]->painted + l.items[2]->painted + l.items[3]->painted, 0);
}

void TestListBoxPainting::changingTheCurrentItemRepaintsBoth_data()
{
    QTest::addColumn<bool>("bySelecting");
    QTest::newRow("made current") << false;
    QTest::newRow("selected") << true;
}

void TestListBoxPainting::changingTheCurrentItemRepaintsBoth()
{
    QFETCH(bool, bySelecting);
    List l;
    l.list.setCurrentItem(0);
    QVERIFY(QTest::qWaitForWindowExposed(&l.list));
    QTRY_VERIFY(l.comesToRest());
    if (bySelecting)
        l.list.setSelected(3, true);
    else
        l.list.setCurrentItem(3);
    QTRY_VERIFY(l.items[0]->painted > 0);
    QTRY_VERIFY(l.items[3]->painted > 0);
    QCOMPARE(l.items[0]->pen, textColour);
    QCOMPARE(l.items[3]->pen, highlightedTextColour);
}

void TestListBoxPainting::changingAllTextsPaintsOnce()
{
    List l;
    QVERIFY(QTest::qWaitForWindowExposed(&l.list));
    QTRY_VERIFY(l.comesToRest());
    for (SpyItem* item : l.items)
        item->setText(u"other"_s);
    QTRY_VERIFY(l.items[0]->painted > 0);
    const auto* update = l.list.findChild<QTimer*>(u"listbox update timer"_s);
    QTRY_VERIFY(!update->isActive());
    for (int round = 0; round < 5; ++round)
        QCoreApplication::processEvents();
    for (const SpyItem* item : l.items)
        QCOMPARE(item->painted, 1);
}

QTEST_MAIN(TestListBoxPainting)
#include "test_listboxpainting.moc"
