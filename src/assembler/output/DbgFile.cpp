// SPDX-License-Identifier: MIT
#include "assembler/output/DbgFile.h"

#include "assembler/output/DebugLabels.h"
#include "assembler/output/ImageFile.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <map>
#include <sys/stat.h>
#include <tuple>
#include <utility>

namespace nesasm {

namespace {

/// Of every file: its first line, and the row of its one module.
constexpr std::string_view VersionRow = "version\tmajor=2,minor=0";
constexpr std::string_view ModuleRow = "mod\tid=0,name=\"NESasm\",file=0\n";
constexpr unsigned MacroLine = 2; ///< the type of a line of a macro's body

std::string number(std::uint64_t value) {
    return std::to_string(value);
}

std::string hexNumber(std::uint64_t value, unsigned digits) {
    return "0x" + hexText(static_cast<unsigned>(value), digits).substr(1);
}

/// `path` as seen from `folder`; both are absolute.
std::string relativePath(const std::string& path, const std::string& folder) {
    const std::string base = folder == "/" ? folder : folder + "/";
    std::size_t common = 0;
    for (std::size_t i = 0; i < path.size() && i < base.size() && path[i] == base[i]; ++i) {
        if (path[i] == '/') {
            common = i + 1;
        }
    }
    if (common == 0) {
        return path;
    }
    std::string result;
    for (std::size_t i = common; i < base.size(); ++i) {
        if (base[i] == '/') {
            result += "../";
        }
    }
    return result + path.substr(common);
}

/// A text between double quotes, which it cannot hold itself.
std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (const char c : printable(text)) {
        result += c == '"' ? '\'' : c;
    }
    return result + '"';
}

/// Builds the file's lines from a run.
class DbgWriter {
public:
    DbgWriter(const FinishedProgram& program, const std::string& output, const SourceNames& names)
        : m_program(program)
        , m_names(names)
        , m_output(output)
        , m_folder(absolutePath(folderOf(output))) {}

    std::string text() {
        for (const LineRecord& record : m_program.lines) {
            addRecord(record);
        }
        chooseSegmentStarts();
        addSymbols();
        addSegments();
        std::string lines;
        std::size_t lineCount = 0;
        for (const auto& [key, line] : m_lines) {
            lines += lineText(key, line);
            ++lineCount;
        }
        std::string info = std::string(VersionRow) + "\ninfo\tcsym=0,file=" + number(m_fileCount) +
                           ",lib=0,line=" + number(lineCount) +
                           ",mod=1,scope=1,seg=" + number(m_segmentIds.size()) +
                           ",span=" + number(m_spanCount) + ",sym=" + number(m_symbolCount) +
                           ",type=0\n";
        return info + m_files + lines + std::string(ModuleRow) + m_segments + m_spans +
               "scope\tid=0,name=\"\",mod=0\n" + m_symbols;
    }

private:
    /// File, line and type of an entry.
    using LineKey = std::tuple<std::uint32_t, std::uint32_t, unsigned>;
    struct LineEntry {
        std::uint32_t id = 0;
        std::vector<std::uint32_t> spans;
    };

    void addRecord(const LineRecord& record) {
        if (!record.isStatement || record.isRam || record.size == 0 || record.file == nullptr) {
            return;
        }
        const Origins& origins = m_program.origins;
        const bool isMacro = origins[record.origin].kind == Origin::Kind::macro;
        std::uint32_t bank = record.bank;
        std::uint32_t offset = record.offset;
        for (std::uint32_t left = record.size; left != 0; ++bank, offset = 0) {
            const std::uint32_t part = std::min(left, BankSize - offset);
            const std::uint32_t span = addSpan(bank, offset, part, record.address);
            lineOf(fileOf(record.file), record.number, isMacro ? MacroLine : 0)
                .spans.push_back(span);
            if (isMacro) {
                addCaller(record.origin, span);
            }
            left -= part;
        }
    }

    /// The line outside of all macros that led to the bytes of a macro.
    void addCaller(OriginId origin, std::uint32_t span) {
        const Origins& origins = m_program.origins;
        while (origins[origin].kind == Origin::Kind::macro) {
            const std::uint32_t line = origins[origin].callLine;
            origin = origins[origin].parent;
            if (origins[origin].kind != Origin::Kind::macro && origins[origin].source != nullptr) {
                lineOf(fileOf(origins[origin].source), line, 0).spans.push_back(span);
            }
        }
    }

    std::uint32_t addSpan(std::uint32_t bank, std::uint32_t offset, std::uint32_t size,
                          std::uint32_t address) {
        const auto segment = m_segmentIds.emplace(bank, m_segmentIds.size()).first;
        m_bytesAtPages[bank][address & ~(BankSize - 1)] += size;
        m_spans += "span\tid=" + number(m_spanCount) + ",seg=" + number(segment->second) +
                   ",start=" + number(offset) + ",size=" + number(size) + "\n";
        return m_spanCount++;
    }

    /// A bank is shown at the page at which most of its bytes were assembled.
    void chooseSegmentStarts() {
        for (const auto& [bank, pages] : m_bytesAtPages) {
            m_segmentStarts[bank] =
                std::max_element(pages.begin(), pages.end(), [](const auto& a, const auto& b) {
                    return a.second < b.second;
                })->first;
        }
    }

    /// The segment that the debugger finds a label in.
    std::map<std::uint32_t, std::size_t>::const_iterator segmentOf(const Symbol& symbol) const {
        if (!symbol.isLabel || symbol.bank < 0 || symbol.isAtBankEnd) {
            return m_segmentIds.end();
        }
        const auto bank = static_cast<std::uint32_t>(symbol.bank);
        const auto start = m_segmentStarts.find(bank);
        const bool isThere =
            start != m_segmentStarts.end() &&
            (static_cast<std::uint32_t>(symbol.value) & ~(BankSize - 1)) == start->second;
        return isThere ? m_segmentIds.find(bank) : m_segmentIds.end();
    }

