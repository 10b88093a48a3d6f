// SPDX-License-Identifier: MIT
#include "assembler/expressions/WrittenOperand.h"

#include "assembler/text/Cursor.h"

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
    std::string_view before(position.line, position.column);
    while (!before.empty() && isBlank(before.back())) {
        before.remove_suffix(1);
    }
    std::size_t length = 0;
    while (length < before.size() && isWordPart(before[before.size() - length - 1])) {
        ++length;
    }
    return findInstruction(before.substr(before.size() - length));
}

std::string writtenOperand(const Position& position) {
    if (position.line == nullptr) {
        return {};
    }
    const Cursor begin(position.line + position.column);
    Cursor end = begin;
    while (!end.isAtStatementEnd()) {
        end += *end == '\'' && end[1] == ';' && end[2] == '\'' ? 3 : 1;
    }
    std::string_view text = begin.upTo(end);
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text.size() <= LongestOperand ? std::string(text) : std::string();
}

} // namespace nesasm
