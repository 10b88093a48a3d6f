// SPDX-License-Identifier: MIT
#include "chrcanvas/views/ViewAccessibility.h"

#include <QAccessibleValueChangeEvent>
#include <QAccessibleWidget>
#include <QWidget>

namespace kestrel {

namespace {

/// The accessibility interface of a ViewAccessibility.
class ViewInterface : public QAccessibleWidget {
public:
    ViewInterface(QWidget* widget, const ViewAccessibility& view)
        : QAccessibleWidget(widget, view.accessibleRole())
        , m_view(&view) {}

    QString text(QAccessible::Text text) const override {
        return text == QAccessible::Value ? m_view->accessibleValue()
                                          : QAccessibleWidget::text(text);
    }

private:
    const ViewAccessibility* m_view;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    const auto* view = dynamic_cast<const ViewAccessibility*>(object);
    // Qt owns the interface and destroys it before the widget.
    return widget != nullptr && view != nullptr ? new ViewInterface(widget, *view) : nullptr;
}

} // namespace

void ViewAccessibility::install() {
    QAccessible::installFactory(makeInterface);
}

void ViewAccessibility::tellValueChanged(QWidget& view) const {
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(&view, accessibleValue());
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace kestrel
