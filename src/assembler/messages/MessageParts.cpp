// SPDX-License-Identifier: MIT
#include "assembler/messages/MessageParts.h"

#include "assembler/text/Cursor.h"
#include "assembler/text/QuotedText.h"
#include "assembler/text/Text.h"

#include <algorithm>

namespace nesasm {

namespace {

/// Of a longer line only the neighbourhood of the column is shown.
constexpr std::size_t LongestQuote = 240;

/// Of a longer chain of includes and macros only both ends are shown.
constexpr std::size_t LongestChain = 8;
constexpr std::size_t InnermostSteps = 4;
constexpr std::size_t OutermostSteps = 2;

bool isMiddleOfCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

std::size_t columnOf(const Position& position) {
    return position.line == nullptr ? 1 : countCharacters({position.line, position.column}) + 1;
}

std::optional<std::size_t> endColumnOf(const Position& position) {
    if (position.line == nullptr) {
        return std::nullopt;
    }
    const Cursor place(position.line + position.column);
    const Cursor begin = *place == '#' ? place + 1 : place;
    Cursor end = begin;
    if (*begin == '"') {
        const QuotedText quoted = readQuoted(begin, QuotedText::Backslash::escapes);
        end = quoted.isClosed ? quoted.end : begin;
    } else if ((*begin == '$' || *begin == '%') && isWordPart(begin[1])) {
        end = (begin + 1).wordEnd();
    } else {
        end = begin.wordEnd();
    }
    if (end == begin) {
        return std::nullopt;
    }
    return columnOf(position) + countCharacters(place.upTo(end));
}

Excerpt excerptAt(const Position& position) {
    const char* begin = position.line;
    const char* const caret = begin + position.column;
    const char* end = Cursor(caret).lineEnd().data();
    bool isCutAtStart = false;
    if (static_cast<std::size_t>(end - begin) > LongestQuote) {
        if (position.column > LongestQuote / 2) {
            begin = caret - LongestQuote / 2;
            isCutAtStart = true;
            while (begin < caret && isMiddleOfCharacter(*begin)) {
                ++begin;
            }
        }
        end = std::min(end, begin + LongestQuote);
        while (end > caret + 1 && isMiddleOfCharacter(*end)) {
            --end;
        }
    }
    return {{begin, static_cast<std::size_t>(end - begin)},
            static_cast<std::size_t>(caret - begin),
            isCutAtStart};
}

std::vector<Step> wayTo(const Position& position, const Origins& origins) {
    std::vector<Step> steps;
    if (position.origin == NoOrigin) {
        return steps;
    }
    for (OriginId id = position.origin; origins[id].parent != NoOrigin; id = origins[id].parent) {
        steps.push_back({&origins[id], 0});
    }
    if (steps.size() > LongestChain) {
        const std::size_t omitted = steps.size() - InnermostSteps - OutermostSteps;
        const auto first = steps.begin() + InnermostSteps;
        *first = {nullptr, omitted};
        steps.erase(first + 1, first + static_cast<std::ptrdiff_t>(omitted));
    }
    return steps;
}

} // namespace nesasm
