// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel {

/// A listed file that a build could not copy into the assembler's include folder.
struct UncopiedFile {
    std::string name;
    std::string reason;     ///< a phrase without a full stop: "No space left on device"
    bool olderCopy = false; ///< another file of its name is there, which the assembler takes

    bool operator==(const UncopiedFile&) const = default;
};

/// Sentences that tell of the first three, and how many more there are. Empty for no files.
std::vector<std::string> sentencesAbout(const std::vector<UncopiedFile>& files,
                                        const std::filesystem::path& includeFolder);

} // namespace kestrel
