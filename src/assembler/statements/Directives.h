// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/statements/DataDirectives.h"
#include "assembler/statements/Definitions.h"
#include "assembler/statements/FileDirectives.h"
#include "assembler/statements/FlowDirectives.h"
#include "assembler/statements/LabelDirectives.h"
#include "assembler/statements/ListingDirectives.h"
#include "assembler/statements/MacroDirectives.h"
#include "assembler/statements/PlaceDirectives.h"
#include "assembler/text/Cursor.h"

#include <cstdint>
#include <tuple>
#include <utility>

namespace nesasm {

/// All directives: one table says for each word how it is written and which part carries it out.
class Directives {
public:
    using Parts =
        std::tuple<Definitions&, DataDirectives&, PlaceDirectives&, FileDirectives&,
                   MacroDirectives&, FlowDirectives&, ListingDirectives&, LabelDirectives&>;

    explicit Directives(Parts parts)
        : m_parts(std::move(parts)) {}

    /// The words of all directives, and the instructions.
    static const Vocabulary& vocabulary();

    /// Carries out the directive with this index in the vocabulary, whose word begins at `at`;
    /// `p` is after it.
    void run(std::uint8_t index, Cursor at, Cursor p);

private:
    struct Table;

    Parts m_parts;
};

} // namespace nesasm
