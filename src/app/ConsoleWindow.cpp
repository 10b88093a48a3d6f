// SPDX-License-Identifier: MIT
#include "app/ConsoleWindow.h"

#include "app/BuildStripArea.h"
#include "app/ConsoleOutput.h"

#include <QVBoxLayout>

namespace kestrel {

namespace {

constexpr QSize FirstSize(880, 360);
constexpr QSize SmallestSize(320, 120);

} // namespace

ConsoleWindow::ConsoleWindow(QWidget* parent)
    : SecondaryWindow(QStringLiteral("ConsoleOutputWindow"), tr("Console"), parent)
    , m_consoleOutput(new ConsoleOutput(this)) {
    auto* content = new QWidget(this);
    auto* area = new BuildStripArea(content);
    m_buildStrip = area->strip();
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(area);
    column->addWidget(m_consoleOutput, 1);
    m_consoleOutput->setMinimumHeight(1); // lower than scroll bars like it: some lines are left
    content->setFocusProxy(m_consoleOutput);
    setCentralWidget(content);
    setMinimumSize(SmallestSize);
    resizeWithinScreen(FirstSize);
}

} // namespace kestrel
