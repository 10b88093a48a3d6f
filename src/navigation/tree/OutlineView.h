// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>

namespace kestrel {

/// The outline view: a tree view of one column that can be asked in row numbers (visible rows,
/// counted from 0 at the top), whose rows stay readable however deep they lie, and that asks for
/// the context menu by keyboard too. Rows flagged Qt::ItemNeverHasChildren never expand, even
/// where the model gives them a disclosure triangle.
class OutlineView : public QTreeView {
    Q_OBJECT

public:
    explicit OutlineView(QWidget* parent = nullptr);

    /// The selected row, also while it is hidden in a collapsed container; invalid without one.
    QModelIndex selectedIndex() const;

    /// Selects exactly this row and makes it the current one.
    void selectIndex(const QModelIndex& index);

    /// The number of the selected row; -1 without one or while it is hidden.
    int selectedRow() const;

    /// The visible row of this number; invalid when there is none.
    QModelIndex indexAtRow(int row) const;

    /// The number of a row; -1 when it is invalid or hidden in a collapsed container.
    int rowForIndex(const QModelIndex& index) const;

    /// Whether any of a row's name can be seen: neither hidden in a collapsed container nor
    /// scrolled away.
    bool isInSight(const QModelIndex& index) const;

    /// How many visible rows a child is below its parent's row, as if the parent were expanded: 1
    /// for the first child. Counting ends at `limit`.
    int rowsBelowParent(const QModelIndex& index, int limit) const;

    /// Expands `index` and every container below it.
    void expandWhole(const QModelIndex& index);

    /// A hint to show while there are no rows; none at first. Also the view's accessible
    /// description.
    void setEmptyText(const QString& text);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

Q_SIGNALS:
    /// A context menu is wanted at `position` (in the viewport) for `index`, the row under the
    /// pointer or, by keyboard, the selected one; invalid on the empty area.
    void contextMenuWanted(const QModelIndex& index, const QPoint& position);

    /// The row that is selected already was clicked, or Return was pressed on it.
    void selectedRowChosenAgain();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    int visibleRowsWithin(const QModelIndex& index, int limit) const;
    void wantContextMenuByKeyboard();
    void fitColumn();

    QString m_emptyText;
    bool m_fittingColumn = false;
    int m_widestRow = 0;                 ///< of those in sight since rows went last
    bool m_pressedOnSelectedRow = false; ///< where the left button went down last
};

} // namespace kestrel
