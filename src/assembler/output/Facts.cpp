// SPDX-License-Identifier: MIT
#include "assembler/output/Facts.h"

#include "assembler/output/ImageFile.h"
#include "assembler/output/LineTotals.h"
#include "assembler/output/SourceLines.h"

#include <algorithm>
#include <set>
#include <utility>

namespace nesasm {

namespace {

using Range = std::pair<std::uint32_t, std::uint32_t>;

constexpr Range ZeroPage{0, 0x100};
constexpr Range Ram{0x200, 0x800};

/// FNV-1a, 64 bits.
std::uint64_t hashOf(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return hash;
}

/// In ascending order, those that overlap or touch as one.
std::vector<Range> merged(std::vector<Range> ranges) {
    std::ranges::sort(ranges);
    std::vector<Range> result;
    for (const Range& range : ranges) {
        if (!result.empty() && range.first <= result.back().second) {
            result.back().second = std::max(result.back().second, range.second);
        } else if (range.first < range.second) {
            result.push_back(range);
        }
    }
    return result;
}

std::vector<Range> within(const Range& whole, const std::vector<Range>& ranges) {
    std::vector<Range> result;
    for (const Range& range : ranges) {
        const Range part{std::max(range.first, whole.first), std::min(range.second, whole.second)};
        if (part.first < part.second) {
            result.push_back(part);
        }
    }
    return result;
}

/// Writes lines of fields.
class FactsWriter {
public:
    explicit FactsWriter(const FinishedProgram& program)
        : m_program(program)
        , m_lines(program) {}

    std::string text() {
        begin("kestrel-facts").number(1).end();
        addBanks();
        addMemory();
        addFiles();
        addSymbols();
        begin("end").end();
        return std::move(m_text);
    }

private:
    FactsWriter& begin(std::string_view what) {
        m_text += what;
        return *this;
    }
    FactsWriter& word(std::string_view text) {
        m_text += '\t';
        m_text += text;
        return *this;
    }
    FactsWriter& name(std::string_view text) {
        m_text += '\t';
        for (const char c : text) {
            switch (c) {
            case '\t':
                m_text += "\\t";
                break;
            case '\n':
                m_text += "\\n";
                break;
            case '\\':
                m_text += "\\\\";
                break;
            default:
                m_text += c;
            }
        }
        return *this;
    }
    template<typename Number> FactsWriter& number(Number number) {
        return word(std::to_string(number));
    }
    FactsWriter& ranges(const std::vector<Range>& ranges) {
        m_text += '\t';
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            m_text += (i == 0 ? "" : ",") + std::to_string(ranges[i].first) + "-" +
                      std::to_string(ranges[i].second);
        }
        return *this;
    }
    void end() { m_text += '\n'; }

    void addBanks() {
        const Image& image = m_program.image;
        const std::uint32_t prgBanks = prgBankCount(image);
        for (std::uint32_t bank = 0; bank < image.bankCount(); ++bank) {
            begin("area").word(bank < prgBanks ? "prg" : "chr").number(bank);
            number(0).number(BankSize).ranges(image.rowsWritten(bank)).ranges({}).end();
        }
    }

    void addMemory() {
        std::vector<Range> reserved;
        for (const ProgramNotes::Reservation& one : m_program.notes.reservations()) {
            reserved.emplace_back(one.address, one.address + one.count);
        }
        for (const LineRecord& record : m_program.lines) {
            if (record.isStatement && record.isRam) {
                reserved.emplace_back(record.address, record.address + record.size);
            }
        }
        reserved = merged(std::move(reserved));
        const std::vector<Range> named = namedAddresses(reserved);
        for (const auto& [what, whole] : {std::pair("zeroPage", ZeroPage), std::pair("ram", Ram)}) {
            begin("area").word(what).number(0).number(whole.first).number(whole.second);
            ranges(within(whole, reserved)).ranges(within(whole, named)).end();
        }
    }

    /// The addresses that instructions use by the name of a constant, but for those in `reserved`.
    std::vector<Range> namedAddresses(const std::vector<Range>& reserved) const {
        std::vector<Range> named;
        for (SymbolId id = 1; id < m_program.symbols.size(); ++id) {
            const Symbol& symbol = m_program.symbols[id];
            const auto address = static_cast<std::uint32_t>(symbol.value);
            const bool isTaken = std::ranges::any_of(reserved, [address](const Range& range) {
                return address >= range.first && address < range.second;
            });
            const bool isConstant = symbol.isKnown && !symbol.isLabel && !symbol.isReserved;
            if (isConstant && symbol.isAddress && !isTaken && address < Ram.second) {
                named.emplace_back(address, address + 1);
            }
        }
        return merged(std::move(named));
    }

