// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

class QWidget;

namespace kestrel {

/// Dark text on white, whatever the desktop's theme.
QPalette lightPalette();

/// Gives a pane its white background on every theme, with text and controls that stay readable on
/// it.
void makeWhite(QWidget& pane);

} // namespace kestrel
