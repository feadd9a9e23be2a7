// SPDX-License-Identifier: MIT
#include "settings/dialogpage.h"

#include <QScrollArea>

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

} // namespace teskel
