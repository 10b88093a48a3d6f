// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace nesasm {

/// What to write instead of a word of other assemblers or processors (given without its dot), as
/// part of a sentence such as "use .db"; "" for an unknown word.
std::string_view foreignWordAdvice(std::string_view word);

} // namespace nesasm
