// SPDX-License-Identifier: MIT
#pragma once

#include "memory/MemoryReport.h"

#include <QAbstractListModel>

namespace kestrel {

/// The rows of a MemoryReport as a list, each with its sentence for assistive technology.
class MemoryModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    const MemoryReport& report() const { return m_report; }

    /// Rows of the same banks stay what they are and get other numbers; all others are new.
    void setReport(MemoryReport report);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    MemoryReport m_report;
};

} // namespace kestrel
