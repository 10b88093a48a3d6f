// SPDX-License-Identifier: MIT
#include "app/ConsoleWindow.h"

#include "app/ConsoleOutput.h"

namespace kestrel {

namespace {

constexpr QSize FirstSize(880, 360);
constexpr QSize SmallestSize(320, 120);

} // namespace

ConsoleWindow::ConsoleWindow(QWidget* parent)
    : SecondaryWindow(QStringLiteral("ConsoleOutputWindow"), tr("Console"), parent)
    , m_consoleOutput(new ConsoleOutput(this)) {
    setCentralWidget(m_consoleOutput);
    setMinimumSize(SmallestSize);
    resize(FirstSize);
}

} // namespace kestrel
