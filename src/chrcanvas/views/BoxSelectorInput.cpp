// SPDX-License-Identifier: MIT
// What mouse and keyboard do in a selector.
#include "chrcanvas/views/BoxSelectorView.h"

#include <QEvent>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <utility>

namespace kestrel {

bool BoxSelectorView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const QPoint point = static_cast<QHelpEvent*>(event)->pos();
    if (const auto box = grid().boxAt(point)) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), boxDescription(*box), this,
                           grid().rect(*box));
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

void BoxSelectorView::mousePressEvent(QMouseEvent* event) {
    const auto box = grid().boxAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !box) {
        event->ignore();
        return;
    }
    choose(*box);
}

void BoxSelectorView::mouseMoveEvent(QMouseEvent* event) {
    setHovered(grid().boxAt(event->position().toPoint()));
}

void BoxSelectorView::leaveEvent(QEvent* event) {
    setHovered(std::nullopt);
    QWidget::leaveEvent(event);
}

void BoxSelectorView::moveCursor(PaletteBox box) {
    const PaletteBox former = std::exchange(m_cursor, box);
    if (former != box) {
        repaintBox(former);
        repaintBox(box);
        if (hasFocus()) {
            tellAssistants(QAccessible::Focus, box);
            Q_EMIT pointedAt(boxDescription(box));
        }
    }
}

void BoxSelectorView::setHovered(std::optional<PaletteBox> box) {
    const std::optional<PaletteBox> former = std::exchange(m_hovered, box);
    if (former == box) {
        return;
    }
    if (former) {
        repaintBox(*former);
    }
    if (box) {
        repaintBox(*box);
    }
    Q_EMIT pointedAt(box ? boxDescription(*box) : QString());
}

std::optional<PaletteBox> BoxSelectorView::cursorAfter(int key) const {
    const BoxPosition at = grid().position(m_cursor);
    switch (key) {
    case Qt::Key_Left:
        return grid().boxAt(BoxPosition{at.x - 1, at.y});
    case Qt::Key_Right:
        return grid().boxAt(BoxPosition{at.x + 1, at.y});
    case Qt::Key_Up:
        return grid().boxAt(BoxPosition{at.x, at.y - 1});
    case Qt::Key_Down:
        return grid().boxAt(BoxPosition{at.x, at.y + 1});
    case Qt::Key_Home:
        return grid().boxAt(BoxPosition{0, at.y});
    default:
        return grid().lastInRow(at.y);
    }
}

void BoxSelectorView::keyPressEvent(QKeyEvent* event) {
    constexpr Qt::KeyboardModifiers Commands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::ShiftModifier;
    if ((event->modifiers() & Commands) != Qt::NoModifier) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (holds(m_cursor)) {
            choose(m_cursor);
        }
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        if (const auto box = cursorAfter(event->key())) {
            moveCursor(*box);
        }
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void BoxSelectorView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    repaintBox(m_cursor);
    tellAssistants(QAccessible::Focus, m_cursor);
    Q_EMIT pointedAt(boxDescription(m_cursor));
}

void BoxSelectorView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    repaintBox(m_cursor);
    Q_EMIT pointedAt({});
}

} // namespace kestrel
