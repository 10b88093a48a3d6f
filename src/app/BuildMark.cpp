// SPDX-License-Identifier: MIT
#include "app/BuildMark.h"

#include "widgets/Contrast.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace kestrel {

namespace {

/// The marks are drawn in a square of this size and scaled.
constexpr qreal Side = 16;
constexpr QRectF Disc(1, 1, 14, 14);
constexpr qreal LineWidth = 2;

QString nameOf(BuildMarkKind kind) {
    switch (kind) {
    case BuildMarkKind::notice:
        return BuildMark::tr("Note");
    case BuildMarkKind::running:
        return BuildMark::tr("Running");
    case BuildMarkKind::made:
        return BuildMark::tr("Made");
    case BuildMarkKind::warned:
        return BuildMark::tr("Made with warnings");
    case BuildMarkKind::failed:
        return BuildMark::tr("Failed");
    case BuildMarkKind::stopped:
        return BuildMark::tr("Stopped");
    }
    return {};
}

/// A triangle that stands on its side; the pen rounds its corners.
QPolygonF triangle() {
    return QPolygonF{{8, 2.5}, {14, 13.5}, {2, 13.5}};
}

/// The corners of an octagon, as a stop sign has them.
QPolygonF octagon() {
    constexpr qreal Near = 5;
    constexpr qreal Far = Side - Near;
    constexpr qreal First = 1;
    constexpr qreal Last = Side - First;
    return QPolygonF{{Near, First}, {Far, First}, {Last, Near}, {Last, Far},
                     {Far, Last},   {Near, Last}, {First, Far}, {First, Near}};
}

/// Draws a kind's shape with `ink`; what is cut out of it shows `paper`.
void draw(QPainter& painter, BuildMarkKind kind, const QColor& ink, const QColor& paper) {
    const QPen line(ink, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen cut(paper, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QRectF ring = Disc.adjusted(LineWidth / 2, LineWidth / 2, -LineWidth / 2, -LineWidth / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    switch (kind) {
    case BuildMarkKind::notice: // an i in a ring
        painter.drawEllipse(QRectF(7, 3.8, 2, 2));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(line);
        painter.drawEllipse(ring);
        painter.drawLine(QPointF(8, 7.8), QPointF(8, 11.2));
        break;
    case BuildMarkKind::running: // a clock
        painter.setBrush(Qt::NoBrush);
        painter.setPen(line);
        painter.drawEllipse(ring);
        painter.drawPolyline(QPolygonF{{8, 4.5}, {8, 8}, {10.5, 9.5}});
        break;
    case BuildMarkKind::made: // a disc with a tick
        painter.drawEllipse(Disc);
        painter.setPen(cut);
        painter.drawPolyline(QPolygonF{{4.5, 8.5}, {7, 11}, {11.5, 5.5}});
        break;
    case BuildMarkKind::warned: // a triangle with an exclamation mark
        painter.setPen(line);
        painter.drawPolygon(triangle());
        painter.setPen(cut);
        painter.drawLine(QPointF(8, 6.2), QPointF(8, 9));
        painter.drawPoint(QPointF(8, 12.2));
        break;
    case BuildMarkKind::failed: // an octagon with a cross
        painter.drawPolygon(octagon());
        painter.setPen(cut);
        painter.drawLine(QPointF(5.5, 5.5), QPointF(10.5, 10.5));
        painter.drawLine(QPointF(10.5, 5.5), QPointF(5.5, 10.5));
        break;
    case BuildMarkKind::stopped: // a square
        painter.drawRoundedRect(QRectF(2, 2, 12, 12), 1, 1);
        break;
    }
}

/// The mark as assistive technology sees it.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    if (className != QLatin1String(BuildMark::staticMetaObject.className())) {
        return nullptr;
    }
    return new QAccessibleWidget(qobject_cast<QWidget*>(object),
                                 QAccessible::Graphic); // Qt owns it
}

} // namespace

BuildMark::BuildMark(QWidget* parent)
    : QWidget(parent) {
    // Before the first name is told; only the first of several times.
    QAccessible::installFactory(makeAccessible);
    setObjectName(QStringLiteral("buildMark"));
    setAccessibleName(nameOf(m_kind));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void BuildMark::setKind(BuildMarkKind kind) {
    if (kind == m_kind) {
        return;
    }
    m_kind = kind;
    setAccessibleName(nameOf(kind));
    update();
}

QSize BuildMark::sizeHint() const {
    return {fontMetrics().height(), fontMetrics().height()};
}

QColor BuildMark::color() const {
    const QColor background = palette().color(backgroundRole());
    switch (m_kind) {
    case BuildMarkKind::made:
        return readable(QColor(0x1a, 0x8a, 0x3a), background);
    case BuildMarkKind::warned:
        return readable(QColor(0x9a, 0x66, 0x00), background);
    case BuildMarkKind::failed:
        return readableRed(background);
    case BuildMarkKind::notice:
    case BuildMarkKind::running:
    case BuildMarkKind::stopped:
        break;
    }
    return palette().color(foregroundRole());
}

void BuildMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(width() / Side, height() / Side);
    draw(painter, m_kind, color(), palette().color(backgroundRole()));
}

} // namespace kestrel
