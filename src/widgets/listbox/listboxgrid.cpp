// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxgrid.h"

#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{
constexpr int hintedRows = 10;
}

ListBoxGrid::ListBoxGrid(QTeskelScrollView& view, const ListBoxModel& model)
    : _view(view)
    , _model(model)
    , _updateTimer(new QTimer(&view))
{
    _updateTimer->setObjectName(u"listbox update timer"_s);
    _updateTimer->setSingleShot(true);
    QObject::connect(_updateTimer, &QTimer::timeout, &view, [this] { updateTimeout(); });
}

void ListBoxGrid::setColumnMode(Mode mode)
{
    _rules.columnMode = mode;
    _rules.rowMode = Mode::Variable;
    triggerUpdate(true);
}

void ListBoxGrid::setColumns(int columns)
{
    _rules.columns = qMax(1, columns);
    setColumnMode(Mode::FixedNumber);
}

void ListBoxGrid::setRowMode(Mode mode)
{
    _rules.rowMode = mode;
    _rules.columnMode = Mode::Variable;
    triggerUpdate(true);
}

void ListBoxGrid::setRows(int rows)
{
    _rules.rows = qMax(1, rows);
    setRowMode(Mode::FixedNumber);
}

void ListBoxGrid::setVariableWidth(bool variable)
{
    _rules.variableWidth = variable;
    triggerUpdate(true);
}

void ListBoxGrid::setVariableHeight(bool variable)
{
    _rules.variableHeight = variable;
    triggerUpdate(true);
}

const ListBoxLayouter& ListBoxGrid::layouter() const
{
    const bool cut = _view.horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff;
    if (!_layoutNeeded && _rules.cutToViewport == cut)
        return _layouter;
    _rules.cutToViewport = cut;
    // What is fitted must not hang on a bar that comes and goes with it: it is fitted to the room
    // without the bar or, when that is too small, to the room beside it.
    const QSize visible = _view.viewport()->size();
    const QSize most = _view.maximumViewportSize();
    if (_rules.rowMode == Mode::FitToHeight && _view.hScrollBarMode() == QTeskelScrollView::Auto) {
        layOutIn({visible.width(), most.height()});
        if (_layouter.size().width() > most.width()) {
            const int bar = _view.horizontalScrollBar()->sizeHint().height();
            layOutIn({visible.width(), most.height() - bar});
        }
    } else if (_rules.columnMode == Mode::FitToWidth &&
               _view.vScrollBarMode() == QTeskelScrollView::Auto) {
        layOutIn({most.width(), visible.height()});
        if (_layouter.size().height() > most.height()) {
            const int bar = _view.verticalScrollBar()->sizeHint().width();
            layOutIn({most.width() - bar, visible.height()});
        }
    } else {
        layOutIn(visible);
    }
    _layoutNeeded = false;
    _sizeNeeded = true;
    return _layouter;
}

void ListBoxGrid::layOutIn(QSize room) const
{
    const QTeskelListBox* const list = _model.owner();
    _layouter.layOut(
        _rules, _model.count(), room,
        [this, list](int index) { return _model.item(index)->width(list); },
        [this, list](int index) { return _model.item(index)->height(list); });
}

QTeskelListBoxItem* ListBoxGrid::itemAt(QPoint position) const
{
    return _model.item(layouter().indexAt(_view.viewportToContents(position)));
}

QRect ListBoxGrid::rectOf(const QTeskelListBoxItem* item) const
{
    const QRect cell = layouter().cell(_model.index(item));
    return cell.isValid() ? cell.translated(_view.contentsToViewport({0, 0})) : cell;
}

bool ListBoxGrid::isInView(const QTeskelListBoxItem* item) const
{
    return rectOf(item).intersects(_view.viewport()->rect());
}

int ListBoxGrid::itemsInView() const
{
    return layouter().itemsIn({{_view.contentsX(), _view.contentsY()}, _view.viewport()->size()});
}

int ListBoxGrid::topIndex() const
{
    const ListBoxLayouter& grid = layouter();
    const int first = grid.indexOf(grid.rowAt(_view.contentsY()), grid.columnAt(_view.contentsX()));
    return qMin(grid.count() - 1, first);
}

int ListBoxGrid::widestItem() const
{
    int width = 0;
    for (int index = 0; index < _model.count(); ++index)
        width = qMax(width, _model.item(index)->width(_model.owner()));
    return width;
}

QSize ListBoxGrid::sizeHint() const
{
    const QFontMetrics metrics = _view.fontMetrics();
    const int rowHeight =
        _model.isEmpty() ? metrics.lineSpacing() + 2 : layouter().cell(0).height();
    const int rows = qBound(1, _model.count(), hintedRows);
    const int character = metrics.averageCharWidth();
    const int width = qBound(character * 10, widestItem(), character * 40);
    const int frame = 2 * _view.frameWidth();
    return {width + _view.verticalScrollBar()->sizeHint().width() + frame,
            rows * rowHeight + frame};
}

bool ListBoxGrid::fitContents()
{
    const QSize size = layouter().size();
    if (!_sizeNeeded)
        return true;
    const ListBoxWatch watch = _model.watch();
    _sizeNeeded = false;
    _view.resizeContents(size.width(), size.height());
    return watch.isAlive();
}

void ListBoxGrid::showAtTop(int index)
{
    if (_model.item(index) == nullptr || !fitContents())
        return;
    const QRect cell = _layouter.cell(index);
    _view.setContentsPos(layouter().columns() > 1 ? cell.left() : _view.contentsX(), cell.top());
}

void ListBoxGrid::showAtBottom(int index)
{
    if (_model.item(index) == nullptr || !fitContents())
        return;
    const QRect cell = _layouter.cell(index);
    _view.setContentsPos(layouter().columns() > 1 ? cell.right() + 1 - _view.visibleWidth()
                                                  : _view.contentsX(),
                         cell.bottom() + 1 - _view.visibleHeight());
}

void ListBoxGrid::ensureVisible(int index)
{
    if (index < 0 || !fitContents())
        return;
    const QRect cell = _layouter.cell(index);
    // Rounded up: the last line of a row of odd height must not stay out of sight.
    const int ymargin = (cell.height() + 1) / 2;
    const int xmargin = layouter().columns() > 1 ? qMin(cell.width(), _view.visibleWidth()) / 2 : 0;
    _view.ensureVisible(cell.left() + xmargin, cell.top() + ymargin, xmargin, ymargin);
}

void ListBoxGrid::triggerUpdate(bool doLayout)
{
    _layoutNeeded |= doLayout;
    if (!_paintPending) {
        _paintPending = true;
        _view.viewport()->update();
    }
    if (!_updateTimer->isActive())
        _updateTimer->start(0);
}

/// A paint event that came before the timer has shown everything already.
void ListBoxGrid::updateTimeout()
{
    if (_paintPending)
        _view.viewport()->update();
    fitContents();
}

void ListBoxGrid::refresh()
{
    _updateTimer->stop();
    _view.viewport()->update();
    fitContents();
}

void ListBoxGrid::updateItem(const QTeskelListBoxItem* item)
{
    if (!_paintPending && _model.index(item) >= 0)
        _view.viewport()->update(rectOf(item));
}

} // namespace teskel
