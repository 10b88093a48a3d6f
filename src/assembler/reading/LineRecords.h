// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/text/Arena.h"
#include "assembler/text/Position.h"
#include "assembler/values/Image.h"

#include <cstdint>
#include <vector>

namespace nesasm {

/// One source line that was read, and the place of the bytes it made.
struct LineRecord {
    Cursor text; ///< ends at its line end
    const SourceFile* file = nullptr;
    OriginId origin = NoOrigin;
    std::uint32_t number = 0;
    std::uint32_t address = 0;
    std::uint32_t bank = 0;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;   ///< bytes made or reserved
    bool isStatement = false; ///< false: a line passed over, or one of a macro's body
    bool isRam = false;       ///< in .zp or .bss: nothing in the image
    bool isListed = true;     ///< false after .nolist
};

/// Notes the lines of a run in the order in which they were read, for the listing and for
/// debuggers.
class LineRecords {
public:
    /// Texts that do not last are kept in `arena`, and the origins of all lines in `origins`.
    LineRecords(Arena& arena, Origins& origins, bool isOn)
        : m_arena(arena)
        , m_origins(origins)
        , m_isOn(isOn) {}

    /// False when nobody wants the lines: then none are to be noted.
    bool isOn() const { return m_isOn; }

    /// A line that is only read, from `file`.
    void add(const Line& line, const SourceFile* file);
    /// A line with a statement, before that is assembled.
    void begin(const Line& line, const SourceFile* file, const Image& image);
    /// The same line, after its statement.
    void end(const Image& image);

    void list(bool on) { m_isListed = on; }

    const std::vector<LineRecord>& all() const { return m_records; }

private:
    Arena& m_arena;
    Origins& m_origins;
    bool m_isOn;
    std::vector<LineRecord> m_records;
    std::size_t m_current = 0;
    std::uint64_t m_totalBefore = 0;
    bool m_isListed = true;
};

} // namespace nesasm
