// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

namespace kestrel {

/// A sentence for the user that says why `emulator`, a program or a desktop entry, cannot be
/// started; nothing when it can, as far as can be told without starting it.
std::optional<QString> emulatorProblem(const std::filesystem::path& emulator);

} // namespace kestrel
