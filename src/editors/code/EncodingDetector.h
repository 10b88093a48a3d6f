// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// The encodings in which a text that is not Unicode may have been written: their names in Qt's
/// spelling, the likeliest first. Empty for bytes that do not look like text.
std::vector<std::string> encodingCandidates(std::string_view bytes);

} // namespace kestrel
