// SPDX-License-Identifier: MIT
#include "navigation/tree/OutlineView.h"

#include "widgets/AccessibleExpansion.h"
#include "widgets/Contrast.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QTextOption>

#include <algorithm>
#include <climits>
#include <vector>

namespace kestrel {

namespace {

/// Weaker than the text of rows, as a placeholder, but readable in every theme.
QColor emptyTextColour(const QColor& text, const QColor& background) {
    const auto part = [](int one, int other) { return (65 * one + 35 * other) / 100; };
    return readable(QColor(part(text.red(), background.red()),
                           part(text.green(), background.green()),
                           part(text.blue(), background.blue())),
                    background);
}

} // namespace

OutlineView::OutlineView(QWidget* parent)
    : QTreeView(parent) {
    setHeaderHidden(true);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    header()->setResizeContentsPrecision(0);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    // Recursive expansion ignores the flag, so such a row is collapsed again.
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (index.flags().testFlag(Qt::ItemNeverHasChildren)) {
            collapse(index);
        }
    });
    // Hidden rows need no width.
    connect(this, &QTreeView::collapsed, this, [this] { m_widestRow = 0; });
    connect(this, &QTreeView::expanded, this, &OutlineView::announceExpansion);
    connect(this, &QTreeView::collapsed, this, &OutlineView::announceExpansion);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex& index) {
        if (m_pressedOnSelectedRow && index == selectedIndex()) {
            Q_EMIT selectedRowChosenAgain();
        }
    });
}

QModelIndex OutlineView::selectedIndex() const {
    if (selectionModel() == nullptr) {
        return {};
    }
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

void OutlineView::selectIndex(const QModelIndex& index) {
    if (selectionModel() != nullptr) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                     QItemSelectionModel::Rows);
    }
}

int OutlineView::selectedRow() const {
    return rowForIndex(selectedIndex());
}

void OutlineView::setEmptyText(const QString& text) {
    m_emptyText = text;
    describe();
    viewport()->update();
}

void OutlineView::setModel(QAbstractItemModel* model) {
    QTreeView::setModel(model);
    if (model != nullptr) {
        connect(model, &QAbstractItemModel::rowsInserted, this, &OutlineView::describe);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &OutlineView::describe);
        connect(model, &QAbstractItemModel::modelReset, this, &OutlineView::describe);
    }
    describe();
}

bool OutlineView::isEmpty() const {
    return model() == nullptr || model()->rowCount() == 0;
}

/// Tells assistive technology the text for the empty view as long as it is empty.
void OutlineView::describe() {
    const QString description = isEmpty() ? m_emptyText : QString();
    if (accessibleDescription() != description) {
        setAccessibleDescription(description);
    }
}

void OutlineView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (m_emptyText.isEmpty() || !isEmpty()) {
        return;
    }
    const int margin = std::min(16, viewport()->width() / 15);
    QTextOption layout(Qt::AlignHCenter | Qt::AlignTop);
    layout.setWrapMode(
        QTextOption::WrapAtWordBoundaryOrAnywhere); // paths may be wider than the view
    QPainter painter(viewport());
    painter.setPen(
        emptyTextColour(palette().color(QPalette::Text), palette().color(QPalette::Base)));
    painter.drawText(QRectF(viewport()->rect().adjusted(margin, margin, -margin, -margin)),
                     m_emptyText, layout);
}

int OutlineView::visibleRowCount() const {
    const int roots = model() != nullptr ? model()->rowCount() : 0;
    return roots == 0 ? 0
                      : rowsBelowParent(model()->index(roots - 1, 0), INT_MAX) - 1 +
                            visibleRowsWithin(model()->index(roots - 1, 0), INT_MAX);
}

/// The number of visible rows of a row and everything shown below it, at most `limit`.
int OutlineView::visibleRowsWithin(const QModelIndex& index, int limit) const {
    int count = 0;
    std::vector<QModelIndex> waiting{index};
    while (!waiting.empty() && count < limit) {
        const QModelIndex row = waiting.back();
        waiting.pop_back();
        ++count;
        const int children = model()->rowCount(row);
        if (children > 0 && isExpanded(row)) {
            for (int i = 0; i < children; ++i) {
                waiting.push_back(model()->index(i, 0, row));
            }
        }
    }
    return count;
}

