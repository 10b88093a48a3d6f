// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/language/Vocabulary.h"
#include "assembler/reading/LineRecords.h"
#include "assembler/state/Frames.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/text/Arena.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace nesasm {

/// A macro: its body, and where it was defined.
struct Macro {
    std::string_view name;
    Passage body;
};

/// Macros and repetitions: their bodies, and putting them in.
class MacroDirectives {
public:
    MacroDirectives(const Vocabulary& vocabulary, ExpressionParser& parser, Names& names,
                    Frames& frames, LineRecords& records, Reporter& reporter, Arena& arena);

    /// NAME .macro or .macro NAME, with `p` after both.
    void define(std::string_view name, Cursor at, Cursor p);

    /// .macro with the name after it, at `p`.
    void defineNamed(Cursor p);

    std::span<const Macro> all() const { return m_macros; }
    /// A macro is named like a directive or an instruction, so every such word has to be looked up.
    bool hidesKeywords() const { return m_hidesKeywords; }

    /// The macro of this name, None when there is none.
    std::uint32_t find(std::string_view name) const;

    /// A call, with `p` after the name that begins at `at`.
    void call(std::uint32_t macro, Cursor at, Cursor p);

    /// .rept, with `p` after it; `at` is where it begins.
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

    const Vocabulary& m_vocabulary;
    ExpressionParser& m_parser;
    Names& m_names;
    Frames& m_frames;
    LineRecords& m_records;
    Reporter& m_reporter;
    Arena& m_arena;
    std::vector<Macro> m_macros;
    std::uint32_t m_expansions = 0;
    bool m_hidesKeywords = false;
};

} // namespace nesasm
