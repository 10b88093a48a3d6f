// SPDX-License-Identifier: MIT
// How a selector draws itself.
#include "chrcanvas/views/BoxPainter.h"
#include "chrcanvas/views/BoxSelectorView.h"

#include <QPainter>
#include <QPaintEvent>

namespace kestrel {

void BoxSelectorView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    BoxPainter boxes(painter, font(), palette().color(QPalette::WindowText));
    paintBoxes(boxes, event->region());
    for (int number = 0; number < grid().paletteCount(); ++number) {
        paintLabel(painter, number);
    }
    if (grid().paletteCount() > 1) {
        boxes.pickedPalette(grid().paletteRect(m_picked.number), LabelStart);
    }
    if (holds(m_picked)) {
        boxes.picked(grid().rect(m_picked));
    }
    if (m_hovered && holds(*m_hovered)) {
        boxes.hover(grid().rect(*m_hovered));
    }
    if (hasFocus() && holds(m_cursor)) {
        boxes.cursor(grid().rect(m_cursor));
    }
}

void BoxSelectorView::paintBoxes(BoxPainter& boxes, const QRegion& region) {
    for (int number = 0; number < grid().paletteCount(); ++number) {
        for (int box = 0; box < grid().boxCount(number); ++box) {
            const QRect rect = grid().rect({number, box});
            if (region.intersects(rect)) {
                const ColorEntry entry = shownEntry({number, box});
                boxes.box(rect, entry.color, boxText({number, box}, entry), isCrossedOut(entry));
            }
        }
    }
}

void BoxSelectorView::paintLabel(QPainter& painter, int paletteNumber) {
    const QString label = paletteLabel(paletteNumber);
    if (label.isEmpty()) {
        return;
    }
    const QRect boxes = grid().paletteRect(paletteNumber);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(LabelStart, boxes.top(), boxes.left() - LabelStart, boxes.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, label);
}

void BoxSelectorView::repaintBox(PaletteBox box) {
    if (holds(box)) {
        constexpr int Gap = BoxGrid::Gap;
        update(grid().rect(box).adjusted(-Gap, -Gap, Gap, Gap));
    }
}

void BoxSelectorView::repaintPalette(int paletteNumber) {
    const QRect rect = grid().paletteRect(paletteNumber);
    if (!rect.isEmpty()) {
        constexpr int Gap = BoxGrid::Gap;
        update(rect.adjusted(-rect.left(), -Gap, Gap, Gap));
    }
}

} // namespace kestrel
