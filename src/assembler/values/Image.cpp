// SPDX-License-Identifier: MIT
#include "assembler/values/Image.h"

#include <algorithm>
#include <bit>

namespace nesasm {

namespace {

using WrittenMap = std::array<std::uint64_t, BankSize / 64>;

bool isWritten(const WrittenMap& map, std::uint32_t offset) {
    return ((map[offset / 64] >> (offset % 64)) & 1U) != 0;
}

/// The first written offset from `offset` on, BankSize when there is none.
std::uint32_t nextWritten(const WrittenMap& map, std::uint32_t offset) {
    while (offset < BankSize) {
        const std::uint64_t rest = map[offset / 64] >> (offset % 64);
        if (rest != 0) {
            return offset + static_cast<std::uint32_t>(std::countr_zero(rest));
        }
        offset = (offset / 64 + 1) * 64;
    }
    return BankSize;
}

/// Marks the offsets from `begin` up to `end`.
void markWritten(WrittenMap& map, std::uint32_t begin, std::uint32_t end) {
    while (begin < end) {
        const std::uint32_t count = std::min(64 - begin % 64, end - begin);
        map[begin / 64] |= (~std::uint64_t{0} >> (64 - count)) << (begin % 64);
        begin += count;
    }
}

} // namespace

Image::Image()
    : m_banks(BankCount)
    , m_places(BankCount) {}

std::uint32_t Image::sectionEnd() const {
    switch (m_section) {
    case Section::zeroPage:
        return 0x100;
    case Section::bss:
        return 0x800;
    case Section::code:
    case Section::data:
        break;
    }
    return BankSize;
}

void Image::selectSection(Section section) {
    if (section == m_section) {
        return;
    }
    leave();
    m_section = section;
    if (isRam()) {
        m_offset = m_ramOffsets[section == Section::bss ? 1 : 0];
        m_page = m_limit = 0;
        return;
    }
    enter(m_sectionBanks[static_cast<std::size_t>(section)]);
}

void Image::selectBank(std::uint32_t bank) {
    // The RAM sections are in no bank; the section that was selected before keeps its own.
    if (isRam() || bank == m_bank) {
        return;
    }
    leave();
    enter(bank);
}

bool Image::setAddress(std::uint32_t address) {
    if (isRam()) {
        if (address > sectionEnd()) {
            return false;
        }
        m_offset = address;
        return true;
    }
    leave();
    m_page = address >> 13U;
    m_offset = address & (BankSize - 1);
    m_usedBanks = std::max(m_usedBanks, m_bank + 1);
    arrive();
    return true;
}

void Image::enter(std::uint32_t bank) {
    m_sectionBanks[static_cast<std::size_t>(m_section)] = m_bank = bank;
    m_offset = m_places[bank].offset;
    m_page = m_places[bank].page;
    arrive();
}

/// Begins a run of bytes at the current place.
void Image::arrive() {
    m_runStart = m_offset;
    Bank* const bank = m_banks[m_bank].get();
    m_current = bank != nullptr ? bank->bytes.data() : nullptr;
    m_limit = bank != nullptr ? nextWritten(bank->written, m_offset) : 0;
}

/// Records the run of bytes that ends at the current place, and the place itself.
void Image::leave() {
    if (isRam()) {
        m_ramOffsets[m_section == Section::bss ? 1 : 0] = m_offset;
        return;
    }
    if (m_offset > m_runStart) {
        m_usedBanks = std::max(m_usedBanks, m_bank + 1);
        markWritten(m_banks[m_bank]->written, m_runStart, m_offset);
    }
    m_runStart = m_offset;
    m_places[m_bank] = {m_offset, m_page};
}

Image::Bank& Image::makeBank() {
    auto& bank = m_banks[m_bank];
    if (!bank) {
        bank = std::make_unique<Bank>();
        bank->bytes.fill(0xFF);
    }
    return *bank;
}

std::size_t Image::emitCarefully(const std::uint8_t* bytes, std::size_t count) {
    if (isRam()) {
        return count;
    }
    const auto fitting = static_cast<std::uint32_t>(std::min<std::size_t>(count, room()));
    if (fitting != 0) {
        Bank& bank = makeBank();
        if (nextWritten(bank.written, m_offset) < m_offset + fitting) {
            bank.firstLivePatch.resize(BankSize);
            for (std::uint32_t offset = m_offset; offset < m_offset + fitting; ++offset) {
                if (isWritten(bank.written, offset)) {
                    bank.firstLivePatch[offset] = m_patchCount;
                    if (m_overwritten.count++ == 0) {
                        m_overwritten.bank = m_bank;
                        m_overwritten.offset = offset;
                    }
                }
            }
        }
        std::memcpy(bank.bytes.data() + m_offset, bytes, fitting);
        m_offset += fitting;
        m_total += fitting;
        m_current = bank.bytes.data();
        m_limit = nextWritten(bank.written, m_offset);
    }
    return count - fitting;
}

bool Image::emitAcrossBanks(const std::uint8_t* bytes, std::size_t count) {
    while (count != 0) {
        if (room() != 0) {
            const std::size_t part = std::min<std::size_t>(count, room());
            emit(bytes, part);
            bytes += part;
            count -= part;
        }
        if (room() != 0) {
            break;
        }
        // The page stays: labels go on from the page of the bank in which the data began.
        if (m_bank + 1 >= BankCount) {
            return count == 0;
        }
        const std::uint32_t page = m_page;
        leave();
        enter(m_bank + 1);
        m_page = page;
        m_offset = 0;
        arrive();
    }
    return true;
}

std::size_t Image::reserve(std::size_t count) {
    const std::size_t fitting = std::min<std::size_t>(count, room());
    m_offset += static_cast<std::uint32_t>(fitting);
    m_total += fitting;
    return count - fitting;
}

void Image::patch(std::uint32_t number, std::uint32_t bank, std::uint32_t offset,
                  const std::uint8_t* bytes, std::size_t count) {
    Bank* const target = m_banks[bank].get();
    for (std::size_t i = 0; i < count && target != nullptr && offset + i < BankSize; ++i) {
        const std::vector<std::uint32_t>& live = target->firstLivePatch;
        if (live.empty() || live[offset + i] <= number) {
            target->bytes[offset + i] = bytes[i];
        }
    }
}

const std::uint8_t* Image::bytes(std::uint32_t bank) const {
    return m_banks[bank] ? m_banks[bank]->bytes.data() : nullptr;
}

std::uint32_t Image::bytesWritten(std::uint32_t bank) const {
    int count = 0;
    if (m_banks[bank]) {
        for (const std::uint64_t bits : m_banks[bank]->written) {
            count += std::popcount(bits);
        }
    }
    return static_cast<std::uint32_t>(count);
}

std::vector<std::pair<std::uint32_t, std::uint32_t>> Image::rowsWritten(std::uint32_t bank) const {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> rows;
    if (!m_banks[bank]) {
        return rows;
    }
    const WrittenMap& map = m_banks[bank]->written;
    for (std::uint32_t begin = nextWritten(map, 0); begin < BankSize;) {
        std::uint32_t end = begin;
        while (end < BankSize && isWritten(map, end)) {
            ++end;
        }
        rows.emplace_back(begin, end);
        begin = nextWritten(map, end);
    }
    return rows;
}

} // namespace nesasm
