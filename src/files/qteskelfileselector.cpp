// SPDX-License-Identifier: MIT
#include "files/qteskelfileselector.h"

#include "files/dictionarylistitem.h"
#include "files/qteskelfileselectorview.h"
#include "files/qteskelselectormenu.h"
#include "platform/application/qpeapplication.h"
#include "platform/resource.h"
#include "platform/toolbar/qpemenubar.h"
#include "platform/toolbar/qpemenutoolfocusmanager.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QTeskelFileSelector::QTeskelFileSelector(QWidget* parent, const char* name)
    : QWidget(parent)
{
    setObjectName(QString::fromUtf8(name));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(createTopRow());
    _view = new QTeskelFileSelectorView(this, "fileview");
    QPEApplication::setStylusOperation(_view->viewport(), QPEApplication::RightOnHold);
    column->addWidget(_view);

    connect(
        _view, &QTeskelFileSelectorView::mouseButtonClicked, this,
        qOverload<int, QTreeWidgetItem*, const QPoint&, int>(&QTeskelFileSelector::fileClicked));
    connect(_view, &QTeskelFileSelectorView::mouseButtonPressed, this,
            &QTeskelFileSelector::filePressed);
    connect(_view, &QTeskelFileSelectorView::returnPressed, this,
            qOverload<QTreeWidgetItem*>(&QTeskelFileSelector::fileClicked));
    connect(_menu, &QTeskelSelectorMenu::filterChanged, this, &QTeskelFileSelector::filterChanged);
}

QWidget* QTeskelFileSelector::createTopRow()
{
    auto* row = new QWidget(this);
    auto* rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    rowLayout->setSpacing(0);

    auto* menuHolder = new QWidget(row);
    auto* holderLayout = new QHBoxLayout(menuHolder);
    holderLayout->setContentsMargins(0, 0, 0, 0);
    auto* menuBar = new QPEMenuBar(menuHolder);
    _menu = new QTeskelSelectorMenu(menuBar);
    _menu->setTitle(tr("View"));
    menuBar->addMenu(_menu);
    holderLayout->addWidget(menuBar);
    holderLayout->addStretch();
    rowLayout->addWidget(menuHolder, 1);

    _closeButton = new QToolButton(row);
    _closeButton->setIcon(Resource::loadIcon(u"close"_s));
    _closeButton->setFixedSize(18, 20);
    _closeButton->setAutoRaise(true);
    _closeButton->setToolTip(tr("Close the Dictionary Selector"));
    _closeButton->setAccessibleName(_closeButton->toolTip());
    connect(_closeButton, &QToolButton::clicked, this, &QTeskelFileSelector::closeMe);
    QPEMenuToolFocusManager::manager()->addWidget(menuBar);
    QPEMenuToolFocusManager::manager()->addWidget(_closeButton);
    rowLayout->addWidget(_closeButton);
    return row;
}

QString QTeskelFileSelector::selected() const
{
    const auto* item = dynamic_cast<const DictionaryListItem*>(_view->currentItem());
    return item != nullptr ? item->url() : QString();
}

QTeskelFileSelectorView* QTeskelFileSelector::view() const
{
    return _view;
}

QTeskelSelectorMenu* QTeskelFileSelector::menu() const
{
    return _menu;
}

void QTeskelFileSelector::fileClicked(int button, QTreeWidgetItem* item, const QPoint& /*pos*/,
                                      int /*column*/)
{
    if (item != nullptr && button == Qt::LeftButton)
        fileClicked(item);
}

void QTeskelFileSelector::filePressed(int /*button*/, QTreeWidgetItem* /*item*/,
                                      const QPoint& /*pos*/, int /*column*/)
{
}

void QTeskelFileSelector::fileClicked(QTreeWidgetItem* item)
{
    const auto* file = dynamic_cast<const DictionaryListItem*>(item);
    if (file == nullptr)
        return;
    // The receiver of the path may delete this panel.
    const QPointer<QTeskelFileSelector> alive(this);
    const QString path = file->url();
    emit fileSelected(path);
    if (alive)
        emit closeMe();
}

void QTeskelFileSelector::reread()
{
    _view->reread();
}

void QTeskelFileSelector::filterChanged(MediaFilter filter)
{
    _view->setMediaFilter(filter);
}
