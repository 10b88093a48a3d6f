// SPDX-License-Identifier: MIT
#include "navigation/tree/NamePainter.h"

#include "widgets/Contrast.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace kestrel {

namespace {

using TextColour = ProjectNavigationItem::TextColour;

const QStyle& styleOf(const QStyleOptionViewItem& row) {
    return row.widget != nullptr ? *row.widget->style() : *QApplication::style();
}

/// Paints a row's name on a rectangle in the background colour of an unselected row.
void paintOnPlate(QPainter& painter, const QString& name, const QStyleOptionViewItem& row,
                  QPalette::ColorGroup group, const QRect& place) {
    const int margin = styleOf(row).pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
    const QString text =
        row.fontMetrics.elidedText(name, row.textElideMode, place.width() - 2 * margin);
    const QSize size(row.fontMetrics.horizontalAdvance(text) + 2 * margin, place.height() - 2);
    const QRect plate = QStyle::alignedRect(row.direction, row.displayAlignment, size, place);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(row.palette.brush(group, QPalette::Base));
    painter.drawRoundedRect(plate, 3, 3);
    painter.setRenderHint(QPainter::Antialiasing, false); // would blur the line through the name
    painter.setPen(row.palette.color(group, QPalette::Text));
    painter.setFont(row.font);
    painter.drawText(plate, Qt::AlignCenter | Qt::TextSingleLine, text);
    painter.restore();
}

} // namespace

QColor shade(TextColour colour, const QColor& background, const QColor& normal) {
    const bool light = luminance(background) > 0.5;
    switch (colour) {
    case TextColour::red:
        return readableRed(background);
    case TextColour::darkGrey:
        return readable(light ? Qt::darkGray : Qt::lightGray, background);
    case TextColour::black:
        break;
    }
    return light ? QColor(Qt::black) : normal;
}

void paintNamedRow(QPainter& painter, QStyleOptionViewItem row, TextColour colour) {
    const QPalette::ColorGroup group =
        row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const auto paintedAs = [&](QPalette::ColorRole text, QPalette::ColorRole background) {
        row.palette.setColor(
            group, text,
            shade(colour, row.palette.color(group, background), row.palette.color(group, text)));
    };
    paintedAs(QPalette::Text, QPalette::Base);
    paintedAs(QPalette::HighlightedText, QPalette::Highlight);
    const bool red = colour == TextColour::red;
    row.font.setStrikeOut(red);
    const bool onPlate = red && row.state.testFlag(QStyle::State_Selected);
    const QRect place = styleOf(row).subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
    const QString name = onPlate ? std::exchange(row.text, QString()) : QString();
    styleOf(row).drawControl(QStyle::CE_ItemViewItem, &row, &painter, row.widget);
    if (onPlate) {
        paintOnPlate(painter, name, row, group, place);
    }
}

} // namespace kestrel
