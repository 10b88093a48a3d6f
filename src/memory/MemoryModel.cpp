// SPDX-License-Identifier: MIT
#include "memory/MemoryModel.h"

#include <utility>

namespace kestrel {

void MemoryModel::setReport(MemoryReport report) {
    if (!m_report.rows().empty() && report.hasRowsLike(m_report)) {
        m_report = std::move(report);
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        return;
    }
    beginResetModel();
    m_report = std::move(report);
    endResetModel();
}

int MemoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_report.rows().size());
}

QVariant MemoryModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const MemoryRow& row = m_report.rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return MemoryReport::nameOf(row);
    case Qt::AccessibleTextRole:
        return MemoryReport::sentenceOf(row);
    case Qt::AccessibleDescriptionRole:
        return m_report.rangesOf(row);
    default:
        return {};
    }
}

} // namespace kestrel
