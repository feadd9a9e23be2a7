// SPDX-License-Identifier: MIT
#include "settings/preferencesbasedialog.h"

#include "widgets/buttongroupbox.h"
#include "widgets/choicelist.h"
#include "widgets/dialogpage.h"
#include "widgets/wraplayout.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

// Pixels. Tight enough for all four groups on a screen of 240 by 320.
constexpr QMargins pageMargins(6, 3, 6, 3);
constexpr QMargins groupMargins(6, 3, 6, 3);
constexpr int groupGap = 3;
constexpr int choiceGap = 6;

/// One radio button of a group.
struct Choice {
    QString objectName;
    QString caption;
};

teskel::ButtonGroupBox* createGroup(QWidget* parent, const QString& objectName,
                                    const QString& title, const QList<Choice>& choices)
{
    auto* group = new teskel::ButtonGroupBox(title, objectName, parent);
    auto* row = new teskel::WrapLayout(group);
    row->setContentsMargins(groupMargins);
    row->setSpacing(choiceGap);
    for (const Choice& choice : choices) {
        auto* button = new QRadioButton(choice.caption, group);
        button->setObjectName(choice.objectName);
        button->setAccessibleDescription(title);
        group->addButton(button);
        row->addWidget(button);
    }
    return group;
}

QPushButton* createSizeButton(teskel::ButtonGroupBox* group, const QString& objectName,
                              const QString& caption, const QString& meaning)
{
    auto* button = new QPushButton(caption, group);
    button->setObjectName(objectName);
    button->setCheckable(true);
    // Else the first one would become the default button, and Return would change the size.
    button->setAutoDefault(false);
    button->setAccessibleName(meaning);
    button->setToolTip(meaning);
    group->addButton(button);
    return button;
}

} // namespace

PreferencesBaseDialog::PreferencesBaseDialog(QWidget* parent, const char* name, bool modal,
                                             Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name != nullptr ? QString::fromUtf8(name) : u"PreferencesBase"_s);
    setModal(modal);
    setWindowTitle(tr("Preferences"));

    _tabs = new QTabWidget(this);
    _tabs->setObjectName(u"TabWidget3"_s);
    _tabs->addTab(createCommonPage(), tr("Common"));
    _tabs->addTab(createFontPage(), tr("Font"));
    teskel::fillDialog(this, _tabs);
    applySampleFonts();
}

QWidget* PreferencesBaseDialog::createCommonPage()
{
    auto* page = new QWidget(_tabs);
    page->setObjectName(u"tab"_s);
    auto* content = new QWidget(page);
    _panelCombo = createGroup(content, u"panelCombo"_s, tr("Word Field Position"),
                              {{u"RadioButton9"_s, tr("Top")}, {u"RadioButton10"_s, tr("Bottom")}});
    _panelHanded = createGroup(content, u"panelHanded"_s, tr("Accessibillity"),
                               {{u"rbLeftHanded"_s, tr("Left handed user")},
                                {u"rbRightHanded"_s, tr("Right handed user")}});
    _panelView =
        createGroup(content, u"panelView"_s, tr("Panel View"),
                    {{u"rbHorizontal"_s, tr("Horizontal")}, {u"rbVertical"_s, tr("Vertical")}});
    _panelMenu = createGroup(content, u"panelMenu"_s, tr("Menu Position"),
                             {{u"rbMenuBottom"_s, tr("Top")}, {u"rbMenuTop"_s, tr("Bottom")}});
    auto* groups = new QVBoxLayout(content);
    groups->setContentsMargins(pageMargins);
    groups->setSpacing(groupGap);
    for (QWidget* group : {_panelCombo, _panelHanded, _panelView, _panelMenu})
        groups->addWidget(group);
    groups->addStretch();

    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    QScrollArea* area = teskel::scrollWhereNeeded(content, page);
    // It follows the focus of the buttons on it, and has nothing to do with one of its own.
    area->setFocusPolicy(Qt::NoFocus);
    column->addWidget(area);
    return page;
}

QWidget* PreferencesBaseDialog::createFontPage()
{
    auto* page = new QWidget(_tabs);
    page->setObjectName(u"tab_2"_s);
    auto* label = new QLabel(tr("Font Name"), page);
    label->setObjectName(u"TextLabel1_2"_s);
    _listboxFonts = new teskel::ChoiceList(page);
    _listboxFonts->setObjectName(u"listboxFonts"_s);
    _listboxFonts->setAccessibleName(label->text());
    _listboxFonts->setUniformItemSizes(true);
    label->setBuddy(_listboxFonts);

    _groupFont = new teskel::ButtonGroupBox(tr("Font Size"), u"groupFont"_s, page);
    const QString caption = tr("A");
    _btnNormal = createSizeButton(_groupFont, u"btnNormal"_s, caption, tr("Normal"));
    _btnSmall = createSizeButton(_groupFont, u"btnSmall"_s, caption, tr("Small"));
    _btnLarge = createSizeButton(_groupFont, u"btnLarge"_s, caption, tr("Large"));
    auto* sizes = new QHBoxLayout(_groupFont);
    sizes->setContentsMargins(groupMargins);
    for (QPushButton* button : {_btnSmall, _btnNormal, _btnLarge}) {
        // Wide where there is room; a style's own minimum would be too wide for a small screen.
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
        button->setMinimumWidth(fontMetrics().averageCharWidth() * 6);
        sizes->addWidget(button);
    }
    setTabOrder(_btnSmall, _btnNormal);
    setTabOrder(_btnNormal, _btnLarge);

    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(pageMargins);
    column->setSpacing(groupGap);
    column->addWidget(label);
    column->addWidget(_listboxFonts, 1);
    column->addWidget(_groupFont);
    return page;
}

void PreferencesBaseDialog::applySampleFonts()
{
    const QString family = u"adobe-helvetica"_s;
    _btnNormal->setFont(QFont(family, 14));
    _btnLarge->setFont(QFont(family, 18));
}

bool PreferencesBaseDialog::event(QEvent* event)
{
    const bool handled = QDialog::event(event);
    if (event->type() == QEvent::ApplicationFontChange)
        applySampleFonts();
    return handled;
}
