// SPDX-License-Identifier: MIT
#include "editors/code/TextSearch.h"

#include "editors/code/DocumentCharacters.h"
#include "editors/code/SourceDocument.h"

#include <QStringMatcher>

#include <algorithm>

namespace kestrel {

namespace {

bool isWordCharacter(QChar character) {
    return character.isLetterOrNumber() || character == u'_' || character.isSurrogate() ||
           character.isMark();
}

bool isWholeWord(QStringView text, qsizetype start, qsizetype end) {
    // A term that begins or ends with another character has its own border there.
    const bool joinedBefore =
        start > 0 && isWordCharacter(text[start]) && isWordCharacter(text[start - 1]);
    const bool joinedAfter =
        end < text.size() && isWordCharacter(text[end - 1]) && isWordCharacter(text[end]);
    return !joinedBefore && !joinedAfter;
}

} // namespace

TextSearch::TextSearch(const SourceDocument& document, const SearchTerm& term) {
    const QString wanted = toDocumentCharacters(term.text);
    if (wanted.isEmpty()) {
        return;
    }
    const qsizetype length = wanted.size();
    // Lines are separated by a character that no term can hold, so no match runs over a line's end.
    const auto [text, seams] = document.joined();
    auto seam = seams.begin(); // the first one behind the place
    const QStringMatcher matcher(wanted, term.matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
    qsizetype place = matcher.indexIn(text);
    while (place >= 0) {
        // A stand-in for one of Qt's own characters looks like the second half of a surrogate pair.
        const bool splitsPair =
            place > 0 && text[place].isLowSurrogate() && text[place - 1].isHighSurrogate();
        const bool counts =
            !splitsPair && (!term.wholeWords || isWholeWord(text, place, place + length));
        if (counts) {
            // In the document every seam before a place moves it on by one.
            const auto inDocument = [](qsizetype offset, qsizetype before) {
                return static_cast<int>(offset + before);
            };
            seam = std::upper_bound(seam, seams.end(), place);
            m_positions.push_back(inDocument(place, seam - seams.begin()));
            seam = std::lower_bound(seam, seams.end(), place + length);
            m_ends.push_back(inDocument(place + length, seam - seams.begin()));
        }
        place = matcher.indexIn(text, place + (counts ? length : 1));
    }
}

std::optional<int> TextSearch::atOrAfter(int position) const {
    if (m_positions.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::lower_bound(m_positions, position);
    return found == m_positions.end() ? 0 : static_cast<int>(found - m_positions.begin());
}

std::optional<int> TextSearch::before(int position) const {
    if (m_positions.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::lower_bound(m_positions, position);
    return (found == m_positions.begin() ? count()
                                         : static_cast<int>(found - m_positions.begin())) -
           1;
}

std::optional<int> TextSearch::at(int position) const {
    const auto found = std::ranges::lower_bound(m_positions, position);
    if (found == m_positions.end() || *found != position) {
        return std::nullopt;
    }
    return static_cast<int>(found - m_positions.begin());
}

} // namespace kestrel
