// SPDX-License-Identifier: MIT
#include "editors/settings/ProgramFilter.h"

#include "build/InstalledEmulators.h"

#include <QFile>
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
    const int leftRank = rankOf(left);
    const int rightRank = rankOf(right);
    if (leftRank != rightRank) {
        // What is on top stays there when the order is turned round.
        return (leftRank < rightRank) == (sortOrder() == Qt::AscendingOrder);
    }
    return QSortFilterProxyModel::lessThan(left, right);
}

/// 0 for what comes first, 2 for what comes last.
int ProgramFilter::rankOf(const QModelIndex& file) const {
    const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (files == nullptr || files->isDir(file)) {
        return 1;
    }
    const QString path = files->filePath(file);
    if (!path.endsWith(QLatin1String(".desktop"))) {
        return 2;
    }
    auto known = m_emulators.find(path);
    if (known == m_emulators.end()) {
        known = m_emulators.insert(path, isEmulatorEntry(QFile::encodeName(path).toStdString()));
    }
    return *known ? 0 : 2;
}

} // namespace kestrel
