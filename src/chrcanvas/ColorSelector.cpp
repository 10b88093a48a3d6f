#include "chrcanvas/ColorSelector.h"

#include "chrcanvas/BoxSelectorAccessible.h"

namespace kestrel {

namespace {

constexpr int BoxesPerRow = 4;
constexpr int LargestBox = 48;

} // namespace

ColorSelector::ColorSelector(QWidget* parent)
    : BoxSelectorView(BoxesPerRow, LargestBox, parent) {
    BoxSelectorAccessible::install();
    setObjectName(QStringLiteral("colorSelector"));
    setAccessibleName(tr("Colours of the palette"));
}

QString ColorSelector::boxText(const ColorEntry& entry) const {
    return QLatin1Char('$') + BoxSelectorView::boxText(entry);
}

} // namespace kestrel
