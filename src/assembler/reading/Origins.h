// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Position.h"

#include <string_view>
#include <vector>

namespace nesasm {

class SourceFile;

/// One inclusion of a file, one expansion of a macro or one repetition.
struct Origin {
    enum class Kind : std::uint8_t { file, macro, repeat };

    Kind kind = Kind::file;
    bool kept = false;     ///< a stored position refers to it
    bool reported = false; ///< an error in this macro expansion has been shown
    std::string_view file; ///< the file that the lines come from, as the source named it
    std::string_view macro;
    OriginId parent = NoOrigin;
    std::uint32_t callLine = 0;         ///< in the parent
    const SourceFile* source = nullptr; ///< the same file
};

/// The tree of origins: for each line the includes, calls and repetitions that led to it. Texts
/// are views that must outlive it.
class Origins {
public:
    OriginId add(const Origin& origin) {
        m_origins.push_back(origin);
        return static_cast<OriginId>(m_origins.size() - 1);
    }
    Origin& operator[](OriginId id) { return m_origins[id]; }
    const Origin& operator[](OriginId id) const { return m_origins[id]; }

    /// Forgets an origin that has ended, when nothing refers to it.
    void release(OriginId id) {
        if (id + 1 == m_origins.size() && !m_origins[id].kept) {
            m_origins.pop_back();
        }
    }

private:
    std::vector<Origin> m_origins;
};

} // namespace nesasm
