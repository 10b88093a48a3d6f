// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

class MemoryView;
class ProgramKnowledge;

/// The window of View > Memory.
class MemoryWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit MemoryWindow(const ProgramKnowledge& knowledge, QWidget* parent = nullptr);

    MemoryView* view() const { return m_view; }

private:
    MemoryView* m_view;
};

} // namespace kestrel
