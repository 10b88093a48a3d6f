// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>

namespace kestrel {

/// A place in a source of which something is said.
struct Place {
    enum class Kind { error, warning, note, use, found };

    QString file; ///< as it is shown; for a problem the name that the assembler gives it
    int line = 1;
    int column = 1; ///< in Unicode characters, from 1 as the line is
    Kind kind = Kind::found;
    QString text;
    std::filesystem::path path{}; ///< of the file, where it is known; otherwise `file` tells which

    bool operator==(const Place&) const = default;
};

} // namespace kestrel
