// SPDX-License-Identifier: MIT
#include "tools/Relocation.h"

#include "model/BuildSettingsFile.h"
#include "model/FileType.h"
#include "model/Paths.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

namespace {

/// `path` normalised lexically, without a separator at its end.
fs::path normal(const fs::path& path) {
    fs::path result = path.lexically_normal();
    if (!result.has_filename() && result.has_relative_path()) {
        result = result.parent_path();
    }
    return result == "." ? fs::path() : result;
}

/// `path` with links followed, also a last one to a missing file, which writing would create. Only
/// normalised when that fails.
fs::path resolved(const fs::path& path) {
    constexpr int MostLinks = 40; // as the kernel's own limit
    fs::path next = path;
    for (int links = 0; links < MostLinks; ++links) {
        std::error_code error;
        const fs::path found = fs::weakly_canonical(next, error);
        if (error || found.empty()) {
            break;
        }
        const fs::path named = fs::read_symlink(found, error);
        if (error) {
            return normal(found); // no link
        }
        next = found.parent_path() / named;
    }
    return normal(path);
}

bool holdsParentStep(const fs::path& path) {
    return std::find(path.begin(), path.end(), "..") != path.end();
}

/// The rest of `path` after `base`, empty for `base` itself; nothing when it is not below `base`.
/// Both must be normalised.
std::optional<fs::path> restBelow(const fs::path& path, const fs::path& base) {
    if (path.is_absolute() != base.is_absolute()) {
        return std::nullopt;
    }
    const auto [inBase, inPath] = std::mismatch(base.begin(), base.end(), path.begin(), path.end());
    if (inBase != base.end()) {
        return std::nullopt;
    }
    fs::path rest;
    for (auto component = inPath; component != path.end(); ++component) {
        rest /= *component;
    }
    if (holdsParentStep(rest)) {
        return std::nullopt;
    }
    return rest;
}

bool isBelow(const fs::path& path, const fs::path& base) {
    return restBelow(path, base).has_value();
}

/// Whether the path of this stored node is to be mapped.
bool movesWithProject(const Dictionary& node) {
    const auto path = stringMember(node, "path");
    const auto pathType = stringMember(node, "path_type");
    const auto kind = pathType ? filePathTypeFrom(*pathType) : std::nullopt;
    return path &&
           (kind == FilePathType::absolute || (kind == FilePathType::noPath && !path->empty()));
}

} // namespace

std::optional<Relocation> Relocation::between(const fs::path& named, const fs::path& present) {
    if (named.is_absolute()) {
        std::error_code error;
        const bool writtenTheSame = !holdsParentStep(named) && normal(named) == normal(present);
        if (writtenTheSame || resolved(named) == resolved(present) ||
            fs::equivalent(named, present, error)) {
            return std::nullopt;
        }
    }
    return Relocation(named, present);
}

Relocation::Relocation(fs::path former, fs::path present)
    : m_former(std::move(former))
    , m_present(std::move(present))
    , m_written{normal(m_former), normal(m_present)}
    , m_resolved{m_former.is_absolute() ? resolved(m_former) : m_written.former,
                 resolved(m_present)} {}

fs::path Relocation::mapped(const fs::path& path) const {
    if (!path.is_absolute()) {
        return mapped(normal(path), m_written).value_or(path);
    }
    const fs::path target = resolved(path);
    // In a copy inside the original project, paths below the copy stay.
    if (isBelow(m_resolved.present, m_resolved.former) && isBelow(target, m_resolved.present)) {
        return path;
    }
    if (!holdsParentStep(path)) {
        if (const auto result = mapped(normal(path), m_written)) {
            return *result;
        }
    }
    return mapped(target, m_resolved).value_or(path);
}

std::optional<fs::path> Relocation::mapped(const fs::path& path, const Folders& folders) const {
    const auto rest = restBelow(path, folders.former);
    if (!rest) {
        return std::nullopt;
    }
    return rest->empty() ? m_present : joined(m_present, rest->native());
}

bool Relocation::leadsBack(const fs::path& path) const {
    const fs::path target = resolved(path);
    const bool copyInside = isBelow(m_resolved.present, m_resolved.former);
    return isBelow(target, m_resolved.former) &&
           !(copyInside && isBelow(target, m_resolved.present));
}

/// Maps the path in the member `key`, if that is a string.
void Relocation::mapMember(Dictionary& object, std::string_view key) const {
    const auto path = stringMember(object, key);
    if (!path) {
        return;
    }
    if (const fs::path found = mapped(*path); found != fs::path(*path)) {
        object[std::string(key)] = pathText(found);
    }
}

/// Maps the paths of the nodes in the member `key`, if that is an array.
void Relocation::mapNodesIn(Dictionary& object, std::string_view key) const {
    const auto nodes = object.find(std::string(key));
    if (nodes != object.end() && nodes->is_array()) {
        for (Dictionary& node : *nodes) {
            applyToNode(node);
        }
    }
}

void Relocation::applyToNode(Dictionary& node) const {
    if (!node.is_object()) {
        return;
    }
    if (movesWithProject(node)) {
        mapMember(node, "path");
    }
    mapNodesIn(node, "sub_items");
}

void Relocation::applyToSettings(Dictionary& settings) const {
    for (const std::string_view key : buildSettingMembers(BuildSettingForm::path)) {
        if (stringMember(settings, key) != "") {
            mapMember(settings, key);
        }
    }
    for (const std::string_view key : buildSettingMembers(BuildSettingForm::fileList)) {
        mapNodesIn(settings, key);
    }
}

} // namespace kestrel
