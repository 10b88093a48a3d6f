// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Message.h"
#include "assembler/reading/Origins.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace nesasm {

// Each makes one line with one JSON object, as the assembler's manual describes them.

std::string jsonMessage(const Message& message, const Origins& origins);
/// A message without a place.
std::string jsonRemark(std::string_view severity, std::string_view text);
std::string jsonCount(std::string_view text, std::size_t errors, std::size_t warnings);

} // namespace nesasm
