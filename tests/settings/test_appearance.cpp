// SPDX-License-Identifier: MIT
#include "settings/aboutdialog.h"
#include "settings/preferencesdialog.h"
#include "settings/wordeditordialog.h"
#include "widgets/dialogpage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

using DialogMaker = std::function<std::unique_ptr<QDialog>()>;

QPalette darkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x35));
    palette.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    return palette;
}

std::unique_ptr<QDialog> makePreferences(int page)
{
    auto dialog = std::make_unique<PreferencesDialog>();
    dialog->setCurrentFont(QApplication::font());
    dialog->findChild<QTabWidget*>(u"TabWidget3"_s)->setCurrentIndex(page);
    return dialog;
}

/// Height that the frame's OK and Cancel take from a dialog at its lower edge.
constexpr int frameHeight = 44;

} // namespace

/// The dialogs on small and large screens, in light and dark colours: nothing clipped, nothing
/// overlapping. With TESKEL_PICTURES set to a directory, a picture of each is saved there.
class AppearanceTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void everythingFits_data();
    void everythingFits();
    void contentsStayTogetherOnALargeScreen();

private:
    QPalette _light = QApplication::palette();
};

void AppearanceTest::cleanup()
{
    QApplication::setPalette(_light);
}

void AppearanceTest::everythingFits_data()
{
    QTest::addColumn<DialogMaker>("make");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("dark");
    const QList<std::pair<const char*, DialogMaker>> dialogs{
        {"preferences", [] { return makePreferences(0); }},
        {"font", [] { return makePreferences(1); }},
        {"about", [] { return std::make_unique<AboutDialog>(); }},
        {"wordeditor", [] { return std::make_unique<WordEditorDialog>(); }},
    };
    for (const auto& [name, make] : dialogs) {
        for (const QSize size : {QSize(240, 320), QSize(640, 480), QSize(1920, 1080)}) {
            for (const bool dark : {false, true}) {
                QTest::addRow("%s-%dx%d-%s", name, size.width(), size.height(),
                              dark ? "dark" : "light")
                    << make << size << dark;
            }
        }
    }
}

void AppearanceTest::everythingFits()
{
    QFETCH(const DialogMaker, make);
    QFETCH(const QSize, size);
    QFETCH(const bool, dark);
    if (dark)
        QApplication::setPalette(darkPalette());
    const std::unique_ptr<QDialog> dialog = make();
    QVERIFY2(dialog->minimumSizeHint().height() + frameHeight <= 320,
             qPrintable(QString::number(dialog->minimumSizeHint().height())));
    dialog->layout()->setContentsMargins(dialog->layout()->contentsMargins() +
                                         QMargins(0, 0, 0, frameHeight));
    dialog->resize(size);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QCOMPARE(dialog->size(), size);

    const QDir pictures(qEnvironmentVariable("TESKEL_PICTURES"));
    if (qEnvironmentVariableIsSet("TESKEL_PICTURES")) {
        const QString file =
            pictures.filePath(QString::fromUtf8(QTest::currentDataTag()) + QLatin1String(".png"));
        QVERIFY(dialog->grab().save(file));
    }

    const auto areas = dialog->findChildren<QScrollArea*>();
    for (const QScrollArea* area : areas) {
        if (area->isVisible())
            QVERIFY(!area->horizontalScrollBar()->isVisible());
    }
    QList<const QWidget*> controls;
    const auto widgets = dialog->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || (qobject_cast<const QLabel*>(widget) == nullptr &&
                                     qobject_cast<const QAbstractButton*>(widget) == nullptr &&
                                     qobject_cast<const QLineEdit*>(widget) == nullptr))
            continue;
        if (widget->objectName().isEmpty())
            continue;
        controls.append(widget);
        const QSize needed = widget->hasHeightForWidth()
                                 ? QSize(0, widget->heightForWidth(widget->width()))
                                 : widget->minimumSizeHint();
        const int width = widget->minimumWidth() > 0 ? widget->minimumWidth() : needed.width();
        QVERIFY2(widget->width() >= width && widget->height() >= needed.height(),
                 qPrintable(widget->objectName()));
    }
    QVERIFY(!controls.isEmpty());
    const auto place = [&dialog](const QWidget* widget) {
        return QRect(widget->mapTo(dialog.get(), QPoint()), widget->size());
    };
    for (const QWidget* control : controls) {
        for (const QWidget* other : controls)
            QVERIFY2(control == other || !place(control).intersects(place(other)),
                     qPrintable(control->objectName() + u' ' + other->objectName()));
    }
}

void AppearanceTest::contentsStayTogetherOnALargeScreen()
{
    const std::unique_ptr<QDialog> dialog = makePreferences(0);
    dialog->resize(1920, 1080);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    const auto* tabs = dialog->findChild<QTabWidget*>(u"TabWidget3"_s);
    QVERIFY(tabs->width() <= teskel::comfortableWidth(dialog.get()));
    QCOMPARE(tabs->geometry().center().x() / 10, dialog->rect().center().x() / 10);
}

QTEST_MAIN(AppearanceTest)
#include "test_appearance.moc"
