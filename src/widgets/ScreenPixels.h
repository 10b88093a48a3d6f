// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QSize>

class QColor;
class QPainter;
class QWidget;

// Painting on whole device pixels, so that edges are crisp at fractional scale factors, too.

namespace kestrel {

/// Scales a fresh painter to device pixels, counted from the top left corner of its widget.
void countInScreenPixels(QPainter& painter);

/// How many whole device pixels fit into a size.
QSize screenSize(const QWidget& widget, const QSize& size);

/// The device pixel at a position in the widget, counted as by countInScreenPixels().
QPoint screenPosition(const QWidget& widget, const QPointF& position);

/// The smallest rectangle of the widget that holds a rectangle of device pixels, and the other way
/// round; one more on each side at fractional scale factors, where the widget's corner is rounded.
QRect widgetRect(const QWidget& widget, const QRect& screen);
QRect screenRect(const QWidget& widget, const QRect& rect);

/// The width of a thin line in device pixels: one device-independent pixel rounded down, at least
/// one device pixel.
int thinLine(const QWidget& widget);

/// Draws a frame just inside `rect` with a painter that counts in device pixels.
void drawOutline(QPainter& painter, const QRect& rect, int thickness, const QColor& color);

/// A rectangle with each edge moved to the nearest edge of a device pixel; edges that two
/// rectangles share stay shared. The painter is fresh and counts in device-independent pixels.
QRectF fitted(const QPainter& painter, const QRectF& rect);

/// A width rounded to whole device pixels, at least one, in device-independent pixels, for the same
/// painters.
double fittedWidth(const QPainter& painter, double width);

} // namespace kestrel
