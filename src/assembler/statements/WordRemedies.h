// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/Vocabulary.h"
#include "assembler/statements/MacroDirectives.h"

#include <span>
#include <string>
#include <string_view>

namespace nesasm {

/// What helps somebody who wrote a word that is no directive, instruction or macro: a part of a
/// sentence that begins with ";", "" when nothing is known.
std::string remedyForWord(std::span<const Macro> macros, const Vocabulary& vocabulary,
                          std::string_view word);

} // namespace nesasm
