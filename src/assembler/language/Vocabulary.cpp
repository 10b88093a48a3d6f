// SPDX-License-Identifier: MIT
#include "assembler/language/Vocabulary.h"

namespace nesasm {

Keyword Vocabulary::find(std::string_view word) const {
    const bool isDotted = word.starts_with('.');
    if (isDotted) {
        word.remove_prefix(1);
    }
    if (word.empty() || word.size() > LongestWord) {
        return {};
    }
    const std::uint64_t key = keyOf(word);
    for (std::size_t slot = slotOf(key); m_entries[slot].key != 0; slot = (slot + 1) % SlotCount) {
        const Entry& entry = m_entries[slot];
        if (entry.key == key) {
            return (isDotted ? entry.worksWithDot : entry.worksWithoutDot) ? entry.keyword
                                                                           : Keyword{};
        }
    }
    return {};
}

} // namespace nesasm
