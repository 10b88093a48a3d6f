// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/views/BoxSelectorView.h"

namespace kestrel {

/// A selector of the palettes of a file, one a row. Choosing any box of a row picks its palette;
/// the picked box within the palette changes by selectBoxNumber() only.
class PaletteSelector : public BoxSelectorView {
    Q_OBJECT

public:
    explicit PaletteSelector(QWidget* parent = nullptr);

protected:
    PaletteBox markFor(PaletteBox box) const override;
    QString paletteLabel(int paletteNumber) const override;
    QString placeAndIndex(PaletteBox box, const QString& index) const override;
};

} // namespace kestrel
