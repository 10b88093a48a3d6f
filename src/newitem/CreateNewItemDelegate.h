// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>
#include <QStyledItemDelegate>

namespace kestrel {

class CreateNewItemDataSource;

/// Paints the cells of the grid of kinds and updates the chosen kind when the selection changes.
class CreateNewItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Makes the first selected cell the chosen one. An empty selection changes nothing.
    void selectionChanged(const QModelIndexList& selected, CreateNewItemDataSource& source) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace kestrel
