// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Diagnostics.h"
#include "assembler/values/SymbolTable.h"

#include <string>

namespace nesasm {

/// Why SIZEOF() cannot take this symbol.
std::string noSizeText(const Symbol& symbol);

/// What helps somebody who used a symbol that is defined nowhere: a part of a sentence that begins
/// with ";", "" when nothing is known. After many errors the symbols are no longer searched.
std::string remedyForSymbol(const SymbolTable& symbols, const Symbol& symbol,
                            const Diagnostics& diagnostics);

} // namespace nesasm
