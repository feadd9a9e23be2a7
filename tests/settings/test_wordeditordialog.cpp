// SPDX-License-Identifier: MIT
#include "platform/resource.h"
#include "settings/wordeditordialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{

template<typename Widget>
Widget* child(const QWidget& dialog, const char* name)
{
    return dialog.findChild<Widget*>(QString::fromUtf8(name));
}

} // namespace

/// The word editor, which no command opens yet.
class WordEditorDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void dialogHasItsNameAndCaption();
    void controlsStandInCreationOrder();
    void clearWordLeavesTheDescription();
    void clearButtonClearsTheWord();
    void clearButtonShowsItsPicture();
    void deleteDoesNothing();
    void returnInTheWordFieldPressesNothing();
};

void WordEditorDialogTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void WordEditorDialogTest::dialogHasItsNameAndCaption()
{
    const WordEditorBaseDialog base;
    QCOMPARE(base.metaObject()->className(), "WordEditorBaseDialog");
    QCOMPARE(base.objectName(), u"WordEditorBaseDialog"_s);
    QCOMPARE(base.windowTitle(), u"Word Editor"_s);
    const WordEditorDialog dialog(nullptr, "Editor", true);
    QCOMPARE(dialog.metaObject()->className(), "WordEditorDialog");
    QCOMPARE(dialog.objectName(), u"Editor"_s);
    QVERIFY(dialog.isModal());
}

void WordEditorDialogTest::controlsStandInCreationOrder()
{
    const WordEditorDialog dialog;
    QStringList names;
    const QStringList wanted{u"TextLabel1"_s, u"TextLabel2"_s,      u"editWord"_s,
                             u"btnClear"_s,   u"editDescription"_s, u"btnDelete"_s};
    const auto widgets = dialog.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (wanted.contains(widget->objectName()))
            names.append(widget->objectName());
    }
    QCOMPARE(names, wanted);
    QCOMPARE(child<QLabel>(dialog, "TextLabel1")->text(), u"Word"_s);
    QCOMPARE(child<QLabel>(dialog, "TextLabel2")->text(), u"Description"_s);
    QCOMPARE(child<QToolButton>(dialog, "btnClear")->text(), u"..."_s);
    QCOMPARE(child<QToolButton>(dialog, "btnClear")->toolTip(), u"Clear current word"_s);
    QCOMPARE(child<QPushButton>(dialog, "btnDelete")->text(), u"&Delete"_s);
    QCOMPARE(child<QPushButton>(dialog, "btnDelete")->shortcut(),
             QKeySequence(Qt::ALT | Qt::Key_D));
}

void WordEditorDialogTest::clearWordLeavesTheDescription()
{
    WordEditorDialog dialog;
    child<QLineEdit>(dialog, "editWord")->setText(u"house"_s);
    child<QPlainTextEdit>(dialog, "editDescription")->setPlainText(u"Haus"_s);
    dialog.clearWord();
    QVERIFY(child<QLineEdit>(dialog, "editWord")->text().isEmpty());
    QCOMPARE(child<QPlainTextEdit>(dialog, "editDescription")->toPlainText(), u"Haus"_s);
}

void WordEditorDialogTest::clearButtonClearsTheWord()
{
    WordEditorDialog dialog;
    child<QLineEdit>(dialog, "editWord")->setText(u"house"_s);
    child<QToolButton>(dialog, "btnClear")->click();
    QVERIFY(child<QLineEdit>(dialog, "editWord")->text().isEmpty());
}

void WordEditorDialogTest::clearButtonShowsItsPicture()
{
    const WordEditorDialog dialog;
    const auto picture = [](const QIcon& icon) {
        // As it is painted; straight colours differ between processors.
        return icon.pixmap(QSize(24, 24), 1.0)
            .toImage()
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    const QIcon icon = child<QToolButton>(dialog, "btnClear")->icon();
    QVERIFY(!icon.isNull());
    QCOMPARE(picture(icon), picture(Resource::loadIcon(u"teskel-clear"_s)));
}

void WordEditorDialogTest::deleteDoesNothing()
{
    WordEditorDialog dialog;
    dialog.show();
    child<QLineEdit>(dialog, "editWord")->setText(u"house"_s);
    child<QPlainTextEdit>(dialog, "editDescription")->setPlainText(u"Haus"_s);
    child<QPushButton>(dialog, "btnDelete")->click();
    QVERIFY(dialog.isVisible());
    QCOMPARE(child<QLineEdit>(dialog, "editWord")->text(), u"house"_s);
    QCOMPARE(child<QPlainTextEdit>(dialog, "editDescription")->toPlainText(), u"Haus"_s);
}

void WordEditorDialogTest::returnInTheWordFieldPressesNothing()
{
    WordEditorDialog dialog;
    dialog.show();
    auto* deleteButton = child<QPushButton>(dialog, "btnDelete");
    QVERIFY(!deleteButton->isDefault());
    const QSignalSpy pressed(deleteButton, &QPushButton::clicked);
    const QSignalSpy cleared(child<QToolButton>(dialog, "btnClear"), &QToolButton::clicked);
    QTest::keyClick(child<QLineEdit>(dialog, "editWord"), Qt::Key_Return);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(cleared.count(), 0);
}

QTEST_MAIN(WordEditorDialogTest)
#include "test_wordeditordialog.moc"
