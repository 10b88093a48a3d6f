// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Diagnostics.h"
#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/text/Arena.h"
#include "assembler/text/Cursor.h"
#include "assembler/text/Position.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace nesasm {

/// Reports what is wrong at a place in the line that is being assembled.
class Reporter {
public:
    /// `line` always holds that line.
    Reporter(const Line& line, Diagnostics& diagnostics, Origins& origins, Arena& arena)
        : m_line(line)
        , m_diagnostics(diagnostics)
        , m_origins(origins)
        , m_arena(arena) {}

    const Line& line() const { return m_line; }
    Diagnostics& diagnostics() { return m_diagnostics; }
    const Diagnostics& diagnostics() const { return m_diagnostics; }

    /// A place in the line for a message that is made now.
    Position at(Cursor place) const;
    /// The same for later: the line's text is kept.
    Position keep(Cursor place);

    void error(Cursor place, std::string text) { m_diagnostics.error(at(place), std::move(text)); }
    /// The same with a text that takes long to find.
    void error(Cursor place, const std::function<std::string()>& text) {
        m_diagnostics.error(at(place), text);
    }
    /// An error after which nothing sensible can follow.
    void fatal(Cursor place, std::string text) { m_diagnostics.fatal(at(place), std::move(text)); }
    void warn(Warning warning, Cursor place, std::string text) {
        m_diagnostics.warning(warning, at(place), std::move(text));
    }

    /// Reports what stands at `place` unless the statement ends there. True when it does. `remedy`
    /// is added to the message: a part of a sentence that begins with ";".
    bool expectEnd(Cursor place, std::string_view remedy = {}) {
        place.skipBlanks();
        if (place.isAtStatementEnd()) {
            return true;
        }
        reportRest(place, remedy);
        return false;
    }

    /// A file or the end of a macro is missing: names that are not known are no news.
    void notePartMissing() { m_isPartMissing = true; }
    bool isPartMissing() const { return m_isPartMissing; }

private:
    void reportRest(Cursor place, std::string_view remedy);

    const Line& m_line;
    Diagnostics& m_diagnostics;
    Origins& m_origins;
    Arena& m_arena;
    bool m_isPartMissing = false;
};

} // namespace nesasm
