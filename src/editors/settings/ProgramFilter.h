// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>

namespace kestrel {

/// Leaves only folders, programs and desktop entries of a file system model, folders first.
class ProgramFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

} // namespace kestrel
