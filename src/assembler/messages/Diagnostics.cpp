// SPDX-License-Identifier: MIT
#include "assembler/messages/Diagnostics.h"

#include "assembler/text/Text.h"

#include <algorithm>
#include <utility>

namespace nesasm {

namespace {

/// Beyond this many, what was collected is shown at once, so that memory stays in proportion.
constexpr std::size_t LargestCollection = 5000;
/// Of each warning no more than these are shown.
constexpr std::size_t MostOfAKind = 50;

} // namespace

Diagnostics::Diagnostics(Origins& origins, TextSink sink, std::size_t largestErrorCount,
                         MessageForm form, const WarningSwitches& switches)
    : m_origins(origins)
    , m_sink(std::move(sink))
    , m_largestErrorCount(largestErrorCount)
    , m_form(form)
    , m_switches(switches) {}

void Diagnostics::error(const Position& position, std::string text) {
    if (!isDropped(position)) {
        addError(position, std::move(text), {});
    }
}

void Diagnostics::error(const Position& position, const std::function<std::string()>& text) {
    if (!isDropped(position)) {
        addError(position, text(), {});
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

void Diagnostics::addError(const Position& position, std::string text,
                           std::optional<Warning> warning) {
    ++m_errors;
    m_errorLines.push_back(position.order);
    add({Severity::error, position, std::move(text), warning});
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
    add({Severity::error, position, std::move(text), {}});
    m_stopped = true;
}

void Diagnostics::warning(Warning warning, const Position& position, std::string text) {
    if (!m_switches.isOn(warning) || m_stopped) {
        return;
    }
    if (m_switches.isError(warning)) {
        if (!isDropped(position)) {
            addError(position, std::move(text), warning);
        }
        return;
    }
    if (isRepeated(position, false)) {
        return;
    }
    ++m_warnings;
    if (++m_warningsOfAKind[static_cast<std::size_t>(warning)] <= MostOfAKind) {
        add({Severity::warning, position, std::move(text), warning});
    }
}

void Diagnostics::add(const Message& message) {
    if (m_messages.size() >= LargestCollection) {
        flush();
    }
    m_messages.push_back({message.position.order, messageText(m_form, message, m_origins)});
}

void Diagnostics::flush() {
    std::stable_sort(m_messages.begin(), m_messages.end(),
                     [](const Shown& a, const Shown& b) { return a.order < b.order; });
    for (const Shown& message : m_messages) {
        m_sink(message.text);
    }
    m_messages.clear();
}

void Diagnostics::finish() {
    flush();
    if (m_tooMany) {
        m_sink(noteText(m_form, "stopped here: " + counted(m_largestErrorCount, "error") +
                                    (m_largestErrorCount == 1 ? " is" : " are") +
                                    " the limit (--max-errors changes it)"));
    }
    if (m_errors == 0 && m_warnings == 0) {
        return;
    }
    for (std::size_t i = 0; i < WarningCount; ++i) {
        if (m_warningsOfAKind[i] > MostOfAKind) {
            m_sink(noteText(m_form, "only the first " + std::to_string(MostOfAKind) + " of " +
                                        counted(m_warningsOfAKind[i], "warning") + " [" +
                                        std::string(WarningTable[i].name) + "] are shown"));
        }
    }
    m_sink(countText(m_form, m_errors, m_warnings));
}

} // namespace nesasm
