// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace nesasm {

/// Why something could not be done, as part of a sentence; nothing when it was done.
using Problem = std::optional<std::string>;

} // namespace nesasm
