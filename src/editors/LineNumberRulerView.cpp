#include "editors/LineNumberRulerView.h"

#include "editors/LabelFont.h"
#include "editors/ScreenLines.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QWheelEvent>

#include <cmath>
#include <map>

namespace kestrel {

namespace {

constexpr qreal LeastContrast = 4.5;

/// How bright a colour is to the eye, from 0 to 1 (relative luminance, WCAG 2.1).
qreal luminance(const QColor& color) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

qreal contrast(const QColor& one, const QColor& other) {
    const qreal a = luminance(one);
    const qreal b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// The gray nearest to the middle one that can be read on `background`.
QColor readableGray(const QColor& background) {
    constexpr int Middle = 0x80;
    const int direction =
        contrast(background, Qt::black) > contrast(background, Qt::white) ? -1 : 1;
    int level = Middle;
    while (level > 0 && level < 255 &&
           contrast(background, QColor(level, level, level)) < LeastContrast) {
        level += direction;
    }
    return {level, level, level};
}

} // namespace

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
    // In a font of one width all labels of one length fit alike.
    std::map<qsizetype, LabelFont> fittedByLength;
    for (const ScreenLine& line : lines) {
        QString text = line.number ? QString::number(*line.number) : QStringLiteral("-");
        auto fitted = fittedByLength.find(text.size());
        if (fitted == fittedByLength.end()) {
            fitted =
                fittedByLength.emplace(text.size(), LabelFont::fitting(text, viewFont, LabelEdge))
                    .first;
        }
        labels.push_back(
            {std::move(text), offset + line.top, fitted->second.font, fitted->second.width});
    }
    return labels;
}

void LineNumberRulerView::drawHashMarksAndLabels(QPainter& painter) const {
    draw(painter, labels(), rect());
}

/// Draws those of the labels that reach into `rect`.
void LineNumberRulerView::draw(QPainter& painter, const std::vector<Label>& labels,
                               const QRect& rect) const {
    painter.setPen(labelColor());
    const QFontMetricsF metrics(m_textView.font());
    for (const Label& label : labels) {
        if (label.top <= rect.bottom() + 1 && label.top + metrics.height() >= rect.top()) {
            painter.setFont(label.font);
            painter.drawText(QPointF(label.left(), label.top + metrics.ascent()), label.text);
        }
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
    return readableGray(backgroundColor());
}

void LineNumberRulerView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), backgroundColor());
    m_painted = m_lines.visibleScreenLines();
    draw(painter, labelsOf(m_painted), event->rect());
}

void LineNumberRulerView::wheelEvent(QWheelEvent* event) {
    // The text scrolls under the pointer here as it does beside.
    QCoreApplication::sendEvent(m_textView.viewport(), event);
}

} // namespace kestrel
