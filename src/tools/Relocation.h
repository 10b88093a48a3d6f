// SPDX-License-Identifier: MIT
#pragma once

#include "model/Json.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// A project's move from the folder that its files name to the folder in which it lies now. Paths
/// below the former folder are taken as below the present one.
///
/// "Below" goes by whole components ("/a/bc" is not below "/a/b") and includes the folder itself. A
/// path is compared as it is written and then with its symbolic links resolved; one that holds ".."
/// only resolved, since what ".." leads to depends on the links before it.
class Relocation {
public:
    /// The move of a project whose root names `named` and whose project file lies in `present` (an
    /// absolute path); nothing when both are the same folder. A root that names no absolute path
    /// has always been moved: its relative paths are those below the project's folder.
    static std::optional<Relocation> between(const std::filesystem::path& named,
                                             const std::filesystem::path& present);

    const std::filesystem::path& former() const { return m_former; }
    const std::filesystem::path& present() const { return m_present; }

    /// Where `path` is to be found now; `path` itself when it is not below the former folder.
    std::filesystem::path mapped(const std::filesystem::path& path) const;

    /// Whether `path`, links followed, lies in the former folder and not in the present one.
    bool leadsBack(const std::filesystem::path& path) const;

    /// Maps the paths of a stored node and of all nodes below it. Paths relative to the project
    /// stay as they are.
    void applyToNode(Dictionary& node) const;

    /// Maps the paths in the build settings: of folders and programs, and of the listed files.
    void applyToSettings(Dictionary& settings) const;

private:
    /// One spelling of the two folders.
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
