// SPDX-License-Identifier: MIT
#include "app/MemoryWindow.h"

#include "memory/MemoryView.h"

namespace kestrel {

namespace {

constexpr QSize FirstSize(560, 480);
constexpr QSize SmallestSize(320, 200);

} // namespace

MemoryWindow::MemoryWindow(const ProgramKnowledge& knowledge, QWidget* parent)
    : SecondaryWindow(QStringLiteral("memoryWindow"), tr("Memory"), parent)
    , m_view(new MemoryView(knowledge, this)) {
    setCentralWidget(m_view);
    setMinimumSize(SmallestSize);
    resizeWithinScreen(FirstSize);
}

} // namespace kestrel
