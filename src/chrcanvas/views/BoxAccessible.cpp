// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxAccessible.h"

#include "chrcanvas/views/BoxSelectorView.h"

#include <QAccessible>
#include <QWindow>

namespace kestrel {

BoxAccessible::BoxAccessible(BoxSelectorView* view, int index)
    : m_view(view)
    , m_index(index) {}

PaletteBox BoxAccessible::box() const {
    const auto box = m_view ? m_view->grid().boxNumber(m_index) : std::nullopt;
    return box.value_or(PaletteBox{-1, -1});
}

bool BoxAccessible::isValid() const {
    return m_view && m_view->grid().boxNumber(m_index).has_value();
}

QWindow* BoxAccessible::window() const {
    return m_view ? m_view->window()->windowHandle() : nullptr;
}

QAccessibleInterface* BoxAccessible::parent() const {
    return m_view ? QAccessible::queryAccessibleInterface(m_view) : nullptr;
}

QAccessibleInterface* BoxAccessible::child(int /*index*/) const {
    return nullptr;
}

QAccessibleInterface* BoxAccessible::childAt(int /*x*/, int /*y*/) const {
    return nullptr;
}

int BoxAccessible::indexOfChild(const QAccessibleInterface* /*child*/) const {
    return -1;
}

QAccessible::State BoxAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const PaletteBox picked{m_view->selectedPaletteNumber(), m_view->selectedBox()};
    state.selectable = true;
    state.selected = box() == picked;
    state.focusable = true;
    state.focused = m_view->hasFocus() && box() == m_view->cursorBox();
    state.disabled = !m_view->isEnabled();
    state.invisible = !m_view->isVisible();
    return state;
}

QRect BoxAccessible::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect inView = m_view->boxRect(box());
    return {m_view->mapToGlobal(inView.topLeft()), inView.size()};
}

QString BoxAccessible::text(QAccessible::Text text) const {
    return text == QAccessible::Name && isValid() ? m_view->boxDescription(box()) : QString();
}

void BoxAccessible::setText(QAccessible::Text /*text*/, const QString& /*value*/) {}

void* BoxAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList BoxAccessible::actionNames() const {
    return {pressAction()};
}

void BoxAccessible::doAction(const QString& actionName) {
    if (actionName == pressAction() && isValid()) {
        m_view->choose(box());
    }
}

QStringList BoxAccessible::keyBindingsForAction(const QString& /*actionName*/) const {
    return {};
}

} // namespace kestrel
