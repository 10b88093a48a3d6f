// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>
#include <string_view>

namespace kestrel {

// How well a text that was decoded on trial reads: the mean over its characters beyond ASCII, from
// about -3 (nobody writes this) to 3 (what people write). Nothing without such characters.

/// The characters that a language has beyond ASCII. Those of a script of its own, such as
/// Cyrillic, stand in its words alone; Latin ones stand among ASCII letters.
struct Language {
    std::u16string_view letters;
    /// The most frequent ones, for a script of its own; empty for a Latin alphabet.
    std::u16string_view frequent;
};

std::optional<double> ratedAs(const Language& language, QStringView text);

} // namespace kestrel
