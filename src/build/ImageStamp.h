// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kestrel {

/// Identifies one state of an image file. The assembler renames a new file into place, so that even
/// a rebuilt image with the same bytes differs.
struct ImageStamp {
    bool present = false; ///< whether it is a regular file; links are followed
    std::uint64_t device = 0;
    std::uint64_t file = 0;
    std::int64_t changedSeconds = 0;
    std::int64_t changedNanoseconds = 0;
    std::uintmax_t size = 0;
    std::string content; ///< empty when it cannot be read or is implausibly large

    bool operator==(const ImageStamp&) const = default;

    static ImageStamp of(const std::filesystem::path& image);
};

} // namespace kestrel
