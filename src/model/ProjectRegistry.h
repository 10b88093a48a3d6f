// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace kestrel {

/// One project in the registry: the JSON file in the home folder that lists all known projects.
struct RegistryEntry {
    std::string name;
    std::string path; ///< absolute, of the project's folder

    bool operator<(const RegistryEntry& other) const {
        return std::tie(name, path) < std::tie(other.name, other.path);
    }
};

std::filesystem::path registryLocation();

/// Why the registry cannot be read, in a few words; nothing when it can, and when there is none.
std::optional<std::string> registryProblem();

/// The listed projects in document order; empty when the registry cannot be read. Members that
/// describe no project are left out.
std::vector<RegistryEntry> registryEntries();

/// Whether the registry lists a project of this name and folder.
bool isRegistered(const ProjectItem& project);

/// Adds a member for `project`, numbered one higher than the highest, and creates a missing
/// registry. All other members stay. False when the registry cannot be read or written, or the
/// highest number cannot be increased.
bool addToRegistry(const ProjectItem& project);

/// Replaces the registry by exactly `projects`, numbered from 0. Makes a backup first when the old
/// registry has content that would be lost, or lists more than one project that is not in
/// `projects` (one is the removed one). True when it was written.
bool rewriteRegistry(const ProjectItems& projects);

} // namespace kestrel
