// SPDX-License-Identifier: MIT
#include "platform/fontdatabase.h"
#include "settings/preferencesdialog.h"
#include "widgets/buttongroupbox.h"

#include <QAccessible>
#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMetaMethod>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

template<typename Widget>
Widget* child(const QWidget& dialog, const char* name)
{
    return dialog.findChild<Widget*>(QString::fromUtf8(name));
}

/// A font that the system resolves to a family of its own list.
QFont knownFont(int size)
{
    return {QFontInfo(QApplication::font()).family(), size};
}

/// The dialog at its page of fonts, with these families for those of the machine.
struct FontPage {
    FontPage(const QStringList& families, const QFont& font)
    {
        list->clear();
        list->addItems(families);
        // Room for more rows than there are, whatever their height.
        list->setMinimumHeight(static_cast<int>(families.size() + 2) * list->sizeHintForRow(0));
        dialog.setCurrentFont(font);
        child<QTabWidget>(dialog, "TabWidget3")->setCurrentIndex(1);
        dialog.resize(240, 320);
        dialog.show();
        dialog.activateWindow();
    }
    PreferencesDialog dialog;
    QListWidget* list = child<QListWidget>(dialog, "listboxFonts");
};

/// A point that no row covers.
QPoint below(const QListWidget* list)
{
    const QRect last = list->visualItemRect(list->item(list->count() - 1));
    return {last.center().x(), last.bottom() + last.height() / 2};
}

} // namespace

/// The Preferences dialog without a window manager or a main window around it.
class PreferencesDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void baseDialogHasItsNameCaptionAndPages();
    void modalFlagAndFlagsReachTheDialog();
    void groupsHaveTheirTitlesAndButtons_data();
    void groupsHaveTheirTitlesAndButtons();
    void menuPositionGoesByNumberNotByObjectName();
    void numberWithoutAButtonSelectsNothing();
    void groupButtonsExcludeOneAnother();
    void sizeButtonsStandInCreationOrder();
    void sizeButtonsCanBeToldApart();
    void sizeButtonsKeepTheirLookWhenTheApplicationFontChanges();
    void noButtonIsDefault();
    void noControlIsConnectedByTheBaseDialog();
    void listHoldsTheFamiliesInTheOrderOfTheDatabase();
    void currentFamilyIsSelected();
    void familyOutsideTheListLeavesNoSelectionAndIsKept();
    void unknownFamilyClearsAnEarlierSelection();
    void familyIsTheOneThatTheSystemUses();
    void sizeIsTheOneThatTheSystemUses();
    void familyInAnotherCaseIsAnotherFamily();
    void focusDoesNotChooseAFamily();
    void chosenFamilyStaysChosen_data();
    void chosenFamilyStaysChosen();
    void clickBelowTheListChoosesNothing();
    void chosenFamilyIsReturned();
    void sizesMapToButtonsAndBack_data();
    void sizesMapToButtonsAndBack();
    void buttonChosenByTheUserDecidesTheSize();
    void noButtonDownKeepsTheSize();
    void weightAndSlantAreKept();
    void returnInTheFontListChangesNothing();
    void everyControlIsNamedForAssistiveTools();
    void tabStopsAtControlsOnly();
};

void PreferencesDialogTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void PreferencesDialogTest::baseDialogHasItsNameCaptionAndPages()
{
    const PreferencesBaseDialog dialog;
    QCOMPARE(dialog.metaObject()->className(), "PreferencesBaseDialog");
    QCOMPARE(dialog.objectName(), u"PreferencesBase"_s);
    QCOMPARE(dialog.windowTitle(), u"Preferences"_s);
    const auto* tabs = child<QTabWidget>(dialog, "TabWidget3");
    QVERIFY(tabs != nullptr);
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), u"Common"_s);
    QCOMPARE(tabs->widget(0)->objectName(), u"tab"_s);
    QCOMPARE(tabs->tabText(1), u"Font"_s);
    QCOMPARE(tabs->widget(1)->objectName(), u"tab_2"_s);
    QCOMPARE(child<QLabel>(dialog, "TextLabel1_2")->text(), u"Font Name"_s);
    QVERIFY(tabs->widget(1)->isAncestorOf(child<QListWidget>(dialog, "listboxFonts")));
    QCOMPARE(child<QGroupBox>(dialog, "groupFont")->title(), u"Font Size"_s);
}

