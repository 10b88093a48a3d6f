// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace kestrel {

/// The structure file of a project: the stored form of its tree.
class StructureFile {
public:
    /// Where the structure of `project` lies: folder ".project" in the project's folder.
    static std::filesystem::path location(const ProjectItem& project);

    /// The object in the structure file; nothing when it cannot be read or is no object.
    static std::optional<Dictionary> fetch(const ProjectItem& project);

    /// The project whose tree `structure` holds, read from a structure file of the project in
    /// `projectFolder`; nothing when it cannot be read. A root whose path is not absolute counts
    /// from that folder: taken as it is, what is saved would go below the working directory.
    static std::shared_ptr<ProjectItem> project(const Dictionary& structure,
                                                const std::filesystem::path& projectFolder);

    /// The tree in the structure file of `project`; nullptr when it cannot be read.
    static std::shared_ptr<ProjectItem> tree(const ProjectItem& project);

    /// Whether replacing the file at `path` by the tree that was read from it would lose nothing:
    /// it is not there, or all it holds is known, of the right type and said once.
    static bool understoodWhole(const std::filesystem::path& path);

    /// Replaces the structure file by the tree below `project`, making its folder when needed. A
    /// file there that was not understood whole is kept as a backup first; when that fails nothing
    /// is replaced. True when it was written.
    static bool save(const ProjectItem& project);

    /// Takes over the nodes of a structure file that lies there already, so that the next save does
    /// not lose them: for a new project that is added over an existing one. The file's nodes come
    /// first, then nodes that only `project` has; a node that both have (same name and kind, and
    /// for files same path) stays the one that `project` holds, and groups are merged. True when
    /// `project` then holds all that was stored, also when nothing was; what cannot be understood
    /// is left to the backup that the next save makes.
    static bool adoptExisting(const std::shared_ptr<ProjectItem>& project);
};

} // namespace kestrel
