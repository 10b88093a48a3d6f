// SPDX-License-Identifier: MIT
#pragma once

#include <QModelIndexList>
#include <QStyledItemDelegate>

namespace kestrel {

class CreateNewItemDataSource;

/// Draws the cells of the grid of kinds and carries a changed selection over to the check mark.
class CreateNewItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The first selected cell becomes the chosen one; an empty selection changes nothing.
    void selectionChanged(const QModelIndexList& selected, CreateNewItemDataSource& source) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace kestrel
