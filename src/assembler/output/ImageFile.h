// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Problem.h"
#include "assembler/values/Image.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace nesasm {

/// The bytes before the banks.
inline constexpr std::size_t ImageHeaderSize = 16;

/// The file that an image becomes: an iNES header (source: nesdev wiki, "INES") and the banks.
std::vector<std::uint8_t> imageFile(const Image& image);

/// Replaces the file at `path` with `bytes`, or leaves it as it was: a temporary file in the same
/// folder is renamed over it. Links are followed; anything but a regular file is refused.
///
/// The environment has code of its own for this (src/model/FileWriter). This needs the standard
/// library alone, returns a reason, and does not flush: an image is made again in milliseconds.
Problem writeImageFile(const std::string& path, const std::vector<std::uint8_t>& bytes);

/// The file that writeImageFile would make for `path`, with links followed as far as they lead; the
/// same for two paths that come to the same file.
std::string writtenPath(const std::string& path);

/// Removes an older image at `path`: a regular file, links followed, that begins with an iNES
/// header's mark. Anything else is left alone.
void removeOldImage(const std::string& path);

/// Banks of the file that are PRG: as the header says, or all but its CHR banks.
std::uint32_t prgBankCount(const Image& image);

} // namespace nesasm
