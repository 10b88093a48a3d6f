// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/MacroArguments.h"
#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceFile.h"
#include "assembler/text/Arena.h"
#include "assembler/text/Cursor.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// Source text that is read as one: a file, the body of a macro or of a repetition.
struct Passage {
    std::string_view text; ///< whole lines, followed by a line end
    std::uint32_t firstLine = 1;
    const SourceFile* file = nullptr; ///< that it was written in
    std::string_view fileName;        ///< as the source named the file
};

/// One line of source text.
struct Line {
    Cursor begin;
    std::uint32_t number = 0;
    OriginId origin = NoOrigin;
    std::uint32_t order = 0;
    bool isShortLived = false; ///< the text is overwritten by the next line
};

/// A passage that is being read, and how far.
struct Frame {
    Origin::Kind kind = Origin::Kind::file;
    Passage passage;
    const char* cursor = nullptr;
    std::uint32_t line = 0; ///< number of the line that was read last
    OriginId origin = NoOrigin;
    std::uint32_t repetitions = 0; ///< still to come
    bool countsAsWork = false;
    MacroArguments arguments;
    std::uint32_t number = 0;     ///< of the macro expansion
    std::string buffer;           ///< the current line with its arguments filled in
    std::size_t conditionals = 0; ///< open ones when the frame began
    SymbolId label = 0;           ///< on the line that opened the frame
    std::uint64_t totalBefore = 0;
};

/// The files, macros and repetitions that are being read, one inside the other.
class SourceStack {
public:
    enum class Next : std::uint8_t { line, endOfFrame, tooLong, tooMuch };

    /// `mostWork`: see Options.
    explicit SourceStack(std::uint64_t mostWork)
        : m_mostWork(mostWork) {}

    /// Adds a frame; it stays valid until it is popped.
    Frame& push(Origin::Kind kind, const Passage& passage, OriginId origin);
    void pop() { --m_depth; }
    bool empty() const { return m_depth == 0; }
    Frame& top() { return *m_frames[m_depth - 1]; }
    const Frame& top() const { return *m_frames[m_depth - 1]; }
    const Frame& at(std::size_t depth) const { return *m_frames[depth]; }
    std::size_t depth() const { return m_depth; }

    /// True when no line is left of the top frame's current repetition.
    bool isAtEnd() const {
        return top().cursor == top().passage.text.data() + top().passage.text.size();
    }

    /// Counts what a statement does beyond its own line. False when that is more than a source may
    /// ask for.
    bool addWork(std::uint64_t work) {
        m_work += work;
        return m_work <= m_mostWork;
    }

    /// Reads the next line of the top frame, beginning its next repetition where there is one.
    Next next(Line& line);

private:
    Next expand(Frame& frame, std::string_view text, Line& line);

    std::vector<std::unique_ptr<Frame>> m_frames; ///< kept for their buffers
    std::size_t m_depth = 0;
    std::uint32_t m_order = 0;
    std::uint64_t m_work = 0;
    std::uint64_t m_mostWork;
};

} // namespace nesasm
