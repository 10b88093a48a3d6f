#include "chrcanvas/GeneralColorSelector.h"

namespace kestrel {

namespace {

constexpr int BoxesPerRow = 16;
constexpr int LargestBox = 40;

} // namespace

GeneralColorSelector::GeneralColorSelector(QWidget* parent)
    : BoxSelectorView(BoxesPerRow, LargestBox, parent) {
    setObjectName(QStringLiteral("generalSelectableColors"));
    setAccessibleName(tr("All colours of the console"));
}

} // namespace kestrel
