// SPDX-License-Identifier: MIT
#pragma once

#include <array>
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

/// One of a directive's names.
struct DirectiveName {
    std::string_view name;
    Directive directive;
    bool worksWithoutDot;
};

/// All names of directives, without their dots, in alphabetical order.
inline constexpr std::array<DirectiveName, 39> directiveTable{{
    {"align", Directive::Align, false},
    {"assert", Directive::Assert, false},
    {"bank", Directive::Bank, true},
    {"bss", Directive::Bss, false},
    {"byte", Directive::Byte, true},
    {"code", Directive::Code, false},
    {"data", Directive::Data, false},
    {"db", Directive::Byte, true},
    {"ds", Directive::Ds, true},
    {"dw", Directive::Word, true},
    {"else", Directive::Else, true},
    {"elseif", Directive::ElseIf, true},
    {"endif", Directive::EndIf, true},
    {"endm", Directive::EndMacro, true},
    {"endr", Directive::EndRepeat, false},
    {"equ", Directive::Equ, true},
    {"error", Directive::Error, false},
    {"fail", Directive::Fail, false},
    {"if", Directive::If, true},
    {"ifdef", Directive::IfDef, true},
    {"ifndef", Directive::IfNotDef, true},
    {"incbin", Directive::IncBin, true},
    {"incchr", Directive::IncChr, true},
    {"include", Directive::Include, true},
    {"ineschr", Directive::InesChr, true},
    {"inesmap", Directive::InesMap, true},
    {"inesmir", Directive::InesMir, true},
    {"inesprg", Directive::InesPrg, true},
    {"list", Directive::List, true},
    {"macro", Directive::Macro, true},
    {"nolist", Directive::NoList, true},
    {"org", Directive::Org, true},
    {"pad", Directive::Pad, false},
    {"rept", Directive::Repeat, false},
    {"rs", Directive::Rs, true},
    {"rsset", Directive::RsSet, true},
    {"warning", Directive::Warning, false},
    {"word", Directive::Word, true},
    {"zp", Directive::Zp, false},
}};

enum class Function : std::uint8_t { Low, High, Bank, Page, SizeOf };

struct FunctionName {
    std::string_view name;
    Function function;
};

inline constexpr std::array<FunctionName, 5> functionTable{{{"low", Function::Low},
                                                            {"high", Function::High},
                                                            {"bank", Function::Bank},
                                                            {"page", Function::Page},
                                                            {"sizeof", Function::SizeOf}}};

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
