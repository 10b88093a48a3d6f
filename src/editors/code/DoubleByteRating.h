// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace kestrel {

/// How likely the characters between two codes are; a code is both bytes, the first one above.
struct CodeRange {
    unsigned first;
    unsigned last;
    double rating;
};

/// An encoding of East Asia with characters of one and of two bytes.
struct DoubleByteSet {
    std::span<const CodeRange> ranges;
    bool hasSingleKana = false; ///< 0xA1 to 0xDF are half-width katakana
    bool takesAsciiTrail = false;
    /// The characters that every text in the language has, to know it from its neighbours.
    std::u16string_view frequent;
};

/// How well bytes read in this encoding, on the scale of ratedAs(); `text` is what they decode to.
/// Nothing for bytes that break its rules or have no character beyond ASCII.
std::optional<double> ratedAs(const DoubleByteSet& set, std::string_view bytes,
                              std::u16string_view text);

} // namespace kestrel
