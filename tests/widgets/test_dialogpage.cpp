// SPDX-License-Identifier: MIT
#include "widgets/dialogpage.h"
#include "widgets/plainmessage.h"

#include <QDialog>
#include <QLabel>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

/// Looks at the message box that showPlainMessage() opens, and closes it.
template<typename Look>
void whileShown(const QString& text, QMessageBox::Icon icon, const Look& look)
{
    QTimer poll;
    bool seen = false;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible())
            return;
        poll.stop();
        seen = true;
        look(*box);
        box->accept();
    });
    poll.start(1);
    teskel::showPlainMessage(nullptr, icon, u"caption"_s, text);
    QVERIFY(seen);
}

const QLabel* labelOf(const QMessageBox& box)
{
    return box.findChild<QLabel*>(u"qt_msgbox_label"_s);
}

} // namespace

/// How dialogs and messages use small and large screens.
class TestDialogPage : public QObject
{
    Q_OBJECT

private slots:
    void contentFillsASmallDialog();
    void contentIsASquareAtTheTopOfALargeOne();
    void comfortableWidthIsThatOfSixtyFourCharacters();
    void areaShowsWhatIsBehindItAndScrolls();

    void messageIsPlainText();
    void messageOfOneLineIsNotWrapped();
    void longMessageUsesTheScreenWithinLimits();
};

void TestDialogPage::contentFillsASmallDialog()
{
    QDialog dialog;
    auto* const content = new QWidget;
    teskel::fillDialog(&dialog, content);
    dialog.resize(240, 320);
    dialog.layout()->activate();
    QCOMPARE(content->parentWidget(), &dialog);
    QCOMPARE(content->geometry().height(), 320 - 8);
    // A column of a thousandth of the room is left at the sides.
    QVERIFY(content->width() >= 240 - 8 - 2 * (dialog.layout()->spacing() + 1));
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
}

void TestDialogPage::contentIsASquareAtTheTopOfALargeOne()
{
    QDialog dialog;
    auto* const content = new QWidget;
    teskel::fillDialog(&dialog, content);
    const int side = teskel::comfortableWidth(&dialog);
    dialog.resize(side + 400, side + 300);
    dialog.layout()->activate();
    QCOMPARE(content->size(), QSize(side, side));
    QCOMPARE(content->geometry().top(), 4);
    const int left = content->geometry().left();
    const int right = dialog.width() - content->geometry().right() - 1;
    QVERIFY2(qAbs(left - right) <= 1, qPrintable(u"%1 and %2"_s.arg(left).arg(right)));
}

void TestDialogPage::comfortableWidthIsThatOfSixtyFourCharacters()
{
    QWidget widget;
    QCOMPARE(teskel::comfortableWidth(&widget), 64 * widget.fontMetrics().averageCharWidth());
}

void TestDialogPage::areaShowsWhatIsBehindItAndScrolls()
{
    QWidget parent;
    auto* const content = new QWidget;
    content->setMinimumSize(50, 500);
    QScrollArea* const area = teskel::scrollWhereNeeded(content, &parent);
    QCOMPARE(area->parentWidget(), &parent);
    QCOMPARE(area->widget(), content);
    QCOMPARE(area->frameShape(), QFrame::NoFrame);
    QVERIFY(area->widgetResizable());
    QVERIFY(!content->autoFillBackground());
    QVERIFY(!area->viewport()->autoFillBackground());
}

void TestDialogPage::messageIsPlainText()
{
    whileShown(u"<b>a</b>"_s, QMessageBox::Critical, [](const QMessageBox& box) {
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.text(), u"<b>a</b>"_s);
        QCOMPARE(box.icon(), QMessageBox::Critical);
        QCOMPARE(box.windowTitle(), u"caption"_s);
        QCOMPARE(box.standardButtons(), QMessageBox::Ok);
    });
}

void TestDialogPage::messageOfOneLineIsNotWrapped()
{
    whileShown(u"one short line"_s, QMessageBox::Information, [](const QMessageBox& box) {
        const QLabel* const label = labelOf(box);
        QVERIFY(label->width() >= label->fontMetrics().horizontalAdvance(label->text()));
    });
}

void TestDialogPage::longMessageUsesTheScreenWithinLimits()
{
    const QString text = u"word "_s.repeated(60);
    whileShown(text, QMessageBox::Information, [](const QMessageBox& box) {
        const int room = qMin(480, box.screen()->availableGeometry().width());
        QVERIFY(labelOf(box)->minimumWidth() > 0);
        QVERIFY(box.width() <= box.screen()->availableGeometry().width());
        QVERIFY(box.layout()->totalMinimumSize().width() <= room);
        // With eight pixels for the frame, nothing else of the room is left.
        const int textWidth = labelOf(box)->sizeHint().width();
        if (textWidth >= labelOf(box)->minimumWidth())
            QCOMPARE(box.layout()->totalMinimumSize().width(), room - 8);
    });
}

QTEST_MAIN(TestDialogPage)
#include "test_dialogpage.moc"
