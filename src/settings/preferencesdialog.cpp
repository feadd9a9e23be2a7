// SPDX-License-Identifier: MIT
#include "settings/preferencesdialog.h"

#include "base/assertion.h"
#include "platform/fontdatabase.h"
#include "widgets/buttongroupbox.h"

#include <QFontInfo>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>

PreferencesDialog::PreferencesDialog(QWidget* parent, const char* name, bool modal,
                                     Qt::WindowFlags flags)
    : PreferencesBaseDialog(parent, name, modal, flags)
{
    _listboxFonts->addItems(FontDatabase::families());
}

void PreferencesDialog::setCurrentFont(const QFont& font)
{
    _font = font;
    const QFontInfo used(font);
    selectFamily(used.family());
    selectSize(used.pointSize());
}

void PreferencesDialog::selectFamily(const QString& family)
{
    _listboxFonts->setCurrentItem(nullptr);
    for (int row = 0; row < _listboxFonts->count(); ++row) {
        if (_listboxFonts->item(row)->text() == family) {
            _listboxFonts->setCurrentRow(row);
            return;
        }
    }
}

void PreferencesDialog::selectSize(int pointSize)
{
    QPushButton* button = nullptr;
    if (pointSize <= 10)
        button = _btnSmall;
    else if (pointSize <= 13)
        button = _btnNormal;
    else if (pointSize >= 14)
        button = _btnLarge;
    if (teskel::verify(button != nullptr, "button!=NULL", "Preferences.cpp", 63))
        _groupFont->setButton(_groupFont->id(button));
}

QFont PreferencesDialog::getSelectedFont()
{
    // Not the current item: a list that gains the focus makes its first row current, unasked.
    const QList<QListWidgetItem*> selected = _listboxFonts->selectedItems();
    if (!selected.isEmpty() && !selected.first()->text().isEmpty())
        _font.setFamily(selected.first()->text());

    if (_btnSmall->isChecked())
        _font.setPointSize(10);
    else if (_btnNormal->isChecked())
        _font.setPointSize(12);
    else if (_btnLarge->isChecked())
        _font.setPointSize(14);
    return _font;
}

void PreferencesDialog::showEvent(QShowEvent* event)
{
    PreferencesBaseDialog::showEvent(event);
    if (QListWidgetItem* family = _listboxFonts->currentItem())
        _listboxFonts->scrollToItem(family, QAbstractItemView::PositionAtCenter);
}