void PreferencesDialogTest::modalFlagAndFlagsReachTheDialog()
{
    QWidget parent;
    const PreferencesDialog dialog(&parent, "Einstellungen", true, Qt::WindowStaysOnTopHint);
    QCOMPARE(dialog.metaObject()->className(), "PreferencesDialog");
    QCOMPARE(dialog.objectName(), u"Einstellungen"_s);
    QCOMPARE(dialog.parentWidget(), &parent);
    QVERIFY(dialog.isModal());
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(!PreferencesDialog().isModal());
}

void PreferencesDialogTest::groupsHaveTheirTitlesAndButtons_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("word field") << u"panelCombo"_s << u"Word Field Position"_s
                                << QStringList{u"RadioButton9"_s, u"RadioButton10"_s}
                                << QStringList{u"Top"_s, u"Bottom"_s};
    QTest::newRow("hand") << u"panelHanded"_s << u"Accessibillity"_s
                          << QStringList{u"rbLeftHanded"_s, u"rbRightHanded"_s}
                          << QStringList{u"Left handed user"_s, u"Right handed user"_s};
    QTest::newRow("view") << u"panelView"_s << u"Panel View"_s
                          << QStringList{u"rbHorizontal"_s, u"rbVertical"_s}
                          << QStringList{u"Horizontal"_s, u"Vertical"_s};
    QTest::newRow("menu") << u"panelMenu"_s << u"Menu Position"_s
                          << QStringList{u"rbMenuBottom"_s, u"rbMenuTop"_s}
                          << QStringList{u"Top"_s, u"Bottom"_s};
}

void PreferencesDialogTest::groupsHaveTheirTitlesAndButtons()
{
    QFETCH(const QString, group);
    QFETCH(const QString, title);
    QFETCH(const QStringList, names);
    QFETCH(const QStringList, captions);
    const PreferencesBaseDialog dialog;
    const auto* box = dialog.findChild<teskel::ButtonGroupBox*>(group);
    QVERIFY(box != nullptr);
    QCOMPARE(box->title(), title);
    const auto buttons = box->findChildren<QRadioButton*>();
    QCOMPARE(buttons.size(), 2);
    QVERIFY(box->button(2) == nullptr);
    QCOMPARE(box->selectedId(), -1);
    for (int id = 0; id < 2; ++id) {
        QCOMPARE(buttons.at(id)->objectName(), names.at(id));
        QCOMPARE(buttons.at(id)->text(), captions.at(id));
        QCOMPARE(box->id(buttons.at(id)), id);
        QVERIFY(box->button(id) == buttons.at(id));
        QVERIFY(child<QTabWidget>(dialog, "TabWidget3")->widget(0)->isAncestorOf(buttons.at(id)));
    }
}

void PreferencesDialogTest::menuPositionGoesByNumberNotByObjectName()
{
    const PreferencesDialog dialog;
    auto* top = child<QRadioButton>(dialog, "rbMenuBottom");
    auto* bottom = child<QRadioButton>(dialog, "rbMenuTop");
    QCOMPARE(top->text(), u"Top"_s);
    QCOMPARE(dialog.panelMenu()->id(top), 0);
    QCOMPARE(bottom->text(), u"Bottom"_s);
    QCOMPARE(dialog.panelMenu()->id(bottom), 1);
    dialog.panelMenu()->setButton(1);
    QVERIFY(bottom->isChecked());
    QCOMPARE(dialog.panelMenu()->selectedId(), 1);
}

