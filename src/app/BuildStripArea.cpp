// SPDX-License-Identifier: MIT
#include "app/BuildStripArea.h"

#include "app/BuildStrip.h"

#include <QEvent>
#include <QLayout>

#include <algorithm>

namespace kestrel {

namespace {

/// So many lines of a low window are left to the console's text.
constexpr int LinesLeft = 3;

} // namespace

BuildStripArea::BuildStripArea(QWidget* parent)
    : QScrollArea(parent)
    , m_strip(new BuildStrip(this)) {
    setObjectName(QStringLiteral("buildStripArea"));
    setAccessibleName(tr("Result of the build"));
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(m_strip);
    m_strip->hide(); // it has nothing to say yet
    parent->installEventFilter(this);
    fit();
}

bool BuildStripArea::eventFilter(QObject* watched, QEvent* event) {
    const bool result = QScrollArea::eventFilter(watched, event);
    const bool isRoom = watched == parent() && event->type() == QEvent::Resize;
    const bool isNeed = watched == m_strip && (event->type() == QEvent::LayoutRequest ||
                                               event->type() == QEvent::ShowToParent ||
                                               event->type() == QEvent::HideToParent);
    if (isRoom || isNeed) {
        fit();
    }
    return result;
}

void BuildStripArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fit();
}

void BuildStripArea::fit() {
    if (m_strip->isHidden()) {
        hide();
        return;
    }
    QLayout& layout = *m_strip->layout();
    const int needed =
        std::max(layout.totalHeightForWidth(width()), layout.totalMinimumSize().height());
    const int room = parentWidget()->height() - LinesLeft * fontMetrics().lineSpacing();
    const int least = layout.contentsMargins().top() + fontMetrics().lineSpacing();
    setFixedHeight(std::min(needed, std::max(room, least)));
    setFocusPolicy(needed > height() ? Qt::TabFocus : Qt::NoFocus);
    show();
    // A strip that got its size while hidden still has its texts where a larger one has them.
    layout.setGeometry(m_strip->contentsRect());
}

} // namespace kestrel
