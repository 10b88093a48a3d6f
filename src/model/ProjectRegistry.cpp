// SPDX-License-Identifier: MIT
#include "model/ProjectRegistry.h"

#include "model/FileDescriptor.h"
#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view VersionKey = "version";
constexpr const char* Version = "1";
constexpr std::string_view NameKey = "ProjectName";
constexpr std::string_view PathKey = "Path";

/// The content of the registry file.
struct Stored {
    Dictionary registry;
    bool repeatedMembers = false;
};

std::optional<Stored> readRegistry() {
    bool repeatedMembers = false;
    auto registry = readJsonObject(registryLocation(), &repeatedMembers);
    if (!registry) {
        return std::nullopt;
    }
    return Stored{std::move(*registry), repeatedMembers};
}

const Dictionary::object_t& membersOf(const Dictionary& registry) {
    return registry.get_ref<const Dictionary::object_t&>();
}

std::optional<RegistryEntry> entryFrom(const Dictionary& value) {
    if (!isObjectOfStrings(value)) {
        return std::nullopt;
    }
    auto name = stringMember(value, NameKey);
    auto path = stringMember(value, PathKey);
    if (!name || !path) {
        return std::nullopt;
    }
    return RegistryEntry{std::move(*name), std::move(*path)};
}

std::vector<RegistryEntry> entriesOf(const Dictionary& registry) {
    std::vector<RegistryEntry> entries;
    for (const auto& [key, value] : membersOf(registry)) {
        if (auto entry = entryFrom(value)) {
            entries.push_back(std::move(*entry));
        }
    }
    return entries;
}

RegistryEntry entryFor(const ProjectItem& project) {
    return {project.itemName(), pathText(project.itemPath())};
}

Dictionary storedForm(const ProjectItem& project) {
    Dictionary value = Dictionary::object();
    appendMember(value, NameKey, project.itemName());
    appendMember(value, PathKey, pathText(project.itemPath()));
    return value;
}

/// `key` as a number: an optional sign and digits, within 64 bits; nothing for anything else.
std::optional<std::int64_t> numberFrom(std::string_view key) {
    if (key.starts_with('+')) {
        key.remove_prefix(1);
        if (key.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int64_t number = 0;
    const char* const end = key.data() + key.size();
    const auto [stop, error] = std::from_chars(key.data(), end, number);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::string> nextKey(const Dictionary& registry) {
    std::int64_t largest = 0;
    for (const auto& [key, value] : membersOf(registry)) {
        largest = std::max(largest, numberFrom(key).value_or(0));
    }
    if (largest == std::numeric_limits<std::int64_t>::max()) {
        return std::nullopt;
    }
    return std::to_string(largest + 1);
}

bool understandsWhole(const Stored& stored) {
    const auto& members = membersOf(stored.registry);
    return !stored.repeatedMembers &&
           std::all_of(members.begin(), members.end(), [](const auto& entry) {
               return entry.first == VersionKey
                          ? entry.second == Version
                          : entryFrom(entry.second) && entry.second.size() == 2;
           });
}

/// The number of entries in the registry that are not in `projects`.
std::size_t countDropped(const Dictionary& registry, const ProjectItems& projects) {
    std::vector<RegistryEntry> listed = entriesOf(registry);
    for (auto& entry : listed) {
        entry.path = pathText(entry.path);
    }
    std::vector<RegistryEntry> kept;
    for (const auto& project : projects) {
        if (project) {
            kept.push_back(entryFor(*project));
        }
    }
    std::sort(listed.begin(), listed.end());
    std::sort(kept.begin(), kept.end());
    std::vector<RegistryEntry> dropped;
    std::set_difference(listed.begin(), listed.end(), kept.begin(), kept.end(),
                        std::back_inserter(dropped));
    return dropped.size();
}

bool makeFreshRegistry() {
    Dictionary registry = Dictionary::object();
    appendMember(registry, VersionKey, Version);
    const auto text = serialiseJson(registry);
    return text && saveBytes(registryLocation(), *text);
}

/// Whether a backup is needed before a member is added. Adding loses only repeated members, so for
/// other content that is not understood one backup is enough, instead of one for each project.
bool mustKeepBeforeAdding(const Stored& stored) {
    return stored.repeatedMembers ||
           (!understandsWhole(stored) && !existsAt(backupLocation(registryLocation())));
}

} // namespace

std::filesystem::path registryLocation() {
    return joined(homeFolder(), "/.Kestrel/AllProjects.cfg");
}

std::optional<std::string> registryProblem() {
    const std::filesystem::path location = registryLocation();
    std::error_code error;
    const auto type = std::filesystem::status(location, error).type();
    if (readRegistry()) {
        return std::nullopt;
    }
    if (type == std::filesystem::file_type::not_found) {
        const std::filesystem::path folder = location.parent_path();
        const auto above = std::filesystem::status(folder, error).type();
        return above == std::filesystem::file_type::not_found ||
                       above == std::filesystem::file_type::directory
                   ? std::nullopt
                   : std::optional("what has the name of its folder is no folder");
    }
    if (type == std::filesystem::file_type::none || type == std::filesystem::file_type::unknown) {
        return error.message();
    }
    if (type != std::filesystem::file_type::regular) {
        return type == std::filesystem::file_type::directory ? "it is a folder" : "it is no file";
    }
    if (!openFile(location, O_RDONLY).isOpen()) {
        return std::generic_category().message(errno);
    }
    return readJsonFile(location) ? "it is no list of projects" : "it is no whole JSON file";
}

std::vector<RegistryEntry> registryEntries() {
    const auto stored = readRegistry();
    return stored ? entriesOf(stored->registry) : std::vector<RegistryEntry>();
}

bool isRegistered(const ProjectItem& project) {
    const auto entries = registryEntries();
    return std::any_of(entries.begin(), entries.end(), [&](const RegistryEntry& entry) {
        return entry.name == project.itemName() &&
               pathText(entry.path) == pathText(project.itemPath());
    });
}

bool addToRegistry(const ProjectItem& project) {
    if (!existsAt(registryLocation()) && !makeFreshRegistry()) {
        return false;
    }
    auto stored = readRegistry();
    const auto key = stored ? nextKey(stored->registry) : std::nullopt;
    if (!key) {
        return false;
    }
    const bool mustKeep = mustKeepBeforeAdding(*stored);
    appendMember(stored->registry, *key, storedForm(project));
    const auto text = serialiseJson(stored->registry);
    return text && (!mustKeep || keepBackup(registryLocation())) &&
           saveBytes(registryLocation(), *text);
}

bool rewriteRegistry(const ProjectItems& projects) {
    Dictionary registry = Dictionary::object();
    std::size_t number = 0;
    for (const auto& project : projects) {
        if (project) {
            appendMember(registry, std::to_string(number++), storedForm(*project));
        }
    }
    const auto text = serialiseJson(registry);
    if (!text) {
        return false;
    }
    if (existsAt(registryLocation())) {
        const auto stored = readRegistry();
        const bool losesNothing =
            stored && understandsWhole(*stored) && countDropped(stored->registry, projects) <= 1;
        if (!losesNothing && !keepBackup(registryLocation())) {
            return false;
        }
    }
    return saveBytes(registryLocation(), *text);
}

} // namespace kestrel
