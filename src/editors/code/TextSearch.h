// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SearchTerm.h"

#include <optional>
#include <vector>

class QTextDocument;

namespace kestrel {

/// All occurrences of a term in a document, none overlapping another.
class TextSearch {
public:
    /// Searches at once; later changes do not affect the result. An empty term has no occurrence.
    TextSearch(const QTextDocument& document, const SearchTerm& term);

    int count() const { return static_cast<int>(m_positions.size()); }

    /// The index of the first match at or after `position`, else of the very first; nothing when
    /// there is none.
    std::optional<int> atOrAfter(int position) const;

    /// The index of the last match that begins before `position`, else of the very last.
    std::optional<int> before(int position) const;

    /// The index of the match that begins at `position`.
    std::optional<int> at(int position) const;

    int position(int index) const { return m_positions[static_cast<std::size_t>(index)]; }

    /// The length of every match, in the document's characters.
    int length() const { return m_length; }

private:
    std::vector<int> m_positions;
    int m_length = 0;
};

} // namespace kestrel
