#pragma once

#include <cstdint>
#include <string_view>

namespace nesasm {

enum class Directive : std::uint8_t {
    Align,
    Assert,
    Bank,
    Bss,
    Byte,
    Code,
    Data,
    Ds,
    Else,
    ElseIf,
    EndIf,
    EndMacro,
    EndRepeat,
    Equ,
    Error,
    Fail,
    If,
    IfDef,
    IfNotDef,
    IncBin,
    IncChr,
    Include,
    InesChr,
    InesMap,
    InesMir,
    InesPrg,
    List,
    Macro,
    NoList,
    Org,
    Pad,
    Repeat,
    Rs,
    RsSet,
    Warning,
    Word,
    Zp
};

enum class Function : std::uint8_t { Low, High, Bank, Page, SizeOf };

/// What a word means to the assembler, whatever the case of its letters.
struct Keyword {
    enum class Kind : std::uint8_t { None, Directive, Instruction };

    Kind kind = Kind::None;
    std::uint8_t id = 0; ///< a Directive, or an index into instructionTable
};

/// Looks up a word as it stands in the source, with its leading dot if it has one. Some directives
/// are known without the dot, instructions never have one.
Keyword findKeyword(std::string_view word);

/// True and sets `function` when `word` names a function.
bool findFunction(std::string_view word, Function& function);

} // namespace nesasm
