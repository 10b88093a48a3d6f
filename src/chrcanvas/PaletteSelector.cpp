#include "chrcanvas/PaletteSelector.h"

namespace kestrel {

namespace {

constexpr int BoxesPerRow = 4;
constexpr int LargestBox = 32;
/// The first half of an NES file is for the background, the second for sprites.
constexpr int PalettesOfAKind = 4;

} // namespace

PaletteSelector::PaletteSelector(QWidget* parent)
    : BoxSelectorView(BoxesPerRow, LargestBox, parent) {
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

QString PaletteSelector::placeText(PaletteBox box) const {
    return tr("palette %1 (%2), colour %3")
        .arg(box.number)
        .arg(paletteLabel(box.number).toLower())
        .arg(box.box);
}

} // namespace kestrel
