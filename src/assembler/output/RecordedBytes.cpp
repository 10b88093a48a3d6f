// SPDX-License-Identifier: MIT
#include "assembler/output/RecordedBytes.h"

#include "assembler/language/InstructionTable.h"

namespace nesasm {

namespace {

constexpr std::uint32_t LongestInstruction = 3;

/// Calls `use` with the bank and the offset of each byte that the line made.
template<typename Use> void forEachByte(const LineRecord& record, const Use& use) {
    if (!record.isStatement || record.isRam) {
        return;
    }
    std::uint32_t bank = record.bank;
    std::uint32_t offset = record.offset;
    for (std::uint32_t left = record.size; left != 0; --left, ++offset) {
        if (offset == BankSize) {
            ++bank;
            offset = 0;
        }
        use(bank, offset);
    }
}

/// True when the statement of the line is an instruction. Data that is longer just may look like
/// one.
bool isInstruction(const LineRecord& record) {
    if (!record.isStatement || record.isRam || record.size == 0 ||
        record.size > LongestInstruction) {
        return false;
    }
    Cursor p = record.text.afterBlanks();
    for (bool isFirst = p == record.text; p.isAtName(); isFirst = false) {
        const Cursor end = p.wordEnd();
        if (*end != ':' && findInstruction(p.upTo(end)) != nullptr) {
            return true;
        }
        if (*end != ':' && !isFirst) {
            return false;
        }
        p = (*end == ':' ? end + 1 : end).afterBlanks();
    }
    return false;
}

} // namespace

bool isBlankLine(const LineRecord& record) {
    return record.text.afterBlanks().isAtStatementEnd();
}

RecordedBytes::RecordedBytes(const FinishedProgram& program)
    : m_program(program)
    , m_owners(program.image.bankCount()) {
    for (std::size_t i = 0; i < program.lines.size(); ++i) {
        forEachByte(program.lines[i], [&](std::uint32_t bank, std::uint32_t offset) {
            m_owners[bank].resize(BankSize);
            m_owners[bank][offset] = static_cast<std::uint32_t>(i);
        });
    }
}

void RecordedBytes::append(std::size_t index, Bytes& bytes) const {
    forEachByte(m_program.lines[index], [&](std::uint32_t bank, std::uint32_t offset) {
        if (m_owners[bank][offset] == index) {
            bytes.emplace_back(m_program.image.bytes(bank)[offset]);
        } else {
            bytes.emplace_back();
        }
    });
}

std::optional<std::uint8_t> RecordedBytes::opcodeOf(std::size_t index) const {
    if (!isInstruction(m_program.lines[index])) {
        return std::nullopt;
    }
    Bytes bytes;
    append(index, bytes);
    return bytes.front();
}

} // namespace nesasm
