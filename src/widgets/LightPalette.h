// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

class QWidget;

namespace kestrel {

/// The palette of the white panes: dark text on white, whatever the desktop's theme.
QPalette lightPalette();

/// Gives a pane the lightPalette() and a white background.
void makeWhite(QWidget& pane);

} // namespace kestrel
