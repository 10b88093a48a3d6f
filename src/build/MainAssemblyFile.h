// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QStringView>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kestrel {

/// The largest source file that is searched, in bytes: a sparse file may claim any size.
inline constexpr std::uintmax_t MaximumSourceSize = 256ULL * 1024 * 1024;

/// The name of the main file, which the assembler is started with: the first entry whose file
/// places something at the interrupt vectors, address $FFFA (nesdev wiki, "CPU memory map"). Files
/// are read in their own folders, not in the temporary one. Skipped are entries without a file or a
/// plain name, and files that are unreadable, larger than MaximumSourceSize or not UTF-8.
std::optional<std::string> mainAssemblyFileIn(const ProjectItems& assemblyFiles,
                                              const std::filesystem::path& projectFolder);

/// Whether `text` has ".org", white space and "$FFFA", in any letter case, within its first N
/// UTF-16 units, where N is the number of grapheme clusters in the whole text. A cluster of several
/// units (CR LF is one of two) thus leaves the end of the text unsearched.
bool placesVectors(QStringView text);

} // namespace kestrel
