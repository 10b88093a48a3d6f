// SPDX-License-Identifier: MIT
#include "chrcanvas/views/GeneralColorSelector.h"

#include "chrcanvas/views/BoxSelectorAccessible.h"

namespace kestrel {

namespace {

constexpr int BoxesPerRow = 16;
constexpr int LargestBox = 40;

} // namespace

GeneralColorSelector::GeneralColorSelector(QWidget* parent)
    : BoxSelectorView(BoxesPerRow, LargestBox, parent) {
    BoxSelectorAccessible::install();
    setObjectName(QStringLiteral("generalSelectableColors"));
    setAccessibleName(tr("All colours of the console"));
}

QString GeneralColorSelector::placeAndIndex(PaletteBox box, const QString& index) const {
    const BoxPosition place = grid().position(box);
    return tr("Index %1, row %2, column %3")
        .arg(index, QString::number(place.y), QString::number(place.x));
}

} // namespace kestrel
