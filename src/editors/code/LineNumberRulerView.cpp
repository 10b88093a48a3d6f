// SPDX-License-Identifier: MIT
#include "editors/code/LineNumberRulerView.h"

#include "widgets/Contrast.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace kestrel {

LineNumberRulerView::LineNumberRulerView(QAbstractScrollArea& textView, const ScreenLines& lines)
    : QWidget(&textView)
    , m_textView(textView)
    , m_lines(lines) {
    setObjectName(QStringLiteral("lineNumberView"));
    setAccessibleName(tr("Line numbers"));
    setFont(textView.font());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::ArrowCursor);
}

std::vector<LineNumberRulerView::Label> LineNumberRulerView::labels() const {
    return labelsOf(m_lines.visibleScreenLines());
}

std::vector<LineNumberRulerView::Label>
LineNumberRulerView::labelsOf(const std::vector<ScreenLine>& lines) const {
    const QFont viewFont = m_textView.font();
    const qreal offset = mapFrom(&m_textView, m_textView.viewport()->pos()).y();
    std::vector<Label> labels;
    if (m_fittedFont != viewFont) {
        m_fittedFont = viewFont;
        m_fittedByLength.clear();
    }
    for (const ScreenLine& line : lines) {
        QString text = line.number ? QString::number(*line.number) : QStringLiteral("-");
        auto fitted = m_fittedByLength.find(text.size());
        if (fitted == m_fittedByLength.end()) {
            fitted =
                m_fittedByLength.emplace(text.size(), LabelFont::fitting(text, viewFont, LabelEdge))
                    .first;
        }
        labels.push_back(
            {std::move(text), offset + line.top, fitted->second.font, fitted->second.width});
    }
    return labels;
}

void LineNumberRulerView::drawHashMarksAndLabels(QPainter& painter) const {
    draw(painter, labels());
}

void LineNumberRulerView::draw(QPainter& painter, const std::vector<Label>& labels) const {
    painter.setPen(labelColor());
    const qreal ascent = QFontMetricsF(m_textView.font()).ascent();
    for (const Label& label : labels) {
        painter.setFont(label.font);
        painter.drawText(QPointF(label.left(), label.top + ascent), label.text);
    }
}

void LineNumberRulerView::showChanges() {
    if (m_lines.visibleScreenLines() != m_painted) {
        update();
    }
}

QColor LineNumberRulerView::backgroundColor() const {
    const QColor base = m_textView.palette().color(QPalette::Base);
    // A shade away from the text's background, towards the middle.
    return luminance(base) > 0.18 ? base.darker(104) : base.lighter(115);
}

QColor LineNumberRulerView::labelColor() const {
    return readable(Qt::darkGray, backgroundColor());
}

/// Those of the lines painted last of which a part lies in `rect`.
std::vector<ScreenLine> LineNumberRulerView::reachingInto(const QRect& rect) const {
    const qreal offset = mapFrom(&m_textView, m_textView.viewport()->pos()).y();
    const qreal height = QFontMetricsF(m_textView.font()).height();
    std::vector<ScreenLine> lines;
    std::ranges::copy_if(m_painted, std::back_inserter(lines), [&](const ScreenLine& line) {
        const qreal top = offset + line.top;
        return top <= rect.bottom() + 1 && top + height >= rect.top();
    });
    return lines;
}

void LineNumberRulerView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), backgroundColor());
    m_painted = m_lines.visibleScreenLines();
    draw(painter, labelsOf(reachingInto(event->rect())));
}

void LineNumberRulerView::wheelEvent(QWheelEvent* event) {
    // The text scrolls under the pointer here as it does beside.
    QCoreApplication::sendEvent(m_textView.viewport(), event);
}

} // namespace kestrel
