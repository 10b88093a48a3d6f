// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

/// Receives the text for the console.
class ConsoleOutputDelegate {
public:
    ConsoleOutputDelegate() = default;
    ConsoleOutputDelegate(const ConsoleOutputDelegate&) = delete;
    ConsoleOutputDelegate& operator=(const ConsoleOutputDelegate&) = delete;
    virtual ~ConsoleOutputDelegate() = default;

    /// Appends text to the console.
    virtual void console(const QString& output) = 0;
};

} // namespace kestrel
