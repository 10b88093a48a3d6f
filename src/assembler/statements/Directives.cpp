// SPDX-License-Identifier: MIT
#include "assembler/statements/Directives.h"

#include "assembler/text/Characters.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
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

    /// Hands the directive to an operation of one of the parts; most need only the operand.
    template<auto part, auto operation>
    static void to(Directives& directives, Cursor at, Cursor operand) {
        auto& target = directives.*part;
        if constexpr (std::is_invocable_v<decltype(operation), decltype(target), Cursor, Cursor>) {
            std::invoke(operation, target, at, operand);
        } else {
            std::invoke(operation, target, operand);
        }
    }
    /// The same for an operation of this class.
    template<auto operation>
    static void here(Directives& directives, Cursor /*at*/, Cursor operand) {
        std::invoke(operation, directives, operand);
    }

    static constexpr bool NeedsDot = false;
    static constexpr bool DotOrNot = true;

    using Role = DirectiveRole;
    using D = Directives;

    /// Each word with whether it works without its dot, what it means to those who only look at it,
    /// and what it does; in alphabetical order.
    static constexpr std::array<Row, 39> Rows{{
        {{"align", NeedsDot}, to<&D::m_data, &DataDirectives::align>},
        {{"assert", NeedsDot}, to<&D::m_flow, &FlowDirectives::assertion>},
        {{"bank", DotOrNot}, to<&D::m_places, &PlaceDirectives::bank>},
        {{"bss", NeedsDot}, to<&D::m_places, &PlaceDirectives::bss>},
        {{"byte", DotOrNot}, to<&D::m_data, &DataDirectives::bytes>},
        {{"code", NeedsDot}, to<&D::m_places, &PlaceDirectives::code>},
        {{"data", NeedsDot}, to<&D::m_places, &PlaceDirectives::data>},
        {{"db", DotOrNot}, to<&D::m_data, &DataDirectives::bytes>},
        {{"ds", DotOrNot}, to<&D::m_data, &DataDirectives::space>},
        {{"dw", DotOrNot}, to<&D::m_data, &DataDirectives::words>},
        {{"else", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::otherwise>},
        {{"elseif", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::elseIf>},
        {{"endif", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::endIf>},
        {{"endm", DotOrNot, Role::endMacro}, to<&D::m_macros, &MacroDirectives::strayEndOfMacro>},
        {{"endr", NeedsDot, Role::endRepeat}, to<&D::m_macros, &MacroDirectives::strayEndOfRepeat>},
        {{"equ", DotOrNot, Role::equ}, to<&D::m_definitions, &Definitions::assignNothing>},
        {{"error", NeedsDot}, to<&D::m_flow, &FlowDirectives::error>},
        {{"fail", NeedsDot}, to<&D::m_flow, &FlowDirectives::fail>},
        {{"if", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::ifTrue>},
        {{"ifdef", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::ifDefined>},
        {{"ifndef", DotOrNot, Role::conditional}, to<&D::m_flow, &FlowDirectives::ifNotDefined>},
        {{"incbin", DotOrNot}, to<&D::m_files, &FileDirectives::binary>},
        {{"incchr", DotOrNot}, to<&D::m_files, &FileDirectives::tiles>},
        {{"include", DotOrNot}, to<&D::m_files, &FileDirectives::include>},
        {{"ineschr", DotOrNot}, to<&D::m_places, &PlaceDirectives::chrUnits>},
        {{"inesmap", DotOrNot}, to<&D::m_places, &PlaceDirectives::mapper>},
        {{"inesmir", DotOrNot}, to<&D::m_places, &PlaceDirectives::mirroring>},
        {{"inesprg", DotOrNot}, to<&D::m_places, &PlaceDirectives::prgUnits>},
        {{"list", DotOrNot}, here<&D::list>},
        {{"macro", DotOrNot, Role::macro}, to<&D::m_macros, &MacroDirectives::defineNamedBehind>},
        {{"nolist", DotOrNot}, here<&D::stopListing>},
        {{"org", DotOrNot}, to<&D::m_places, &PlaceDirectives::address>},
        {{"pad", NeedsDot}, to<&D::m_data, &DataDirectives::pad>},
        {{"rept", NeedsDot, Role::repeat}, to<&D::m_macros, &MacroDirectives::repeat>},
        {{"rs", DotOrNot, Role::rs}, to<&D::m_definitions, &Definitions::reserveUnnamed>},
        {{"rsset", DotOrNot}, to<&D::m_places, &PlaceDirectives::reserveFrom>},
        {{"warning", NeedsDot}, to<&D::m_flow, &FlowDirectives::warning>},
        {{"word", DotOrNot}, to<&D::m_data, &DataDirectives::words>},
        {{"zp", NeedsDot}, to<&D::m_places, &PlaceDirectives::zeroPage>},
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

Directives::Directives(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_definitions(assembly, parser)
    , m_data(assembly, parser)
    , m_places(assembly, parser)
    , m_files(assembly, parser)
    , m_macros(assembly, parser, vocabulary())
    , m_flow(assembly, parser) {}

void Directives::run(std::uint8_t index, Cursor at, Cursor p) {
    Table::Rows[index].handler(*this, at, p.afterBlanks());
}

void Directives::list(Cursor p) {
    m_assembly.records.list(true);
    m_assembly.expectEnd(p);
}

void Directives::stopListing(Cursor p) {
    m_assembly.records.list(false);
    m_assembly.expectEnd(p);
}

} // namespace nesasm
