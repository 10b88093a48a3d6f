// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// The bytes from `begin` up to `end`, which is not among them.
struct ByteRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    std::uint32_t size() const { return end - begin; }
    bool operator==(const ByteRange&) const = default;
};

/// A part of the image or of the console's memory, and what of it is taken.
struct MemoryArea {
    enum class Kind : std::uint8_t {
        prg,      ///< a bank of the program; ranges are offsets in the bank
        chr,      ///< a bank of tiles; the same
        zeroPage, ///< $0000-$00FF; ranges are addresses
        ram       ///< $0200-$07FF, what the stack at $0100 leaves; the same
    };

    Kind kind = Kind::prg;
    std::uint32_t number = 0; ///< of the bank in the image, from 0; tiles count on from the program
    ByteRange whole;
    /// Bytes taken, ascending; no two of them touch. In a bank: the bytes that the source wrote. In
    /// memory: what .rs reserved, with a name or without, and what .ds reserved in .zp and .bss.
    /// Bytes reserved twice count once. Offsets in a record that are made with .rs look like
    /// reservations in the zero page and count as those.
    std::vector<ByteRange> used;
    /// In memory, single bytes outside `used`: addresses that a constant has ("SPRITES = $0200")
    /// and an instruction uses as such. How far what lies there reaches nobody knows. They count as
    /// free.
    std::vector<ByteRange> named;

    bool isBank() const { return kind == Kind::prg || kind == Kind::chr; }
    std::uint32_t size() const { return whole.size(); }
    std::uint32_t usedBytes() const;
    std::uint32_t freeBytes() const { return size() - usedBytes(); }
    /// The longest row of free bytes, the first of several; empty at `whole.end` when all is taken.
    ByteRange largestGap() const;

    bool operator==(const MemoryArea&) const = default;
};

/// What the statement on a line of source came to. Of a line that was assembled several times (in a
/// macro, a repetition, a file included again) it tells of all times together.
struct LineFacts {
    static constexpr std::uint32_t NoBank = 0xFFFFFFFFU;

    std::uint32_t line = 0;    ///< from 1
    std::uint32_t address = 0; ///< of the first byte, or where it stands; of the first time
    std::uint32_t bank = 0;    ///< of the first byte; NoBank in .zp and .bss
    std::uint32_t times = 0;   ///< how often it was assembled; not 0
    /// Bytes in the image or reserved in .zp and .bss, all times together; of a macro's call also
    /// those of the macro.
    std::uint32_t bytes = 0;
    /// Of one time: the least and the most that its instructions take, 0 when there are none. The
    /// most counts a branch as taken and over a page's end, an index as crossing one. Of a macro's
    /// call the sum of the macro's instructions.
    std::uint32_t leastCycles = 0;
    std::uint32_t mostCycles = 0;

    bool isInMemory() const { return bank == NoBank; }
    bool operator==(const LineFacts&) const = default;
};

/// A file that was read as source.
struct FileFacts {
    std::string path;       ///< as the assembler opened it, mostly the copy in "tmp"
    std::uint64_t size = 0; ///< of the file's bytes, and their hash: see Fingerprint
    std::uint64_t hash = 0;
    std::vector<LineFacts> lines; ///< ascending; only lines with a statement

    /// The last component of the path: the name under which the file was gathered.
    std::string_view name() const;
    /// What is known of a line; nullptr when nothing is.
    const LineFacts* line(std::uint32_t number) const;
    bool operator==(const FileFacts&) const = default;
};

/// A place in a file of ProgramFacts.
struct FactPlace {
    std::size_t file = 0;     ///< its index
    std::uint32_t line = 0;   ///< from 1
    std::uint32_t column = 0; ///< in bytes, from 1

    bool operator==(const FactPlace&) const = default;
};

/// A name of the program.
struct SymbolFacts {
    enum class Kind : std::uint8_t {
        label,    ///< of a place in the program, or in .zp and .bss
        variable, ///< made by .rs
        constant, ///< made by = or .equ
        macro
    };

    std::string name;  ///< as it is written: ".loop" of a local label
    std::string scope; ///< of a local label: the label it belongs to, "" before the first
    Kind kind = Kind::constant;
    std::int32_t value = 0;  ///< an address or a number; 0 of a macro
    std::int32_t bank = -1;  ///< of a label; -1 when it is in none
    std::uint32_t bytes = 0; ///< reserved for a variable, on the line of a label; else 0
    /// None when the name was defined on the command line, several when it was defined again with
    /// the same value.
    std::vector<FactPlace> definitions;
    std::vector<FactPlace> uses; ///< in the order of the files, each place once

    bool isLocal() const { return name.starts_with('.'); }
    bool operator==(const SymbolFacts&) const = default;
};

/// What is known about the program of a build. Not changed once it is made, so threads share it.
struct ProgramFacts {
    std::vector<MemoryArea> areas; ///< banks in the order of the image, then zero page, then RAM
    std::vector<FileFacts> files;
    std::vector<SymbolFacts> symbols; ///< by name, then by scope

    /// The file gathered under this name, letter case aside where the exact one is missing; nullptr
    /// when there is none.
    const FileFacts* fileNamed(std::string_view name) const;
    /// The symbol of this name; `scope` counts only for a local one. nullptr when there is none.
    const SymbolFacts* symbol(std::string_view name, std::string_view scope = {}) const;
    bool operator==(const ProgramFacts&) const = default;
};

} // namespace kestrel
