// SPDX-License-Identifier: MIT
#include "newitem/NewItemCollectionViewItem.h"

#include <QPen>
#include <QPolygonF>

#include <algorithm>

namespace kestrel {

namespace {

constexpr int IconSide = 64;
constexpr int Padding = 10;
constexpr int CheckMarkSide = 20;

} // namespace

QSize NewItemCollectionViewItem::size(const QFontMetrics& metrics) {
    const int title = metrics.averageCharWidth() * 19;
    return {std::max(IconSide + 4 * Padding, title) + 2 * Padding,
            IconSide + metrics.height() + 3 * Padding};
}

void NewItemCollectionViewItem::paint(QPainter& painter, const QStyleOptionViewItem& option) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect cell = option.rect;
    const QPalette& palette = option.palette;
    if (checkMark) {
        QColor tint = palette.color(QPalette::Highlight);
        const bool focused = option.state.testFlag(QStyle::State_HasFocus);
        painter.setPen(QPen(tint, focused ? 2.0 : 1.0));
        tint.setAlphaF(0.16F);
        painter.setBrush(tint);
        painter.drawRoundedRect(QRectF(cell).adjusted(1.5, 1.5, -1.5, -1.5), 6, 6);
    }
    const QRect picture(cell.center().x() - IconSide / 2, cell.top() + Padding, IconSide, IconSide);
    icon.paint(&painter, picture);
    const QRect title = cell.adjusted(Padding, IconSide + 2 * Padding, -Padding, -Padding / 2);
    painter.setPen(palette.color(QPalette::Text));
    painter.setFont(option.font);
    painter.drawText(title, Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine,
                     option.fontMetrics.elidedText(text, Qt::ElideRight, title.width()));
    if (checkMark) {
        paintCheckMark(painter,
                       QRectF(cell.right() - Padding - CheckMarkSide + 2, cell.top() + Padding - 2,
                              CheckMarkSide, CheckMarkSide),
                       palette);
    }
    painter.restore();
}

void NewItemCollectionViewItem::paintCheckMark(QPainter& painter, const QRectF& circle,
                                               const QPalette& palette) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Highlight));
    painter.drawEllipse(circle);
    painter.setPen(QPen(palette.color(QPalette::HighlightedText), 2.2, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    const auto point = [&circle](double x, double y) {
        return circle.topLeft() + QPointF(x * circle.width(), y * circle.height());
    };
    painter.drawPolyline(QPolygonF({point(0.28, 0.53), point(0.44, 0.69), point(0.73, 0.34)}));
}

} // namespace kestrel
