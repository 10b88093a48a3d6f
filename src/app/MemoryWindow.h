// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

class ProgramKnowledge;

/// The window of View > Memory.
class MemoryWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit MemoryWindow(const ProgramKnowledge& knowledge, QWidget* parent = nullptr);
};

} // namespace kestrel
