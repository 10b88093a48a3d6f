// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/types/NewItemType.h"

#include <QAbstractListModel>

#include <vector>

namespace kestrel {

/// The kinds of item that the grid shows: title, icon, and a check mark on the chosen one.
class CreateNewItemDataSource : public QAbstractListModel {
    Q_OBJECT

public:
    explicit CreateNewItemDataSource(QObject* parent = nullptr);

    void setNewItems(std::vector<NewItemType> newItems);
    const std::vector<NewItemType>& newItems() const { return m_newItems; }

    /// The index of the chosen kind, 0 at first. The setter does not check its range.
    int selectedItem() const { return m_selectedItem; }
    void setSelectedItem(int item);

    int rowCount(const QModelIndex& parent = {}) const override;
    /// Display role: title; decoration role: icon; check state role: whether it is chosen.
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<NewItemType> m_newItems;
    int m_selectedItem = 0;
};

} // namespace kestrel
