#include "assembler/LineRecords.h"

#include "assembler/Assembly.h"
#include "assembler/Characters.h"

namespace nesasm {

void LineRecords::add(Assembly& assembly, const Line& line) {
    LineRecord record;
    record.text = line.begin;
    if (line.isShortLived) {
        const char* const end = lineEnd(line.begin);
        record.text =
            assembly.arena.keepLine({line.begin, static_cast<std::size_t>(end - line.begin)})
                .data();
    }
    record.file = assembly.sources.top().passage.file;
    record.origin = line.origin;
    record.number = line.number;
    record.isListed = m_isListed;
    assembly.origins[line.origin].kept = true;
    m_records.push_back(record);
}

void LineRecords::begin(Assembly& assembly) {
    m_current = m_records.size();
    add(assembly, assembly.line);
    LineRecord& record = m_records.back();
    const Image& image = assembly.image;
    record.isStatement = true;
    record.isRam = image.isRam();
    record.address = image.address();
    record.bank = image.bank();
    record.offset = image.offset();
    m_totalBefore = image.total();
}

void LineRecords::end(const Assembly& assembly) {
    LineRecord& record = m_records[m_current];
    record.size = static_cast<std::uint32_t>(assembly.image.total() - m_totalBefore);
    if (record.size == 0 && !record.isRam) {
        // The line may have moved the place; the listing shows where to.
        record.address = assembly.image.address();
        record.bank = assembly.image.bank();
        record.offset = assembly.image.offset();
    }
    // Only files run on behind a full bank; their bytes begin in the next one.
    if (record.size != 0 && record.offset == kBankSize && !record.isRam) {
        ++record.bank;
        record.offset = 0;
    }
    // .list and .nolist count for themselves, too.
    record.isListed = record.isListed && m_isListed;
}

} // namespace nesasm
