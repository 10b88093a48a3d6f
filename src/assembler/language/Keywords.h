// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace nesasm {

enum class Directive : std::uint8_t {
    align,
    assertion,
    bank,
    bss,
    byte,
    code,
    data,
    ds,
    elseBranch,
    elseIf,
    endIf,
    endMacro,
    endRepeat,
    equ,
    error,
    fail,
    ifTrue,
    ifDef,
    ifNotDef,
    incBin,
    incChr,
    include,
    inesChr,
    inesMap,
    inesMir,
    inesPrg,
    list,
    macro,
    noList,
    org,
    pad,
    repeat,
    rs,
    rsSet,
    warning,
    word,
    zp
};

/// One of a directive's names.
struct DirectiveName {
    std::string_view name;
    Directive directive;
    bool worksWithoutDot;
};

/// All names of directives, without their dots, in alphabetical order.
inline constexpr std::array<DirectiveName, 39> DirectiveTable{{
    {"align", Directive::align, false},
    {"assert", Directive::assertion, false},
    {"bank", Directive::bank, true},
    {"bss", Directive::bss, false},
    {"byte", Directive::byte, true},
    {"code", Directive::code, false},
    {"data", Directive::data, false},
    {"db", Directive::byte, true},
    {"ds", Directive::ds, true},
    {"dw", Directive::word, true},
    {"else", Directive::elseBranch, true},
    {"elseif", Directive::elseIf, true},
    {"endif", Directive::endIf, true},
    {"endm", Directive::endMacro, true},
    {"endr", Directive::endRepeat, false},
    {"equ", Directive::equ, true},
    {"error", Directive::error, false},
    {"fail", Directive::fail, false},
    {"if", Directive::ifTrue, true},
    {"ifdef", Directive::ifDef, true},
    {"ifndef", Directive::ifNotDef, true},
    {"incbin", Directive::incBin, true},
    {"incchr", Directive::incChr, true},
    {"include", Directive::include, true},
    {"ineschr", Directive::inesChr, true},
    {"inesmap", Directive::inesMap, true},
    {"inesmir", Directive::inesMir, true},
    {"inesprg", Directive::inesPrg, true},
    {"list", Directive::list, true},
    {"macro", Directive::macro, true},
    {"nolist", Directive::noList, true},
    {"org", Directive::org, true},
    {"pad", Directive::pad, false},
    {"rept", Directive::repeat, false},
    {"rs", Directive::rs, true},
    {"rsset", Directive::rsSet, true},
    {"warning", Directive::warning, false},
    {"word", Directive::word, true},
    {"zp", Directive::zp, false},
}};

/// The functions of expressions.
enum class Function : std::uint8_t { low, high, bank, page, sizeOf };

/// A function's name, in lower case.
struct FunctionName {
    std::string_view name;
    Function function;
};

inline constexpr std::array<FunctionName, 5> FunctionTable{{{"low", Function::low},
                                                            {"high", Function::high},
                                                            {"bank", Function::bank},
                                                            {"page", Function::page},
                                                            {"sizeof", Function::sizeOf}}};

/// What a word means to the assembler; letter case does not matter.
struct Keyword {
    enum class Kind : std::uint8_t { none, directive, instruction };

    Kind kind = Kind::none;
    std::uint8_t id = 0; ///< a Directive, or an index into InstructionTable
};

/// Looks up a word as written in the source, with its leading dot if it has one. Some directives
/// are known without the dot, instructions never have one.
Keyword findKeyword(std::string_view word);

/// The function that `word` names.
std::optional<Function> findFunction(std::string_view word);

} // namespace nesasm