    LineEntry& lineOf(std::uint32_t file, std::uint32_t line, unsigned type) {
        const auto [entry, isNew] = m_lines.try_emplace({file, line, type});
        if (isNew) {
            entry->second.id = static_cast<std::uint32_t>(m_lines.size() - 1);
        }
        return entry->second;
    }

    std::string lineText(const LineKey& key, const LineEntry& line) const {
        const auto [file, lineNumber, type] = key;
        std::string text =
            "line\tid=" + number(line.id) + ",file=" + number(file) + ",line=" + number(lineNumber);
        if (type != 0) {
            text += ",type=" + number(type) + ",count=1";
        }
        for (std::size_t i = 0; i < line.spans.size(); ++i) {
            text += (i == 0 ? ",span=" : "+") + number(line.spans[i]);
        }
        return text += '\n';
    }

    std::uint32_t fileOf(const SourceFile* file) {
        const auto [known, isNew] = m_fileIds.emplace(file, m_fileCount);
        if (isNew) {
            struct stat status {};
            const std::string path = m_names.originalOf(file->path());
            if (stat(path.c_str(), &status) != 0) {
                stat(file->path().c_str(), &status); // what was copied is gone
            }
            m_files += "file\tid=" + number(m_fileCount++) +
                       ",name=" + inQuotes(relativePath(path, m_folder)) +
                       ",size=" + number(static_cast<std::uint64_t>(status.st_size)) +
                       ",mtime=" + hexNumber(static_cast<std::uint64_t>(status.st_mtime), 8) +
                       ",mod=0\n";
        }
        return known->second;
    }

    void addSymbols() {
        const SymbolTable& symbols = m_program.symbols;
        std::vector<std::uint32_t> ids(symbols.size(), None);
        for (SymbolId id = 1; id < symbols.size(); ++id) {
            const Symbol& symbol = symbols[id];
            if (!symbol.isKnown || symbol.isBroken) {
                continue;
            }
            const bool isLocal = symbol.name.starts_with('.');
            const bool hasParent = isLocal && ids[symbol.scope] != None;
            ids[id] = m_symbolCount++;
            m_symbols += "sym\tid=" + number(ids[id]) + ",name=" +
                         inQuotes(hasParent ? "@" + std::string(symbol.name.substr(1))
                                            : debugName(symbols, id)) +
                         ",addrsize=absolute";
            if (symbol.size != None && symbol.size != 0) {
                m_symbols += ",size=" + number(symbol.size);
            }
            m_symbols += hasParent ? ",parent=" + number(ids[symbol.scope]) : ",scope=0";
            if (symbol.origin != NoOrigin && m_program.origins[symbol.origin].source != nullptr) {
                m_symbols +=
                    ",def=" + number(lineOf(fileOf(m_program.origins[symbol.origin].source),
                                            symbol.line, typeOf(symbol.origin))
                                         .id);
            }
            m_symbols += ",val=" + hexNumber(static_cast<std::uint32_t>(symbol.value), 1);
            const auto segment = segmentOf(symbol);
            if (segment != m_segmentIds.end()) {
                m_symbols += ",seg=" + number(segment->second);
            }
            m_symbols += symbol.isLabel ? ",type=lab\n" : ",type=equ\n";
        }
    }

    unsigned typeOf(OriginId origin) const {
        return m_program.origins[origin].kind == Origin::Kind::macro ? MacroLine : 0;
    }

    void addSegments() {
        for (const auto& [bank, id] : m_segmentIds) {
            m_segmentTexts[id] =
                "seg\tid=" + number(id) + ",name=\"BANK" + number(bank) +
                "\",start=" + hexNumber(m_segmentStarts[bank], 6) +
                ",size=" + hexNumber(BankSize, 4) + ",addrsize=absolute,type=ro,oname=" +
                inQuotes(m_output.substr(m_output.rfind('/') + 1)) +
                ",ooffs=" + number(ImageHeaderSize + std::uint64_t{bank} * BankSize) +
                ",bank=" + number(bank) + "\n";
        }
        for (const auto& [id, text] : m_segmentTexts) {
            m_segments += text;
        }
    }

    const FinishedProgram& m_program;
    const SourceNames& m_names;
    std::string m_output;
    std::string m_folder;
    std::map<const SourceFile*, std::uint32_t> m_fileIds;
    std::uint32_t m_fileCount = 0;
    std::map<LineKey, LineEntry> m_lines;
    std::map<std::uint32_t, std::size_t> m_segmentIds; ///< of the banks
    /// Of each bank, how many bytes were assembled at each page.
    std::map<std::uint32_t, std::map<std::uint32_t, std::uint64_t>> m_bytesAtPages;
    std::map<std::uint32_t, std::uint32_t> m_segmentStarts;
    std::map<std::size_t, std::string> m_segmentTexts;
    std::uint32_t m_spanCount = 0;
    std::uint32_t m_symbolCount = 0;
    std::string m_files;
    std::string m_segments;
    std::string m_spans;
    std::string m_symbols;
};

} // namespace

SideFile dbgFile(const FinishedProgram& program, const std::string& output,
                 const SourceNames& names) {
    return {withEnding(output, ".dbg"), DbgWriter(program, output, names).text()};
}

bool isDbgStart(std::string_view line) {
    return line == VersionRow;
}

bool isOwnDbgText(std::string_view text) {
    const auto first = text.find("\nmod\t");
    return first != std::string_view::npos && text.substr(first + 1).starts_with(ModuleRow) &&
           text.find("\nmod\t", first + 1) == std::string_view::npos;
}

} // namespace nesasm
