// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"
#include "platform/application/stylusholdfilter.h"

#include <QMouseEvent>
#include <QTreeWidget>
#include <QtTest>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

void holdBriefly(QWidget* widget)
{
    QPEApplication::setStylusOperation(widget, QPEApplication::RightOnHold);
    teskel::StylusHoldFilter::of(widget)->setHoldTime(5ms);
}

// Writes down every button event, "press left" and so on.
class Pad : public QWidget
{
public:
    Pad() { resize(100, 100); }

    QStringList log;

protected:
    void mousePressEvent(QMouseEvent* event) override { note(u"press"_s, event); }
    void mouseReleaseEvent(QMouseEvent* event) override { note(u"release"_s, event); }
    void mouseMoveEvent(QMouseEvent* event) override { note(u"move"_s, event); }

private:
    void note(const QString& what, const QMouseEvent* event)
    {
        const QString button = event->button() == Qt::LeftButton    ? u" left"_s
                               : event->button() == Qt::RightButton ? u" right"_s
                                                                    : QString();
        const QString place =
            rect().contains(event->position().toPoint()) ? QString() : u" outside"_s;
        log.append(what + button + place);
    }
};

// Waits until a button that is pressed now has been held, and with it every one pressed before.
bool waitForAHold()
{
    Pad pad;
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    return QTest::qWaitFor([&pad] { return pad.log.size() == 2; });
}

void drag(QWidget* widget, const QPoint& to)
{
    QMouseEvent move(QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

} // namespace

class StylusHoldFilterTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void holdTimeIsHalfASecond();
    void holdTimeMustPass();
    void heldPenIsTheRightButton();
    void shortTapIsTheLeftButton();
    void movingAwayIsADrag_data();
    void movingAwayIsADrag();
    void dragAfterTheHoldIsSwallowed();
    void rightButtonStaysItself();
    void modeCanBeTakenBack();
    void settingTheModeTwiceActsOnce();
    void heldPenDoesNotClickAnItem();
    void widgetMayDieWhileHeld();
};

void StylusHoldFilterTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void StylusHoldFilterTest::holdTimeIsHalfASecond()
{
    Pad pad;
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QVERIFY(teskel::StylusHoldFilter::of(&pad)->holdTime() == 500ms);
}

void StylusHoldFilterTest::holdTimeMustPass()
{
    Pad pad;
    holdBriefly(&pad);
    teskel::StylusHoldFilter::of(&pad)->setHoldTime(1h);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(waitForAHold());
    QCOMPARE(pad.log, QStringList(u"press left"_s));
}

void StylusHoldFilterTest::heldPenIsTheRightButton()
{
    Pad pad;
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QTRY_COMPARE(pad.log.size(), 2);
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, QPoint(52, 50));
    QCOMPARE(pad.log, QStringList({u"press left"_s, u"press right"_s, u"release right"_s,
                                   u"release left outside"_s}));
}

void StylusHoldFilterTest::shortTapIsTheLeftButton()
{
    Pad pad;
    holdBriefly(&pad);
    QTest::mouseClick(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(waitForAHold());
    QCOMPARE(pad.log, QStringList({u"press left"_s, u"release left"_s}));
}

void StylusHoldFilterTest::movingAwayIsADrag_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("held");
    QTest::newRow("8 pixels right") << QPoint(58, 50) << true;
    QTest::newRow("8 pixels up") << QPoint(50, 42) << true;
    QTest::newRow("9 pixels right") << QPoint(59, 50) << false;
    QTest::newRow("9 pixels down") << QPoint(50, 59) << false;
}

void StylusHoldFilterTest::movingAwayIsADrag()
{
    QFETCH(QPoint, to);
    QFETCH(bool, held);
    Pad pad;
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    drag(&pad, to);
    QVERIFY(waitForAHold());
    QCOMPARE(pad.log.contains(u"press right"_s), held);
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, to);
    QCOMPARE(pad.log.contains(u"release left"_s), !held);
}

void StylusHoldFilterTest::dragAfterTheHoldIsSwallowed()
{
    Pad pad;
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QTRY_COMPARE(pad.log.size(), 2);
    drag(&pad, QPoint(80, 80));
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, QPoint(80, 80));
    QVERIFY(!pad.log.contains(u"move"_s));
    QVERIFY(pad.log.contains(u"release right"_s));
}

void StylusHoldFilterTest::rightButtonStaysItself()
{
    Pad pad;
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::RightButton, {}, QPoint(50, 50));
    QVERIFY(waitForAHold());
    QTest::mouseRelease(&pad, Qt::RightButton, {}, QPoint(50, 50));
    QCOMPARE(pad.log, QStringList({u"press right"_s, u"release right"_s}));
}

void StylusHoldFilterTest::modeCanBeTakenBack()
{
    Pad pad;
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::LeftOnly);
    holdBriefly(&pad);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::RightOnHold);
    QPEApplication::setStylusOperation(&pad, QPEApplication::LeftOnly);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::LeftOnly);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(waitForAHold());
    QCOMPARE(pad.log, QStringList(u"press left"_s));
}

void StylusHoldFilterTest::settingTheModeTwiceActsOnce()
{
    Pad pad;
    holdBriefly(&pad);
    holdBriefly(&pad);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(waitForAHold());
    QCOMPARE(pad.log.size(), 2);
    QPEApplication::setStylusOperation(&pad, QPEApplication::LeftOnly);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::LeftOnly);
}

void StylusHoldFilterTest::heldPenDoesNotClickAnItem()
{
    QTreeWidget tree;
    tree.resize(200, 200);
    auto* item = new QTreeWidgetItem(&tree, {u"Eng2Ger"_s});
    tree.show();
    holdBriefly(tree.viewport());
    QSignalSpy pressed(&tree, &QTreeWidget::itemPressed);
    QSignalSpy clicked(&tree, &QTreeWidget::itemClicked);
    const QPoint place = tree.visualItemRect(item).center();
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, place);
    QTRY_COMPARE(pressed.count(), 2);
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(clicked.count(), 0);
}

void StylusHoldFilterTest::widgetMayDieWhileHeld()
{
    auto* pad = new Pad;
    holdBriefly(pad);
    QTest::mousePress(pad, Qt::LeftButton, {}, QPoint(50, 50));
    delete pad;
    Pad other;
    holdBriefly(&other);
    QTest::mousePress(&other, Qt::LeftButton, {}, QPoint(5, 5));
    QTRY_COMPARE(other.log.size(), 2);
}

QTEST_MAIN(StylusHoldFilterTest)
#include "test_stylusholdfilter.moc"
