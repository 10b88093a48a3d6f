// SPDX-License-Identifier: MIT
#include "widgets/ElidedLabel.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace kestrel {

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString ElidedLabel::line() const {
    QString line = text();
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control) {
            character = QChar::ReplacementCharacter;
        }
    }
    return line;
}

QString ElidedLabel::visibleText() const {
    return fontMetrics().elidedText(line(), Qt::ElideMiddle, contentsRect().width());
}

QSize ElidedLabel::sizeHint() const {
    return {fontMetrics().horizontalAdvance(line()) + 2, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 8, fontMetrics().height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        const QString whole = visibleText() == line() ? QString() : line();
        // As rich text a file name could hold tags, and a long one would not be wrapped.
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           whole.isEmpty() ? whole : Qt::convertFromPlainText(whole), this);
        return true;
    }
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine,
                     visibleText());
}

} // namespace kestrel
