// SPDX-License-Identifier: MIT
#include "widgets/WrappedLabel.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace kestrel {

namespace {

/// What the text is laid out in at least, in average characters.
constexpr int LeastCharacters = 8;

} // namespace

WrappedLabel::WrappedLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

qreal WrappedLabel::layOut(QTextLayout& layout, int width) const {
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setFont(font());
    QString shown = text();
    layout.setText(shown.replace(QLatin1Char('\n'), QChar::LineSeparator));
    layout.beginLayout();
    qreal height = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
    return height;
}

int WrappedLabel::heightForWidth(int width) const {
    QTextLayout layout;
    return static_cast<int>(std::ceil(layOut(layout, width)));
}

QSize WrappedLabel::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(text()) + 1;
    return {width, fontMetrics().height()};
}

QSize WrappedLabel::minimumSizeHint() const {
    return {LeastCharacters * fontMetrics().averageCharWidth(), fontMetrics().height()};
}

void WrappedLabel::paintEvent(QPaintEvent* /*event*/) {
    QTextLayout layout;
    layOut(layout, width());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, QPointF(0, 0));
}

} // namespace kestrel
