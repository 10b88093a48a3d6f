// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QTreeView>

namespace kestrel {

/// A tree view of one column that numbers its visible rows from 0 at the top, keeps deep rows
/// readable, and opens the context menu by keyboard too. Rows with Qt::ItemNeverHasChildren never
/// expand, even if the model gives them a disclosure triangle.
class OutlineView : public QTreeView {
    Q_OBJECT

public:
    explicit OutlineView(QWidget* parent = nullptr);

    /// The selected row, even if a collapsed container hides it; invalid without one.
    QModelIndex selectedIndex() const;

    /// Selects this row only and makes it the current one.
    void selectIndex(const QModelIndex& index);

    /// The number of the selected row; -1 when there is none or it is hidden.
    int selectedRow() const;

    /// The visible row with this number; invalid when there is none.
    QModelIndex indexAtRow(int row) const;

    /// The number of a row; -1 when it is invalid or a collapsed container hides it.
    int rowForIndex(const QModelIndex& index) const;

    /// Whether any part of a row's name is visible: not in a collapsed container and not scrolled
    /// out of view.
    bool isInSight(const QModelIndex& index) const;

    /// The number of all visible rows.
    int visibleRowCount() const;

    /// The number of visible rows from a parent's row to its child, as if the parent were expanded:
    /// 1 for the first child. At most `limit`.
    int rowsBelowParent(const QModelIndex& index, int limit) const;

    /// Expands `index` and every container below it.
    void expandWhole(const QModelIndex& index);

    /// Sets the text that is shown, and told as the accessible description, while there are no
    /// rows.
    void setEmptyText(const QString& text);

    void setModel(QAbstractItemModel* model) override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

Q_SIGNALS:
    /// The user asks for a context menu at `position` (in the viewport). `index` is the row under
    /// the pointer or, by keyboard, the selected one; invalid on the empty area.
    void contextMenuWanted(const QModelIndex& index, const QPoint& position);

    /// The selected row was clicked again, or Return was pressed on it.
    void selectedRowChosenAgain();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void updateGeometries() override;

private:
    int visibleRowsWithin(const QModelIndex& index, int limit) const;
    bool isEmpty() const;
    void describe();
    void announce(QAccessible::Event type, const QModelIndex& index);
    void announceExpansion(const QModelIndex& index);
    void wantContextMenuByKeyboard();
    void fitColumn();

    QString m_emptyText;
    bool m_fittingColumn = false;
    int m_widestRow = 0;                 ///< of those visible since rows were last removed
    bool m_pressedOnSelectedRow = false; ///< the last press of the left button
};

} // namespace kestrel
