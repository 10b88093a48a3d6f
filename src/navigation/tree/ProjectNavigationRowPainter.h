// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationItem.h"

#include <QStyledItemDelegate>

#include <memory>

namespace kestrel {

class ProjectNavigationModel;

/// Paints the rows of the navigation tree, each by way of its row view (ProjectNavigationItem). A
/// row's file is looked for when the row is painted for the first time after a reload, so the file
/// system is asked once for each row that comes into sight and for no other.
class ProjectNavigationRowPainter : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `model` must outlive the painter.
    explicit ProjectNavigationRowPainter(ProjectNavigationModel& model, QObject* parent = nullptr);

    /// Replaces how the file system is asked; for tests.
    void setFileExistence(ProjectNavigationItem::FileExistence fileExists);

    /// The row view set up for a row, as it is painted; nothing when the row shows no node. It is
    /// used again for the next row that is asked for.
    ProjectNavigationItem* viewForItem(const QModelIndex& index) const;

    /// The shade of a name's colour on this background: black and plain red where the background is
    /// light, `normal` and a red that can be read where it is not.
    static QColor shade(ProjectNavigationItem::TextColour colour, const QColor& background,
                        const QColor& normal);

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
