// SPDX-License-Identifier: MIT
#include "build/MessageCounter.h"

#include <algorithm>

namespace kestrel {

namespace {

constexpr std::string_view Error = "error: ";
constexpr std::string_view Warning = "warning: ";
/// How the assembler begins to say that it read no further.
constexpr std::string_view Stopped = "stopped here: ";

/// Of a longer line the rest is not looked at; the longest path is shorter.
constexpr std::size_t LongestBeginning = std::size_t{16} * 1024;

/// Takes ":" and digits from the end of `text`. False, with it unchanged, when it ends otherwise.
bool takeNumber(std::string_view& text) {
    const std::size_t last = text.find_last_not_of("0123456789");
    if (last == std::string_view::npos || last + 1 == text.size() || text[last] != ':') {
        return false;
    }
    text.remove_suffix(text.size() - last);
    return true;
}

/// Where `word` stands at the line's beginning or behind a file's name, a line and a column; npos
/// when it does not.
std::size_t placeOf(std::string_view word, std::string_view line) {
    constexpr std::string_view Separator = ": ";
    for (std::size_t found = line.find(word); found != std::string_view::npos;
         found = line.find(word, found + 1)) {
        std::string_view place = line.substr(0, found);
        if (place.empty()) {
            return found; // a message about the whole run
        }
        if (!place.ends_with(Separator)) {
            continue;
        }
        place.remove_suffix(Separator.size());
        const bool hasColumn = takeNumber(place);
        if (hasColumn && takeNumber(place) && !place.empty()) {
            return found;
        }
    }
    return std::string_view::npos;
}

} // namespace

void MessageCounter::append(std::string_view bytes) {
    m_hasText = m_hasText || !bytes.empty();
    if (!m_line.empty()) {
        const std::size_t end = bytes.find('\n');
        keepBeginning(bytes.substr(0, end));
        if (end == std::string_view::npos) {
            return;
        }
        finish();
        bytes.remove_prefix(end + 1);
    }
    const std::size_t whole = bytes.rfind('\n') + 1; // 0 when there is none
    countLines(bytes.substr(0, whole));
    keepBeginning(bytes.substr(whole));
}

void MessageCounter::keepBeginning(std::string_view part) {
    m_line += part.substr(0, LongestBeginning - std::min(m_line.size(), LongestBeginning));
}

/// Looks at the lines that hold one of the words only: an output may have millions of others.
void MessageCounter::countLines(std::string_view lines) {
    std::size_t error = lines.find(Error);
    std::size_t warning = lines.find(Warning);
    std::size_t stopped = lines.find(Stopped);
    while (std::min({error, warning, stopped}) != std::string_view::npos) {
        const std::size_t found = std::min({error, warning, stopped});
        const std::size_t begin = lines.rfind('\n', found) + 1;
        const std::size_t end = lines.find('\n', found);
        countLine(lines.substr(begin, end - begin));
        error = error < end ? lines.find(Error, end) : error;
        warning = warning < end ? lines.find(Warning, end) : warning;
        stopped = stopped < end ? lines.find(Stopped, end) : stopped;
    }
}

void MessageCounter::finish() {
    countLine(m_line);
    m_line.clear();
}

void MessageCounter::countLine(std::string_view line) {
    if (line.empty() || line.front() == ' ' || line.front() == '\t') {
        return; // a line of the source, quoted below a message
    }
    m_reachedLimit = m_reachedLimit || line.starts_with(Stopped);
    const std::size_t error = placeOf(Error, line);
    const std::size_t warning = placeOf(Warning, line);
    if (error < warning) {
        ++m_errors;
    } else if (warning < error) {
        ++m_warnings;
    }
}

} // namespace kestrel
