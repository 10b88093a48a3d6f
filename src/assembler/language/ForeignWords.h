// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace nesasm {

/// What a word of other assemblers or processors, without its dot, is called here, as part of a
/// sentence such as "use .db"; "" for a word that is not known.
std::string_view foreignWordAdvice(std::string_view word);

} // namespace nesasm
