// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/run/Options.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm::test {

/// What assembling one source text in memory came to.
struct Assembled {
    bool isBuilt = false;
    std::string messages;
    std::vector<std::uint8_t> file; ///< header and banks

    /// The first `count` bytes of bank 0.
    std::vector<int> bytes(std::size_t count) const;
};

/// Assembles `source`, which is written to a folder of its own for that, as "game.asm".
Assembled assembled(std::string_view source, Options options = {});

} // namespace nesasm::test
