// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <memory>
#include <utility>
#include <vector>

namespace kestrel::test {

inline constexpr std::uint32_t BankSize = 0x2000;

inline MemoryArea makeBank(MemoryArea::Kind kind, std::uint32_t number,
                           std::vector<ByteRange> used) {
    MemoryArea area;
    area.kind = kind;
    area.number = number;
    area.whole = {0, BankSize};
    area.used = std::move(used);
    return area;
}

inline MemoryArea makeMemory(MemoryArea::Kind kind, const ByteRange& whole,
                             std::vector<ByteRange> used, std::vector<ByteRange> named = {}) {
    MemoryArea area;
    area.kind = kind;
    area.whole = whole;
    area.used = std::move(used);
    area.named = std::move(named);
    return area;
}

inline LineFacts makeLine(std::uint32_t address, std::uint32_t bank) {
    LineFacts line;
    line.address = address;
    line.bank = bank;
    line.bytes = 3;
    return line;
}

/// A small program: one bank for code, which ends with the vectors, and one that is full of tiles.
inline ProgramFacts sampleProgram() {
    ProgramFacts facts;
    facts.areas = {makeBank(MemoryArea::Kind::prg, 0, {{0, 0x145A}, {0x1FFA, 0x2000}}),
                   makeBank(MemoryArea::Kind::chr, 1, {{0, 0x2000}}),
                   makeMemory(MemoryArea::Kind::zeroPage, {0, 0x100}, {{0, 12}, {16, 17}}),
                   makeMemory(MemoryArea::Kind::ram, {0x200, 0x800}, {}, {{0x200, 0x201}})};
    FileFacts file;
    file.lines = {makeLine(0xC000, 0), makeLine(0xC003, 0), makeLine(0, 1)};
    facts.files = {file};
    return facts;
}

} // namespace kestrel::test
