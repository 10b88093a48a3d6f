// SPDX-License-Identifier: MIT
#pragma once

#include "build/ConsoleOutputDelegate.h"

namespace kestrel {

/// Prints console text to standard output, unchanged.
class ConsolePrinter final : public ConsoleOutputDelegate {
public:
    void console(const QString& output) override;

    bool hasPrinted() const { return m_hasPrinted; }
    /// Whether any text could not be written, which was also reported to the user.
    bool hasFailed() const { return m_hasFailed; }

private:
    bool m_hasPrinted = false;
    bool m_hasFailed = false;
};

} // namespace kestrel