void PreferencesDialogTest::numberWithoutAButtonSelectsNothing()
{
    const PreferencesDialog dialog;
    dialog.panelView()->setButton(7);
    QCOMPARE(dialog.panelView()->selectedId(), -1);
    dialog.panelView()->setButton(1);
    dialog.panelView()->setButton(-1);
    QCOMPARE(dialog.panelView()->selectedId(), 1);
    QCOMPARE(dialog.panelView()->id(nullptr), -1);
}

void PreferencesDialogTest::groupButtonsExcludeOneAnother()
{
    const PreferencesDialog dialog;
    dialog.panelCombo()->setButton(0);
    dialog.panelHanded()->setButton(1);
    QCOMPARE(dialog.panelCombo()->selectedId(), 0);
    child<QRadioButton>(dialog, "RadioButton10")->click();
    QCOMPARE(dialog.panelCombo()->selectedId(), 1);
    QVERIFY(!child<QRadioButton>(dialog, "RadioButton9")->isChecked());
    QCOMPARE(dialog.panelHanded()->selectedId(), 1);
}

void PreferencesDialogTest::sizeButtonsStandInCreationOrder()
{
    const PreferencesBaseDialog dialog;
    const auto* group = child<teskel::ButtonGroupBox>(dialog, "groupFont");
    const QStringList names{u"btnNormal"_s, u"btnSmall"_s, u"btnLarge"_s};
    for (int id = 0; id < names.size(); ++id) {
        QCOMPARE(group->button(id)->objectName(), names.at(id));
        QCOMPARE(group->button(id)->text(), u"A"_s);
        QVERIFY(group->button(id)->isCheckable());
    }
    QVERIFY(group->button(3) == nullptr);
}

void PreferencesDialogTest::sizeButtonsCanBeToldApart()
{
    const PreferencesBaseDialog dialog;
    const QList<std::pair<const char*, QString>> expected{
        {"btnSmall", u"Small"_s}, {"btnNormal", u"Normal"_s}, {"btnLarge", u"Large"_s}};
    for (const auto& [name, meaning] : expected) {
        QCOMPARE(child<QPushButton>(dialog, name)->accessibleName(), meaning);
        QCOMPARE(child<QPushButton>(dialog, name)->toolTip(), meaning);
    }
}

void PreferencesDialogTest::sizeButtonsKeepTheirLookWhenTheApplicationFontChanges()
{
    PreferencesBaseDialog dialog;
    auto* normal = child<QPushButton>(dialog, "btnNormal");
    auto* large = child<QPushButton>(dialog, "btnLarge");
    auto* small = child<QPushButton>(dialog, "btnSmall");
    const auto check = [&] {
        QCOMPARE(normal->font().family(), u"adobe-helvetica"_s);
        QCOMPARE(normal->font().pointSize(), 14);
        QCOMPARE(large->font().family(), u"adobe-helvetica"_s);
        QCOMPARE(large->font().pointSize(), 18);
        QCOMPARE(small->font().pointSize(), dialog.font().pointSize());
    };
    check();

    normal->setFont(QFont());
    large->setFont(QFont());
    const QFont before = QApplication::font();
    QFont other = before;
    other.setPointSize(before.pointSize() + 7);
    QApplication::setFont(other);
    QTRY_COMPARE(small->font().pointSize(), other.pointSize());
    check();
    QApplication::setFont(before);
}

void PreferencesDialogTest::noButtonIsDefault()
{
    PreferencesDialog dialog;
    dialog.show();
    const auto buttons = dialog.findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 3);
    for (const QPushButton* button : buttons) {
        QVERIFY(!button->autoDefault());
        QVERIFY(!button->isDefault());
    }
}

void PreferencesDialogTest::noControlIsConnectedByTheBaseDialog()
{
    PreferencesBaseDialog dialog;
    dialog.show();
    const QSignalSpy finished(&dialog, &QDialog::finished);
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons)
        button->click();
    QVERIFY(dialog.isVisible());
    QCOMPARE(finished.count(), 0);
}

