// SPDX-License-Identifier: MIT
#include "widgets/wraplayout.h"

#include <QTest>
#include <QWidget>

#include <memory>

namespace
{

constexpr int itemWidth = 50;
constexpr int itemHeight = 10;
constexpr int gap = 4;

/// A window with `count` boxes of 50 by 10 pixels, 4 pixels apart.
std::unique_ptr<QWidget> boxes(int count)
{
    auto window = std::make_unique<QWidget>();
    auto* layout = new teskel::WrapLayout(window.get());
    layout->setContentsMargins(1, 2, 3, 5);
    layout->setSpacing(gap);
    for (int number = 0; number < count; ++number) {
        auto* box = new QWidget(window.get());
        box->setFixedSize(itemWidth, itemHeight);
        layout->addWidget(box);
    }
    return window;
}

} // namespace

/// The layout that puts as many items on a row as the width admits.
class WrapLayoutTest : public QObject
{
    Q_OBJECT

private slots:
    void hintIsOneRowAndMinimumOneItem();
    void heightFollowsTheWidth_data();
    void heightFollowsTheWidth();
    void itemsStandInRows();
    void rightToLeftIsMirrored();
    void itemsCanBeTaken();
};

void WrapLayoutTest::hintIsOneRowAndMinimumOneItem()
{
    const auto window = boxes(3);
    QCOMPARE(window->layout()->sizeHint(),
             QSize(3 * itemWidth + 2 * gap + 1 + 3, itemHeight + 2 + 5));
    QCOMPARE(window->layout()->minimumSize(), QSize(itemWidth + 1 + 3, itemHeight + 2 + 5));
    QCOMPARE(boxes(0)->layout()->sizeHint(), QSize(4, 7));
}

void WrapLayoutTest::heightFollowsTheWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("rows");
    const int row = 3 * itemWidth + 2 * gap + 4;
    QTest::newRow("one row") << row << 1;
    QTest::newRow("a pixel less") << row - 1 << 2;
    QTest::newRow("two") << 2 * itemWidth + gap + 4 << 2;
    QTest::newRow("one each") << 2 * itemWidth + gap + 3 << 3;
    QTest::newRow("too narrow") << 10 << 3;
    QTest::newRow("nothing") << 0 << 3;
}

void WrapLayoutTest::heightFollowsTheWidth()
{
    QFETCH(const int, width);
    QFETCH(const int, rows);
    const auto window = boxes(3);
    QVERIFY(window->layout()->hasHeightForWidth());
    QCOMPARE(window->layout()->heightForWidth(width), rows * itemHeight + (rows - 1) * gap + 7);
}

void WrapLayoutTest::itemsStandInRows()
{
    const auto window = boxes(3);
    window->setLayoutDirection(Qt::LeftToRight);
    window->layout()->setGeometry(QRect(0, 0, 2 * itemWidth + gap + 4, 100));
    QCOMPARE(window->layout()->itemAt(0)->geometry().topLeft(), QPoint(1, 2));
    QCOMPARE(window->layout()->itemAt(1)->geometry().topLeft(), QPoint(1 + itemWidth + gap, 2));
    QCOMPARE(window->layout()->itemAt(2)->geometry().topLeft(), QPoint(1, 2 + itemHeight + gap));
}

void WrapLayoutTest::rightToLeftIsMirrored()
{
    const auto window = boxes(2);
    window->setLayoutDirection(Qt::RightToLeft);
    window->layout()->setGeometry(QRect(0, 0, 200, 100));
    QVERIFY(window->layout()->itemAt(0)->geometry().left() >
            window->layout()->itemAt(1)->geometry().left());
}

void WrapLayoutTest::itemsCanBeTaken()
{
    const auto window = boxes(2);
    QLayout* layout = window->layout();
    QVERIFY(layout->itemAt(2) == nullptr);
    QVERIFY(layout->itemAt(-1) == nullptr);
    QVERIFY(layout->takeAt(2) == nullptr);
    const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));
    QVERIFY(taken != nullptr);
    QCOMPARE(layout->count(), 1);
}

QTEST_MAIN(WrapLayoutTest)
#include "test_wraplayout.moc"
