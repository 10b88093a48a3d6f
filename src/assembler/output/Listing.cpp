// SPDX-License-Identifier: MIT
#include "assembler/output/Listing.h"

#include "assembler/language/Cycles.h"
#include "assembler/output/RecordedBytes.h"
#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace nesasm {

namespace {

constexpr std::size_t BytesInRow = 4;
constexpr std::size_t MostRows = 8;
constexpr std::size_t NumberWidth = 6;
constexpr std::size_t CyclesWidth = 3;

std::string padded(std::string text, std::size_t width) {
    text.insert(text.begin(), width - std::min(width, text.size()), ' ');
    return text;
}

std::string filled(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

/// Formats the lines of a run and its symbols as text.
class ListingWriter {
public:
    ListingWriter(const FinishedProgram& program, bool showsExpansions)
        : m_program(program)
        , m_records(program.lines)
        , m_showsExpansions(showsExpansions) {}

    std::string text() {
        for (std::size_t i = 0; i < m_records.size(); ++i) {
            const LineRecord& record = m_records[i];
            if (record.isListed && (m_showsExpansions || !isExpansion(record))) {
                addLine(i);
            }
        }
        addSymbols();
        return std::move(m_text);
    }

private:
    using Bytes = RecordedBytes::Bytes;

    bool isExpansion(const LineRecord& record) const {
        return m_program.origins[record.origin].kind != Origin::Kind::file;
    }

    void addLine(std::size_t index) {
        const LineRecord& record = m_records[index];
        addFileLine(record);
        const Bytes bytes = bytesOf(index);
        std::string cycles;
        if (const auto opcode = m_bytes.opcodeOf(index)) {
            cycles = cyclesText(*opcode);
        }
        const LineRecord& place = placeOf(index);
        const bool hasPlace = !bytes.empty() || (record.isStatement && !isBlankLine(record));
        const std::size_t rows =
            std::max<std::size_t>(1, (bytes.size() + BytesInRow - 1) / BytesInRow);
        for (std::size_t row = 0; row < std::min(rows, MostRows); ++row) {
            std::string line = row == 0 ? padded(std::to_string(record.number), NumberWidth)
                                        : std::string(NumberWidth, ' ');
            line += isExpansion(record) ? '+' : ' ';
            line += placeText(place, hasPlace, row * BytesInRow);
            line += filled(rowText(bytes, row), 3 * BytesInRow + 1);
            line += filled(row == 0 ? cycles : "", CyclesWidth + 1);
            if (row == 0) {
                line += sourceText(record.text);
            }
            addTrimmed(line);
        }
        if (rows > MostRows) {
            addTrimmed(std::string(NumberWidth + 1, ' ') + "... " + counted(bytes.size(), "byte"));
        }
    }

    void addFileLine(const LineRecord& record) {
        const Origin& origin = m_program.origins[record.origin];
        if (origin.kind != Origin::Kind::file || record.origin == m_file) {
            return;
        }
        m_file = record.origin;
        m_text += "--- " + printable(origin.file);
        if (origin.parent != NoOrigin) {
            m_text += ", included at " + printable(m_program.origins[origin.parent].file) + ":" +
                      std::to_string(origin.callLine);
        }
        m_text += '\n';
    }

    /// The bytes of a line and, where expansions are not shown, of those that it led to.
    Bytes bytesOf(std::size_t index) const {
        Bytes bytes;
        m_bytes.append(index, bytes);
        if (m_showsExpansions) {
            return bytes;
        }
        for (std::size_t i = index + 1; i < m_records.size() && isExpansion(m_records[i]); ++i) {
            m_bytes.append(i, bytes);
        }
        return bytes;
    }

    /// The line whose bytes come first among those that bytesOf gives.
    const LineRecord& placeOf(std::size_t index) const {
        if (m_records[index].size != 0 || m_showsExpansions) {
            return m_records[index];
        }
        for (std::size_t i = index + 1; i < m_records.size() && isExpansion(m_records[i]); ++i) {
            if (m_records[i].size != 0) {
                return m_records[i];
            }
        }
        return m_records[index];
    }

    std::string placeText(const LineRecord& record, bool hasPlace, std::size_t distance) const {
        if (!hasPlace) {
            return "          ";
        }
        std::string text = padded(record.isRam ? "" : std::to_string(record.bank), 3) + ":";
        text +=
            hexText((record.address + static_cast<std::uint32_t>(distance)) & 0xFFFFU, 4).substr(1);
        return text + "  ";
    }

    static std::string rowText(const Bytes& bytes, std::size_t row) {
        std::string text;
        const std::size_t end = std::min(bytes.size(), (row + 1) * BytesInRow);
        for (std::size_t i = row * BytesInRow; i < end; ++i) {
            text += (bytes[i] ? hexText(*bytes[i], 2).substr(1) : "..") + " ";
        }
        return text;
    }

    static std::string sourceText(Cursor text) {
        return printable(text.upTo(text.lineEnd()), true);
    }

    void addTrimmed(std::string line) {
        while (!line.empty() && isBlank(line.back())) {
            line.pop_back();
        }
        m_text += line += '\n';
    }

    void addSymbols() {
        const SymbolTable& symbols = m_program.symbols;
        std::vector<std::pair<std::string, SymbolId>> sorted;
        for (SymbolId id = 1; id < symbols.size(); ++id) {
            if (symbols[id].isKnown) {
                sorted.emplace_back(shownName(id), id);
            }
        }
        std::sort(sorted.begin(), sorted.end());
        m_text += "\nSymbols: value, bank, uses, name, where it is defined\n";
        for (const auto& [name, id] : sorted) {
            const Symbol& symbol = symbols[id];
            const auto value = static_cast<std::uint32_t>(symbol.value);
            std::string line = padded(hexText(value, 4), 9) + " ";
            line +=
                padded(symbol.isLabel && symbol.bank >= 0 ? std::to_string(symbol.bank) : "", 3);
            line += padded(std::to_string(symbol.uses), 6) + "  " + printable(name);
            if (symbol.origin != NoOrigin) {
                line += "  " + printable(m_program.origins[symbol.origin].file) + ":" +
                        std::to_string(symbol.line);
            }
            m_text += line += '\n';
        }
    }

    std::string shownName(SymbolId id) const {
        const Symbol& symbol = m_program.symbols[id];
        const bool isLocal = symbol.name.starts_with('.') && symbol.scope != 0;
        return (isLocal ? std::string(m_program.symbols[symbol.scope].name) : std::string()) +
               std::string(symbol.name);
    }

    const FinishedProgram& m_program;
    const std::vector<LineRecord>& m_records;
    bool m_showsExpansions;
    RecordedBytes m_bytes{m_program};
    OriginId m_file = NoOrigin;
    std::string m_text;
};

} // namespace

std::string listingText(const FinishedProgram& program, bool showsExpansions) {
    return ListingWriter(program, showsExpansions).text();
}

} // namespace nesasm
