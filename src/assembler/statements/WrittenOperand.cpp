// SPDX-License-Identifier: MIT
#include "assembler/statements/WrittenOperand.h"

#include "assembler/text/Characters.h"

#include <cstddef>
#include <string_view>

namespace nesasm {

namespace {

constexpr std::size_t LongestOperand = 24;

} // namespace

const Instruction* instructionBefore(const Position& position) {
    if (position.line == nullptr) {
        return nullptr;
    }
    const char* end = position.line + position.column;
    while (end > position.line && isBlank(end[-1])) {
        --end;
    }
    const char* begin = end;
    while (begin > position.line && isWordPart(begin[-1])) {
        --begin;
    }
    return findInstruction({begin, static_cast<std::size_t>(end - begin)});
}

std::string writtenOperand(const Position& position) {
    if (position.line == nullptr) {
        return {};
    }
    const char* const begin = position.line + position.column;
    const char* end = begin;
    while (!endsStatement(*end)) {
        end += *end == '\'' && end[1] == ';' && end[2] == '\'' ? 3 : 1;
    }
    while (end > begin && isBlank(end[-1])) {
        --end;
    }
    const std::string_view text(begin, static_cast<std::size_t>(end - begin));
    return text.size() <= LongestOperand ? std::string(text) : std::string();
}

} // namespace nesasm
