// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/statements/Assembly.h"
#include "assembler/statements/DataDirectives.h"
#include "assembler/statements/Definitions.h"
#include "assembler/statements/ExpressionParser.h"
#include "assembler/statements/FileDirectives.h"
#include "assembler/statements/FlowDirectives.h"
#include "assembler/statements/MacroDirectives.h"
#include "assembler/statements/PlaceDirectives.h"

#include <cstdint>

namespace nesasm {

/// All directives: the parts that carry them out, and one table that says for each word which.
class Directives {
public:
    Directives(Assembly& assembly, ExpressionParser& parser);

    /// The words of all directives, and the instructions.
    static const Vocabulary& vocabulary();

    /// Carries out the directive with this index in the vocabulary, whose word begins at `at`;
    /// `p` is behind it.
    void run(std::uint8_t index, Cursor at, Cursor p);

    Definitions& definitions() { return m_definitions; }
    FileDirectives& files() { return m_files; }
    FlowDirectives& flow() { return m_flow; }
    MacroDirectives& macros() { return m_macros; }

private:
    struct Table;

    void list(Cursor p);
    void stopListing(Cursor p);

    Assembly& m_assembly;
    Definitions m_definitions;
    DataDirectives m_data;
    PlaceDirectives m_places;
    FileDirectives m_files;
    MacroDirectives m_macros;
    FlowDirectives m_flow;
};

} // namespace nesasm
