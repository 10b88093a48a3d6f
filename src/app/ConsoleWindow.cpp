// SPDX-License-Identifier: MIT
#include "app/ConsoleWindow.h"

#include "app/BuildStrip.h"
#include "app/ConsoleOutput.h"

#include <QVBoxLayout>

namespace kestrel {

namespace {

constexpr QSize FirstSize(880, 360);
constexpr QSize SmallestSize(320, 120);

} // namespace

ConsoleWindow::ConsoleWindow(QWidget* parent)
    : SecondaryWindow(QStringLiteral("ConsoleOutputWindow"), tr("Console"), parent)
    , m_buildStrip(new BuildStrip(this))
    , m_consoleOutput(new ConsoleOutput(this)) {
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_buildStrip);
    column->addWidget(m_consoleOutput, 1);
    content->setFocusProxy(m_consoleOutput);
    setCentralWidget(content);
    setMinimumSize(SmallestSize);
    resizeWithinScreen(FirstSize);
}

} // namespace kestrel
