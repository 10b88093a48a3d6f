// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrel {

/// Counts the messages in an assembler's output, which it gets piece by piece: lines that begin
/// "file:line:column: error:" or "file:line:column: warning:", or the same without a place. Not
/// thread-safe.
class MessageCounter {
public:
    /// Appends the next bytes. A line may be split between pieces.
    void append(std::string_view bytes);

    /// Counts a last line that has no end.
    void finish();

    std::size_t errors() const { return m_errors; }
    std::size_t warnings() const { return m_warnings; }

    /// Whether the assembler said that it stopped at a limit of errors: there may be more.
    bool reachedLimit() const { return m_reachedLimit; }

    /// Whether any byte came.
    bool hasText() const { return m_hasText; }

private:
    void keepBeginning(std::string_view part);
    void countLines(std::string_view lines);
    void countLine(std::string_view line);

    std::string m_line; ///< the beginning of a line that is not complete
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
    bool m_reachedLimit = false;
    bool m_hasText = false;
};

} // namespace kestrel
