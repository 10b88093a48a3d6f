// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <vector>

namespace kestrel {

/// Copies a project's files flat into the folder in which the assembler finds them. Every failure
/// is silent: the assembler will say what it misses. A temporary folder that is a link or no folder
/// is not written to.
class SourceGatherer {
public:
    /// `projectFolder` is the base of relative entries.
    SourceGatherer(std::filesystem::path projectFolder, std::filesystem::path tempFolder);

    /// Copies the files of all entries of the lists, in order; of two with one name the later wins.
    /// A file that is its own destination stays as it is, whoever else has its name, and so does
    /// one that a source is a link to. Anything else at a destination is removed first, also when
    /// there is nothing to copy; a folder there stays.
    void gather(const std::vector<const ProjectItems*>& lists) const;

    /// Removes from the temporary folder the files of the lists that `gather` may have put there.
    /// True when none of those names is left in it.
    bool clean(const std::vector<const ProjectItems*>& lists) const;

private:
    std::filesystem::path m_projectFolder;
    std::filesystem::path m_tempFolder;
};

} // namespace kestrel
