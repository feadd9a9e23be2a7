// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

class DialogFrameTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void keysEndTheDialog_data();
    void keysEndTheDialog();
    void buttonsEndTheDialog_data();
    void buttonsEndTheDialog();
    void closeButtonRejects();
    void buttonsStandAtTheLowerEdge_data();
    void buttonsStandAtTheLowerEdge();
    void contentsKeepClearOfTheButtons_data();
    void contentsKeepClearOfTheButtons();
    void smallScreenHoldsTheDialog();
    void dialogIsMaximisedAndModal();
    void shownDialogStaysAsItIs();
    void focusStartsOnTheFirstControl();
    void secondRunAddsNothing();
    void dialogWithButtonsKeepsThem();
    void returnInATextFieldBreaksTheLine();
};

namespace
{

// Runs `dialog` and lets `act` look at it once its event loop runs.
int run(QDialog& dialog, const std::function<void()>& act)
{
    QTimer::singleShot(0, &dialog, act);
    return QPEApplication::execDialog(&dialog);
}

QDialogButtonBox* boxOf(const QDialog& dialog)
{
    return dialog.findChild<QDialogButtonBox*>();
}

} // namespace

void DialogFrameTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void DialogFrameTest::keysEndTheDialog_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("result");
    QTest::newRow("Return") << Qt::Key_Return << int(QDialog::Accepted);
    QTest::newRow("Enter") << Qt::Key_Enter << int(QDialog::Accepted);
    QTest::newRow("Escape") << Qt::Key_Escape << int(QDialog::Rejected);
}

void DialogFrameTest::keysEndTheDialog()
{
    QFETCH(Qt::Key, key);
    QDialog dialog;
    QVBoxLayout layout(&dialog);
    auto* list = new QListWidget;
    list->addItems({u"one"_s, u"two"_s});
    layout.addWidget(list);
    const int result = run(dialog, [&dialog, key] {
        QWidget* focus = dialog.focusWidget();
        QTest::keyClick(focus == nullptr ? &dialog : focus, key);
    });
    QTEST(result, "result");
}

void DialogFrameTest::buttonsEndTheDialog_data()
{
    QTest::addColumn<QDialogButtonBox::StandardButton>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << QDialogButtonBox::Ok << int(QDialog::Accepted);
    QTest::newRow("Cancel") << QDialogButtonBox::Cancel << int(QDialog::Rejected);
}

void DialogFrameTest::buttonsEndTheDialog()
{
    QFETCH(QDialogButtonBox::StandardButton, button);
    QDialog dialog;
    const int result = run(dialog, [&dialog, button] {
        QPushButton* push = boxOf(dialog)->button(button);
        QVERIFY(push->isVisible());
        QTest::mouseClick(push, Qt::LeftButton);
    });
    QTEST(result, "result");
}

void DialogFrameTest::closeButtonRejects()
{
    QDialog dialog;
    QCOMPARE(run(dialog, [&dialog] { dialog.close(); }), int(QDialog::Rejected));
}

void DialogFrameTest::buttonsStandAtTheLowerEdge_data()
{
    QTest::addColumn<bool>("withLayout");
    QTest::newRow("layout") << true;
    QTest::newRow("fixed places") << false;
}

void DialogFrameTest::buttonsStandAtTheLowerEdge()
{
    QFETCH(bool, withLayout);
    QDialog dialog;
    auto* edit = new QLineEdit(&dialog);
    if (withLayout) {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(edit);
    }
    run(dialog, [&dialog] {
        for (const QSize& size : {QSize(400, 300), QSize(240, 320), QSize(700, 500)}) {
            dialog.showNormal();
            dialog.resize(size);
            const QRect box = boxOf(dialog)->geometry();
            QVERIFY(dialog.rect().contains(box));
            QVERIFY(dialog.height() - box.bottom() <= 12);
            QVERIFY(box.top() > dialog.height() - 60);
        }
        dialog.reject();
    });
}

void DialogFrameTest::contentsKeepClearOfTheButtons_data()
{
    buttonsStandAtTheLowerEdge_data();
}

void DialogFrameTest::contentsKeepClearOfTheButtons()
{
    QFETCH(bool, withLayout);
    QDialog dialog;
    auto* edit = new QPlainTextEdit(&dialog);
    if (withLayout) {
        auto* layout = new QVBoxLayout(&dialog);
        layout->addWidget(edit);
    } else {
        edit->setGeometry(10, 10, 220, 200);
    }
    run(dialog, [&dialog, edit] {
        dialog.showNormal();
        dialog.resize(dialog.minimumSizeHint().expandedTo(dialog.minimumSize()));
        QTRY_VERIFY(!edit->geometry().intersects(boxOf(dialog)->geometry()));
        dialog.resize(500, 400);
        QTRY_VERIFY(!edit->geometry().intersects(boxOf(dialog)->geometry()));
        dialog.reject();
    });
}

void DialogFrameTest::smallScreenHoldsTheDialog()
{
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLineEdit);
    run(dialog, [&dialog] {
        dialog.showNormal();
        dialog.resize(240, 320);
        QCOMPARE(dialog.size(), QSize(240, 320));
        for (const auto button : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
            const QPushButton* push = boxOf(dialog)->button(button);
            const QRect place(push->mapTo(&dialog, QPoint(0, 0)), push->size());
            QVERIFY(dialog.rect().contains(place));
            QVERIFY(push->width() >= push->sizeHint().width());
        }
        dialog.reject();
    });
}

void DialogFrameTest::dialogIsMaximisedAndModal()
{
    QDialog dialog;
    run(dialog, [&dialog] {
        QVERIFY(dialog.isMaximized());
        QVERIFY(dialog.isModal());
        dialog.reject();
    });
}

void DialogFrameTest::shownDialogStaysAsItIs()
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    run(dialog, [&dialog] {
        QVERIFY(!dialog.isMaximized());
        QVERIFY(boxOf(dialog)->isVisible());
        dialog.reject();
    });
}

void DialogFrameTest::focusStartsOnTheFirstControl()
{
    QDialog dialog;
    auto* edit = new QLineEdit(&dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(edit);
    run(dialog, [&dialog, edit] {
        QTRY_COMPARE(dialog.focusWidget(), edit);
        dialog.reject();
    });
}

void DialogFrameTest::secondRunAddsNothing()
{
    QDialog dialog;
    for (int i = 0; i < 2; ++i)
        run(dialog, [&dialog] { dialog.reject(); });
    QCOMPARE(dialog.findChildren<QDialogButtonBox*>().size(), 1);
}

void DialogFrameTest::dialogWithButtonsKeepsThem()
{
    QMessageBox box(QMessageBox::Information, u"Teskel"_s, u"text"_s, QMessageBox::Ok);
    run(box, [&box] {
        QCOMPARE(box.findChildren<QDialogButtonBox*>().size(), 1);
        QCOMPARE(box.buttons().size(), 1);
        box.reject();
    });
}

void DialogFrameTest::returnInATextFieldBreaksTheLine()
{
    QDialog dialog;
    auto* edit = new QPlainTextEdit(&dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(edit);
    run(dialog, [&dialog, edit] {
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->toPlainText(), u"\n"_s);
        dialog.reject();
    });
}

int main(int argc, char** argv)
{
    QPEApplication application(argc, argv);
    DialogFrameTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_dialogframe.moc"
