// SPDX-License-Identifier: MIT
#include "widgets/dialogpage.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace teskel
{

QScrollArea* scrollWhereNeeded(QWidget* content, QWidget* parent)
{
    auto* area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(content);
    content->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

int comfortableWidth(const QWidget* widget)
{
    constexpr int characters = 64;
    return widget->fontMetrics().averageCharWidth() * characters;
}

void fillDialog(QDialog* dialog, QWidget* content)
{
    const int side = comfortableWidth(dialog);
    content->setMaximumSize(side, side);
    // The content takes what it can get; only what exceeds its maximum goes to the empty space.
    constexpr int all = 1000;
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(content, all);
    row->addStretch(1);
    auto* column = new QVBoxLayout(dialog);
    constexpr int margin = 4;
    column->setContentsMargins(margin, margin, margin, margin);
    column->addLayout(row, all);
    column->addStretch(1);
}

} // namespace teskel
