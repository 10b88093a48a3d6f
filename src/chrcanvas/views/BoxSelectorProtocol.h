// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"
#include "chrcanvas/views/BoxSelectorDelegate.h"

#include <memory>

namespace kestrel {

class BoxSelectorView;

/// A choice of colours: palettes shown as boxes, one palette and one box in it picked.
class BoxSelectorProtocol {
public:
    BoxSelectorProtocol() = default;
    BoxSelectorProtocol(const BoxSelectorProtocol&) = delete;
    BoxSelectorProtocol& operator=(const BoxSelectorProtocol&) = delete;
    virtual ~BoxSelectorProtocol() = default;

    /// The receiver of choices; not owned. One that is destroyed first sets null before.
    virtual BoxSelectorDelegate* delegate() const = 0;
    virtual void setDelegate(BoxSelectorDelegate* delegate) = 0;

    /// The palettes shown, shared with whoever gave them. Setting them picks palette 0 and box 0;
    /// the null ones among them are left out.
    virtual const Palettes& palettes() const = 0;
    virtual void setPalettes(Palettes palettes) = 0;

    /// Puts a palette in place of one that is shown; drawn at the next redraw(). What is picked
    /// stays. False when there is none of this number or the palette is null.
    virtual bool setPalette(int number, std::shared_ptr<PaletteProtocol> palette) = 0;

    /// Draws again what changed since it was drawn last.
    virtual void redraw() = 0;

    /// Marks a palette as picked, without telling the delegate. False when there is none of this
    /// number.
    virtual bool selectPaletteNumber(int paletteNumber) = 0;

    /// Marks a box of the picked palette, without telling the delegate. False when it has none of
    /// this number.
    virtual bool selectBoxNumber(int boxNumber) = 0;

    /// setPalette(), and draws it.
    virtual bool update(int paletteNumber, std::shared_ptr<PaletteProtocol> withPalette) = 0;

    /// The picked palette; null only when none is shown.
    virtual std::shared_ptr<PaletteProtocol> paletteSelected() const = 0;

    virtual int selectedPaletteNumber() const = 0;
    virtual int selectedBox() const = 0;

    /// The view that shows this selector; null when none does.
    virtual BoxSelectorView* owner() = 0;
};

} // namespace kestrel
