// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

/// Shows the user guide, which the program carries with it.
class UserGuideWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit UserGuideWindow(QWidget* parent = nullptr);
};

} // namespace kestrel
