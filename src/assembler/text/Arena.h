// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace nesasm {

/// Owns copies of texts until it is destroyed; the copies never move.
class Arena {
public:
    /// A copy of `text` followed by a line feed (which the view does not cover), so that the
    /// scanners can read it like a file.
    std::string_view keepLine(std::string_view text);

private:
    static constexpr std::size_t BlockSize = std::size_t{1} << 16U;

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_free = nullptr;
    std::size_t m_left = 0;
};

} // namespace nesasm
