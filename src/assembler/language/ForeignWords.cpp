// SPDX-License-Identifier: MIT
#include "assembler/language/ForeignWords.h"

#include "assembler/text/Text.h"

#include <algorithm>
#include <array>

namespace nesasm {

namespace {

/// A word of another assembler or processor, and what to write instead.
struct ForeignWord {
    std::string_view word;
    std::string_view advice;
};

constexpr std::string_view Bytes = "use .db for bytes and strings";
constexpr std::string_view Words = "use .dw for 16-bit values";
constexpr std::string_view Space = "use .ds to reserve space";
constexpr std::string_view NoSegments = "use .bank and .org to choose bank and address";
constexpr std::string_view NoScopes = "labels that begin with a dot are local to the label before";
constexpr std::string_view Variables = "use .rsset and .rs to lay out variables";
constexpr std::string_view Undocumented =
    "this instruction is undocumented; .db can put its bytes into the program";

// clang-format off
constexpr std::array<ForeignWord, 80> ForeignWords{{
    {"byt", Bytes}, {"dc", Bytes}, {"dcb", Bytes}, {"asc", Bytes}, {"ascii", Bytes},
    {"asciiz", Bytes}, {"text", Bytes}, {"string", Bytes}, {"str", Bytes}, {"char", Bytes},
    {"hex", "use .db and write $ before each byte"},
    {"addr", Words}, {"wor", Words}, {"dbyt", Words}, {"dcw", Words},
    {"res", Space}, {"dsb", Space}, {"dsw", Space}, {"blkb", Space}, {"skip", Space},
    {"fill", "use .ds for zeros or .pad to fill up to an address"},
    {"base", NoSegments}, {"segment", NoSegments}, {"seg", NoSegments}, {"section", NoSegments},
    {"proc", NoScopes}, {"endproc", NoScopes}, {"scope", NoScopes}, {"endscope", NoScopes},
    {"enum", Variables}, {"ende", Variables}, {"zeropage", Variables},
    {"mac", "use .macro"}, {"mend", "use .endm"}, {"endmac", "use .endm"}, {"endmacro", "use .endm"},
    {"repeat", "use .rept"}, {"rep", "use .rept"}, {"endrep", "use .endr"}, {"endrepeat", "use .endr"},
    {"incsrc", "use .include"}, {"src", "use .include"}, {"inc", "use .include"},
    {"bin", "use .incbin"}, {"binary", "use .incbin"}, {"insert", "use .incbin"},
    {"define", "write NAME = value"}, {"set", "write NAME = value"}, {"let", "write NAME = value"},
    {"elif", "use .elseif"}, {"elsif", "use .elseif"}, {"fi", "use .endif"},
    {"end", "nothing is needed at the end of the source"},
    {"bra", "use JMP"}, {"jp", "use JMP"}, {"goto", "use JMP"},
    {"call", "use JSR"}, {"bsr", "use JSR"}, {"ret", "use RTS"},
    {"blt", "use BCC after CMP"}, {"bge", "use BCS after CMP"},
    {"bgt", "use BEQ to skip a BCS, after CMP"}, {"bz", "use BEQ"}, {"bnz", "use BNE"},
    {"stz", "use LDA #0 and STA"}, {"phx", "use TXA and PHA"}, {"phy", "use TYA and PHA"},
    {"plx", "use PLA and TAX"}, {"ply", "use PLA and TAY"},
    {"xor", "use EOR"}, {"or", "use ORA"}, {"mov", "use LDA and STA"},
    {"add", "use CLC and ADC"}, {"sub", "use SEC and SBC"},
    {"ina", "use CLC and ADC #1"}, {"dea", "use SEC and SBC #1"},
    {"txy", "use TXA and TAY"}, {"tyx", "use TYA and TAX"},
    {"push", "use PHA"}, {"pop", "use PLA"},
}};

constexpr std::array<std::string_view, 9> UndocumentedInstructions{
    "lax", "sax", "dcp", "isc", "isb", "slo", "rla", "sre", "rra"};
// clang-format on

} // namespace

std::string_view foreignWordAdvice(std::string_view word) {
    for (const ForeignWord& row : ForeignWords) {
        if (equalsIgnoringCase(row.word, word)) {
            return row.advice;
        }
    }
    const bool isUndocumented =
        std::any_of(UndocumentedInstructions.begin(), UndocumentedInstructions.end(),
                    [&](std::string_view name) { return equalsIgnoringCase(name, word); });
    return isUndocumented ? Undocumented : std::string_view();
}

} // namespace nesasm
