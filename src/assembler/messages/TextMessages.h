// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Message.h"
#include "assembler/reading/Origins.h"

#include <string>

namespace nesasm {

/// A message for people: "file:line:column: error: text", the source line with a caret below, and a
/// line for each include, call and repetition that led there.
std::string textMessage(const Message& message, const Origins& origins, bool isColoured);

} // namespace nesasm
