// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace kestrel {

/// A name that a line of source defines.
struct DefinedName {
    std::string_view text; ///< in the line
    bool isLabel = false;  ///< else a constant, a variable or a macro
};

/// The names that a line defines, as the assembler reads it: labels, of which those without a colon
/// begin in the first column; or a name that =, .equ, .rs or .macro follows, or that .macro is
/// before. A macro's call in the first column looks like a label, and counts as one.
std::vector<DefinedName> definedNames(std::string_view line);

} // namespace kestrel
