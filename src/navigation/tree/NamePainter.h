// SPDX-License-Identifier: MIT
#pragma once

#include "navigation/tree/ProjectNavigationItem.h"

#include <QColor>
#include <QStyleOptionViewItem>

class QPainter;

namespace kestrel {

/// The shade in which a name of this colour is read on `background`: black on a light one, `normal`
/// on a dark one, and a red or a grey that stands out from it.
QColor shade(ProjectNavigationItem::TextColour colour, const QColor& background,
             const QColor& normal);

/// Paints a row of a tree or a list of files: all of `row` in its style, the name in its colour. A
/// red name is struck out, too, and when the row is selected it stands on a plate in the background
/// colour of the other rows: no red is readable on the usual highlight colours.
void paintNamedRow(QPainter& painter, QStyleOptionViewItem row,
                   ProjectNavigationItem::TextColour colour);

} // namespace kestrel
