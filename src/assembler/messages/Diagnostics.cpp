// SPDX-License-Identifier: MIT
#include "assembler/messages/Diagnostics.h"

#include "assembler/text/Cursor.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <utility>

namespace nesasm {

namespace {

/// Beyond this many, what was collected is shown at once, so that memory stays in proportion.
constexpr std::size_t LargestCollection = 5000;
/// Of each warning no more than these are shown.
constexpr std::size_t MostOfAKind = 50;
/// Of a longer line only the neighbourhood of the column is shown.
constexpr std::size_t LongestQuote = 240;

/// Of a longer chain of includes and macros only both ends are shown.
constexpr std::size_t LongestChain = 8;
constexpr std::size_t InnermostSteps = 4;
constexpr std::size_t OutermostSteps = 2;

constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Red = "\x1b[1;31m";
constexpr std::string_view Yellow = "\x1b[1;33m";
constexpr std::string_view Plain = "\x1b[0m";

bool isMiddleOfCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

Diagnostics::Diagnostics(Origins& origins, TextSink sink, std::size_t largestErrorCount,
                         bool colours, const WarningSwitches& switches)
    : m_origins(origins)
    , m_sink(std::move(sink))
    , m_largestErrorCount(largestErrorCount)
    , m_colours(colours)
    , m_switches(switches) {}

void Diagnostics::error(const Position& position, std::string text) {
    if (!isDropped(position)) {
        addError(position, std::move(text));
    }
}

void Diagnostics::error(const Position& position, const std::function<std::string()>& text) {
    if (!isDropped(position)) {
        addError(position, text());
    }
}

bool Diagnostics::isDropped(const Position& position) {
    if (m_stopped) {
        return true;
    }
    if (!isRepeated(position, true)) {
        return false;
    }
    m_errorLines.push_back(position.order); // wrong in this round, too
    return true;
}

void Diagnostics::addError(const Position& position, std::string text) {
    ++m_errors;
    m_errorLines.push_back(position.order);
    add(position, true, std::move(text));
    if (m_largestErrorCount != 0 && m_errors >= m_largestErrorCount) {
        m_stopped = m_tooMany = true;
    }
}

/// True when what would be reported there has been: by another error of the same macro expansion,
/// or of the same place in an earlier repetition.
bool Diagnostics::isRepeated(const Position& position, bool isError) {
    if (position.origin == NoOrigin) {
        return false;
    }
    Origin& origin = m_origins[position.origin];
    if (origin.kind == Origin::Kind::macro) {
        return isError && std::exchange(origin.reported, true);
    }
    if (origin.kind != Origin::Kind::repeat) {
        return false;
    }
    // A repetition within others begins anew with each of their rounds: they are one place.
    OriginId outermost = position.origin;
    for (OriginId parent = origin.parent;
         parent != NoOrigin && m_origins[parent].kind == Origin::Kind::repeat;
         parent = m_origins[parent].parent) {
        outermost = parent;
    }
    // A stored origin must not be reused for another place.
    m_origins[outermost].kept = true;
    return !m_repeatedPlaces.emplace(outermost, position.number, position.column, isError).second;
}

std::vector<std::uint32_t> Diagnostics::linesWithErrors() const {
    std::vector<std::uint32_t> lines = m_errorLines;
    std::sort(lines.begin(), lines.end());
    return lines;
}

void Diagnostics::fatal(const Position& position, std::string text) {
    if (m_stopped) {
        return;
    }
    ++m_errors;
    add(position, true, std::move(text));
    m_stopped = true;
}

void Diagnostics::warning(Warning warning, const Position& position, std::string text) {
    if (!m_switches.isOn(warning) || m_stopped) {
        return;
    }
    text.append(" [").append(rowOf(warning).name).append("]");
    if (m_switches.isError(warning)) {
        error(position, std::move(text));
        return;
    }
    if (isRepeated(position, false)) {
        return;
    }
    ++m_warnings;
    if (++m_warningsOfAKind[static_cast<std::size_t>(warning)] <= MostOfAKind) {
        add(position, false, std::move(text));
    }
}

void Diagnostics::add(const Position& position, bool isError, std::string text) {
    if (m_messages.size() >= LargestCollection) {
        flush();
    }
    m_messages.push_back({position, isError, std::move(text), render(position)});
    m_messages.back().rendered.insert(0, headline(m_messages.back()));
    m_messages.back().position.line = nullptr;
}

std::string Diagnostics::headline(const Message& message) const {
    std::string text;
    const Position& position = message.position;
    if (position.origin != NoOrigin) {
        text = printable(m_origins[position.origin].file) + ":";
        if (position.number != 0) {
            const std::size_t column = position.line == nullptr
                                           ? 1
                                           : countCharacters({position.line, position.column}) + 1;
            text += std::to_string(position.number) + ":" + std::to_string(column) + ":";
        }
        text += ' ';
    }
    if (m_colours) {
        text.insert(0, Bold).append(message.isError ? Red : Yellow);
    }
    text += message.isError ? "error: " : "warning: ";
    if (m_colours) {
        text.append(Plain).append(Bold);
    }
    text += printable(message.text);
    if (m_colours) {
        text += Plain;
    }
    return text += '\n';
}

std::string Diagnostics::render(const Position& position) const {
    if (position.line == nullptr) {
        return chain(position);
    }
    const char* begin = position.line;
    const char* const caret = begin + position.column;
    const char* end = Cursor(caret).lineEnd().data();
    bool cutAtStart = false;
    if (static_cast<std::size_t>(end - begin) > LongestQuote) {
        if (position.column > LongestQuote / 2) {
            begin = caret - LongestQuote / 2;
            cutAtStart = true;
            while (begin < caret && isMiddleOfCharacter(*begin)) {
                ++begin;
            }
        }
        end = std::min(end, begin + LongestQuote);
        while (end > caret + 1 && isMiddleOfCharacter(*end)) {
            --end;
        }
    }
    const std::string_view dots = cutAtStart ? "..." : "";
    std::string text(dots);
    text += printable({begin, static_cast<std::size_t>(end - begin)}, true);
    text.append("\n").append(dots.size(), ' ');
    for (std::string_view before(begin, static_cast<std::size_t>(caret - begin)); !before.empty();
         before.remove_prefix(characterLength(before))) {
        text += before.front() == '\t' ? '\t' : ' ';
    }
    return text.append("^\n").append(chain(position));
}

std::string Diagnostics::chain(const Position& position) const {
    std::vector<OriginId> steps;
    if (position.origin != NoOrigin) {
        for (OriginId id = position.origin; m_origins[id].parent != NoOrigin;
             id = m_origins[id].parent) {
            steps.push_back(id);
        }
    }
    const bool isLong = steps.size() > LongestChain;
    std::string text;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (isLong && i == InnermostSteps) {
            const std::size_t outermost = steps.size() - OutermostSteps;
            text += "  ... " + std::to_string(outermost - i) + " more ...\n";
            i = outermost;
        }
        text += step(m_origins[steps[i]]);
    }
    return text;
}

std::string Diagnostics::step(const Origin& origin) const {
    std::string text;
    switch (origin.kind) {
    case Origin::Kind::file:
        text = "  included at ";
        break;
    case Origin::Kind::macro:
        text = "  in macro " + printable(origin.macro) + " called at ";
        break;
    case Origin::Kind::repeat:
        text = "  in the repetition begun at ";
        break;
    }
    return text + printable(m_origins[origin.parent].file) + ":" + std::to_string(origin.callLine) +
           "\n";
}

void Diagnostics::flush() {
    std::stable_sort(m_messages.begin(), m_messages.end(), [](const Message& a, const Message& b) {
        return a.position.order < b.position.order;
    });
    for (const Message& message : m_messages) {
        m_sink(message.rendered);
    }
    m_messages.clear();
}

void Diagnostics::finish() {
    flush();
    if (m_tooMany) {
        m_sink("stopped here: " + counted(m_largestErrorCount, "error") +
               (m_largestErrorCount == 1 ? " is" : " are") +
               " the limit (--max-errors changes it)\n");
    }
    if (m_errors == 0 && m_warnings == 0) {
        return;
    }
    for (std::size_t i = 0; i < WarningCount; ++i) {
        if (m_warningsOfAKind[i] > MostOfAKind) {
            m_sink("only the first " + std::to_string(MostOfAKind) + " of " +
                   counted(m_warningsOfAKind[i], "warning") + " [" +
                   std::string(WarningTable[i].name) + "] are shown\n");
        }
    }
    std::string text;
    if (m_errors != 0) {
        text = counted(m_errors, "error");
    }
    if (m_warnings != 0) {
        text.append(text.empty() ? "" : ", ").append(counted(m_warnings, "warning"));
    }
    m_sink(text += '\n');
}

} // namespace nesasm
