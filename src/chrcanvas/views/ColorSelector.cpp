// SPDX-License-Identifier: MIT
#include "chrcanvas/views/ColorSelector.h"

#include "chrcanvas/views/BoxSelectorAccessible.h"

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

void ColorSelector::setShowsNumbers(bool showsNumbers) {
    m_showsNumbers = showsNumbers;
    QWidget::update();
}

QString ColorSelector::boxText(PaletteBox box, const ColorEntry& entry) const {
    return m_showsNumbers ? QString::number(box.box)
                          : QLatin1Char('$') + BoxSelectorView::boxText(box, entry);
}

bool ColorSelector::isCrossedOut(const ColorEntry& entry) const {
    return !m_showsNumbers && BoxSelectorView::isCrossedOut(entry);
}

} // namespace kestrel
