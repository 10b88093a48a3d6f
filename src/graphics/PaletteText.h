// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// A palette as it is written in a program: "$0F,$16,$27,$30", the whole byte of each entry.
std::string paletteText(const PaletteProtocol& palette);

/// The bytes of a text like that: exactly `count` numbers of one or two hexadecimal digits after
/// "$" or "0x", separated by commas or white space, `.db` or `.byte` allowed before them, a comment
/// after them. Nothing for anything else.
std::optional<std::vector<std::uint8_t>> paletteBytes(std::string_view text, std::size_t count);

} // namespace kestrel
