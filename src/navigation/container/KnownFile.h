// SPDX-License-Identifier: MIT
#pragma once

#include "build/GatheredFiles.h"
#include "facts/ProgramFacts.h"
#include "model/ProjectItem.h"

#include <QChar>

#include <filesystem>
#include <memory>

namespace kestrel {

class NESBuildSettings;

/// Finds the files of a project of whose copies in "tmp" a build tells. Knows what is gathered at
/// its making; reading that takes a while, so one is made for many files. To be used on any thread.
class CopiedSources {
public:
    explicit CopiedSources(const std::shared_ptr<ProjectItem>& project);
    /// With its build settings at hand.
    CopiedSources(const ProjectItem& project, NESBuildSettings& settings);

    /// The file of which `file` tells; an empty path when there is none.
    std::filesystem::path sourceOf(const FileFacts& file) const;

private:
    std::filesystem::path m_copies; ///< their folder; empty without a project
    GatheredFiles m_gathered;
};

/// What is known of the file at `path`: when the program was assembled from it, or from the copy in
/// "tmp" that a build of the project makes of it. Of two files with one name the later one is
/// copied; nothing is known of the other. nullptr when nothing is known.
const FileFacts* knownFile(const ProgramFacts& facts, const std::filesystem::path& path,
                           const CopiedSources& sources);

/// The one of these projects whose copies in "tmp" the program was assembled from; nullptr when it
/// is none of them.
std::shared_ptr<ProjectItem> builtProject(const ProgramFacts& facts, const ProjectItems& projects);

/// Whether a character can be in a name of a program.
inline bool isNameCharacter(QChar character) {
    const char16_t code = character.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           (code >= u'0' && code <= u'9') || code == u'_' || code == u'.';
}

} // namespace kestrel
