// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SearchTerm.h"

#include <optional>
#include <vector>

namespace kestrel {

class SourceDocument;

/// All occurrences of a term in a document, none overlapping another.
class TextSearch {
public:
    /// Searches at once; later changes do not affect the result. An empty term has no occurrence.
    TextSearch(const SourceDocument& document, const SearchTerm& term);

    int count() const { return static_cast<int>(m_positions.size()); }

    /// The index of the first match at or after `position`, else of the very first; nothing when
    /// there is none.
    std::optional<int> atOrAfter(int position) const;

    /// The index of the last match that begins before `position`, else of the very last.
    std::optional<int> before(int position) const;

    /// The index of the match that begins at `position`.
    std::optional<int> at(int position) const;

    /// Where a match begins and ends in the document. One that runs over a seam in its line is
    /// longer there than the term.
    int position(int index) const { return m_positions[static_cast<std::size_t>(index)]; }
    int end(int index) const { return m_ends[static_cast<std::size_t>(index)]; }

private:
    std::vector<int> m_positions;
    std::vector<int> m_ends;
};

} // namespace kestrel
