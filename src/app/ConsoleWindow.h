// SPDX-License-Identifier: MIT
#pragma once

#include "app/SecondaryWindow.h"

namespace kestrel {

class ConsoleOutput;

/// The window of the console. There is one, however much is written; closing it only hides it.
class ConsoleWindow : public SecondaryWindow {
    Q_OBJECT

public:
    explicit ConsoleWindow(QWidget* parent = nullptr);

    /// What the window shows.
    ConsoleOutput* consoleOutput() const { return m_consoleOutput; }

private:
    ConsoleOutput* m_consoleOutput;
};

} // namespace kestrel
