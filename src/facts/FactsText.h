// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <optional>
#include <string_view>

namespace kestrel {

/// Reads what kestrel-facts prints (docs/facts.md has the form). Nothing when the text is of
/// another version, damaged or cut off, or contradicts itself.
std::optional<ProgramFacts> readFacts(std::string_view text);

} // namespace kestrel
