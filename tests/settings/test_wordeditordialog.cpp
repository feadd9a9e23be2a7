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
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

void WordEditorDialogTest::dialogHasItsNameAndCaption()
{
    const WordEditorBaseDialog base;
    QCOMPARE(base.metaObject()->className(), "WordEditorBaseDialog");
    QCOMPARE(base.objectName(), QStringLiteral("WordEditorBaseDialog"));
    QCOMPARE(base.windowTitle(), QStringLiteral("Word Editor"));
    const WordEditorDialog dialog(nullptr, "Editor", true);
    QCOMPARE(dialog.metaObject()->className(), "WordEditorDialog");
    QCOMPARE(dialog.objectName(), QStringLiteral("Editor"));
    QVERIFY(dialog.isModal());
}

void WordEditorDialogTest::controlsStandInCreationOrder()
{
    const WordEditorDialog dialog;
    QStringList names;
    const QStringList wanted{QStringLiteral("TextLabel1"),      QStringLiteral("TextLabel2"),
                             QStringLiteral("editWord"),        QStringLiteral("btnClear"),
                             QStringLiteral("editDescription"), QStringLiteral("btnDelete")};
    const auto widgets = dialog.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (wanted.contains(widget->objectName()))
            names.append(widget->objectName());
    }
    QCOMPARE(names, wanted);
    QCOMPARE(child<QLabel>(dialog, "TextLabel1")->text(), QStringLiteral("Word"));
    QCOMPARE(child<QLabel>(dialog, "TextLabel2")->text(), QStringLiteral("Description"));
    QCOMPARE(child<QToolButton>(dialog, "btnClear")->text(), QStringLiteral("..."));
    QCOMPARE(child<QToolButton>(dialog, "btnClear")->toolTip(),
             QStringLiteral("Clear current word"));
    QCOMPARE(child<QPushButton>(dialog, "btnDelete")->text(), QStringLiteral("&Delete"));
    QCOMPARE(child<QPushButton>(dialog, "btnDelete")->shortcut(),
             QKeySequence(Qt::ALT | Qt::Key_D));
}

void WordEditorDialogTest::clearWordLeavesTheDescription()
{
    WordEditorDialog dialog;
    child<QLineEdit>(dialog, "editWord")->setText(QStringLiteral("house"));
    child<QPlainTextEdit>(dialog, "editDescription")->setPlainText(QStringLiteral("Haus"));
    dialog.clearWord();
    QVERIFY(child<QLineEdit>(dialog, "editWord")->text().isEmpty());
    QCOMPARE(child<QPlainTextEdit>(dialog, "editDescription")->toPlainText(),
             QStringLiteral("Haus"));
}

void WordEditorDialogTest::clearButtonClearsTheWord()
{
    WordEditorDialog dialog;
    child<QLineEdit>(dialog, "editWord")->setText(QStringLiteral("house"));
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
    QCOMPARE(picture(icon), picture(Resource::loadIcon(QStringLiteral("teskel-clear"))));
}

void WordEditorDialogTest::deleteDoesNothing()
{
    WordEditorDialog dialog;
    dialog.show();
    child<QLineEdit>(dialog, "editWord")->setText(QStringLiteral("house"));
    child<QPlainTextEdit>(dialog, "editDescription")->setPlainText(QStringLiteral("Haus"));
    child<QPushButton>(dialog, "btnDelete")->click();
    QVERIFY(dialog.isVisible());
    QCOMPARE(child<QLineEdit>(dialog, "editWord")->text(), QStringLiteral("house"));
    QCOMPARE(child<QPlainTextEdit>(dialog, "editDescription")->toPlainText(),
             QStringLiteral("Haus"));
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
