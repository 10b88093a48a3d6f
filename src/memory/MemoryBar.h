// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <QColor>
#include <QRectF>

class QPainter;
class QPalette;

namespace kestrel {

/// What a memory bar is drawn with. Each stands out from the background by more than the ratio of 3
/// that shapes need (WCAG 2, success criterion 1.4.11).
struct MemoryBarColors {
    explicit MemoryBarColors(const QPalette& palette);

    QColor background;
    QColor frame; ///< and the hatching of the largest gap
    QColor used;
    QColor named;
};

/// Draws what of an area is used, each range where it is, so that gaps are seen as such; `gap` is
/// hatched and outlined. A range is at least two pixels wide. The painter is fresh and counts in
/// device-independent pixels.
void drawMemoryBar(QPainter& painter, const QRectF& bar, const MemoryArea& area,
                   const ByteRange& gap, const MemoryBarColors& colors);

/// The bytes of the area whose place is between `x` and one pixel further; none on the frame and
/// outside of the bar.
ByteRange bytesAt(const QRectF& bar, const MemoryArea& area, double x);

} // namespace kestrel
