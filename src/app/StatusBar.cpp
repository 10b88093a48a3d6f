// SPDX-License-Identifier: MIT
#include "app/StatusBar.h"

#include "app/BuildMark.h"
#include "widgets/Announcement.h"
#include "widgets/Contrast.h"
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
        m_announcements.push_back(row.isAnnounced ? new Announcement(*label) : nullptr);
        label->setObjectName(QLatin1StringView(row.objectName));
        m_labels.push_back(label);
        showText(row, board.text(row.field), board.tone(row.field));
    }
    connect(&board, &StatusBoard::changed, this, [this, &board](StatusField field) {
        showText(statusRows()[static_cast<std::size_t>(field)], board.text(field),
                 board.tone(field));
        placeLabels();
    });
    dimPastTexts();
    placeLabels();
}

void StatusBar::showText(const StatusRow& row, const QString& text, StatusTone tone) {
    const auto index = static_cast<std::size_t>(row.field);
    m_labels.at(index)->setText(text);
    m_labels.at(index)->setForegroundRole(tone == StatusTone::past ? QPalette::PlaceholderText
                                                                   : QPalette::WindowText);
    // The accessible name of a label stands in place of its text, so it needs both.
    const QString nameAndText = StatusBoard::tr("%1: %2").arg(StatusBoard::tr(row.name), text);
    if (m_announcements.at(index) != nullptr && !text.isEmpty()) {
        m_announcements.at(index)->say(nameAndText);
    } else {
        m_labels.at(index)->setAccessibleName(nameAndText);
    }
}

/// What is only about the past is as dim as what is disabled, as far as it can still be read.
void StatusBar::dimPastTexts() {
    const QColor dim = readable(palette().color(QPalette::Disabled, QPalette::WindowText),
                                palette().color(QPalette::Window));
    for (ElidedLabel* label : m_labels) {
        QPalette own;
        own.setColor(QPalette::PlaceholderText, dim);
        label->setPalette(own);
    }
}

int StatusBar::wantedWidth(const StatusRow& row) const {
    const ElidedLabel* label = m_labels.at(static_cast<std::size_t>(row.field));
    return label->text().isEmpty() ? 0 : label->sizeHint().width();
}

int StatusBar::leastWidth(const StatusRow& row) const {
    const ElidedLabel* label = m_labels.at(static_cast<std::size_t>(row.field));
    return std::min(wantedWidth(row), label->minimumSizeHint().width());
}

void StatusBar::setBuildMark(BuildMarkKind kind) {
    m_buildMark->setKind(kind);
}

/// How wide each field is in a bar with this room for them; 0 is hidden.
std::array<int, StatusFieldCount> StatusBar::widthsFor(int room) const {
    std::array<int, StatusFieldCount> widths{};
    room += Gap; // there is one behind each field but the last
    const auto widen = [&](const StatusRow& row, int wanted, int least) {
        int& width = widths.at(static_cast<std::size_t>(row.field));
        const int gap = width == 0 ? Gap : 0;
        const int given = std::min(wanted, width + room - gap);
        if (wanted > 0 && given >= least) {
            room -= given - width + gap;
            width = given;
        }
    };
    for (const bool isLeast : {true, false}) {
        for (const bool isUrgent : {true, false}) {
            for (const StatusRow& row : statusRows()) {
                if (row.side == StatusSide::left && row.isUrgent == isUrgent) {
                    widen(row, isLeast ? leastWidth(row) : wantedWidth(row), 1);
                }
            }
        }
    }
    for (const StatusRow& row : statusRows()) {
        if (row.side == StatusSide::right) {
            widen(row, wantedWidth(row), leastWidth(row));
        }
    }
    return widths;
}

void StatusBar::placeLabels() {
    int left = Margin;
    int right = width() - Margin;
    const QSize mark = m_buildMark->sizeHint();
    m_buildMark->setGeometry({{left, (height() - mark.height()) / 2}, mark});
    m_buildMark->setVisible(!m_labels.front()->text().isEmpty());
    if (m_buildMark->isVisibleTo(this)) {
        left += mark.width() + MarkGap;
    }
    const std::array<int, StatusFieldCount> widths = widthsFor(right - left);
    for (const StatusRow& row : statusRows()) {
        const auto index = static_cast<std::size_t>(row.field);
        const int given = widths.at(index);
        ElidedLabel* label = m_labels.at(index);
        if (given > 0 && row.side == StatusSide::left) {
            label->setGeometry(left, 0, given, height());
            left += given + Gap;
        } else if (given > 0) {
            label->setGeometry(right - given, 0, given, height());
            right -= given + Gap;
        }
        label->setVisible(given > 0);
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
    if (event->type() == QEvent::PaletteChange) {
        dimPastTexts();
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
