// SPDX-License-Identifier: MIT
#include "bench/support/barewindow.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace teskel::bench
{

namespace
{
constexpr int rowCount = 20;
} // namespace

BareWindow::BareWindow()
    : _entry(new QLineEdit)
    , _list(new QListWidget)
    , _text(new QTextEdit)
{
    _text->setReadOnly(true);
    for (int row = 0; row < rowCount; ++row)
        _list->addItem(u"word %1"_s.arg(row));
    auto* const central = new QWidget(this);
    auto* const panels = new QHBoxLayout;
    panels->addWidget(_list, 1);
    panels->addWidget(_text, 1);
    auto* const layout = new QVBoxLayout(central);
    layout->addWidget(_entry);
    layout->addLayout(panels);
    setCentralWidget(central);
    setFocusProxy(_entry);
    _entry->setFocus();
    connect(_entry, &QLineEdit::textChanged, this, [this] {
        if (onTyped)
            onTyped();
    });
}

void BareWindow::setView(const View& view)
{
    for (int row = 0; row < rowCount; ++row)
        _list->item(row)->setText(view.rows.value(row));
    _list->setCurrentRow(view.currentRow);
    _text->setHtml(view.html);
}

} // namespace teskel::bench
