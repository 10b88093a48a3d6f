// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/views/BoxSelectorView.h"

namespace kestrel {

/// A selector of all master colours of the console, 16 a row.
class GeneralColorSelector : public BoxSelectorView {
    Q_OBJECT

public:
    explicit GeneralColorSelector(QWidget* parent = nullptr);

protected:
    QString placeAndIndex(PaletteBox box, const QString& index) const override;
};

} // namespace kestrel
