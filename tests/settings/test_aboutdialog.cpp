// SPDX-License-Identifier: MIT
#include "settings/aboutdialog.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

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
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void AboutDialogTest::dialogHasItsNameAndCaption()
{
    const AboutDialog dialog;
    QCOMPARE(dialog.metaObject()->className(), "AboutDialog");
    QCOMPARE(dialog.metaObject()->superClass()->className(), "AboutBaseDialog");
    QCOMPARE(dialog.objectName(), u"AboutBaseDialog"_s);
    QCOMPARE(dialog.windowTitle(), u"About"_s);
    QWidget parent;
    const AboutDialog named(&parent, "About", true);
    QCOMPARE(named.objectName(), u"About"_s);
    QVERIFY(named.isModal());
}

void AboutDialogTest::controlsStandInCreationOrder()
{
    const AboutDialog dialog;
    QStringList names;
    const auto frames = dialog.findChildren<QFrame*>();
    for (const QFrame* frame : frames) {
        const QString name = frame->objectName();
        if (!name.isEmpty() && !name.startsWith(u"qt_"_s))
            names.append(name);
    }
    QCOMPARE(names, (QStringList{u"PixmapLabel1"_s, u"TextLabel3"_s, u"TextLabel2"_s, u"Line1"_s,
                                 u"TextLabel5"_s, u"Line1_2"_s, u"TextLabel4"_s, u"TextLabel1"_s}));
}

void AboutDialogTest::textsNameProductCopyrightAndAddresses()
{
    const AboutDialog dialog;
    const auto text = [&dialog](const QString& name) {
        return dialog.findChild<QLabel*>(name)->text();
    };
    QCOMPARE(text(u"TextLabel1"_s), u"Teskel %1"_s.arg(QStringLiteral(TESKEL_VERSION)));
    QCOMPARE(text(u"TextLabel5"_s), u"Copyright (C) 2026 the Teskel authors"_s);
    QCOMPARE(text(u"TextLabel3"_s), QStringLiteral(TESKEL_WEB_ADDRESS));
    QCOMPARE(text(u"TextLabel4"_s), QStringLiteral(TESKEL_SUPPORT_ADDRESS));
    QVERIFY(text(u"TextLabel2"_s).contains(u"dictionaries"_s));
    QVERIFY(text(u"TextLabel2"_s).contains(u"Linux"_s));
}

void AboutDialogTest::pictureIs29By30AndColoured()
{
    const AboutDialog dialog;
    const auto* label = dialog.findChild<QLabel*>(u"PixmapLabel1"_s);
    QVERIFY(label->hasScaledContents());
    const QImage picture = label->pixmap(Qt::ReturnByValue).toImage();
    QCOMPARE(picture.size(), QSize(29, 30));
    QVERIFY(!picture.allGray());
    QVERIFY(picture.hasAlphaChannel());
}

void AboutDialogTest::nameIsBoldAlsoAfterTheApplicationFontChanges()
{
    const AboutDialog dialog;
    auto* name = dialog.findChild<QLabel*>(u"TextLabel1"_s);
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
