// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"
#include "facts/ProgramFacts.h"
#include "navigation/container/KnownFile.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// What is asked about a name of a program, with all that the answer takes: it is found on a
/// background worker.
struct NameQuestion {
    std::string name;
    /// The label that a local name belongs to. Without it the last one in the first lines of the
    /// file is taken, as they are on the disk.
    std::optional<std::string> scope{};
    std::filesystem::path file{};
    std::uint32_t firstLines = 0;

    std::shared_ptr<const ProgramFacts> facts{};  ///< nullptr when nothing is known of the file
    CopiedSources copies;                         ///< of the files that the facts tell of
    std::vector<std::filesystem::path> sources{}; ///< searched for what the facts do not have
};

/// Where the name is defined and where it is used: by the facts when they have the name, else by a
/// search of the sources.
std::vector<Place> definitionsOf(const NameQuestion& question);
std::vector<Place> usesOf(const NameQuestion& question);

} // namespace kestrel
