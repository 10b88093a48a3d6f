// SPDX-License-Identifier: MIT
#include "model/ProjectRegistry.h"

#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
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

/// What the registry file holds.
struct Stored {
    Dictionary registry;
    bool repeatedMembers = false;
};

std::optional<Stored> readRegistry() {
    bool repeatedMembers = false;
    auto registry = readJsonObject(ProjectRegistry::location(), &repeatedMembers);
    if (!registry) {
        return std::nullopt;
    }
    return Stored{std::move(*registry), repeatedMembers};
}

const Dictionary::object_t& membersOf(const Dictionary& registry) {
    return registry.get_ref<const Dictionary::object_t&>();
}

std::optional<ProjectRegistry::Entry> entryFrom(const Dictionary& value) {
    if (!isObjectOfStrings(value)) {
        return std::nullopt;
    }
    auto name = stringMember(value, NameKey);
    auto path = stringMember(value, PathKey);
    if (!name || !path) {
        return std::nullopt;
    }
    return ProjectRegistry::Entry{std::move(*name), std::move(*path)};
}

std::vector<ProjectRegistry::Entry> entriesOf(const Dictionary& registry) {
    std::vector<ProjectRegistry::Entry> entries;
    for (const auto& [key, value] : membersOf(registry)) {
        if (auto entry = entryFrom(value)) {
            entries.push_back(std::move(*entry));
        }
    }
    return entries;
}

ProjectRegistry::Entry entryFor(const ProjectItem& project) {
    return {project.itemName(), pathText(project.itemPath())};
}

Dictionary storedForm(const ProjectItem& project) {
    Dictionary value = Dictionary::object();
    appendMember(value, NameKey, project.itemName());
    appendMember(value, PathKey, pathText(project.itemPath()));
    return value;
}

/// The number that the whole of `key` is: an optional sign and digits, within 64 bits.
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

/// How many of the registry's entries are not among `projects`.
std::size_t countDropped(const Dictionary& registry, const ProjectItems& projects) {
    std::vector<ProjectRegistry::Entry> listed = entriesOf(registry);
    for (auto& entry : listed) {
        entry.path = pathText(entry.path);
    }
    std::vector<ProjectRegistry::Entry> kept;
    for (const auto& project : projects) {
        if (project) {
            kept.push_back(entryFor(*project));
        }
    }
    std::sort(listed.begin(), listed.end());
    std::sort(kept.begin(), kept.end());
    std::vector<ProjectRegistry::Entry> dropped;
    std::set_difference(listed.begin(), listed.end(), kept.begin(), kept.end(),
                        std::back_inserter(dropped));
    return dropped.size();
}

bool makeFreshRegistry() {
    Dictionary registry = Dictionary::object();
    appendMember(registry, VersionKey, Version);
    const auto text = serialiseJson(registry);
    return text && saveBytes(ProjectRegistry::location(), *text);
}

/// Whether the registry is to be copied before a member is added. Adding loses nothing but repeated
/// members, so for anything else that is not understood the first copy ever made is enough: there
/// would be another one with each project.
bool mustKeepBeforeAdding(const Stored& stored) {
    return stored.repeatedMembers ||
           (!understandsWhole(stored) && !existsAt(backupLocation(ProjectRegistry::location())));
}

} // namespace

std::filesystem::path ProjectRegistry::location() {
    return joined(homeFolder(), "/.Kestrel/AllProjects.cfg");
}

std::vector<ProjectRegistry::Entry> ProjectRegistry::entries() {
    const auto stored = readRegistry();
    return stored ? entriesOf(stored->registry) : std::vector<Entry>();
}

bool ProjectRegistry::add(const ProjectItem& project) {
    if (!existsAt(location()) && !makeFreshRegistry()) {
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
    return text && (!mustKeep || keepBackup(location())) && saveBytes(location(), *text);
}

bool ProjectRegistry::rewrite(const ProjectItems& projects) {
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
    if (existsAt(location())) {
        const auto stored = readRegistry();
        const bool losesNothing =
            stored && understandsWhole(*stored) && countDropped(stored->registry, projects) <= 1;
        if (!losesNothing && !keepBackup(location())) {
            return false;
        }
    }
    return saveBytes(location(), *text);
}

} // namespace kestrel
