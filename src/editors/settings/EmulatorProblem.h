// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <optional>

namespace kestrel {

/// Tells why an emulator cannot be started.
class EmulatorProblem {
public:
    /// A sentence for a person on what stands in the way of starting `emulator`, a program or a
    /// desktop entry; nothing when nothing does, as far as can be seen without starting it.
    static std::optional<QString> of(const std::filesystem::path& emulator);
};

} // namespace kestrel
