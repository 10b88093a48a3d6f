// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"

#include <optional>
#include <string_view>

namespace nesasm {

/// Macros and repetitions: their bodies, and putting them in.
class MacroDirectives {
public:
    MacroDirectives(Assembly& assembly, ExpressionParser& parser, const Vocabulary& vocabulary);

    /// NAME .macro or .macro NAME, with `p` behind both.
    void define(std::string_view name, Cursor at, Cursor p);

    /// .macro with the name behind it, at `p`.
    void defineNamedBehind(Cursor p);

    /// The macro of this name, None when there is none.
    std::uint32_t find(std::string_view name) const;

    /// A call, with `p` behind the name that begins at `at`.
    void call(std::uint32_t macro, Cursor at, Cursor p);

    /// .rept, with `p` behind it; `at` is where it begins.
    void repeat(Cursor at, Cursor p);

    // .endm and .endr without a beginning.
    void strayEndOfMacro(Cursor at, Cursor p);
    void strayEndOfRepeat(Cursor at, Cursor p);

    /// Passes over the body of a macro in a branch that is not taken.
    void skipBody(Cursor at);

    /// A directive that a line carries, after labels.
    struct Found {
        Keyword keyword;
        Cursor at;
    };
    /// The one of the line at `begin`, when it has one.
    std::optional<Found> directiveOf(Cursor begin) const;

private:
    bool collect(DirectiveRole opening, DirectiveRole closing, Cursor at, Passage& body);
    bool isTooDeep(Cursor at);
    Frame& enter(Origin::Kind kind, const Passage& body, std::string_view name);
    void markArgumentNames(Cursor p);
    bool mayDefine(std::string_view name, Cursor at);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
    const Vocabulary& m_vocabulary;
};

/// Reports that a macro or repetition asks for too much with `line`, and stops the run.
void reportRunaway(Assembly& assembly, const Line& line, SourceStack::Next problem);

} // namespace nesasm
