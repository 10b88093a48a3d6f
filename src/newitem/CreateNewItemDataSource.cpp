// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemDataSource.h"

#include <utility>

namespace kestrel {

CreateNewItemDataSource::CreateNewItemDataSource(QObject* parent)
    : QAbstractListModel(parent) {}

void CreateNewItemDataSource::setNewItems(std::vector<NewItemType> newItems) {
    beginResetModel();
    m_newItems = std::move(newItems);
    endResetModel();
}

void CreateNewItemDataSource::setSelectedItem(int item) {
    const int former = std::exchange(m_selectedItem, item);
    for (const int changed : {former, item}) {
        const QModelIndex cell = index(changed);
        if (former != item && cell.isValid()) {
            Q_EMIT dataChanged(cell, cell, {Qt::CheckStateRole});
        }
    }
}

int CreateNewItemDataSource::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_newItems.size());
}

QVariant CreateNewItemDataSource::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const NewItemType& type = m_newItems[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return type.text;
    case Qt::DecorationRole:
        return type.icon;
    case Qt::CheckStateRole:
        return index.row() == m_selectedItem ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

Qt::ItemFlags CreateNewItemDataSource::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

} // namespace kestrel
