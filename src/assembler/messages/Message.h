// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Warnings.h"
#include "assembler/text/Position.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nesasm {

enum class Severity : std::uint8_t { error, warning };

/// What is to be said of a place in the source.
struct Message {
    Severity severity = Severity::error;
    Position position;
    std::string text;
    std::optional<Warning> warning; ///< of an error: it is one by -Werror
};

} // namespace nesasm
