// SPDX-License-Identifier: MIT
#include "chrcanvas/views/BoxSelectorAccessible.h"

#include "chrcanvas/views/BoxAccessible.h"
#include "chrcanvas/views/BoxSelectorView.h"

#include <memory>

namespace kestrel {

namespace {

QAccessibleInterface* interfaceFor(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<BoxSelectorView*>(object);
    return view == nullptr ? nullptr : std::make_unique<BoxSelectorAccessible>(view).release();
}

} // namespace

void BoxSelectorAccessible::install() {
    // One that is installed already is not installed again.
    QAccessible::installFactory(interfaceFor);
}

BoxSelectorAccessible::BoxSelectorAccessible(BoxSelectorView* view)
    : QAccessibleWidget(view, QAccessible::List) {}

BoxSelectorAccessible::~BoxSelectorAccessible() {
    for (const QAccessible::Id id : m_children) {
        if (id != 0) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
}

BoxSelectorView* BoxSelectorAccessible::view() const {
    return qobject_cast<BoxSelectorView*>(object());
}

int BoxSelectorAccessible::childCount() const {
    return view() == nullptr ? 0 : view()->grid().boxCount();
}

QAccessibleInterface* BoxSelectorAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const auto place = static_cast<std::size_t>(index);
    if (place >= m_children.size()) {
        m_children.resize(place + 1, 0);
    }
    if (m_children[place] == 0) {
        auto box = std::make_unique<BoxAccessible>(view(), index);
        // Qt's table of interfaces owns it until the destructor takes it out. clang-tidy
        // cannot see into the table.
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        m_children[place] = QAccessible::registerAccessibleInterface(box.release());
    }
    return QAccessible::accessibleInterface(m_children[place]);
}

QAccessibleInterface* BoxSelectorAccessible::childAt(int x, int y) const {
    if (view() == nullptr) {
        return nullptr;
    }
    const auto box = view()->grid().boxAt(view()->mapFromGlobal(QPoint(x, y)));
    return box ? child(view()->grid().indexOf(*box)) : nullptr;
}

int BoxSelectorAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* box = dynamic_cast<const BoxAccessible*>(child);
    return box != nullptr && box->isValid() && box->parent() == this ? box->index() : -1;
}

QAccessibleInterface* BoxSelectorAccessible::focusChild() const {
    if (view() == nullptr || !view()->hasFocus() || childCount() == 0) {
        return nullptr;
    }
    return child(view()->grid().indexOf(view()->cursorBox()));
}

QString BoxSelectorAccessible::text(QAccessible::Text text) const {
    if (text == QAccessible::Value && view() != nullptr) {
        return view()->boxDescription({view()->selectedPaletteNumber(), view()->selectedBox()});
    }
    return QAccessibleWidget::text(text);
}

} // namespace kestrel
