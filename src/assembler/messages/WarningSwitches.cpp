// SPDX-License-Identifier: MIT
#include "assembler/messages/WarningSwitches.h"

#include "assembler/text/NearNames.h"

#include <algorithm>
#include <utility>

namespace nesasm {

namespace {

/// True and cut off when `text` begins with `prefix`.
bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

} // namespace

WarningSwitches::WarningSwitches() {
    for (std::size_t i = 0; i < WarningCount; ++i) {
        m_isOn[i] = WarningTable[i].onByDefault;
    }
}

Problem WarningSwitches::apply(std::string_view text) {
    if (text == "error") {
        m_allAreErrors = true;
        return {};
    }
    const bool isError = takePrefix(text, "error=");
    const bool isOff = !isError && takePrefix(text, "no-");
    const auto* const row = std::find_if(WarningTable.begin(), WarningTable.end(),
                                         [&](const WarningRow& each) { return each.name == text; });
    if (row == WarningTable.end()) {
        NearNames near(text);
        for (const WarningRow& each : WarningTable) {
            near.consider(each.name);
        }
        return "there is no warning '" + std::string(text) + "'" + near.question();
    }
    const auto index = static_cast<std::size_t>(row - WarningTable.begin());
    m_isOn[index] = !isOff;
    m_isError[index] = isError;
    return {};
}

} // namespace nesasm
