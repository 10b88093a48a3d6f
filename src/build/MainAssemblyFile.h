// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QStringView>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kestrel {

/// Finds the file that the assembler is started with: the first one that places something at the
/// processor's interrupt vectors, address $FFFA (nesdev wiki, "CPU memory map").
class MainAssemblyFile {
public:
    /// The largest file that is searched, in bytes: no source comes near it, and a file with a hole
    /// may claim any size.
    static constexpr std::uintmax_t MaximumSize = 256ULL * 1024 * 1024;

    /// The name of the first entry whose file mentions the vectors. Files are read where they are,
    /// not in the temporary folder. Entries without a file or a plain name, unreadable files, files
    /// above MaximumSize and files that are not UTF-8 are passed over.
    static std::optional<std::string> find(const ProjectItems& assemblyFiles,
                                           const std::filesystem::path& projectFolder);

    /// Whether `text` has ".org", white space of any kind and "$FFFA", in any letter case, within
    /// its first N UTF-16 units, N being the number of user-perceived characters of the whole text.
    /// Where such a character has several units (a CR LF pair has two) the tail of the text is thus
    /// not searched.
    static bool placesVectors(QStringView text);
};

} // namespace kestrel