int OutlineView::rowsBelowParent(const QModelIndex& index, int limit) const {
    int count = 1;
    for (int i = 0; i < index.row() && count < limit; ++i) {
        count += visibleRowsWithin(index.sibling(i, 0), limit - count);
    }
    return count;
}

int OutlineView::rowForIndex(const QModelIndex& index) const {
    if (!index.isValid()) {
        return -1;
    }
    int row = -1;
    for (QModelIndex at = index; at.isValid(); at = at.parent()) {
        const QModelIndex container = at.parent();
        if (container.isValid() && !isExpanded(container)) {
            return -1;
        }
        row += rowsBelowParent(at, INT_MAX);
    }
    return row;
}

bool OutlineView::isInSight(const QModelIndex& index) const {
    const QRect row = visualRect(index);
    const QRect name(row.left(), row.center().y(), sizeHintForIndex(index).width(), 1);
    return row.isValid() && viewport()->rect().intersects(name);
}

QModelIndex OutlineView::indexAtRow(int row) const {
    if (row < 0 || model() == nullptr) {
        return {};
    }
    QModelIndex container;
    int number = 0; // in the container
    while (number < model()->rowCount(container)) {
        const QModelIndex index = model()->index(number, 0, container);
        if (row == 0) {
            return index;
        }
        const int rows = visibleRowsWithin(index, row + 1);
        if (rows > row) {
            --row;
            container = index;
            number = 0;
        } else {
            row -= rows;
            ++number;
        }
    }
    return {};
}

void OutlineView::expandWhole(const QModelIndex& index) {
    std::vector<QModelIndex> waiting{index};
    while (!waiting.empty()) {
        const QModelIndex row = waiting.back();
        waiting.pop_back();
        for (int i = 0; i < model()->rowCount(row); ++i) {
            waiting.push_back(model()->index(i, 0, row));
        }
        if (row.isValid() && model()->rowCount(row) > 0 && !isExpanded(row)) {
            // Delays the layout, so that a deep tree is laid out once and not once per level.
            scheduleDelayedItemsLayout();
            expand(row);
        }
    }
}

void OutlineView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int before = horizontalScrollBar()->value();
    QTreeView::scrollTo(index, hint);
    const QRect row = visualRect(index);
    if (!row.isValid()) {
        return;
    }
    // Scrolls to the triangle and the start of the name only: with a deep tree the column is far
    // wider than the view, and the rest of a long name would hide the triangles of other rows.
    const int left = row.left() - indentation() + horizontalScrollBar()->value();
    const int right =
        left + std::min(indentation() + sizeHintForIndex(index).width(), viewport()->width() / 2);
    const int highest = std::max(left, 0);
    const int lowest = std::clamp(right - viewport()->width(), 0, highest);
    horizontalScrollBar()->setValue(before < lowest || before > highest ? lowest : before);
}

void OutlineView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        wantContextMenuByKeyboard();
    } else {
        Q_EMIT contextMenuWanted(indexAt(event->pos()), event->pos());
    }
    event->accept();
}

void OutlineView::wantContextMenuByKeyboard() {
    const QModelIndex index = selectedIndex();
    QRect row;
    if (index.isValid()) {
        scrollTo(index);
        row = visualRect(index) & viewport()->rect();
    }
    Q_EMIT contextMenuWanted(index, row.isValid() ? row.bottomLeft() : QPoint(0, 0));
}

void OutlineView::keyPressEvent(QKeyEvent* event) {
    const bool shiftF10 = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (event->key() == Qt::Key_Menu || shiftF10) {
        wantContextMenuByKeyboard();
        event->accept();
    } else if (event->key() == Qt::Key_Asterisk) {
        expandWhole(currentIndex());
        event->accept();
    } else {
        QTreeView::keyPressEvent(event);
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isReturn && currentIndex().isValid() && currentIndex() == selectedIndex()) {
            Q_EMIT selectedRowChosenAgain();
        }
    }
}

