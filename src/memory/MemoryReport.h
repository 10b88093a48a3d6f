// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// One bank, the zero page or RAM, as the memory window tells of it.
struct MemoryRow {
    const MemoryArea* area = nullptr; ///< of the report's facts
    std::uint32_t used = 0;           ///< bytes
    ByteRange gap;                    ///< the largest one
    /// Bytes that are used now and were not in the build before, less than 0 when it were more;
    /// nothing when that build is not known, or had no such bank.
    std::optional<std::int64_t> change;
    bool isNew = false; ///< the build before is known and had no such bank

    std::uint32_t free() const { return area->size() - used; }
};

/// What is where in a row, for a place that somebody points at.
struct MemoryPlace {
    enum class State : std::uint8_t { used, named, free };
    State state = State::free;
    ByteRange range;
};

/// How full the banks and the memory of a program are, and what changed since the build before: the
/// rows of the memory window, and all that is said of them.
class MemoryReport {
    Q_DECLARE_TR_FUNCTIONS(MemoryReport)

public:
    /// Of nothing: without rows.
    MemoryReport() = default;

    /// `before` is nullptr when nothing is known of the build before.
    MemoryReport(std::shared_ptr<const ProgramFacts> facts, const ProgramFacts* before,
                 QString imageName);

    const std::vector<MemoryRow>& rows() const { return m_rows; }

    /// Whether the rows are of the same banks, so that one can take the place of the other.
    bool hasRowsLike(const MemoryReport& other) const;

    /// "Game.nes: PRG 5,210 of 16,384 bytes used (+24), CHR 8,192 of 8,192".
    QString summary() const;

    /// "PRG bank 0", "Zero page".
    static QString nameOf(const MemoryRow& row);
    /// "5,210 of 8,192 bytes used, 2,982 free, largest gap 2,000".
    static QString usageOf(const MemoryRow& row);
    /// The widest text that usageOf() gives for an area of this size.
    static QString widestUsage(std::uint32_t size);
    /// With its sign: "+24 bytes". Empty when there is nothing to tell.
    static QString changeOf(const MemoryRow& row);
    /// All of that for whoever listens, the change in words.
    static QString sentenceOf(const MemoryRow& row);
    /// The row's name and numbers with tabs between them, as spreadsheets take them, and what the
    /// columns are called. The change is empty when the build before is not known.
    static QString tabbed(const MemoryRow& row);
    static QString tabbedHead();
    /// "Used: $C000-$D459. Largest gap: $D45A-$DFFF."
    QString rangesOf(const MemoryRow& row) const;
    /// "$C000-$D459 used, 5,210 bytes".
    QString textOf(const MemoryRow& row, const MemoryPlace& place) const;

    /// What is used in these bytes of the row; where nothing is, the free bytes around them.
    static MemoryPlace placeAt(const MemoryRow& row, const ByteRange& bytes);

    /// In a bank, what is added to an offset to get the address that the source gave the byte;
    /// nothing when the source gave it none, or several.
    std::optional<std::uint32_t> addressOf(const MemoryRow& row) const;

private:
    /// The addresses of the banks by their numbers.
    using BankAddresses = std::vector<std::optional<std::uint32_t>>;

    BankAddresses findBankAddresses() const;
    QString rangeText(const MemoryRow& row, const ByteRange& range) const;
    QString listText(const MemoryRow& row, const std::vector<ByteRange>& ranges) const;

    std::shared_ptr<const ProgramFacts> m_facts;
    std::vector<MemoryRow> m_rows;
    /// Found when somebody asks for an address, since all lines of the program are looked at.
    mutable std::optional<BankAddresses> m_bankAddresses;
    QString m_image;
    bool m_hasBefore = false;
};

} // namespace kestrel
