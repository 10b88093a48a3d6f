// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

#include <vector>

namespace kestrel {

class BoxSelectorView;

/// The accessibility interface of a selector: a list of its boxes, whose value is the picked one.
class BoxSelectorAccessible : public QAccessibleWidget {
public:
    /// Registers this class as the interface of every BoxSelectorView. May be called again.
    static void install();

    explicit BoxSelectorAccessible(BoxSelectorView* view);
    ~BoxSelectorAccessible() override;
    BoxSelectorAccessible(const BoxSelectorAccessible&) = delete;
    BoxSelectorAccessible& operator=(const BoxSelectorAccessible&) = delete;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text text) const override;

private:
    BoxSelectorView* view() const;

    /// The boxes that were asked for, by their index; 0 for the others.
    mutable std::vector<QAccessible::Id> m_children;
};

} // namespace kestrel
