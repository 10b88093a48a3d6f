// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Problem.h"

#include <map>
#include <string>

namespace nesasm {

/// The path from the root on, links followed; `path` itself when that is not possible.
std::string absolutePath(const std::string& path);

/// The files that were copied to where they are assembled, as --source-map tells them: debuggers
/// are to show those that somebody edits.
class SourceNames {
public:
    /// Reads a source map: lines with the path of a copy, a tab, and the path of the file that was
    /// copied. Relative paths count from the map's folder; of two lines for a copy the later holds.
    Problem read(const std::string& path);

    /// The file behind the one at `path`, both from the root on: what was copied, or the file
    /// itself.
    std::string originalOf(const std::string& path) const;

private:
    std::map<std::string, std::string> m_originals; ///< by the copies
};

} // namespace nesasm
