// SPDX-License-Identifier: MIT
#include "settings/aboutdialog.h"
#include "settings/preferencesdialog.h"
#include "settings/wordeditordialog.h"
#include "widgets/buttongroupbox.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{

/// A dialog laid out in a size, with the page of a tab widget on top when there is one.
template<typename Dialog>
class LaidOut
{
public:
    explicit LaidOut(QSize size, int page = 0)
    {
        if (auto* const tabs = dialog.template findChild<QTabWidget*>())
            tabs->setCurrentIndex(page);
        dialog.resize(size);
        dialog.show();
        QCoreApplication::processEvents();
    }

    template<typename Widget = QWidget>
    Widget* child(const char* name) const
    {
        return dialog.template findChild<Widget*>(QString::fromUtf8(name));
    }
    /// Where a control stands in the dialog.
    QRect place(const char* name) const
    {
        const QWidget* const widget = child(name);
        return {widget->mapTo(&dialog, QPoint(0, 0)), widget->size()};
    }
    /// Whether the controls stand below each other in this order.
    bool isColumn(std::initializer_list<const char*> names) const
    {
        int bottom = -1;
        for (const char* const name : names) {
            if (place(name).top() <= bottom)
                return false;
            bottom = place(name).bottom();
        }
        return true;
    }

    Dialog dialog;
};

const QSize handheld(240, 320);

} // namespace

/// Where the controls of the dialogs stand, and how they take what room there is.
class DialogLayoutTest : public QObject
{
    Q_OBJECT

private slots:
    void preferencesStandInAColumnWithTightMargins();
    void choicesStandInTheirGroup();
    void commonPageScrollsWithoutAFocusOfItsOwn();
    void fontPageGivesTheListItsRoom();
    void sizesGrowFromSmallToLarge();
    void shownDialogScrollsToTheChosenFamily();

    void aboutStandsInAColumnBelowItsHead();
    void aboutTextsArePlainAndWrapped();
    void addressesCanBeSelected();
    void aboutLinesAreSunken();
    void aboutPictureKeepsItsSize();

    void wordEditorStandsInAColumn();
    void wordEditorGivesTheDescriptionItsRoom();
    void wordEditorGoesByTheKeyboard();
};

void DialogLayoutTest::preferencesStandInAColumnWithTightMargins()
{
    const LaidOut<PreferencesDialog> laidOut(handheld);
    QVERIFY(laidOut.isColumn({"panelCombo", "panelHanded", "panelView", "panelMenu"}));
    const QLayout* const page = laidOut.child("panelCombo")->parentWidget()->layout();
    QCOMPARE(page->contentsMargins(), QMargins(6, 3, 6, 3));
    QCOMPARE(page->spacing(), 3);
    QCOMPARE(laidOut.place("panelHanded").top() - laidOut.place("panelCombo").bottom() - 1, 3);
    for (const char* const name : {"panelCombo", "panelHanded", "panelView", "panelMenu"}) {
        const QLayout* const group = laidOut.child(name)->layout();
        QCOMPARE(group->contentsMargins(), QMargins(6, 3, 6, 3));
        QCOMPARE(group->spacing(), 6);
    }
    // What is left of a high dialog is below them.
    const LaidOut<PreferencesDialog> high({300, 900});
    QCOMPARE(high.place("panelHanded").top() - high.place("panelCombo").bottom() - 1, 3);
    QCOMPARE(high.place("panelCombo").height(), high.child("panelCombo")->sizeHint().height());
}

void DialogLayoutTest::choicesStandInTheirGroup()
{
    const LaidOut<PreferencesDialog> laidOut({600, 600});
    const QRect left = laidOut.place("RadioButton9");
    const QRect right = laidOut.place("RadioButton10");
    QCOMPARE(left.top(), right.top());
    QCOMPARE(right.left() - left.right() - 1, 6);
    QVERIFY(laidOut.place("panelCombo").contains(left));
}

