// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

/// The console, as those see it who have text for it.
class ConsoleOutputDelegate {
public:
    ConsoleOutputDelegate() = default;
    ConsoleOutputDelegate(const ConsoleOutputDelegate&) = delete;
    ConsoleOutputDelegate& operator=(const ConsoleOutputDelegate&) = delete;
    virtual ~ConsoleOutputDelegate() = default;

    /// Appends a piece of text to the console.
    virtual void console(const QString& output) = 0;
};

} // namespace kestrel
