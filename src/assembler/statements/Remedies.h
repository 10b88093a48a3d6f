// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/statements/Assembly.h"

#include <string>
#include <string_view>

namespace nesasm {

/// What helps somebody who wrote a word that is no directive, instruction or macro: a part of a
/// sentence that begins with ";", "" when nothing is known.
std::string remedyForWord(const Assembly& assembly, const Vocabulary& vocabulary,
                          std::string_view word);

/// Why SIZEOF() cannot take this symbol.
std::string noSizeText(const Symbol& symbol);

/// What helps somebody who used a symbol that is defined nowhere; of the same form.
std::string remedyForSymbol(const Assembly& assembly, const Symbol& symbol);

} // namespace nesasm
