// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace kestrel {

/// The registry: the file in the home folder that lists the projects known to Kestrel, as an object
/// with one numbered member a project.
class ProjectRegistry {
public:
    struct Entry {
        std::string name;
        std::string path; ///< absolute, of the project's folder

        bool operator<(const Entry& other) const {
            return std::tie(name, path) < std::tie(other.name, other.path);
        }
    };

    static std::filesystem::path location();

    /// The listed projects in document order; none when the registry cannot be read. Members that
    /// describe no project are left out.
    static std::vector<Entry> entries();

    /// Adds a member for `project` under the number after the largest there is, and makes the
    /// registry when it is missing. All other members stay, whatever they hold. False when the
    /// registry cannot be read or written, or the largest number cannot be increased.
    static bool add(const ProjectItem& project);

    /// Replaces the registry by exactly `projects`, numbered from 0. A registry that was not
    /// understood whole, or lists more than one project that is not among `projects` (one is the
    /// removed one), is kept as a backup first. True when it was written.
    static bool rewrite(const ProjectItems& projects);
};

} // namespace kestrel