void PreferencesDialogTest::listHoldsTheFamiliesInTheOrderOfTheDatabase()
{
    const PreferencesDialog dialog;
    const auto* list = child<QListWidget>(dialog, "listboxFonts");
    QStringList shown;
    for (int row = 0; row < list->count(); ++row)
        shown.append(list->item(row)->text());
    QVERIFY(!shown.isEmpty());
    QCOMPARE(shown, FontDatabase::families());
}

void PreferencesDialogTest::currentFamilyIsSelected()
{
    PreferencesDialog dialog;
    dialog.setCurrentFont(knownFont(12));
    const auto selected = child<QListWidget>(dialog, "listboxFonts")->selectedItems();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first()->text(), QFontInfo(knownFont(12)).family());
}

void PreferencesDialogTest::familyOutsideTheListLeavesNoSelectionAndIsKept()
{
    PreferencesDialog dialog;
    auto* list = child<QListWidget>(dialog, "listboxFonts");
    const QFont font = knownFont(40);
    qDeleteAll(list->findItems(QFontInfo(font).family(), Qt::MatchFixedString));
    list->addItem(u"Another Family"_s);
    dialog.setCurrentFont(font);
    QVERIFY(list->selectedItems().isEmpty());
    const QFont chosen = dialog.getSelectedFont();
    QCOMPARE(chosen.family(), font.family());
    QCOMPARE(chosen.pointSize(), 14);
}

void PreferencesDialogTest::unknownFamilyClearsAnEarlierSelection()
{
    PreferencesDialog dialog;
    auto* list = child<QListWidget>(dialog, "listboxFonts");
    list->clear();
    list->addItem(u"Another Family"_s);
    list->setCurrentRow(0);
    dialog.setCurrentFont(knownFont(12));
    QVERIFY(list->selectedItems().isEmpty());
    QVERIFY(list->currentItem() == nullptr);
}

void PreferencesDialogTest::familyIsTheOneThatTheSystemUses()
{
    PreferencesDialog dialog;
    auto* list = child<QListWidget>(dialog, "listboxFonts");
    const QFont font(u"A Family That No System Has"_s, 12);
    const QString used = QFontInfo(font).family();
    QVERIFY(used != font.family());
    list->clear();
    list->addItems({font.family(), used});
    dialog.setCurrentFont(font);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(1)});
}

void PreferencesDialogTest::sizeIsTheOneThatTheSystemUses()
{
    PreferencesDialog dialog;
    QFont font = knownFont(12);
    font.setPixelSize(100);
    QVERIFY(font.pointSize() < 0);
    dialog.setCurrentFont(font);
    QVERIFY(child<QPushButton>(dialog, "btnLarge")->isChecked());
}

void PreferencesDialogTest::familyInAnotherCaseIsAnotherFamily()
{
    const QString family = QFontInfo(knownFont(12)).family();
    QVERIFY(family.toUpper() != family.toLower());
    const FontPage page({family == family.toUpper() ? family.toLower() : family.toUpper()},
                        knownFont(12));
    QVERIFY(page.list->selectedItems().isEmpty());
}

void PreferencesDialogTest::focusDoesNotChooseAFamily()
{
    FontPage page({u"Another Family"_s, u"A Third"_s}, knownFont(12));
    page.list->setFocus();
    QTRY_VERIFY(page.list->hasFocus());
    QTRY_VERIFY(page.list->currentItem() != nullptr);
    QCOMPARE(page.dialog.getSelectedFont().family(), knownFont(12).family());
}

