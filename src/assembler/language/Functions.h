// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace nesasm {

/// The functions of expressions.
enum class Function : std::uint8_t { low, high, bank, page, sizeOf };

/// The function of that name, whatever the case of its letters.
std::optional<Function> findFunction(std::string_view name);

} // namespace nesasm
