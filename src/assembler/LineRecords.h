#pragma once

#include "assembler/Position.h"
#include "assembler/SourceStack.h"

#include <cstdint>
#include <vector>

namespace nesasm {

struct Assembly;

/// One source line that was read, and the place of the bytes it made.
struct LineRecord {
    const char* text = nullptr; ///< ends at its line end
    const SourceFile* file = nullptr;
    OriginId origin = kNoOrigin;
    std::uint32_t number = 0;
    std::uint32_t address = 0;
    std::uint32_t bank = 0;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;   ///< bytes made or reserved
    bool isStatement = false; ///< false: a line passed over, or one of a macro's body
    bool isRam = false;       ///< in .zp or .bss: nothing in the image
    bool isListed = true;     ///< false behind .nolist
};

/// Notes the lines of a run in the order in which they were read, for the listing and for
/// debuggers.
class LineRecords {
public:
    /// The present line, before its statement; its text and origin are kept.
    void begin(Assembly& assembly);
    /// The same line, behind its statement.
    void end(const Assembly& assembly);
    /// A line that is only read.
    void add(Assembly& assembly, const Line& line);

    void list(bool on) { m_isListed = on; }

    const std::vector<LineRecord>& all() const { return m_records; }

private:
    std::vector<LineRecord> m_records;
    std::size_t m_current = 0;
    std::uint64_t m_totalBefore = 0;
    bool m_isListed = true;
};

} // namespace nesasm
