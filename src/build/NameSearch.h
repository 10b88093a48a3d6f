// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// A place as the assembler counts: the column in bytes, from 1.
struct BytePlace {
    std::filesystem::path path;
    std::uint32_t line = 1;
    std::uint32_t column = 1;

    bool operator==(const BytePlace&) const = default;
};

/// Makes places of these, with the text of their lines as it is on the disk now. Those in files
/// that cannot be read, or that have no such line any more, are left out. To be called on any
/// thread.
std::vector<Place> placesWithText(const std::vector<BytePlace>& places, Place::Kind kind);

/// Where a name stands as a whole word in source texts.
struct FoundName {
    std::vector<BytePlace> definitions; ///< where a line defines it: see definedNames()
    std::vector<BytePlace> all;
};

/// Searches these files, on any thread, for a name outside of comments and texts in quotes. A local
/// name, which begins with a dot, counts only below the label `scope`.
FoundName findName(const std::vector<std::filesystem::path>& files, std::string_view name,
                   std::string_view scope);

/// The last label of a line that local names after it belong to; empty when there is none, as in
/// the line of a constant, a variable or a local label.
std::string_view scopeLabel(std::string_view line);

/// The label that local names behind the first lines of a file belong to; empty when there is none.
std::string lastScope(const std::filesystem::path& path, std::uint32_t firstLines);

} // namespace kestrel
