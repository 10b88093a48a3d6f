// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QSortFilterProxyModel>
#include <QString>

namespace kestrel {

/// Leaves only folders, programs and desktop entries of a file system model: first the entries of
/// emulators for the console, then the folders.
class ProgramFilter : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    int rankOf(const QModelIndex& file) const;

    mutable QHash<QString, bool> m_emulators; ///< by path: whether that entry is one's
};

} // namespace kestrel
