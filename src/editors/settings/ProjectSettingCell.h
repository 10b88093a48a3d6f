// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationItem.h"

#include <QStyledItemDelegate>

#include <memory>

namespace kestrel {

/// The cell of the settings pane's tables: paints a file's name, marked when the file is missing.
/// One cell serves all rows of its table, one at a time.
class ProjectSettingCell : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit ProjectSettingCell(QObject* parent = nullptr);

    /// The place of the name; owned by the cell.
    std::weak_ptr<ProjectNavigationItem::TextField> projectSettingsLabel;

    /// Sets the label to what the row at `index` of a BuildFileListModel shows.
    void show(const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    std::shared_ptr<ProjectNavigationItem::TextField> m_label;
};

} // namespace kestrel
