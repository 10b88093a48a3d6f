// SPDX-License-Identifier: MIT
#include "assembler/statements/Directives.h"

#include <algorithm>
#include <array>
#include <functional>
#include <type_traits>

namespace nesasm {

/// What the table's rows are made of.
struct Directives::Table {
    /// Carries out a directive whose word begins at `at`, with its operand at `operand`.
    using Handler = void (*)(Directives& directives, Cursor at, Cursor operand);

    struct Row {
        DirectiveWord word;
        Handler handler;
    };

    /// Hands the directive to an operation of the part that has it; most need only the operand.
    template<auto Operation> static void to(Directives& directives, Cursor at, Cursor operand) {
        auto& part = std::get<decltype(partOf(Operation))>(directives.m_parts);
        if constexpr (std::is_invocable_v<decltype(Operation), decltype(part), Cursor, Cursor>) {
            std::invoke(Operation, part, at, operand);
        } else {
            std::invoke(Operation, part, operand);
        }
    }
    template<typename Part, typename... Arguments>
    static Part& partOf(void (Part::*operation)(Arguments...));

    static constexpr bool NeedsDot = false;
    static constexpr bool DotOrNot = true;

    using Role = DirectiveRole;

    /// Each word with whether it works without its dot, what it means to those who only look at it,
    /// and what it does; in alphabetical order.
    static constexpr std::array<Row, 40> Rows{{
        {{"align", NeedsDot}, to<&DataDirectives::align>},
        {{"assert", NeedsDot}, to<&FlowDirectives::assertion>},
        {{"bank", DotOrNot}, to<&PlaceDirectives::bank>},
        {{"bss", NeedsDot}, to<&PlaceDirectives::bss>},
        {{"byte", DotOrNot}, to<&DataDirectives::bytes>},
        {{"code", NeedsDot}, to<&PlaceDirectives::code>},
        {{"data", NeedsDot}, to<&PlaceDirectives::data>},
        {{"db", DotOrNot}, to<&DataDirectives::bytes>},
        {{"ds", DotOrNot}, to<&DataDirectives::space>},
        {{"dw", DotOrNot}, to<&DataDirectives::words>},
        {{"else", DotOrNot, Role::conditional}, to<&FlowDirectives::otherwise>},
        {{"elseif", DotOrNot, Role::conditional}, to<&FlowDirectives::elseIf>},
        {{"endif", DotOrNot, Role::conditional}, to<&FlowDirectives::endIf>},
        {{"endm", DotOrNot, Role::endMacro}, to<&MacroDirectives::strayEndOfMacro>},
        {{"endr", NeedsDot, Role::endRepeat}, to<&MacroDirectives::strayEndOfRepeat>},
        {{"equ", DotOrNot, Role::equ}, to<&Definitions::assignNothing>},
        {{"error", NeedsDot}, to<&FlowDirectives::error>},
        {{"fail", NeedsDot}, to<&FlowDirectives::fail>},
        {{"if", DotOrNot, Role::conditional}, to<&FlowDirectives::ifTrue>},
        {{"ifdef", DotOrNot, Role::conditional}, to<&FlowDirectives::ifDefined>},
        {{"ifndef", DotOrNot, Role::conditional}, to<&FlowDirectives::ifNotDefined>},
        {{"incbin", DotOrNot}, to<&FileDirectives::binary>},
        {{"incchr", DotOrNot}, to<&FileDirectives::tiles>},
        {{"include", DotOrNot}, to<&FileDirectives::include>},
        {{"ineschr", DotOrNot}, to<&PlaceDirectives::chrUnits>},
        {{"inesmap", DotOrNot}, to<&PlaceDirectives::mapper>},
        {{"inesmir", DotOrNot}, to<&PlaceDirectives::mirroring>},
        {{"inesprg", DotOrNot}, to<&PlaceDirectives::prgUnits>},
        {{"labels", NeedsDot, Role::late}, to<&LabelDirectives::labels>},
        {{"list", DotOrNot}, to<&ListingDirectives::show>},
        {{"macro", DotOrNot, Role::macro}, to<&MacroDirectives::defineNamed>},
        {{"nolist", DotOrNot}, to<&ListingDirectives::hide>},
        {{"org", DotOrNot}, to<&PlaceDirectives::address>},
        {{"pad", NeedsDot}, to<&DataDirectives::pad>},
        {{"rept", NeedsDot, Role::repeat}, to<&MacroDirectives::repeat>},
        {{"rs", DotOrNot, Role::rs}, to<&Definitions::reserveUnnamed>},
        {{"rsset", DotOrNot}, to<&Definitions::reserveFrom>},
        {{"warning", NeedsDot}, to<&FlowDirectives::warning>},
        {{"word", DotOrNot}, to<&DataDirectives::words>},
        {{"zp", NeedsDot}, to<&PlaceDirectives::zeroPage>},
    }};

    static constexpr auto Words = [] {
        std::array<DirectiveWord, Rows.size()> words;
        std::ranges::transform(Rows, words.begin(), &Row::word);
        return words;
    }();
};

const Vocabulary& Directives::vocabulary() {
    // Each word does something, and stands once, in alphabetical order.
    static_assert(std::ranges::all_of(Table::Rows, [](const Table::Row& row) {
        return row.handler != nullptr && !row.word.word.empty() &&
               row.word.word.size() <= Vocabulary::LongestWord;
    }));
    static_assert(std::ranges::adjacent_find(Table::Words, std::ranges::greater_equal{},
                                             &DirectiveWord::word) == Table::Words.end());
    static constexpr Vocabulary Words(Table::Words);
    return Words;
}

void Directives::run(std::uint8_t index, Cursor at, Cursor p) {
    Table::Rows[index].handler(*this, at, p.afterBlanks());
}

} // namespace nesasm
