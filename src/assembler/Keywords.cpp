#include "assembler/Keywords.h"

#include "assembler/InstructionTable.h"
#include "assembler/Text.h"

#include <array>

namespace nesasm {

namespace {

struct DirectiveName {
    std::string_view name;
    Directive directive;
    bool worksWithoutDot;
};

constexpr std::array<DirectiveName, 39> kDirectives{{
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

constexpr std::size_t kLongestKeyword = 7;
constexpr std::size_t kSlotCount = 512;

/// The word's letters in lower case, one a byte. Distinct words of at most seven word characters
/// have distinct keys: setting bit 5 changes no digit, and no other character becomes a letter.
constexpr std::uint64_t keyOf(std::string_view word) {
    std::uint64_t key = 0;
    for (const char c : word)
        key = (key << 8U) | (static_cast<unsigned char>(c) | 0x20U);
    return key;
}

constexpr std::size_t slotOf(std::uint64_t key) {
    return (key * 0x9E3779B97F4A7C15U) >> 55U;
}

struct Entry {
    std::uint64_t key = 0;
    Keyword keyword;
    bool worksWithDot = false;
    bool worksWithoutDot = false;
};

constexpr void put(std::array<Entry, kSlotCount>& table, const Entry& entry) {
    std::size_t slot = slotOf(entry.key);
    while (table[slot].key != 0)
        slot = (slot + 1) % kSlotCount;
    table[slot] = entry;
}

constexpr std::array<Entry, kSlotCount> makeTable() {
    std::array<Entry, kSlotCount> table{};
    for (const DirectiveName& row : kDirectives)
        put(table, {keyOf(row.name),
                    {Keyword::Kind::Directive, static_cast<std::uint8_t>(row.directive)},
                    true,
                    row.worksWithoutDot});
    for (std::size_t i = 0; i < instructionTable.size(); ++i)
        put(table, {keyOf(instructionTable[i].name),
                    {Keyword::Kind::Instruction, static_cast<std::uint8_t>(i)},
                    false,
                    true});
    return table;
}

constexpr std::array<Entry, kSlotCount> kTable = makeTable();

} // namespace

Keyword findKeyword(std::string_view word) {
    const bool dotted = word.starts_with('.');
    if (dotted)
        word.remove_prefix(1);
    if (word.empty() || word.size() > kLongestKeyword)
        return {};
    const std::uint64_t key = keyOf(word);
    for (std::size_t slot = slotOf(key); kTable[slot].key != 0; slot = (slot + 1) % kSlotCount) {
        const Entry& entry = kTable[slot];
        if (entry.key == key)
            return (dotted ? entry.worksWithDot : entry.worksWithoutDot) ? entry.keyword
                                                                         : Keyword{};
    }
    return {};
}

bool findFunction(std::string_view word, Function& function) {
    struct Row {
        std::string_view name;
        Function function;
    };
    static constexpr std::array<Row, 5> kFunctions{{{"low", Function::Low},
                                                    {"high", Function::High},
                                                    {"bank", Function::Bank},
                                                    {"page", Function::Page},
                                                    {"sizeof", Function::SizeOf}}};
    for (const Row& row : kFunctions) {
        if (equalsIgnoringCase(row.name, word)) {
            function = row.function;
            return true;
        }
    }
    return false;
}

} // namespace nesasm
