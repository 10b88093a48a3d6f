// SPDX-License-Identifier: MIT
#include "app/StatusBar.h"

#include "app/BuildMark.h"
#include "widgets/ElidedLabel.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace kestrel {

namespace {

constexpr int Margin = 8;
constexpr int Gap = 24;
constexpr int MarkGap = 6;
constexpr int VerticalMargin = 3;

} // namespace

StatusBar::StatusBar(const StatusBoard& board, QWidget* parent)
    : QStatusBar(parent)
    , m_buildMark(new BuildMark(this)) {
    setObjectName(QStringLiteral("statusBar"));
    setAccessibleName(tr("Status bar"));
    setSizeGripEnabled(false);
    for (const StatusRow& row : statusRows()) {
        auto* label = new ElidedLabel(this);
        label->setObjectName(QLatin1StringView(row.objectName));
        m_labels.push_back(label);
        showText(row, board.text(row.field));
    }
    connect(&board, &StatusBoard::changed, this, [this, &board](StatusField field) {
        showText(statusRows()[static_cast<std::size_t>(field)], board.text(field));
        placeLabels();
    });
    placeLabels();
}

void StatusBar::showText(const StatusRow& row, const QString& text) {
    ElidedLabel* label = m_labels.at(static_cast<std::size_t>(row.field));
    label->setText(text);
    // The accessible name of a label stands in place of its text, so it needs both.
    label->setAccessibleName(StatusBoard::tr("%1: %2").arg(StatusBoard::tr(row.name), text));
}

void StatusBar::setBuildMark(BuildMarkKind kind) {
    m_buildMark->setKind(kind);
}

/// Gives each field the room that those before it leave.
void StatusBar::placeLabels() {
    int left = Margin;
    int right = width() - Margin;
    const QSize mark = m_buildMark->sizeHint();
    m_buildMark->setGeometry({{left, (height() - mark.height()) / 2}, mark});
    m_buildMark->setVisible(!m_labels.front()->text().isEmpty());
    if (m_buildMark->isVisibleTo(this)) {
        left += mark.width() + MarkGap;
    }
    for (const StatusRow& row : statusRows()) {
        ElidedLabel* label = m_labels.at(static_cast<std::size_t>(row.field));
        const int wanted = label->sizeHint().width();
        const int given = std::min(wanted, right - left);
        const bool fits = given >= std::min(wanted, label->minimumSizeHint().width());
        label->setVisible(fits && !label->text().isEmpty());
        if (!label->isVisibleTo(this)) {
            continue;
        }
        if (row.side == StatusSide::left) {
            label->setGeometry(left, 0, given, height());
            left += given + Gap;
        } else {
            label->setGeometry(right - given, 0, given, height());
            right -= given + Gap;
        }
    }
}

QSize StatusBar::sizeHint() const {
    return {0, fontMetrics().height() + 2 * VerticalMargin};
}

QSize StatusBar::minimumSizeHint() const {
    return sizeHint();
}

void StatusBar::changeEvent(QEvent* event) {
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        placeLabels();
    }
}

/// A line parts it from the panes; the style's own frames are for bars with parts.
void StatusBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), palette().mid());
}

void StatusBar::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    placeLabels();
}

} // namespace kestrel
