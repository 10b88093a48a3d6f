// SPDX-License-Identifier: MIT
#include "memory/MemoryBar.h"

#include "widgets/Contrast.h"
#include "widgets/ScreenPixels.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace kestrel {

namespace {

constexpr double HatchDistance = 6;
constexpr double LeastRangeWidth = 2;

/// The part of a bar within its frame.
QRectF inside(const QRectF& bar, double line) {
    return bar.adjusted(line, line, -line, -line);
}

/// Places the bytes of an area in its bar.
class Scale {
public:
    Scale(const QPainter& painter, const QRectF& bar, const MemoryArea& area)
        : m_painter(painter)
        , m_bar(bar)
        , m_area(area) {}

    /// Of whole device pixels, however few bytes it is for.
    QRectF rectOf(const ByteRange& range) const {
        QRectF rect = m_bar;
        rect.setLeft(xOf(range.begin));
        rect.setRight(xOf(range.end));
        const QRectF whole = fitted(m_painter, rect);
        const double least = fittedWidth(m_painter, LeastRangeWidth);
        if (whole.width() >= least) {
            return whole;
        }
        // From the pixel on in which the range begins, but within the bar.
        rect = fitted(m_painter, rect.translated(-fittedWidth(m_painter, 0) / 2, 0));
        rect.setWidth(least);
        rect.moveRight(std::min(rect.right(), m_bar.right()));
        return rect;
    }

private:
    double xOf(std::uint32_t byte) const {
        return m_bar.left() +
               m_bar.width() * (byte - m_area.whole.begin) / std::max(1U, m_area.size());
    }

    const QPainter& m_painter;
    QRectF m_bar;
    const MemoryArea& m_area;
};

void drawFrame(QPainter& painter, const QRectF& rect, double width, const QColor& color) {
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.top(), width, rect.height()), color);
    painter.fillRect(QRectF(rect.right() - width, rect.top(), width, rect.height()), color);
}

void drawHatching(QPainter& painter, const QRectF& rect, double width, const QColor& color) {
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    // The lines of neighbouring bars continue each other, wherever a gap begins.
    const auto first = static_cast<int>(std::floor((rect.left() - rect.height()) / HatchDistance));
    const auto last = static_cast<int>(std::ceil(rect.right() / HatchDistance));
    for (int line = first; line < last; ++line) {
        const double x = line * HatchDistance;
        painter.drawLine(QPointF(x, rect.bottom()), QPointF(x + rect.height(), rect.top()));
    }
    painter.restore();
}

/// Draws ranges as blocks; those that would share a pixel as one, so that the cost is that of the
/// bar's pixels.
void drawUsed(QPainter& painter, const Scale& scale, const std::vector<ByteRange>& ranges,
              const QColor& color) {
    QRectF block;
    for (const ByteRange& range : ranges) {
        const QRectF rect = scale.rectOf(range);
        if (!block.isEmpty() && rect.left() <= block.right()) {
            block |= rect;
            continue;
        }
        painter.fillRect(block, color);
        block = rect;
    }
    painter.fillRect(block, color);
}

} // namespace

MemoryBarColors::MemoryBarColors(const QPalette& palette)
    : background(palette.color(QPalette::Base))
    , frame(readable(QColor(0x80, 0x80, 0x80), background))
    , used(readable(QColor(0x2f, 0x6f, 0xb5), background))
    , named(readable(palette.color(QPalette::Text), background)) {}

void drawMemoryBar(QPainter& painter, const QRectF& bar, const MemoryArea& area,
                   const ByteRange& gap, const MemoryBarColors& colors) {
    const QRectF outside = fitted(painter, bar);
    const double line = fittedWidth(painter, 1);
    const Scale scale(painter, inside(outside, line), area);
    painter.fillRect(outside, colors.background);
    if (gap.size() > 0) {
        const QRectF rect = scale.rectOf(gap);
        drawHatching(painter, rect, line, colors.frame);
        drawFrame(painter, rect, line, colors.frame);
    }
    drawUsed(painter, scale, area.used, colors.used);
    drawFrame(painter, outside, line, colors.frame);
    for (const ByteRange& range : area.named) {
        // Only half as high as what is used, so that the shape tells it, too.
        QRectF tick = scale.rectOf(range);
        tick.setTop(tick.top() + tick.height() / 2);
        painter.fillRect(fitted(painter, tick), colors.named);
    }
}

ByteRange bytesAt(const QRectF& wholeBar, const MemoryArea& area, double x) {
    const QRectF bar = inside(wholeBar, 1);
    if (x < bar.left() || x >= bar.right() || area.size() == 0) {
        return {};
    }
    const auto byteAt = [&](double place) {
        return area.whole.begin +
               static_cast<std::uint32_t>((place - bar.left()) / bar.width() * area.size());
    };
    const std::uint32_t first = std::min(byteAt(x), area.whole.end - 1);
    return {first, std::clamp(byteAt(x + 1), first + 1, area.whole.end)};
}

} // namespace kestrel
