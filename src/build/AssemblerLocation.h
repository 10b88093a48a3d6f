// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

namespace kestrel {

/// Finds the assembler at the start of each build. Tests replace it.
using AssemblerLocator = std::function<std::optional<std::filesystem::path>()>;

/// The kestrel-facts that belongs to the running program, found as NESasm is.
std::optional<std::filesystem::path> findFactsProgram();

/// The NESasm that belongs to the running program.
std::optional<std::filesystem::path> findAssembler();

/// The file NESasm in `programFolder`, as in a build tree, else ../libexec/kestrel/NESasm, as in an
/// installation. Nothing when neither is a file; whether it can be executed is not checked.
std::optional<std::filesystem::path> findAssembler(const std::filesystem::path& programFolder);

} // namespace kestrel
