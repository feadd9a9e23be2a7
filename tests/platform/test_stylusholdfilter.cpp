// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{

// Writes down every button event, "press left" and so on.
class Pad : public QWidget
{
public:
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

void StylusHoldFilterTest::heldPenIsTheRightButton()
{
    Pad pad;
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QElapsedTimer timer;
    timer.start();
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QTRY_COMPARE(pad.log.size(), 2);
    QVERIFY2(timer.elapsed() >= 495, qPrintable(QString::number(timer.elapsed())));
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, QPoint(52, 50));
    QCOMPARE(pad.log, QStringList({u"press left"_s, u"press right"_s, u"release right"_s,
                                   u"release left outside"_s}));
}

void StylusHoldFilterTest::shortTapIsTheLeftButton()
{
    Pad pad;
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QTest::mouseClick(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(!QTest::qWaitFor([&pad] { return pad.log.size() > 2; }, 700));
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
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    drag(&pad, to);
    const bool right = QTest::qWaitFor([&pad] { return pad.log.contains(u"press right"_s); }, 700);
    QCOMPARE(right, held);
    QTest::mouseRelease(&pad, Qt::LeftButton, {}, to);
    QCOMPARE(pad.log.contains(u"release left"_s), !held);
}

void StylusHoldFilterTest::dragAfterTheHoldIsSwallowed()
{
    Pad pad;
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
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
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QTest::mousePress(&pad, Qt::RightButton, {}, QPoint(50, 50));
    QVERIFY(!QTest::qWaitFor([&pad] { return pad.log.size() > 1; }, 700));
    QTest::mouseRelease(&pad, Qt::RightButton, {}, QPoint(50, 50));
    QCOMPARE(pad.log, QStringList({u"press right"_s, u"release right"_s}));
}

void StylusHoldFilterTest::modeCanBeTakenBack()
{
    Pad pad;
    pad.resize(100, 100);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::LeftOnly);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::RightOnHold);
    QPEApplication::setStylusOperation(&pad, QPEApplication::LeftOnly);
    QCOMPARE(QPEApplication::stylusOperation(&pad), QPEApplication::LeftOnly);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(!QTest::qWaitFor([&pad] { return pad.log.size() > 1; }, 700));
}

void StylusHoldFilterTest::settingTheModeTwiceActsOnce()
{
    Pad pad;
    pad.resize(100, 100);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QPEApplication::setStylusOperation(&pad, QPEApplication::RightOnHold);
    QTest::mousePress(&pad, Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(!QTest::qWaitFor([&pad] { return pad.log.size() > 2; }, 700));
    QCOMPARE(pad.log.size(), 2);
}

void StylusHoldFilterTest::heldPenDoesNotClickAnItem()
{
    QTreeWidget tree;
    tree.resize(200, 200);
    auto* item = new QTreeWidgetItem(&tree, {u"Eng2Ger"_s});
    tree.show();
    QPEApplication::setStylusOperation(tree.viewport(), QPEApplication::RightOnHold);
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
    pad->resize(100, 100);
    QPEApplication::setStylusOperation(pad, QPEApplication::RightOnHold);
    QTest::mousePress(pad, Qt::LeftButton, {}, QPoint(50, 50));
    delete pad;
    Pad other;
    QPEApplication::setStylusOperation(&other, QPEApplication::RightOnHold);
    QTest::mousePress(&other, Qt::LeftButton, {}, QPoint(5, 5));
    QTRY_COMPARE(other.log.size(), 2);
}

QTEST_MAIN(StylusHoldFilterTest)
#include "test_stylusholdfilter.moc"
