// SPDX-License-Identifier: MIT
#include "memory/MemoryRowDelegate.h"

#include "memory/MemoryBar.h"
#include "memory/MemoryModel.h"
#include "widgets/Contrast.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <optional>

namespace kestrel {

namespace {

constexpr int Margin = 8;
constexpr int Gap = 3;
constexpr int LeastBarHeight = 14;
constexpr int FocusWidth = 2;

QRect nameRect(const QRect& row, const QFontMetrics& metrics) {
    return {row.left() + Margin, row.top() + Margin, row.width() - 2 * Margin, metrics.height()};
}

int barHeight(const QFontMetrics& metrics) {
    return std::max(LeastBarHeight, metrics.height());
}

/// What is drawn at a place of a bar; nothing beside it.
std::optional<MemoryPlace> placeUnder(const MemoryRow& row, const QRect& bar, int x) {
    const auto placeAt = [&](int place) -> std::optional<MemoryPlace> {
        const ByteRange bytes = bytesAt(bar, *row.area, place);
        return bytes.size() > 0 ? std::optional(MemoryReport::placeAt(row, bytes)) : std::nullopt;
    };
    const auto exact = placeAt(x);
    if (exact && exact->state == MemoryPlace::State::free) {
        // A range that is narrower than what it is drawn as may be what is pointed at.
        const std::uint32_t pixel = bytesAt(bar, *row.area, x).size();
        for (const int near : {x - 1, x + 1}) {
            const auto place = placeAt(near);
            if (place && place->state != MemoryPlace::State::free && place->range.size() < pixel) {
                return place;
            }
        }
    }
    return exact;
}

/// How strongly a selected row is tinted, of 255.
constexpr int TintStrength = 40;

QFont bold(QFont font) {
    font.setBold(true);
    return font;
}

} // namespace

MemoryRowDelegate::MemoryRowDelegate(const MemoryModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model) {}

QRect MemoryRowDelegate::barRect(const QRect& row, const QFontMetrics& metrics) {
    const QRect name = nameRect(row, metrics);
    return {name.left(), name.bottom() + 1 + Gap, name.width(), barHeight(metrics)};
}

void MemoryRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const MemoryRow& row = m_model.report().rows().at(static_cast<std::size_t>(index.row()));
    const QRect bar = barRect(option.rect, option.fontMetrics);
    if (option.state.testFlag(QStyle::State_Selected)) { // what would be copied
        QColor tint = option.palette.color(QPalette::Active, QPalette::Highlight);
        tint.setAlpha(TintStrength);
        painter->fillRect(option.rect, tint);
    }
    drawMemoryBar(*painter, bar, *row.area, row.gap, MemoryBarColors(option.palette));

    painter->save();
    painter->setPen(option.palette.color(QPalette::Text));
    const QRect name = nameRect(option.rect, option.fontMetrics);
    const QString change = MemoryReport::changeOf(row);
    painter->setFont(bold(option.font));
    painter->drawText(name, Qt::AlignRight | Qt::AlignVCenter, change);
    const QFontMetrics metrics(painter->font());
    const int room = name.width() - metrics.horizontalAdvance(change) - Margin;
    painter->drawText(name, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(MemoryReport::nameOf(row), Qt::ElideRight, room));
    painter->setFont(option.font);
    QRect numbers = option.rect.adjusted(Margin, 0, -Margin, 0);
    numbers.setTop(bar.bottom() + 1 + Gap);
    painter->drawText(numbers, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                      MemoryReport::usageOf(row));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        const QColor color = readable(option.palette.color(QPalette::Highlight),
                                      option.palette.color(QPalette::Base));
        painter->setPen(QPen(color, FocusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter->drawRect(QRectF(option.rect).adjusted(2, 2, -2, -2));
    }
    painter->restore();
}

QSize MemoryRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& /*index*/) const {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view != nullptr ? view->viewport()->width() : option.rect.width();
    std::uint32_t size = 0;
    for (const MemoryRow& row : m_model.report().rows()) {
        size = std::max(size, row.area->size());
    }
    const QRect room(0, 0, width - 2 * Margin, 0x10000);
    const int numbers = option.fontMetrics
                            .boundingRect(room, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                                          MemoryReport::widestUsage(size))
                            .height();
    const int bar = barRect(QRect(0, 0, width, 1), option.fontMetrics).bottom() + 1;
    return {width, bar + Gap + numbers + Margin};
}

bool MemoryRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event == nullptr || view == nullptr || event->type() != QEvent::ToolTip ||
        !index.isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const MemoryRow& row = m_model.report().rows().at(static_cast<std::size_t>(index.row()));
    const QRect bar = barRect(option.rect, option.fontMetrics);
    const auto place = placeUnder(row, bar, event->pos().x());
    if (!bar.contains(event->pos()) || !place) {
        QToolTip::hideText();
        event->ignore();
        return false;
    }
    // It stays as long as the pointer is on this pixel of the bar: the next one may be elsewhere.
    const QRect pixel(event->pos().x(), bar.top(), 1, bar.height());
    QToolTip::showText(event->globalPos(), m_model.report().textOf(row, *place), view->viewport(),
                       pixel);
    return true;
}

} // namespace kestrel
