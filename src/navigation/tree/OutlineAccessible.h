// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

namespace kestrel {

class OutlineView;

/// What assistive technology sees of an OutlineView: its visible rows as children, numbered as the
/// view numbers them, and nothing of the hidden header. A row stays the same object as long as the
/// model has it. Each row has its name, its accessible description and whether it is expanded.
class OutlineAccessible final : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit OutlineAccessible(OutlineView& view);
    ~OutlineAccessible() override;

    /// For QAccessible::installFactory().
    static QAccessibleInterface* make(const QString& className, QObject* object);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    int childCount() const override;
    QAccessibleInterface* child(int number) const override;
    int indexOfChild(const QAccessibleInterface* row) const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override { return selectedRowCount(); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int /*column*/) const override { return {}; }
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override { return 1; }
    int rowCount() const override { return childCount(); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    OutlineView* view() const;
    QAccessibleInterface* rowOf(const QModelIndex& index) const;

    mutable QHash<QPersistentModelIndex, QAccessible::Id> m_rows;
};

} // namespace kestrel
