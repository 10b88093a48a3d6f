// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// Guesses in which encoding a text that is not Unicode was written.
class EncodingDetector {
public:
    /// Names of encodings, the likeliest first, in the toolkit's spelling. Empty for bytes that
    /// look like no text.
    static std::vector<std::string> candidates(std::string_view bytes);
};

} // namespace kestrel
