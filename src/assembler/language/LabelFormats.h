// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace nesasm {

/// The formats of label files for debuggers, as --labels and .labels name them.
enum class LabelFormat : std::uint8_t { mlb, nl, dbg };

/// The names, in the order of LabelFormat.
inline constexpr std::array<std::string_view, 3> LabelFormatNames{"mlb", "nl", "dbg"};

constexpr std::string_view nameOf(LabelFormat format) {
    return LabelFormatNames[static_cast<std::size_t>(format)];
}

constexpr std::optional<LabelFormat> findLabelFormat(std::string_view name) {
    for (std::size_t i = 0; i < LabelFormatNames.size(); ++i) {
        if (LabelFormatNames[i] == name) {
            return static_cast<LabelFormat>(i);
        }
    }
    return std::nullopt;
}

/// The formats that are wished for, each once, the first wish first.
using LabelFormats = std::vector<LabelFormat>;

inline bool holds(const LabelFormats& formats, LabelFormat format) {
    return std::find(formats.begin(), formats.end(), format) != formats.end();
}

/// Adds one that is not there yet.
inline void addTo(LabelFormats& formats, LabelFormat format) {
    if (!holds(formats, format)) {
        formats.push_back(format);
    }
}

} // namespace nesasm
