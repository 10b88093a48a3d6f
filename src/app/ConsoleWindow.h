// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

class BuildStrip;
class ConsoleOutput;

/// The window of the console. There is one, however much is written; closing it only hides it.
class ConsoleWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit ConsoleWindow(QWidget* parent = nullptr);

    /// The strip above the text: what became of the build.
    BuildStrip* buildStrip() const { return m_buildStrip; }

    /// The text.
    ConsoleOutput* consoleOutput() const { return m_consoleOutput; }

private:
    BuildStrip* m_buildStrip = nullptr;
    ConsoleOutput* m_consoleOutput;
};

} // namespace kestrel
