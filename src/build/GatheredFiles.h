// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QString>

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace kestrel {

/// Which files a build of a project gathers (see SourceGatherer), by the names that its sources
/// give them. Does not look at the disk.
class GatheredFiles {
public:
    /// Relative paths count from `projectFolder`.
    GatheredFiles(const std::vector<const ProjectItems*>& lists,
                  const std::filesystem::path& projectFolder);

    /// The file that the assembler found under `name`, as its messages have it: the one gathered
    /// under the last part of the name, or under that and ".asm", letter case aside where no file
    /// has exactly that name; of two of one name the later one. Absolute, the name means that very
    /// file, gathered or not.
    std::optional<std::filesystem::path> find(const QString& name) const;

private:
    struct Entry {
        QString name; ///< as the assembler shows it
        std::filesystem::path path;
    };
    template<typename Matches> const Entry* last(Matches matches) const;

    std::vector<Entry> m_entries; ///< those that stay come after those that they replace
};

/// A file's name as the assembler shows it: U+FFFD for each control character and each byte that is
/// no UTF-8.
QString nameInMessages(std::string_view name);

} // namespace kestrel
