// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/views/BoxSelectorView.h"

namespace kestrel {

/// A selector of the four colours of a palette, to pick the one to draw with or to change.
class ColorSelector : public BoxSelectorView {
    Q_OBJECT

public:
    explicit ColorSelector(QWidget* parent = nullptr);

    /// Whether the boxes show their numbers, which are the keys that choose them, in place of the
    /// colours' indexes. Then no colour is crossed out. Not at first.
    bool showsNumbers() const { return m_showsNumbers; }
    void setShowsNumbers(bool showsNumbers);

protected:
    QString boxText(PaletteBox box, const ColorEntry& entry) const override;
    bool isCrossedOut(const ColorEntry& entry) const override;

private:
    bool m_showsNumbers = false;
};

} // namespace kestrel
