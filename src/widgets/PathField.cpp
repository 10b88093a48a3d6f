// SPDX-License-Identifier: MIT
#include "widgets/PathField.h"

#include "widgets/Contrast.h"

#include <QPainter>
#include <QStyleOptionFrame>
#include <QTextDocument>

namespace kestrel {

namespace {

constexpr int TextMargin = 2; // between the field's inner edge and its text, as in QLineEdit

} // namespace

PathField::PathField(QWidget* parent)
    : QLineEdit(parent) {
    setReadOnly(true);
    setFrame(false);
}

void PathField::setPath(const QString& path) {
    setText(path);
    setToolTip(Qt::mightBeRichText(path) ? path.toHtmlEscaped() : path);
}

QString PathField::paintedText() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, textPlace().width());
}

QRect PathField::textPlace() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .marginsRemoved(textMargins())
        .adjusted(TextMargin, 0, -TextMargin, 0);
}

void PathField::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    option->palette.setBrush(QPalette::Base, option->palette.window());
}

void PathField::paintEvent(QPaintEvent* event) {
    const QString shown = paintedText();
    if (hasFocus() || shown == text()) {
        QLineEdit::paintEvent(event);
        if (hasFocus()) {
            paintFocus();
        }
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(textPlace(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

/// A line around the field, since one that is not typed into shows no cursor.
void PathField::paintFocus() {
    QPainter painter(this);
    painter.setPen(
        readable(palette().color(QPalette::Highlight), palette().color(backgroundRole())));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace kestrel
