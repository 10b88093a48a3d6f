// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemDelegate.h"

#include "newitem/CreateNewItemDataSource.h"
#include "newitem/NewItemCollectionViewItem.h"

namespace kestrel {

void CreateNewItemDelegate::selectionChanged(const QModelIndexList& selected,
                                             CreateNewItemDataSource& source) const {
    if (!selected.isEmpty()) {
        source.setSelectedItem(selected.first().row());
    }
}

void CreateNewItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const {
    NewItemCollectionViewItem cell;
    cell.text = index.data(Qt::DisplayRole).toString();
    cell.icon = index.data(Qt::DecorationRole).value<QIcon>();
    cell.checkMark = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    cell.paint(*painter, option);
}

QSize CreateNewItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                      const QModelIndex&) const {
    return NewItemCollectionViewItem::size(option.fontMetrics);
}

} // namespace kestrel
