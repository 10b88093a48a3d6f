// SPDX-License-Identifier: MIT
#include "assembler/reading/LineRecords.h"

#include "assembler/text/Characters.h"

namespace nesasm {

void LineRecords::add(const Line& line, const SourceFile* file) {
    LineRecord record;
    record.text = line.begin;
    if (line.isShortLived) {
        record.text = Cursor(m_arena.keepLine(line.begin.upTo(line.begin.lineEnd())).data());
    }
    record.file = file;
    record.origin = line.origin;
    record.number = line.number;
    record.isListed = m_isListed;
    m_origins[line.origin].kept = true;
    m_records.push_back(record);
}

void LineRecords::begin(const Line& line, const SourceFile* file, const Image& image) {
    m_current = m_records.size();
    add(line, file);
    LineRecord& record = m_records.back();
    record.isStatement = true;
    record.isRam = image.isRam();
    record.address = image.address();
    record.bank = image.bank();
    record.offset = image.offset();
    m_totalBefore = image.total();
}

void LineRecords::end(const Image& image) {
    LineRecord& record = m_records[m_current];
    record.size = static_cast<std::uint32_t>(image.total() - m_totalBefore);
    if (record.size == 0 && !record.isRam) {
        // The line may have moved the place; the listing shows where to.
        record.address = image.address();
        record.bank = image.bank();
        record.offset = image.offset();
    }
    // Only files run on after a full bank; their bytes begin in the next one.
    if (record.size != 0 && record.offset == BankSize && !record.isRam) {
        ++record.bank;
        record.offset = 0;
    }
    // .list and .nolist count for themselves, too.
    record.isListed = record.isListed && m_isListed;
}

} // namespace nesasm