    void addFiles() {
        const LineTotals totals = lineTotals(m_program);
        for (const SourceFile* file : m_lines.files()) {
            begin("file").name(file->path()).number(file->bytes().size());
            number(hashOf(file->bytes())).end();
            const auto lines = totals.find(file);
            if (lines == totals.end()) {
                continue;
            }
            for (const auto& [line, total] : lines->second) {
                begin("line").number(line).number(total.address).number(total.bank);
                number(total.times).number(total.bytes);
                number(total.leastCycles).number(total.mostCycles).end();
            }
        }
    }

    /// Where a symbol is defined and used.
    struct Places {
        std::set<SourcePlace> definitions;
        std::set<SourcePlace> uses;
    };

    std::vector<Places> findPlaces() const {
        const SymbolTable& symbols = m_program.symbols;
        std::vector<Places> places(symbols.size());
        for (SymbolId id = 1; id < symbols.size(); ++id) {
            const Symbol& symbol = symbols[id];
            if (symbol.origin != NoOrigin) {
                places[id].definitions.insert(
                    m_lines.placesOf(symbol.name, symbol.line, symbol.origin).front());
            }
        }
        for (const ProgramNotes::MacroPlace& macro : m_program.notes.macros()) {
            places[macro.symbol].definitions.insert(
                m_lines.placesOf(symbols[macro.symbol].name, macro.line, macro.origin).front());
        }
        for (const ProgramNotes::Use& use : m_program.notes.uses()) {
            addUse(use, places[use.symbol]);
        }
        return places;
    }

    void addUse(const ProgramNotes::Use& use, Places& places) const {
        if (use.column != None) {
            const SourceFile* const file = m_program.origins[use.origin].source;
            places.uses.insert({m_lines.indexOf(file), use.line, use.column + 1});
            return;
        }
        // Which of several on the line it is cannot be told; all are uses but for a definition.
        for (const SourcePlace& place :
             m_lines.placesOf(m_program.symbols[use.symbol].name, use.line, use.origin)) {
            if (!places.definitions.contains(place)) {
                places.uses.insert(place);
            }
        }
    }

    static std::string_view kindOf(const Symbol& symbol) {
        if (!symbol.isDefined) {
            return "macro";
        }
        return symbol.isReserved ? "variable" : symbol.isLabel ? "label" : "constant";
    }

    void addSymbols() {
        const SymbolTable& symbols = m_program.symbols;
        std::vector<SymbolId> ids;
        for (SymbolId id = 1; id < symbols.size(); ++id) {
            const Symbol& symbol = symbols[id];
            if ((symbol.isKnown || symbol.macro != None) && !symbol.isBroken) {
                ids.push_back(id);
            }
        }
        const auto key = [&symbols](SymbolId id) {
            return std::pair(symbols[id].name, symbols[symbols[id].scope].name);
        };
        std::ranges::sort(ids, {}, key);
        const std::vector<Places> places = findPlaces();
        for (const SymbolId id : ids) {
            const Symbol& symbol = symbols[id];
            const bool isPlace = symbol.isLabel || symbol.isReserved;
            begin("symbol").word(kindOf(symbol)).name(symbol.name).name(key(id).second);
            number(symbol.isKnown ? symbol.value : 0);
            number(symbol.isLabel && symbol.bank >= 0 ? symbol.bank : -1);
            number(isPlace && symbol.size != None ? symbol.size : 0).end();
            addPlaces("definition", places[id].definitions);
            addPlaces("use", places[id].uses);
        }
    }

    void addPlaces(std::string_view what, const std::set<SourcePlace>& places) {
        for (const SourcePlace& place : places) {
            begin(what).number(place.file).number(place.line).number(place.column).end();
        }
    }

    const FinishedProgram& m_program;
    SourceLines m_lines;
    std::string m_text;
};

} // namespace

std::string factsText(const FinishedProgram& program) {
    return FactsWriter(program).text();
}

} // namespace nesasm
