// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

namespace kestrel {

/// Finds the assembler that Kestrel ships.
class AssemblerLocation {
public:
    /// Asked at the start of each build; tests put their own in its place.
    using Locator = std::function<std::optional<std::filesystem::path>()>;

    /// The NESasm of the running program.
    static std::optional<std::filesystem::path> find();

    /// The file NESasm beside the programs in `programFolder`, as in a build tree, else the one of
    /// an installation, ../libexec/kestrel/NESasm. Nothing when neither is a file. Whether it can
    /// be executed is not asked.
    static std::optional<std::filesystem::path> find(const std::filesystem::path& programFolder);
};

} // namespace kestrel
