// SPDX-License-Identifier: MIT
#include "chrcanvas/views/PaletteSelector.h"

#include "chrcanvas/views/BoxSelectorAccessible.h"

namespace kestrel {

namespace {

constexpr int BoxesPerRow = 4;
constexpr int LargestBox = 32;
/// The first half of an NES file is for the background, the second for sprites.
constexpr int PalettesOfAKind = 4;

} // namespace

PaletteSelector::PaletteSelector(QWidget* parent)
    : BoxSelectorView(BoxesPerRow, LargestBox, parent) {
    BoxSelectorAccessible::install();
    setObjectName(QStringLiteral("paletteSelector"));
    setAccessibleName(tr("Palettes of the file"));
}

PaletteBox PaletteSelector::markFor(PaletteBox box) const {
    return {box.number, selectedBox()};
}

QString PaletteSelector::paletteLabel(int paletteNumber) const {
    const int number = paletteNumber % PalettesOfAKind;
    return paletteNumber < PalettesOfAKind ? tr("Background %1").arg(number)
                                           : tr("Sprite %1").arg(number);
}

QString PaletteSelector::placeAndIndex(PaletteBox box, const QString& index) const {
    return tr("Palette %1 (%2), colour %3 of %4, index %5")
        .arg(QString::number(box.number), paletteLabel(box.number).toLower(),
             QString::number(box.box), QString::number(grid().boxCount(box.number)), index);
}

} // namespace kestrel
