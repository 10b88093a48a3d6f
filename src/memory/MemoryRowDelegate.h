// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace kestrel {

class MemoryModel;

/// Draws a row of the memory window: its name and what changed, its bar, its numbers. Tells of the
/// place under the pointer in a tool tip.
class MemoryRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// For the views of this model, which must outlive it.
    explicit MemoryRowDelegate(const MemoryModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// As wide as the view; high enough for the longest numbers, which may take several lines.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// Where the bar of a row is that takes up `row`.
    static QRect barRect(const QRect& row, const QFontMetrics& metrics);

private:
    const MemoryModel& m_model;
};

} // namespace kestrel
