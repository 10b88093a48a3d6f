// SPDX-License-Identifier: MIT
// What mouse and keyboard do in the pixel editor.
#include "chrcanvas/views/ChrCanvas.h"
#include "widgets/ScreenPixels.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace kestrel {

bool ChrCanvas::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setPointerInside(false);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void ChrCanvas::setPointerInside(bool inside) {
    if (inside != m_pointerInside) {
        m_pointerInside = inside;
        repaintPixels(QRect(m_cursor, QSize(1, 1)));
        Q_EMIT cursorMoved();
    }
}

void ChrCanvas::moveCursor(const QPoint& pixel) {
    if (pixel == m_cursor) {
        return;
    }
    repaintPixels(QRect(m_cursor, QSize(1, 1)));
    m_cursor = pixel;
    repaintPixels(QRect(m_cursor, QSize(1, 1)));
    tellValueChanged(*this);
    Q_EMIT cursorMoved();
}

/// A second press soon after the first is a press like any other.
void ChrCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void ChrCanvas::mousePressEvent(QMouseEvent* event) {
    if (m_document->isDrawing()) {
        return;
    }
    const bool picks =
        event->button() == Qt::RightButton ||
        (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ControlModifier));
    const QPoint pixel = pixelAt(event->position());
    moveCursor(pixel);
    if (picks) {
        m_picking = true;
        pickColor(pixel);
    } else if (event->button() == Qt::LeftButton) {
        useTool(pixel);
    }
}

void ChrCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPoint from = m_cursor;
    const QPoint pixel = pixelAt(event->position());
    setPointerInside(true);
    moveCursor(pixel);
    if (m_picking) {
        pickColor(pixel);
    } else if (m_document->isDrawing() && pixel != from) {
        m_document->continueStroke(pixel.x(), pixel.y());
    }
}

void ChrCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_document->endStroke();
    }
    if (event->buttons() == Qt::NoButton) {
        m_picking = false;
    }
}

void ChrCanvas::hideEvent(QHideEvent* event) {
    m_document->endStroke();
    m_picking = false;
    setPointerInside(false);
    QAbstractScrollArea::hideEvent(event);
}

void ChrCanvas::useTool(const QPoint& pixel) {
    switch (m_tool) {
    case DrawingTool::pencil:
        m_document->beginStroke(pixel.x(), pixel.y(), m_colorBox);
        break;
    case DrawingTool::fill:
        m_document->fill(pixel.x(), pixel.y(), m_colorBox);
        break;
    }
}

void ChrCanvas::pickColor(const QPoint& pixel) {
    const std::optional<int> value = m_document->valueAt(pixel.x(), pixel.y());
    if (value && *value != m_colorBox) {
        setCurrentColorBox(*value);
        Q_EMIT colorPicked(*value);
    }
}

void ChrCanvas::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    // The picture's point under the pointer stays there as far as the scroll bars allow.
    const int former = m_zoom;
    const QPoint pointer = screenPosition(*viewport(), event->position());
    const QPoint point = pointer - origin();
    if (event->angleDelta().y() > 0) {
        zoomIn();
    } else if (event->angleDelta().y() < 0) {
        zoomOut();
    }
    const QPoint moved = point * m_zoom / former - pointer;
    horizontalScrollBar()->setValue(moved.x() + frameMargin());
    verticalScrollBar()->setValue(moved.y() + frameMargin());
    event->accept();
}

bool ChrCanvas::moveCursorByKey(int key, bool painting) {
    QPoint pixel = m_cursor;
    switch (key) {
    case Qt::Key_Left:
        pixel.rx() -= 1;
        break;
    case Qt::Key_Right:
        pixel.rx() += 1;
        break;
    case Qt::Key_Up:
        pixel.ry() -= 1;
        break;
    case Qt::Key_Down:
        pixel.ry() += 1;
        break;
    case Qt::Key_Home:
        pixel.setX(0);
        break;
    case Qt::Key_End:
        pixel.setX(pictureSize().width() - 1);
        break;
    default:
        return false;
    }
    const QSize size = pictureSize();
    pixel = QPoint(std::clamp(pixel.x(), 0, std::max(0, size.width() - 1)),
                   std::clamp(pixel.y(), 0, std::max(0, size.height() - 1)));
    if (painting && !m_document->isDrawing()) {
        m_document->drawLine(m_cursor.x(), m_cursor.y(), pixel.x(), pixel.y(), m_colorBox);
    }
    moveCursor(pixel);
    scrollToCursor();
    return true;
}

void ChrCanvas::scrollToCursor() {
    const QSize visible = screenSize(*viewport(), viewport()->size());
    const QRect pixel = pixelsOnScreen(QRect(m_cursor, QSize(1, 1)));
    const auto scroll = [](QScrollBar* bar, int first, int last, int space) {
        if (first < 0) {
            bar->setValue(bar->value() + first);
        } else if (last >= space) {
            bar->setValue(bar->value() + last - space + 1);
        }
    };
    scroll(horizontalScrollBar(), pixel.left(), pixel.right(), visible.width());
    scroll(verticalScrollBar(), pixel.top(), pixel.bottom(), visible.height());
}

void ChrCanvas::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool painting = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !painting) {
        event->ignore();
        return;
    }
    const int key = event->key();
    // A line that is being drawn goes on from where the pointer was.
    if (!m_document->isDrawing() && moveCursorByKey(key, painting)) {
        return;
    }
    if (painting) {
        event->ignore();
        return;
    }
    if (key >= Qt::Key_0 && key < Qt::Key_0 + PixelValues) {
        setCurrentColorBox(key - Qt::Key_0);
        Q_EMIT colorPicked(m_colorBox);
    } else if (key == Qt::Key_P) {
        pickColor(m_cursor);
    } else if ((key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) &&
               !m_document->isDrawing()) {
        useTool(m_cursor);
        m_document->endStroke();
    } else {
        event->ignore();
    }
}

void ChrCanvas::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    // The pointer may have left the cursor beside the tiles; a keyboard's is always on them.
    const QSize size = pictureSize();
    moveCursor(QPoint(std::clamp(m_cursor.x(), 0, std::max(0, size.width() - 1)),
                      std::clamp(m_cursor.y(), 0, std::max(0, size.height() - 1))));
    repaintPixels(QRect(m_cursor, QSize(1, 1)));
    Q_EMIT cursorMoved();
}

void ChrCanvas::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    repaintPixels(QRect(m_cursor, QSize(1, 1)));
    Q_EMIT cursorMoved();
}

} // namespace kestrel
