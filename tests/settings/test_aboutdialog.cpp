// SPDX-License-Identifier: MIT
#include "settings/aboutdialog.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>

/// The About dialog's controls and texts.
class AboutDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void dialogHasItsNameAndCaption();
    void controlsStandInCreationOrder();
    void textsNameProductCopyrightAndAddresses();
    void pictureIs29By30AndColoured();
    void nameIsBoldAlsoAfterTheApplicationFontChanges();
    void escapeEndsTheDialogUnaccepted();
};

void AboutDialogTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
}

void AboutDialogTest::dialogHasItsNameAndCaption()
{
    const AboutDialog dialog;
    QCOMPARE(dialog.metaObject()->className(), "AboutDialog");
    QCOMPARE(dialog.metaObject()->superClass()->className(), "AboutBaseDialog");
    QCOMPARE(dialog.objectName(), QStringLiteral("AboutBaseDialog"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("About"));
    QWidget parent;
    const AboutDialog named(&parent, "About", true);
    QCOMPARE(named.objectName(), QStringLiteral("About"));
    QVERIFY(named.isModal());
}

void AboutDialogTest::controlsStandInCreationOrder()
{
    const AboutDialog dialog;
    QStringList names;
    const auto frames = dialog.findChildren<QFrame*>();
    for (const QFrame* frame : frames) {
        const QString name = frame->objectName();
        if (!name.isEmpty() && !name.startsWith(QStringLiteral("qt_")))
            names.append(name);
    }
    QCOMPARE(names, (QStringList{QStringLiteral("PixmapLabel1"), QStringLiteral("TextLabel3"),
                                 QStringLiteral("TextLabel2"), QStringLiteral("Line1"),
                                 QStringLiteral("TextLabel5"), QStringLiteral("Line1_2"),
                                 QStringLiteral("TextLabel4"), QStringLiteral("TextLabel1")}));
}

void AboutDialogTest::textsNameProductCopyrightAndAddresses()
{
    const AboutDialog dialog;
    const auto text = [&dialog](const QString& name) {
        return dialog.findChild<QLabel*>(name)->text();
    };
    QCOMPARE(text(QStringLiteral("TextLabel1")),
             QStringLiteral("Teskel %1").arg(QStringLiteral(TESKEL_VERSION)));
    QCOMPARE(text(QStringLiteral("TextLabel5")),
             QStringLiteral("Copyright (C) 2026 the Teskel authors"));
    QCOMPARE(text(QStringLiteral("TextLabel3")), QStringLiteral(TESKEL_WEB_ADDRESS));
    QCOMPARE(text(QStringLiteral("TextLabel4")), QStringLiteral(TESKEL_SUPPORT_ADDRESS));
    QVERIFY(text(QStringLiteral("TextLabel2")).contains(QStringLiteral("dictionaries")));
    QVERIFY(text(QStringLiteral("TextLabel2")).contains(QStringLiteral("Linux")));
}

void AboutDialogTest::pictureIs29By30AndColoured()
{
    const AboutDialog dialog;
    const auto* label = dialog.findChild<QLabel*>(QStringLiteral("PixmapLabel1"));
    QVERIFY(label->hasScaledContents());
    const QImage picture = label->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(picture.size(), QSize(29, 30));
    QVERIFY(!picture.allGray());
    QVERIFY(picture.hasAlphaChannel());
}

void AboutDialogTest::nameIsBoldAlsoAfterTheApplicationFontChanges()
{
    const AboutDialog dialog;
    auto* name = dialog.findChild<QLabel*>(QStringLiteral("TextLabel1"));
    QCOMPARE(name->font().weight(), static_cast<int>(QFont::Bold));
    name->setFont(QFont());
    const QFont before = QApplication::font();
    QFont other = before;
    other.setPointSize(before.pointSize() + 7);
    QApplication::setFont(other);
    QTRY_COMPARE(name->font().pointSize(), other.pointSize());
    QCOMPARE(name->font().weight(), static_cast<int>(QFont::Bold));
    QApplication::setFont(before);
}

void AboutDialogTest::escapeEndsTheDialogUnaccepted()
{
    AboutDialog dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
}

QTEST_MAIN(AboutDialogTest)
#include "test_aboutdialog.moc"
