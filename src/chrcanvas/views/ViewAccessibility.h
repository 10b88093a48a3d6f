// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace kestrel {

/// A view that has a role and a value for assistive technology; its name is the widget's
/// accessible name.
class ViewAccessibility {
public:
    ViewAccessibility() = default;
    ViewAccessibility(const ViewAccessibility&) = delete;
    ViewAccessibility& operator=(const ViewAccessibility&) = delete;
    virtual ~ViewAccessibility() = default;

    virtual QAccessible::Role accessibleRole() const = 0;
    virtual QString accessibleValue() const = 0;

    /// Has Qt ask every widget that is a ViewAccessibility. Called by the constructors of such
    /// widgets; may be called again.
    static void install();

protected:
    /// Tells that the value is another one; `view` is this view as a widget.
    void tellValueChanged(QWidget& view) const;
};

} // namespace kestrel
