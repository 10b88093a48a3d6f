// SPDX-License-Identifier: MIT
#include "assembler/text/FoundText.h"

#include "assembler/text/Text.h"

#include <cstddef>
#include <string_view>

namespace nesasm {

namespace {

constexpr std::size_t LongestFinding = 24;

} // namespace

std::string foundText(Cursor place) {
    if (place.isAtStatementEnd()) {
        return "the end of the statement";
    }
    if (*place == '\'') {
        return "a single quote";
    }
    const std::string_view rest = place.upTo(place.lineEnd());
    const std::string_view found =
        isWordPart(*place) ? place.word() : rest.substr(0, characterLength(rest));
    return found.size() <= LongestFinding
               ? quoted(found)
               : quoted(std::string(found.substr(0, LongestFinding)).append("..."));
}

const char* commentRemedy(Cursor place) {
    const bool isForeign = (*place == '#' && (isBlank(place[1]) || place[1] == '#')) ||
                           (*place == '/' && (place[1] == '/' || place[1] == '*'));
    return isForeign ? "; a comment begins with a ;" : "";
}

} // namespace nesasm