void PreferencesDialogTest::chosenFamilyStaysChosen_data()
{
    using Act = std::function<void(QListWidget*)>;
    QTest::addColumn<Act>("act");
    const auto click = [](Qt::MouseButton button, Qt::KeyboardModifiers keys) -> Act {
        return [=](QListWidget* list) {
            QTest::mouseClick(list->viewport(), button, keys,
                              list->visualItemRect(list->currentItem()).center());
        };
    };
    QTest::newRow("click below the last row") << Act([](QListWidget* list) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, below(list));
    });
    QTest::newRow("right click below the last row") << Act([](QListWidget* list) {
        QTest::mouseClick(list->viewport(), Qt::RightButton, {}, below(list));
    });
    QTest::newRow("Ctrl and click below the last row") << Act([](QListWidget* list) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, below(list));
    });
    QTest::newRow("pen drawn below the last row") << Act([](QListWidget* list) {
        QTest::mousePress(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->currentItem()).center());
        QTest::mouseMove(list->viewport(), below(list));
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, below(list));
    });
    QTest::newRow("click") << click(Qt::LeftButton, {});
    QTest::newRow("right click") << click(Qt::RightButton, {});
    QTest::newRow("Ctrl and click") << click(Qt::LeftButton, Qt::ControlModifier);
    QTest::newRow("Shift and click") << click(Qt::LeftButton, Qt::ShiftModifier);
    for (const auto keys : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier),
                            Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
        QTest::addRow("Space with modifiers %d", keys.toInt())
            << Act([keys](QListWidget* list) { QTest::keyClick(list, Qt::Key_Space, keys); });
    }
}

void PreferencesDialogTest::chosenFamilyStaysChosen()
{
    using Act = std::function<void(QListWidget*)>;
    QFETCH(const Act, act);
    FontPage page({u"Another Family"_s, QFontInfo(knownFont(12)).family()}, knownFont(12));
    QListWidget* list = page.list;
    QVERIFY(QTest::qWaitForWindowActive(&page.dialog));
    list->setFocus();
    QCOMPARE(list->selectedItems().size(), 1);
    QVERIFY(list->viewport()->rect().contains(below(list)));
    act(list);
    QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(1)});
    QCOMPARE(page.dialog.getSelectedFont().family(), QFontInfo(knownFont(12)).family());
    // Another family can still be chosen.
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list->visualItemRect(list->item(0)).center());
    QCOMPARE(page.dialog.getSelectedFont().family(), u"Another Family"_s);
}

void PreferencesDialogTest::clickBelowTheListChoosesNothing()
{
    FontPage page({u"Another Family"_s, u"A Third"_s}, knownFont(12));
    QVERIFY(QTest::qWaitForWindowActive(&page.dialog));
    QVERIFY(page.list->viewport()->rect().contains(below(page.list)));
    QTest::mouseClick(page.list->viewport(), Qt::LeftButton, {}, below(page.list));
    QVERIFY(page.list->selectedItems().isEmpty());
    QCOMPARE(page.dialog.getSelectedFont().family(), knownFont(12).family());
}

void PreferencesDialogTest::chosenFamilyIsReturned()
{
    PreferencesDialog dialog;
    dialog.setCurrentFont(knownFont(12));
    auto* list = child<QListWidget>(dialog, "listboxFonts");
    list->addItem(u"Another Family"_s);
    list->setCurrentRow(list->count() - 1);
    QCOMPARE(dialog.getSelectedFont().family(), u"Another Family"_s);
}

void PreferencesDialogTest::sizesMapToButtonsAndBack_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("returned");
    QTest::newRow("6") << 6 << u"btnSmall"_s << 10;
    QTest::newRow("10") << 10 << u"btnSmall"_s << 10;
    QTest::newRow("11") << 11 << u"btnNormal"_s << 12;
    QTest::newRow("12") << 12 << u"btnNormal"_s << 12;
    QTest::newRow("13") << 13 << u"btnNormal"_s << 12;
    QTest::newRow("14") << 14 << u"btnLarge"_s << 14;
    QTest::newRow("18") << 18 << u"btnLarge"_s << 14;
    QTest::newRow("40") << 40 << u"btnLarge"_s << 14;
}

