// SPDX-License-Identifier: MIT
#include "facts/FactsText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view FirstLine = "kestrel-facts\t1";
constexpr std::string_view LastLine = "end";

using Fields = std::vector<std::string_view>;

/// Cuts what comes before `separator` off the text.
std::string_view takeUpTo(char separator, std::string_view& text) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

Fields fieldsOf(std::string_view line) {
    Fields fields;
    for (std::size_t end = line.find('\t'); end != std::string_view::npos; end = line.find('\t')) {
        fields.push_back(line.substr(0, end));
        line.remove_prefix(end + 1);
    }
    fields.push_back(line);
    return fields;
}

/// All of the text as a decimal number.
template<typename Number> bool readNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

/// Numbers one after the other.
template<typename... Numbers>
bool readNumbers(std::span<const std::string_view> fields, Numbers&... numbers) {
    std::size_t next = 0;
    return fields.size() == sizeof...(numbers) && (readNumber(fields[next++], numbers) && ...);
}

/// A name or path; \t, \n and \\ stand for the characters that would end a field or line.
bool readName(std::string_view text, std::string& name) {
    name.clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            name += text[i];
            continue;
        }
        if (++i == text.size()) {
            return false;
        }
        switch (text[i]) {
        case 't':
            name += '\t';
            break;
        case 'n':
            name += '\n';
            break;
        case '\\':
            name += '\\';
            break;
        default:
            return false;
        }
    }
    return true;
}

/// Ranges such as "0-495,512-1023", each behind the one before and inside the area.
bool readRanges(std::string_view text, const ByteRange& whole, std::vector<ByteRange>& ranges) {
    std::uint32_t next = whole.begin;
    for (bool isLast = text.empty(); !isLast;) {
        isLast = text.find(',') == std::string_view::npos;
        std::string_view part = takeUpTo(',', text);
        ByteRange range;
        if (!readNumber(takeUpTo('-', part), range.begin) || !readNumber(part, range.end) ||
            range.begin < next || range.end <= range.begin || range.end > whole.end) {
            return false;
        }
        ranges.push_back(range);
        next = range.end + 1;
    }
    return true;
}

template<typename Kind, std::size_t Count>
bool readKind(std::string_view text, const std::array<std::pair<std::string_view, Kind>, Count>& of,
              Kind& kind) {
    const auto found = std::ranges::find(of, text, &std::pair<std::string_view, Kind>::first);
    if (found == of.end()) {
        return false;
    }
    kind = found->second;
    return true;
}

/// Takes the lines one by one.
class FactsReader {
public:
    /// False for a line that cannot be.
    bool take(std::string_view line) {
        const Fields fields = fieldsOf(line);
        const std::string_view what = fields.front();
        const auto rest = std::span<const std::string_view>(fields).subspan(1);
        return what == "line"         ? takeLine(rest)
               : what == "use"        ? takePlace(rest, &SymbolFacts::uses)
               : what == "definition" ? takePlace(rest, &SymbolFacts::definitions)
               : what == "symbol"     ? takeSymbol(rest)
               : what == "file"       ? takeFile(rest)
               : what == "area"       ? takeArea(rest)
                                      : false;
    }

    ProgramFacts facts() && {
        // They come in this order; whoever looks one up must not depend on it.
        std::ranges::sort(m_facts.symbols, {}, [](const SymbolFacts& symbol) {
            return std::tuple<std::string_view, std::string_view>(symbol.name, symbol.scope);
        });
        return std::move(m_facts);
    }

private:
    bool takeArea(std::span<const std::string_view> fields) {
        using Kind = MemoryArea::Kind;
        constexpr std::array<std::pair<std::string_view, Kind>, 4> Kinds{{
            {"prg", Kind::prg},
            {"chr", Kind::chr},
            {"zeroPage", Kind::zeroPage},
            {"ram", Kind::ram},
        }};
        MemoryArea area;
        if (fields.size() != 6 || !readKind(fields[0], Kinds, area.kind) ||
            !readNumbers(fields.subspan(1, 3), area.number, area.whole.begin, area.whole.end) ||
            area.whole.begin >= area.whole.end || !readRanges(fields[4], area.whole, area.used) ||
            !readRanges(fields[5], area.whole, area.named)) {
            return false;
        }
        m_facts.areas.push_back(std::move(area));
        return true;
    }

    bool takeFile(std::span<const std::string_view> fields) {
        FileFacts file;
        if (fields.size() != 3 || !readName(fields[0], file.path) ||
            !readNumbers(fields.subspan(1), file.size, file.hash)) {
            return false;
        }
        m_facts.files.push_back(std::move(file));
        return true;
    }

    bool takeLine(std::span<const std::string_view> fields) {
        LineFacts line;
        if (m_facts.files.empty() ||
            !readNumbers(fields, line.line, line.address, line.bank, line.times, line.bytes,
                         line.leastCycles, line.mostCycles) ||
            line.times == 0 || line.leastCycles > line.mostCycles) {
            return false;
        }
        std::vector<LineFacts>& lines = m_facts.files.back().lines;
        const std::uint32_t before = lines.empty() ? 0 : lines.back().line;
        lines.push_back(line);
        return line.line > before;
    }

    bool takeSymbol(std::span<const std::string_view> fields) {
        using Kind = SymbolFacts::Kind;
        constexpr std::array<std::pair<std::string_view, Kind>, 4> Kinds{{
            {"label", Kind::label},
            {"variable", Kind::variable},
            {"constant", Kind::constant},
            {"macro", Kind::macro},
        }};
        SymbolFacts symbol;
        if (fields.size() != 6 || !readKind(fields[0], Kinds, symbol.kind) ||
            !readName(fields[1], symbol.name) || symbol.name.empty() ||
            !readName(fields[2], symbol.scope) ||
            !readNumbers(fields.subspan(3), symbol.value, symbol.bank, symbol.bytes)) {
            return false;
        }
        m_facts.symbols.push_back(std::move(symbol));
        return true;
    }

    bool takePlace(std::span<const std::string_view> fields,
                   std::vector<FactPlace> SymbolFacts::*places) {
        FactPlace place;
        if (m_facts.symbols.empty() || !readNumbers(fields, place.file, place.line, place.column) ||
            place.file >= m_facts.files.size() || place.line == 0 || place.column == 0) {
            return false;
        }
        (m_facts.symbols.back().*places).push_back(place);
        return true;
    }

    ProgramFacts m_facts;
};

} // namespace

std::optional<ProgramFacts> readFacts(std::string_view text) {
    if (takeUpTo('\n', text) != FirstLine) {
        return std::nullopt;
    }
    FactsReader reader;
    while (!text.empty()) {
        const std::string_view line = takeUpTo('\n', text);
        if (line == LastLine) {
            return text.empty() ? std::optional(std::move(reader).facts()) : std::nullopt;
        }
        if (!reader.take(line)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace kestrel
