// SPDX-License-Identifier: MIT
#include "widgets/ThinFrame.h"

#include "widgets/ScreenPixels.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QVBoxLayout>

namespace kestrel {

namespace {

constexpr int Line = 1;
constexpr int Room = 1;

} // namespace

ThinFrame::ThinFrame(QAbstractScrollArea& view, QWidget* parent)
    : QWidget(parent) {
    view.setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Line + Room, Line + Room, Line + Room, Line + Room);
    layout->addWidget(&view);
}

void ThinFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    countInScreenPixels(painter);
    const QRect whole(QPoint(0, 0), screenSize(*this, size()));
    painter.fillRect(whole, palette().color(QPalette::Button));
    drawOutline(painter, whole, Line * thinLine(*this), palette().color(QPalette::Mid));
}

} // namespace kestrel
