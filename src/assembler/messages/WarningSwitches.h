// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Warnings.h"
#include "assembler/text/Problem.h"

#include <array>
#include <string>
#include <string_view>

namespace nesasm {

/// The state of the -W options: which warnings are shown, and which of them count as errors.
class WarningSwitches {
public:
    WarningSwitches();

    /// Applies the value of -W: NAME, no-NAME, error or error=NAME. The problem is a sentence.
    Problem apply(std::string_view text);

    void turn(Warning warning, bool on) { m_isOn[static_cast<std::size_t>(warning)] = on; }
    bool isOn(Warning warning) const { return m_isOn[static_cast<std::size_t>(warning)]; }
    bool isError(Warning warning) const {
        return m_allAreErrors || m_isError[static_cast<std::size_t>(warning)];
    }

private:
    std::array<bool, WarningCount> m_isOn{};
    std::array<bool, WarningCount> m_isError{};
    bool m_allAreErrors = false;
};

} // namespace nesasm
