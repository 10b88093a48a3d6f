// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationItem.h"

#include <QStyledItemDelegate>

#include <memory>

namespace kestrel {

class ProjectNavigationModel;

/// Paints the rows of the navigation tree with a row view (ProjectNavigationItem). Checks whether a
/// row's file exists when the row is first painted after a reload, so only for visible rows.
class ProjectNavigationRowPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `model` must outlive the painter.
    explicit ProjectNavigationRowPainter(ProjectNavigationModel& model, QObject* parent = nullptr);

    /// Replaces the check whether a file exists; for tests.
    void setFileExistence(ProjectNavigationItem::FileExistence fileExists);

    /// The row view as it is painted for a row; nullptr when the row has no node. Every call
    /// returns the same object, set up anew.
    ProjectNavigationItem* viewForItem(const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void dequeue(const QModelIndex& index) const;
    const QIcon& iconFor(FileType type) const;

    ProjectNavigationModel& m_model;
    std::unique_ptr<ProjectNavigationItem> m_view;
    std::shared_ptr<ProjectNavigationItem::ImageView> m_imageView;
    std::shared_ptr<ProjectNavigationItem::TextField> m_textField;
    QIcon m_groupIcon;
    QIcon m_projectIcon;
    QIcon m_fileIcon;
};

} // namespace kestrel