void PreferencesDialogTest::sizesMapToButtonsAndBack()
{
    QFETCH(const int, size);
    QFETCH(const QString, button);
    QFETCH(const int, returned);
    PreferencesDialog dialog;
    dialog.setCurrentFont(knownFont(size));
    const auto buttons = dialog.findChildren<QPushButton*>();
    for (const QPushButton* candidate : buttons)
        QCOMPARE(candidate->isChecked(), candidate->objectName() == button);
    QCOMPARE(dialog.getSelectedFont().pointSize(), returned);
}

void PreferencesDialogTest::buttonChosenByTheUserDecidesTheSize()
{
    PreferencesDialog dialog;
    dialog.setCurrentFont(knownFont(12));
    child<QPushButton>(dialog, "btnLarge")->click();
    QCOMPARE(dialog.getSelectedFont().pointSize(), 14);
    child<QPushButton>(dialog, "btnSmall")->click();
    QCOMPARE(dialog.getSelectedFont().pointSize(), 10);
    child<QPushButton>(dialog, "btnSmall")->click();
    QCOMPARE(dialog.getSelectedFont().pointSize(), 10);
}

void PreferencesDialogTest::noButtonDownKeepsTheSize()
{
    PreferencesDialog dialog;
    const int size = QFont().pointSize();
    QCOMPARE(dialog.getSelectedFont().pointSize(), size);
}

void PreferencesDialogTest::weightAndSlantAreKept()
{
    PreferencesDialog dialog;
    QFont font = knownFont(18);
    font.setWeight(QFont::Bold);
    font.setItalic(true);
    font.setUnderline(true);
    dialog.setCurrentFont(font);
    font.setPointSize(14);
    QCOMPARE(dialog.getSelectedFont(), font);
}

void PreferencesDialogTest::returnInTheFontListChangesNothing()
{
    const FontPage page({u"Another Family"_s}, knownFont(18));
    page.list->setFocus();
    QTRY_VERIFY(page.list->hasFocus());
    QTest::keyClick(page.list, Qt::Key_Return);
    QVERIFY(child<QPushButton>(page.dialog, "btnLarge")->isChecked());
}

void PreferencesDialogTest::everyControlIsNamedForAssistiveTools()
{
    const PreferencesDialog dialog;
    const auto buttons = dialog.findChildren<QAbstractButton*>();
    for (const QAbstractButton* button : buttons) {
        if (!button->objectName().isEmpty() &&
            qobject_cast<const QRadioButton*>(button) == nullptr &&
            qobject_cast<const QPushButton*>(button) == nullptr)
            continue;
        QAccessibleInterface* seen =
            QAccessible::queryAccessibleInterface(const_cast<QAbstractButton*>(button));
        QVERIFY2(!seen->text(QAccessible::Name).isEmpty(), qPrintable(button->objectName()));
    }
    auto* list = child<QListWidget>(dialog, "listboxFonts");
    QCOMPARE(QAccessible::queryAccessibleInterface(list)->text(QAccessible::Name), u"Font Name"_s);
    // Two groups have a "Top": the description says of what.
    QCOMPARE(child<QRadioButton>(dialog, "RadioButton9")->accessibleDescription(),
             u"Word Field Position"_s);
}

void PreferencesDialogTest::tabStopsAtControlsOnly()
{
    PreferencesDialog dialog;
    for (teskel::ButtonGroupBox* group :
         {dialog.panelView(), dialog.panelHanded(), dialog.panelCombo(), dialog.panelMenu()})
        group->setButton(0);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList stops;
    while (stops.size() < 12) {
        QTest::keyClick(&dialog, Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget() != nullptr);
        stops.append(QApplication::focusWidget()->objectName());
        if (stops.size() > 1 && stops.last() == stops.first())
            break;
    }
    stops.removeLast();
    stops.sort();
    QCOMPARE(stops, (QStringList{u"RadioButton9"_s, u"qt_tabwidget_tabbar"_s, u"rbHorizontal"_s,
                                 u"rbLeftHanded"_s, u"rbMenuBottom"_s}));
}

QTEST_MAIN(PreferencesDialogTest)
#include "test_preferencesdialog.moc"
