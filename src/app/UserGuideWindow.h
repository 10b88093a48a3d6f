// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

/// Shows the user guide, which is compiled into the program.
class UserGuideWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit UserGuideWindow(QWidget* parent = nullptr);
};

} // namespace kestrel
