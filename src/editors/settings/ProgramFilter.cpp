// SPDX-License-Identifier: MIT
#include "editors/settings/ProgramFilter.h"

#include <QFileInfo>
#include <QFileSystemModel>

namespace kestrel {

bool ProgramFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const {
    const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (files == nullptr) {
        return true;
    }
    const QFileInfo file = files->fileInfo(files->index(sourceRow, 0, sourceParent));
    return file.isDir() || file.isExecutable() || file.suffix() == QLatin1String("desktop");
}

bool ProgramFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (files != nullptr && files->isDir(left) != files->isDir(right)) {
        // Folders stay on top when the order is turned round.
        return files->isDir(left) == (sortOrder() == Qt::AscendingOrder);
    }
    return QSortFilterProxyModel::lessThan(left, right);
}

} // namespace kestrel
