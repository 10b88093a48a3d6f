// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QColor;
class QPainter;
class QWidget;

namespace kestrel {

/// Makes a painter that was just begun on a widget count in whole pixels of the screen from the
/// widget's top left corner, so that what is drawn is crisp also where a unit of the toolkit is one
/// and a half of them.
void countInScreenPixels(QPainter& painter);

/// How many whole pixels of the screen fit into a size of the toolkit's units.
QSize screenSize(const QWidget& widget, const QSize& size);

/// The pixel of the screen at a position in the widget, counted as countInScreenPixels() does.
QPoint screenPosition(const QWidget& widget, const QPointF& position);

/// The smallest rectangle in the toolkit's units that holds a rectangle of pixels, and the smallest
/// of the widget's pixels that holds one of units. With room for how the widget's corner is
/// rounded.
QRect widgetRect(const QWidget& widget, const QRect& screen);
QRect screenRect(const QWidget& widget, const QRect& rect);

/// The width of a line that looks like one unit of the toolkit: at least one pixel of the screen.
int thinLine(const QWidget& widget);

/// Draws a frame just inside `rect`. The painter counts in pixels of the screen.
void drawOutline(QPainter& painter, const QRect& rect, int thickness, const QColor& color);

} // namespace kestrel
