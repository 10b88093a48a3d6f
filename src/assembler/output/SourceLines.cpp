// SPDX-License-Identifier: MIT
#include "assembler/output/SourceLines.h"

#include "assembler/text/Characters.h"

namespace nesasm {

namespace {

/// Where `name` stands as a whole word before the comment, or npos.
std::size_t findWord(std::string_view text, std::string_view name) {
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isStart = i == 0 || !isWordPart(text[i - 1]);
        const std::size_t end = i + name.size();
        if (quote == '\0' && isStart && text.substr(i, name.size()) == name &&
            (end >= text.size() || !isWordPart(text[end]))) {
            return i;
        }
        if (quote == '\0' && text[i] == ';') {
            break;
        }
        if (text[i] == quote) {
            quote = '\0';
        } else if (quote == '\0' && text[i] == '"') {
            quote = '"';
        }
    }
    return std::string_view::npos;
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

SourcePlace SourceLines::placeOf(std::string_view name, std::uint32_t line, OriginId origin) const {
    const Origin* const innermost = &m_program.origins[origin];
    const Origin* now = innermost;
    std::uint32_t number = line;
    for (;;) {
        const std::size_t found = findWord(text(now->source, number), name);
        if (found != std::string_view::npos) {
            return {indexOf(now->source), number, static_cast<std::uint32_t>(found) + 1};
        }
        if (now->kind == Origin::Kind::file || now->parent == NoOrigin) {
            break;
        }
        number = now->callLine;
        now = &m_program.origins[now->parent];
    }
    return {indexOf(innermost->source), line, firstColumn(text(innermost->source, line))};
}

std::string_view SourceLines::text(const SourceFile* file, std::uint32_t line) const {
    const std::vector<std::string_view>& texts = m_texts[indexOf(file)];
    return line < texts.size() ? texts[line] : std::string_view();
}

} // namespace nesasm
