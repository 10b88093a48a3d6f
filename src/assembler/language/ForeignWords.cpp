// SPDX-License-Identifier: MIT
#include "assembler/language/ForeignWords.h"

#include "assembler/text/Text.h"

#include <algorithm>
#include <array>

namespace nesasm {

namespace {

struct ForeignWord {
    std::string_view word;
    std::string_view advice;
};

constexpr std::string_view kBytes = "use .db for bytes and texts";
constexpr std::string_view kWords = "use .dw for 16-bit values";
constexpr std::string_view kSpace = "use .ds to leave room";
constexpr std::string_view kNoSegments = "use .bank and .org to choose the place";
constexpr std::string_view kNoScopes = "labels that begin with a dot are local to the label before";
constexpr std::string_view kVariables = "use .rsset and .rs to lay out variables";
constexpr std::string_view kUndocumented =
    "this instruction is undocumented; .db can put its bytes into the program";

// clang-format off
constexpr std::array<ForeignWord, 80> kForeignWords{{
    {"byt", kBytes}, {"dc", kBytes}, {"dcb", kBytes}, {"asc", kBytes}, {"ascii", kBytes},
    {"asciiz", kBytes}, {"text", kBytes}, {"string", kBytes}, {"str", kBytes}, {"char", kBytes},
    {"hex", "use .db and write $ before each byte"},
    {"addr", kWords}, {"wor", kWords}, {"dbyt", kWords}, {"dcw", kWords},
    {"res", kSpace}, {"dsb", kSpace}, {"dsw", kSpace}, {"blkb", kSpace}, {"skip", kSpace},
    {"fill", "use .ds for zeros or .pad to fill up to an address"},
    {"base", kNoSegments}, {"segment", kNoSegments}, {"seg", kNoSegments}, {"section", kNoSegments},
    {"proc", kNoScopes}, {"endproc", kNoScopes}, {"scope", kNoScopes}, {"endscope", kNoScopes},
    {"enum", kVariables}, {"ende", kVariables}, {"zeropage", kVariables},
    {"mac", "use .macro"}, {"mend", "use .endm"}, {"endmac", "use .endm"}, {"endmacro", "use .endm"},
    {"repeat", "use .rept"}, {"rep", "use .rept"}, {"endrep", "use .endr"}, {"endrepeat", "use .endr"},
    {"incsrc", "use .include"}, {"src", "use .include"}, {"inc", "use .include"},
    {"bin", "use .incbin"}, {"binary", "use .incbin"}, {"insert", "use .incbin"},
    {"define", "write NAME = value"}, {"set", "write NAME = value"}, {"let", "write NAME = value"},
    {"elif", "use .elseif"}, {"elsif", "use .elseif"}, {"fi", "use .endif"},
    {"end", "nothing is needed at the end of the source"},
    {"bra", "use JMP"}, {"jp", "use JMP"}, {"goto", "use JMP"},
    {"call", "use JSR"}, {"bsr", "use JSR"}, {"ret", "use RTS"},
    {"blt", "use BCC behind a CMP"}, {"bge", "use BCS behind a CMP"},
    {"bgt", "use BEQ over a BCS behind a CMP"}, {"bz", "use BEQ"}, {"bnz", "use BNE"},
    {"stz", "use LDA #0 and STA"}, {"phx", "use TXA and PHA"}, {"phy", "use TYA and PHA"},
    {"plx", "use PLA and TAX"}, {"ply", "use PLA and TAY"},
    {"xor", "use EOR"}, {"or", "use ORA"}, {"mov", "use LDA and STA"},
    {"add", "use CLC and ADC"}, {"sub", "use SEC and SBC"},
    {"ina", "use CLC and ADC #1"}, {"dea", "use SEC and SBC #1"},
    {"txy", "use TXA and TAY"}, {"tyx", "use TYA and TAX"},
    {"push", "use PHA"}, {"pop", "use PLA"},
}};

constexpr std::array<std::string_view, 9> kUndocumentedInstructions{
    "lax", "sax", "dcp", "isc", "isb", "slo", "rla", "sre", "rra"};
// clang-format on

} // namespace

std::string_view foreignWordAdvice(std::string_view word) {
    for (const ForeignWord& row : kForeignWords)
        if (equalsIgnoringCase(row.word, word))
            return row.advice;
    const bool isUndocumented =
        std::any_of(kUndocumentedInstructions.begin(), kUndocumentedInstructions.end(),
                    [&](std::string_view name) { return equalsIgnoringCase(name, word); });
    return isUndocumented ? kUndocumented : std::string_view();
}

} // namespace nesasm
