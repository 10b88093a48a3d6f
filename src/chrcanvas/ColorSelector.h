#pragma once

#include "chrcanvas/BoxSelectorView.h"

namespace kestrel {

/// The four colours of a palette, to pick the one to draw with or to change.
class ColorSelector : public BoxSelectorView {
    Q_OBJECT

public:
    explicit ColorSelector(QWidget* parent = nullptr);

protected:
    QString boxText(const ColorEntry& entry) const override;
};

} // namespace kestrel
