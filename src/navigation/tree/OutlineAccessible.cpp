// SPDX-License-Identifier: MIT
#include "navigation/tree/OutlineAccessible.h"

#include "navigation/tree/OutlineRowAccessible.h"
#include "navigation/tree/OutlineView.h"

#include <memory>

namespace kestrel {

OutlineAccessible::OutlineAccessible(OutlineView& view)
    : QAccessibleWidget(&view, QAccessible::Tree) {}

OutlineAccessible::~OutlineAccessible() {
    for (const QAccessible::Id row : std::as_const(m_rows)) {
        QAccessible::deleteAccessibleInterface(row);
    }
}

QAccessibleInterface* OutlineAccessible::make(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<OutlineView*>(object);
    return view != nullptr ? std::make_unique<OutlineAccessible>(*view).release() : nullptr;
}

OutlineView* OutlineAccessible::view() const {
    return qobject_cast<OutlineView*>(object());
}

/// The row's object, which is made when it is first asked for.
QAccessibleInterface* OutlineAccessible::rowOf(const QModelIndex& index) const {
    if (!index.isValid()) {
        return nullptr;
    }
    const auto known = m_rows.constFind(index);
    if (known != m_rows.constEnd()) {
        return QAccessible::accessibleInterface(*known);
    }
    auto* row = std::make_unique<OutlineRowAccessible>(*view(), index).release();
    m_rows.insert(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

void* OutlineAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* OutlineAccessible::childAt(int x, int y) const {
    return rowOf(view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* OutlineAccessible::focusChild() const {
    return view()->hasFocus() ? rowOf(view()->currentIndex()) : nullptr;
}

int OutlineAccessible::childCount() const {
    return view()->visibleRowCount();
}

QAccessibleInterface* OutlineAccessible::child(int number) const {
    return rowOf(view()->indexAtRow(number));
}

int OutlineAccessible::indexOfChild(const QAccessibleInterface* row) const {
    const auto* ours = dynamic_cast<const OutlineRowAccessible*>(row);
    return ours != nullptr && ours->parent() == this ? ours->rowIndex() : -1;
}

QAccessibleInterface* OutlineAccessible::cellAt(int row, int column) const {
    return column == 0 ? child(row) : nullptr;
}

QList<QAccessibleInterface*> OutlineAccessible::selectedCells() const {
    QAccessibleInterface* const row = child(view()->selectedRow());
    return row != nullptr ? QList<QAccessibleInterface*>{row} : QList<QAccessibleInterface*>();
}

int OutlineAccessible::selectedRowCount() const {
    return view()->selectedRow() >= 0 ? 1 : 0;
}

QList<int> OutlineAccessible::selectedRows() const {
    return selectedRowCount() > 0 ? QList<int>{view()->selectedRow()} : QList<int>();
}

bool OutlineAccessible::isRowSelected(int row) const {
    return row >= 0 && row == view()->selectedRow();
}

bool OutlineAccessible::selectRow(int row) {
    view()->selectIndex(view()->indexAtRow(row));
    return isRowSelected(row);
}

bool OutlineAccessible::unselectRow(int row) {
    if (!isRowSelected(row)) {
        return false;
    }
    view()->clearSelection();
    return true;
}

/// Forgets the rows that are gone.
void OutlineAccessible::modelChange(QAccessibleTableModelChangeEvent* /*event*/) {
    m_rows.removeIf([](QHash<QPersistentModelIndex, QAccessible::Id>::iterator row) {
        if (row.key().isValid()) {
            return false;
        }
        QAccessible::deleteAccessibleInterface(row.value());
        return true;
    });
}

} // namespace kestrel
