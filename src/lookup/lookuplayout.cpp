// SPDX-License-Identifier: MIT
#include "lookup/lookuplayout.h"

#include <QWidget>

namespace teskel
{

namespace
{

// The stretch lives in the size policy, so that it is the panel's own and the layout stays neutral.
void shareRoom(QWidget* panel, bool stacked, int minimum)
{
    QSizePolicy policy = panel->sizePolicy();
    if (stacked) {
        panel->setMinimumHeight(minimum);
        policy.setVerticalStretch(minimum);
    } else {
        panel->setMinimumWidth(minimum);
        policy.setHorizontalStretch(minimum);
    }
    panel->setSizePolicy(policy);
}

} // namespace

LookupLayout::LookupLayout(QWidget* owner)
    : _main(new QBoxLayout(QBoxLayout::TopToBottom, owner))
    , _entryRow(new QBoxLayout(QBoxLayout::LeftToRight))
    , _panels(new QBoxLayout(QBoxLayout::TopToBottom))
{
    _main->setContentsMargins(0, 0, 0, 0);
    _main->setSpacing(0);
    _main->addLayout(_entryRow);
    _main->addLayout(_panels);
}

void LookupLayout::addWidgets(QWidget* entry, QWidget* article, QWidget* list)
{
    _entryRow->addWidget(entry);
    _panels->addWidget(article);
    _panels->addWidget(list);
    _article = article;
    _list = list;
}

void LookupLayout::arrangePanels(const PanelArrangement& arrangement)
{
    _panels->setDirection(arrangement.direction);
    shareRoom(_article, arrangement.isStacked(), arrangement.articleMinimum);
    shareRoom(_list, arrangement.isStacked(), arrangement.listMinimum);
}

void LookupLayout::placeEntry(bool belowPanels)
{
    _main->removeItem(_entryRow);
    _main->removeItem(_panels);
    _main->addLayout(belowPanels ? _panels : _entryRow);
    _main->addLayout(belowPanels ? _entryRow : _panels);
}

bool LookupLayout::isEntryBelowPanels() const
{
    return _main->indexOf(_entryRow) > _main->indexOf(_panels);
}

} // namespace teskel
