// SPDX-License-Identifier: MIT
#pragma once

#include "build/ConsoleOutputDelegate.h"

namespace kestrel {

/// The console of a program without a window: standard output, with nothing added.
class ConsolePrinter final : public ConsoleOutputDelegate {
public:
    void console(const QString& output) override;

    bool hasPrinted() const { return m_hasPrinted; }
    /// Whether any text was lost, which the user has been told then.
    bool hasFailed() const { return m_hasFailed; }

private:
    bool m_hasPrinted = false;
    bool m_hasFailed = false;
};

} // namespace kestrel
