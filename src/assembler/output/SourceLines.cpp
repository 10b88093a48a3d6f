// SPDX-License-Identifier: MIT
#include "assembler/output/SourceLines.h"

#include "assembler/text/Characters.h"

namespace nesasm {

namespace {

/// The columns at which `name` stands as a whole word before the comment and outside of texts.
std::vector<std::uint32_t> columnsOf(std::string_view text, std::string_view name) {
    std::vector<std::uint32_t> columns;
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size() && (isQuoted || text[i] != ';'); ++i) {
        isQuoted = isQuoted != (text[i] == '"');
        const std::size_t end = i + name.size();
        const bool isWord =
            (i == 0 || !isWordPart(text[i - 1])) && (end >= text.size() || !isWordPart(text[end]));
        if (!isQuoted && isWord && text.substr(i, name.size()) == name) {
            columns.push_back(static_cast<std::uint32_t>(i) + 1);
        }
    }
    return columns;
}

std::uint32_t firstColumn(std::string_view text) {
    std::uint32_t column = 1;
    while (column < text.size() && isBlank(text[column - 1])) {
        ++column;
    }
    return column;
}

} // namespace

SourceLines::SourceLines(const FinishedProgram& program)
    : m_program(program) {
    for (const LineRecord& record : program.lines) {
        if (record.file == nullptr) {
            continue;
        }
        const auto [known, isNew] = m_indices.emplace(record.file, m_files.size());
        if (isNew) {
            m_files.push_back(record.file);
            m_texts.emplace_back();
        }
        // The lines of macros are there as they were written, too: the body is read first.
        if (program.origins[record.origin].kind == Origin::Kind::file) {
            std::vector<std::string_view>& texts = m_texts[known->second];
            if (texts.size() <= record.number) {
                texts.resize(record.number + 1);
            }
            texts[record.number] = record.text.upTo(record.text.lineEnd());
        }
    }
}

std::vector<SourcePlace> SourceLines::placesOf(std::string_view name, std::uint32_t line,
                                               OriginId origin) const {
    const Origin* const innermost = &m_program.origins[origin];
    const Origin* now = innermost;
    std::uint32_t number = line;
    for (;;) {
        std::vector<SourcePlace> places;
        for (const std::uint32_t column : columnsOf(text(now->source, number), name)) {
            places.push_back({indexOf(now->source), number, column});
        }
        if (!places.empty()) {
            return places;
        }
        if (now->kind == Origin::Kind::file || now->parent == NoOrigin) {
            break;
        }
        number = now->callLine;
        now = &m_program.origins[now->parent];
    }
    return {{indexOf(innermost->source), line, firstColumn(text(innermost->source, line))}};
}

std::string_view SourceLines::text(const SourceFile* file, std::uint32_t line) const {
    const std::vector<std::string_view>& texts = m_texts[indexOf(file)];
    return line < texts.size() ? texts[line] : std::string_view();
}

} // namespace nesasm
