// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Position.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace nesasm {

inline constexpr std::uint32_t BankSize = 0x2000;
/// The largest image that the header can describe has 255 units of 16 KiB and 255 of 8 KiB.
inline constexpr std::uint32_t BankCount = 255 * 2 + 255;

/// The iNES header's fields as the source gives them.
struct Header {
    std::uint32_t prg = 0; ///< 16 KiB units
    std::uint32_t chr = 0; ///< 8 KiB units
    std::uint32_t mapper = 0;
    std::uint32_t mirroring = 0; ///< the low four flags
    /// Of .inesprg or .ineschr, or else of the source's first line.
    Position position;
};

/// The sections that the source can select.
enum class Section : std::uint8_t { code, data, zeroPage, bss };

/// The banks of the image and the current place in them, where the next byte goes.
class Image {
public:
    Image();

    void selectSection(Section section);
    void selectBank(std::uint32_t bank);
    /// False when the address (0 to $FFFF) is outside the section.
    bool setAddress(std::uint32_t address);

    Section section() const { return m_section; }
    bool isRam() const { return m_section >= Section::zeroPage; }
    std::uint32_t bank() const { return m_bank; }
    std::uint32_t offset() const { return m_offset; }
    std::uint32_t address() const { return (m_page << 13U) + m_offset; }
    /// The bytes that still fit into the bank or section.
    std::uint32_t room() const { return sectionEnd() - m_offset; }

    /// Puts bytes at the place and moves it. Returns how many did not fit; those are dropped.
    std::size_t emit(const std::uint8_t* bytes, std::size_t count) {
        if (m_offset + count <= m_limit) {
            std::memcpy(m_current + m_offset, bytes, count);
            m_offset += static_cast<std::uint32_t>(count);
            m_total += count;
            return 0;
        }
        return emitCarefully(bytes, count);
    }
    /// Puts bytes that run on into the following banks. False when there are no more banks.
    bool emitAcrossBanks(const std::uint8_t* bytes, std::size_t count);

    /// Bytes that replaced bytes written earlier.
    struct Overwritten {
        std::uint32_t bank = 0;
        std::uint32_t offset = 0; ///< of the first one
        std::uint32_t count = 0;
    };
    bool hasOverwritten() const { return m_overwritten.count != 0; }
    /// Those since this was called last.
    Overwritten takeOverwritten() { return std::exchange(m_overwritten, {}); }

    /// Moves the place in a RAM section; returns how many bytes did not fit.
    std::size_t reserve(std::size_t count);

    /// Bytes emitted and reserved so far.
    std::uint64_t total() const { return m_total; }

    /// A number for bytes that will be filled in later; bytes written over them after that count
    /// more.
    std::uint32_t nextPatch() { return m_patchCount++; }
    void patch(std::uint32_t number, std::uint32_t bank, std::uint32_t offset,
               const std::uint8_t* bytes, std::size_t count);

    /// To be called when the source has ended, before what follows.
    void finish() { leave(); }
    /// Banks in the file: the highest one used, plus one.
    std::uint32_t bankCount() const { return m_usedBanks; }
    /// The bytes of a bank, nullptr for one in which nothing was written.
    const std::uint8_t* bytes(std::uint32_t bank) const;
    std::uint32_t bytesWritten(std::uint32_t bank) const;
    /// Where those are: first offset and end of each row of them, ascending.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> rowsWritten(std::uint32_t bank) const;

    Header header;

private:
    struct Bank {
        std::array<std::uint8_t, BankSize> bytes;
        std::array<std::uint64_t, BankSize / 64> written;
        /// For each byte the patches made before it was last written over; empty until needed.
        std::vector<std::uint32_t> firstLivePatch;
    };
    struct Place {
        std::uint32_t offset = 0;
        std::uint32_t page = 0;
    };

    std::uint32_t sectionEnd() const;
    std::size_t emitCarefully(const std::uint8_t* bytes, std::size_t count);
    void enter(std::uint32_t bank);
    void leave();
    Bank& makeBank();
    void arrive();

    std::vector<std::unique_ptr<Bank>> m_banks;
    std::uint32_t m_usedBanks = 0;                 ///< the highest bank used, plus one
    std::vector<Place> m_places;                   ///< of each bank, whichever section is in it
    std::array<std::uint32_t, 2> m_sectionBanks{}; ///< of .code and .data
    std::array<std::uint32_t, 2> m_ramOffsets{0, 0x200}; ///< of .zp and .bss
    Section m_section = Section::code;
    std::uint32_t m_bank = 0;
    std::uint32_t m_page = 0;
    std::uint32_t m_offset = 0;
    std::uint32_t m_runStart = 0; ///< bytes from here to the place were written, not noted yet
    std::uint32_t m_limit = 0;    ///< from here on a byte may have been written before
    std::uint8_t* m_current = nullptr;
    std::uint64_t m_total = 0;
    std::uint32_t m_patchCount = 0;
    Overwritten m_overwritten;
};

} // namespace nesasm
