// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace kestrel::test {

/// A source line as a listing has it; of a line in expansions, and its expansions, all together.
struct ListedLine {
    bool hasPlace = false;
    std::uint32_t address = 0;
    std::uint32_t bank = 0;
    std::uint32_t bytes = 0;
    std::uint32_t cycles = 0;      ///< the sum of the numbers
    std::uint32_t cycleCounts = 0; ///< how many those are
    std::uint32_t mayBeMore = 0;   ///< how many of those are marked "+"
    std::string text;
};

/// The lines of a listing by file name, without folders, and number. Rows of expansions are added
/// to the line before them.
std::map<std::pair<std::string, std::uint32_t>, ListedLine> readListing(std::string_view listing);

} // namespace kestrel::test
