// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/MessageForm.h"
#include "assembler/messages/WarningSwitches.h"
#include "assembler/reading/Origins.h"
#include "assembler/text/Position.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace nesasm {

/// Collects errors and warnings and shows them in the order of the source.
class Diagnostics {
public:
    /// `origins` must outlive this. After `largestErrorCount` errors (0: never) limitReached()
    /// holds.
    Diagnostics(Origins& origins, TextSink sink, std::size_t largestErrorCount, MessageForm form,
                const WarningSwitches& switches = {});

    /// In a macro expansion only the first error is kept: the others come from the same mistake. In
    /// a repetition each place is reported once, and warned of once.
    void error(const Position& position, std::string text);
    /// The same with a text that takes long to compose; it is composed only when it is shown.
    void error(const Position& position, const std::function<std::string()>& text);
    /// Does nothing when that warning is off; counts as an error when the switches say so. Of each
    /// warning only the first fifty are shown.
    void warning(Warning warning, const Position& position, std::string text);
    bool isOn(Warning warning) const { return m_switches.isOn(warning); }

    /// An error after which nothing sensible can follow: limitReached() holds from now on.
    void fatal(const Position& position, std::string text);

    /// Ends the run without a message: limitReached() holds from now on.
    void stop() { m_stopped = true; }

    bool limitReached() const { return m_stopped; }
    std::size_t errorCount() const { return m_errors; }
    std::size_t warningCount() const { return m_warnings; }

    /// The lines with errors so far, as Position::order, ascending.
    std::vector<std::uint32_t> linesWithErrors() const;

    /// Shows what has been collected and, when there was anything, the line with the counts.
    void finish();

private:
    bool isDropped(const Position& position);
    bool isRepeated(const Position& position, bool isError);

    /// A message as it is to be shown, made while its line still exists.
    struct Shown {
        std::uint32_t order; ///< of its place
        std::string text;
    };

    void addError(const Position& position, std::string text, std::optional<Warning> warning);
    void add(const Message& message);
    void flush();

    Origins& m_origins;
    TextSink m_sink;
    std::size_t m_largestErrorCount;
    MessageForm m_form;
    WarningSwitches m_switches;
    std::array<std::size_t, WarningCount> m_warningsOfAKind{};
    bool m_stopped = false;
    bool m_tooMany = false;
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
    std::vector<std::uint32_t> m_errorLines;
    /// Reported places (line and column) inside a .rept, and whether with an error: a warning hides
    /// no error.
    std::set<std::tuple<OriginId, std::uint32_t, std::uint32_t, bool>> m_repeatedPlaces;
    std::vector<Shown> m_messages;
};

} // namespace nesasm
