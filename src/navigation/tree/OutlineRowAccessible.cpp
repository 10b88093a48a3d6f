// SPDX-License-Identifier: MIT
#include "navigation/tree/OutlineRowAccessible.h"

#include "navigation/tree/OutlineView.h"

namespace kestrel {

OutlineRowAccessible::OutlineRowAccessible(OutlineView& view, const QModelIndex& index)
    : m_view(&view)
    , m_index(index) {}

bool OutlineRowAccessible::isValid() const {
    return m_view != nullptr && m_view->model() != nullptr && m_index.isValid();
}

void* OutlineRowAccessible::interface_cast(QAccessible::InterfaceType type) {
    switch (type) {
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface*>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface*>(this);
    default:
        return nullptr;
    }
}

QAccessibleInterface* OutlineRowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(m_view);
}

QString OutlineRowAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name) {
        const QVariant name = m_index.data(Qt::AccessibleTextRole);
        return (name.isValid() ? name : m_index.data(Qt::DisplayRole)).toString();
    }
    return kind == QAccessible::Description ? m_index.data(Qt::AccessibleDescriptionRole).toString()
                                            : QString();
}

QRect OutlineRowAccessible::rect() const {
    const QRect row = isValid() ? m_view->visualRect(m_index) : QRect();
    return row.isNull() ? QRect() : row.translated(m_view->viewport()->mapToGlobal(QPoint(0, 0)));
}

QAccessible::State OutlineRowAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.selected = isSelected();
    state.focused = m_view->hasFocus() && m_view->currentIndex() == m_index;
    state.active = m_view->currentIndex() == m_index;
    state.disabled = !m_view->isEnabled();
    state.expandable = isExpandable();
    state.expanded = state.expandable && m_view->isExpanded(m_index);
    state.collapsed = state.expandable && !state.expanded;
    state.invisible =
        !m_view->isVisible() || !m_view->viewport()->rect().intersects(m_view->visualRect(m_index));
    return state;
}

bool OutlineRowAccessible::isSelected() const {
    return isValid() && m_view->selectionModel()->isSelected(m_index);
}

int OutlineRowAccessible::rowIndex() const {
    return isValid() ? m_view->rowForIndex(m_index) : -1;
}

bool OutlineRowAccessible::isExpandable() const {
    return m_view->model()->hasChildren(m_index) &&
           !m_index.flags().testFlag(Qt::ItemNeverHasChildren);
}

QStringList OutlineRowAccessible::actionNames() const {
    QStringList names;
    if (isValid()) {
        names << pressAction();
        if (isExpandable()) {
            names << toggleAction();
        }
    }
    return names;
}

void OutlineRowAccessible::doAction(const QString& name) {
    if (!actionNames().contains(name)) {
        return;
    }
    if (name == pressAction()) {
        m_view->selectIndex(m_index);
    } else {
        m_view->setExpanded(m_index, !m_view->isExpanded(m_index));
    }
}

} // namespace kestrel
