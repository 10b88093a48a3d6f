// SPDX-License-Identifier: MIT
#include "assembler/text/Arena.h"

#include <algorithm>
#include <cstring>

namespace nesasm {

std::string_view Arena::keepLine(std::string_view text) {
    const std::size_t needed = text.size() + 1;
    if (needed > m_left) {
        const std::size_t size = std::max(needed, BlockSize);
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(size));
        m_free = m_blocks.back().get();
        m_left = size;
    }
    char* const copy = m_free;
    if (!text.empty()) {
        std::memcpy(copy, text.data(), text.size());
    }
    copy[text.size()] = '\n';
    m_free += needed;
    m_left -= needed;
    return {copy, text.size()};
}

} // namespace nesasm
