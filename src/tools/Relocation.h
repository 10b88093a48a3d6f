// SPDX-License-Identifier: MIT
#pragma once

#include "model/Json.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// A project's move from the folder that its files name to its present folder: maps paths below the
/// former folder to paths below the present one.
///
/// "Below" compares whole components ("/a/bc" is not below "/a/b") and includes the folder itself.
/// A path is compared as written and then with its symbolic links resolved; one with ".." only
/// resolved, since the links before ".." decide where it leads.
class Relocation {
public:
    /// The move of a project whose root has the path `named` and whose project file is in the
    /// folder `present` (absolute); nothing when both are the same folder. A relative `named`
    /// always counts as a move: relative paths then become paths below the present folder.
    static std::optional<Relocation> between(const std::filesystem::path& named,
                                             const std::filesystem::path& present);

    const std::filesystem::path& former() const { return m_former; }
    const std::filesystem::path& present() const { return m_present; }

    /// The present place of `path`; `path` itself when it is not below the former folder.
    std::filesystem::path mapped(const std::filesystem::path& path) const;

    /// Whether `path`, with links followed, is below the former folder and not the present one.
    bool leadsBack(const std::filesystem::path& path) const;

    /// Maps the paths of a stored node and of all nodes below it, except those that are relative to
    /// the project.
    void applyToNode(Dictionary& node) const;

    /// Maps the paths in the build settings: of folders and programs, and of the listed files.
    void applyToSettings(Dictionary& settings) const;

private:
    /// The two folders, as written or with links resolved.
    struct Folders {
        std::filesystem::path former;
        std::filesystem::path present;
    };

    Relocation(std::filesystem::path former, std::filesystem::path present);

    void mapMember(Dictionary& object, std::string_view key) const;
    void mapNodesIn(Dictionary& object, std::string_view key) const;

    std::optional<std::filesystem::path> mapped(const std::filesystem::path& path,
                                                const Folders& folders) const;

    std::filesystem::path m_former;
    std::filesystem::path m_present;
    Folders m_written;
    Folders m_resolved;
};

} // namespace kestrel
