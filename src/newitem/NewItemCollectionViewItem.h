// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QIcon>
#include <QPainter>
#include <QSize>
#include <QString>
#include <QStyleOptionViewItem>

namespace kestrel {

/// One cell of the grid of kinds: an icon, a title below it, and a check mark on the chosen kind.
class NewItemCollectionViewItem {
public:
    bool checkMark = false; ///< whether the check mark is visible
    QString text;
    QIcon icon;

    /// Paints the cell with the option's rectangle, palette and font.
    void paint(QPainter& painter, const QStyleOptionViewItem& option) const;

    /// The size of a cell in this font.
    static QSize size(const QFontMetrics& metrics);

private:
    static void paintCheckMark(QPainter& painter, const QRectF& circle, const QPalette& palette);
};

} // namespace kestrel
