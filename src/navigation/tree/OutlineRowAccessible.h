// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QPersistentModelIndex>
#include <QPointer>

namespace kestrel {

class OutlineView;

/// What assistive technology sees of one row of an OutlineView.
class OutlineRowAccessible final : public QAccessibleInterface,
                                   public QAccessibleTableCellInterface,
                                   public QAccessibleActionInterface {
public:
    OutlineRowAccessible(OutlineView& view, const QModelIndex& index);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int /*number*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QAccessible::State state() const override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return 0; }
    int rowIndex() const override;
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    /// Press selects the row, Toggle expands and collapses it.
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    bool isExpandable() const;

    QPointer<OutlineView> m_view;
    QPersistentModelIndex m_index;
};

} // namespace kestrel
