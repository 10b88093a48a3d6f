// SPDX-License-Identifier: MIT
#pragma once

#include "build/UncopiedFile.h"
#include "model/ProjectItem.h"

#include <filesystem>
#include <vector>

namespace kestrel {

/// Copies a project's files into one folder, the assembler's include folder. Does not write to a
/// temporary folder that is a link or no folder.
class SourceGatherer {
public:
    /// Relative paths count from `projectFolder`.
    SourceGatherer(std::filesystem::path projectFolder, std::filesystem::path tempFolder);

    /// Copies the files of all entries, in order; of two files with the same name the later one
    /// stays. A listed file that lies in the temporary folder itself, or that a listed link leads
    /// to, is never replaced. Otherwise a file at a destination is removed first, also when there
    /// is nothing to copy; a folder there stays. Returns what could not be copied, by name; files
    /// that do not exist are left out, since the assembler reports those that it misses, unless
    /// an older copy of them could not be removed.
    std::vector<UncopiedFile> gather(const std::vector<const ProjectItems*>& lists) const;

    /// Removes the files that `gather` may have copied to the temporary folder. True when none of
    /// their names is left there.
    bool clean(const std::vector<const ProjectItems*>& lists) const;

private:
    std::filesystem::path m_projectFolder;
    std::filesystem::path m_tempFolder;
};

} // namespace kestrel
