// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// Finds the files that a source names.
class FileFinder {
public:
    struct Found {
        std::string path;
        bool caseDiffers = false; ///< the name on the disk has other letter case
        bool isRegular = true;    ///< false: the only thing of that name is a folder or a device
    };

    /// `includeFolders` are searched as named on the command line; `includeList` is the value of
    /// NES_INCLUDE: one folder when the whole value names one, else a list separated by colons.
    FileFinder(std::vector<std::string> includeFolders, std::string_view includeList);

    /// The file that is to be assembled. When it is found in a folder of NES_INCLUDE, the current
    /// folder is left out of every later search.
    std::optional<Found> findInput(const std::string& name);

    /// A file named in a source of the folder `includingFolder`. A backslash in `name` is a
    /// separator; `isSource`: the name may lack its ".asm".
    std::optional<Found> find(std::string_view name, const std::string& includingFolder,
                              bool isSource) const;

private:
    std::vector<std::string> candidates(const std::string& name, const std::string& folder) const;

    std::vector<std::string> m_includeFolders;
    std::vector<std::string> m_environmentFolders;
    bool m_searchesCurrentFolder = true;
};

} // namespace nesasm