void OutlineView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex selected = selectedIndex();
    m_pressedOnSelectedRow = event->button() == Qt::LeftButton && selected.isValid() &&
                             indexAt(event->pos()) == selected;
    QTreeView::mousePressEvent(event);
}

void OutlineView::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    if (dy != 0) {
        fitColumn();
    }
}

void OutlineView::doItemsLayout() {
    m_widestRow = 0;
    QTreeView::doItemsLayout();
}

void OutlineView::updateGeometries() {
    fitColumn();
    QTreeView::updateGeometries();
}

/// Makes the column at least as wide as the view and the widest row visible since rows were last
/// removed, so that one can scroll sideways to deep rows. With the rows visible now it could go on
/// forever: the horizontal scroll bar hides the lowest row, without which no bar may be needed,
/// which shows that row again.
void OutlineView::fitColumn() {
    if (m_fittingColumn || header()->count() == 0) {
        return;
    }
    m_fittingColumn = true;
    const int widestInSight = sizeHintForColumn(0);
    m_widestRow = std::max(m_widestRow, widestInSight);
    header()->resizeSection(0, std::max(viewport()->width(), m_widestRow));
    m_fittingColumn = false;
}

/// Draws the triangles of an expanded container without rows (an empty group) and of rows that
/// never expand, which the base class leaves out, and only the visible part of a deep row's
/// branches.
void OutlineView::drawBranches(QPainter* painter, const QRect& rect,
                               const QModelIndex& index) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QStyle::State common =
        QStyle::State_Item | (option.state & (QStyle::State_Enabled | QStyle::State_Active));
    if (selectionModel() != nullptr && selectionModel()->isSelected(index)) {
        common |= QStyle::State_Selected;
    }
    const bool reverse = isRightToLeft();
    const int step = reverse ? indentation() : -indentation();
    QRect cell(reverse ? rect.left() : rect.right() + 1 - indentation(), rect.top(), indentation(),
               rect.height());
    QModelIndex at = index;
    for (int level = 0; at.isValid(); ++level, at = at.parent(), cell.translate(step, 0)) {
        if (!cell.intersects(viewport()->rect())) {
            const bool behind = reverse ? cell.left() > viewport()->width() : cell.right() < 0;
            if (behind) {
                break;
            }
            continue;
        }
        option.rect = cell;
        option.state = common;
        if (model()->rowCount(at.parent()) - 1 > at.row()) {
            option.state |= QStyle::State_Sibling;
        }
        if (level == 0) {
            option.state |= model()->hasChildren(at) ? QStyle::State_Children : QStyle::State_None;
            option.state |= isExpanded(at) ? QStyle::State_Open : QStyle::State_None;
        } else {
            option.state &= ~QStyle::State_Item;
        }
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
    }
}

// The base class counts a hidden header among the children that it tells assistive technology of;
// here the children are the visible rows.

void OutlineView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    if (hasFocus()) {
        announce(QAccessible::Focus, current);
    }
}

void OutlineView::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::selectionChanged(selected, deselected);
    announce(QAccessible::SelectionAdd, selected.indexes().value(0));
    announce(QAccessible::SelectionRemove, deselected.indexes().value(0));
}

void OutlineView::announce(QAccessible::Event type, const QModelIndex& index) {
    const int row = QAccessible::isActive() ? rowForIndex(index) : -1;
    if (row >= 0) {
        QAccessibleEvent event(this, type);
        event.setChild(row);
        QAccessible::updateAccessibility(&event);
    }
}

void OutlineView::announceExpansion(const QModelIndex& index) {
    QAccessibleInterface* const view =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(this) : nullptr;
    QAccessibleInterface* const row = view != nullptr ? view->child(rowForIndex(index)) : nullptr;
    if (row != nullptr) {
        kestrel::announceExpansion(*row);
    }
}

} // namespace kestrel
