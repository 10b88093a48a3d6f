// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteBox.h"

#include <QAccessibleInterface>
#include <QPointer>

namespace kestrel {

class BoxSelectorView;

/// The accessibility interface of one box of a selector: its description, its state, choosing it.
class BoxAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    BoxAccessible(BoxSelectorView* view, int index);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    QRect rect() const override;
    QString text(QAccessible::Text text) const override;
    void setText(QAccessible::Text text, const QString& value) override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString& actionName) const override;

    /// The box's place in the order of all boxes.
    int index() const { return m_index; }

private:
    PaletteBox box() const;

    QPointer<BoxSelectorView> m_view;
    int m_index;
};

} // namespace kestrel
