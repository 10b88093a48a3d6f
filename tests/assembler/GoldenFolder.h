// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/GoldenCase.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// The folder of the golden cases: topic folders with cases, and the folder "shared" with the
/// inputs that several cases have in common.
class GoldenFolder {
public:
    explicit GoldenFolder(std::filesystem::path path);

    /// All cases, sorted by name.
    std::vector<GoldenCase> cases() const;

    /// The files and folders that belong to no case, and the shared files that fewer than two cases
    /// name, relative to the folder.
    std::vector<std::string> orphans() const;

    /// Inputs that are equal byte for byte and so should be one shared file, as "A = B = ...":
    /// sources of any size, and other files that are too long to be read at a glance.
    std::vector<std::string> equalInputs() const;

private:
    std::vector<std::filesystem::path> topics() const;

    std::filesystem::path m_path;
};

} // namespace kestrel::test
