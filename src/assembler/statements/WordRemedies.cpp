// SPDX-License-Identifier: MIT
#include "assembler/statements/WordRemedies.h"

#include "assembler/language/ForeignWords.h"
#include "assembler/language/InstructionTable.h"
#include "assembler/text/NearNames.h"

#include <deque>

namespace nesasm {

std::string remedyForWord(std::span<const Macro> macros, const Vocabulary& vocabulary,
                          std::string_view word) {
    const bool isDotted = word.starts_with('.');
    const std::string_view bare = isDotted ? word.substr(1) : word;
    if (const std::string_view advice = foreignWordAdvice(bare); !advice.empty()) {
        return "; " + std::string(advice);
    }
    NearNames near(word);
    for (const Macro& macro : macros) {
        near.consider(macro.name);
    }
    std::deque<std::string> dotted; // what is considered must stay where it is
    for (const DirectiveWord& each : vocabulary.directives()) {
        dotted.push_back("." + std::string(each.word));
        if (isDotted || each.worksWithoutDot || word == each.word) {
            near.consider(isDotted ? std::string_view(dotted.back()) : each.word, dotted.back());
        }
    }
    if (!isDotted) {
        for (const Instruction& instruction : InstructionTable) {
            near.consider(instruction.name);
        }
    }
    return near.question();
}

} // namespace nesasm