void DialogLayoutTest::commonPageScrollsWithoutAFocusOfItsOwn()
{
    const LaidOut<PreferencesDialog> laidOut(handheld);
    const auto* const area = laidOut.child("tab")->findChild<QScrollArea*>();
    QVERIFY(area != nullptr);
    QCOMPARE(area->focusPolicy(), Qt::NoFocus);
    QCOMPARE(laidOut.child("tab")->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(area->size(), laidOut.child("tab")->size());
}

void DialogLayoutTest::fontPageGivesTheListItsRoom()
{
    const LaidOut<PreferencesDialog> laidOut({240, 290}, 1);
    QVERIFY(laidOut.isColumn({"TextLabel1_2", "listboxFonts", "groupFont"}));
    const QLayout* const page = laidOut.child("tab_2")->layout();
    QCOMPARE(page->contentsMargins(), QMargins(6, 3, 6, 3));
    QCOMPARE(page->spacing(), 3);
    QCOMPARE(laidOut.child("groupFont")->layout()->contentsMargins(), QMargins(6, 3, 6, 3));
    const LaidOut<PreferencesDialog> higher(handheld, 1);
    QCOMPARE(higher.place("listboxFonts").height() - laidOut.place("listboxFonts").height(), 30);
    QCOMPARE(higher.place("groupFont").height(), laidOut.place("groupFont").height());
    QVERIFY(laidOut.child<QListWidget>("listboxFonts")->uniformItemSizes());
    QCOMPARE(laidOut.child<QLabel>("TextLabel1_2")->buddy(), laidOut.child("listboxFonts"));
}

void DialogLayoutTest::sizesGrowFromSmallToLarge()
{
    const LaidOut<PreferencesDialog> laidOut(handheld, 1);
    const int widest = laidOut.dialog.fontMetrics().averageCharWidth() * 6;
    int right = -1;
    for (const char* const name : {"btnSmall", "btnNormal", "btnLarge"}) {
        QVERIFY(laidOut.place(name).left() > right);
        right = laidOut.place(name).right();
        QCOMPARE(laidOut.child(name)->minimumWidth(), widest);
        QCOMPARE(laidOut.child(name)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(laidOut.child(name)->sizePolicy().verticalPolicy(), QSizePolicy::MinimumExpanding);
    }
    const auto isBefore = [&laidOut](const char* first, const char* second) {
        const QWidget* button = laidOut.child(second)->previousInFocusChain();
        while (qobject_cast<const QPushButton*>(button) == nullptr)
            button = button->previousInFocusChain();
        return button == laidOut.child(first);
    };
    QVERIFY(isBefore("btnSmall", "btnNormal"));
    QVERIFY(isBefore("btnNormal", "btnLarge"));
}

void DialogLayoutTest::shownDialogScrollsToTheChosenFamily()
{
    PreferencesDialog dialog;
    auto* const list = dialog.findChild<QListWidget*>(u"listboxFonts"_s);
    list->clear();
    for (int number = 0; number < 200; ++number)
        list->addItem(u"Family %1"_s.arg(number));
    dialog.findChild<QTabWidget*>()->setCurrentIndex(1);
    dialog.resize(handheld);
    dialog.show();
    dialog.hide();
    list->setCurrentRow(100);
    list->scrollToTop();
    dialog.show();
    const QRect row = list->visualItemRect(list->item(100));
    const int middle = list->viewport()->height() / 2;
    QVERIFY(qAbs(row.center().y() - middle) <= row.height());
}

void DialogLayoutTest::aboutStandsInAColumnBelowItsHead()
{
    const LaidOut<AboutDialog> laidOut({400, 600});
    QVERIFY(laidOut.isColumn({"PixmapLabel1", "TextLabel2", "Line1", "TextLabel5", "Line1_2",
                              "TextLabel3", "TextLabel4"}));
    const QRect picture = laidOut.place("PixmapLabel1");
    const QRect title = laidOut.place("TextLabel1");
    QVERIFY(title.left() > picture.right());
    QVERIFY(title.top() <= picture.center().y() && title.bottom() >= picture.center().y());
    // The title has what the picture leaves of the width, and nothing below is stretched.
    QCOMPARE(title.right(), laidOut.place("TextLabel2").right());
    const LaidOut<AboutDialog> high({400, 800});
    QCOMPARE(high.place("TextLabel4").bottom(), laidOut.place("TextLabel4").bottom());
}

void DialogLayoutTest::aboutTextsArePlainAndWrapped()
{
    const AboutDialog dialog;
    for (const char* const name :
         {"TextLabel1", "TextLabel2", "TextLabel3", "TextLabel4", "TextLabel5"}) {
        const auto* const label = dialog.findChild<QLabel*>(QString::fromUtf8(name));
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(label->wordWrap());
    }
    QCOMPARE(dialog.findChild<QLabel*>(u"PixmapLabel1"_s)->accessibleName(),
             u"Picture of a dictionary"_s);
}

void DialogLayoutTest::addressesCanBeSelected()
{
    const AboutDialog dialog;
    for (const char* const name : {"TextLabel3", "TextLabel4"}) {
        QCOMPARE(
            dialog.findChild<QLabel*>(QString::fromUtf8(name))->textInteractionFlags(),
            Qt::TextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard));
    }
    const QWidget* next = dialog.findChild<QLabel*>(u"TextLabel3"_s)->nextInFocusChain();
    while (next->focusPolicy() == Qt::NoFocus)
        next = next->nextInFocusChain();
    QCOMPARE(next->objectName(), u"TextLabel4"_s);
}

void DialogLayoutTest::aboutLinesAreSunken()
{
    const AboutDialog dialog;
    for (const char* const name : {"Line1", "Line1_2"}) {
        const auto* const line = dialog.findChild<QFrame*>(QString::fromUtf8(name));
        QCOMPARE(line->frameShape(), QFrame::HLine);
        QCOMPARE(line->frameShadow(), QFrame::Sunken);
    }
}

void DialogLayoutTest::aboutPictureKeepsItsSize()
{
    const LaidOut<AboutDialog> laidOut({600, 600});
    QCOMPARE(laidOut.place("PixmapLabel1").size(), QSize(29, 30));
}

void DialogLayoutTest::wordEditorStandsInAColumn()
{
    const LaidOut<WordEditorDialog> laidOut(handheld);
    QVERIFY(
        laidOut.isColumn({"TextLabel1", "editWord", "TextLabel2", "editDescription", "btnDelete"}));
    QVERIFY(laidOut.place("btnClear").left() > laidOut.place("editWord").right());
    QVERIFY(laidOut.place("btnClear").top() <= laidOut.place("editWord").bottom());
    QCOMPARE(laidOut.place("btnDelete").left(), laidOut.place("editDescription").left());
    QVERIFY(laidOut.place("btnDelete").width() < laidOut.place("editDescription").width());
    QCOMPARE(laidOut.child("editWord")->parentWidget()->layout()->contentsMargins(), QMargins());
}

void DialogLayoutTest::wordEditorGivesTheDescriptionItsRoom()
{
    const LaidOut<WordEditorDialog> laidOut(handheld);
    const LaidOut<WordEditorDialog> larger({handheld.width() + 50, handheld.height() + 50});
    QCOMPARE(larger.place("editDescription").height() - laidOut.place("editDescription").height(),
             50);
    QVERIFY(larger.place("editWord").width() > laidOut.place("editWord").width());
    QCOMPARE(larger.place("btnClear").width(), laidOut.place("btnClear").width());
}

void DialogLayoutTest::wordEditorGoesByTheKeyboard()
{
    const WordEditorDialog dialog;
    const auto label = [&dialog](const char* name) {
        return dialog.findChild<QLabel*>(QString::fromUtf8(name));
    };
    const auto* const word = dialog.findChild<QLineEdit*>(u"editWord"_s);
    const auto* const description = dialog.findChild<QPlainTextEdit*>(u"editDescription"_s);
    QCOMPARE(label("TextLabel1")->buddy(), word);
    QCOMPARE(label("TextLabel2")->buddy(), description);
    QCOMPARE(word->accessibleName(), u"Word"_s);
    QCOMPARE(description->accessibleName(), u"Description"_s);
    QVERIFY(description->tabChangesFocus());
    const auto* const clear = dialog.findChild<QToolButton*>(u"btnClear"_s);
    QCOMPARE(clear->focusPolicy(), Qt::TabFocus);
    QCOMPARE(clear->accessibleName(), u"Clear current word"_s);
    QVERIFY(!dialog.findChild<QPushButton*>(u"btnDelete"_s)->autoDefault());
}

QTEST_MAIN(DialogLayoutTest)
#include "test_dialoglayout.moc"
