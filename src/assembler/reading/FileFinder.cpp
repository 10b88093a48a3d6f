// SPDX-License-Identifier: MIT
#include "assembler/reading/FileFinder.h"

#include "assembler/reading/FileReader.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <utility>

namespace nesasm {

namespace {

std::string withSlashes(std::string_view name) {
    std::string path(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// The one entry of `folder` that is `name` but for letter case; the exact one is preferred.
std::optional<std::string> matchingEntry(const std::string& folder, std::string_view name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(
        opendir(folder.empty() ? "." : folder.c_str()), &closedir);
    if (!listing) {
        return std::nullopt;
    }
    std::optional<std::string> match;
    bool several = false;
    // Each listing has its own stream, so no other thread's readdir is disturbed.
    while (const dirent* entry = readdir(listing.get())) { // NOLINT(concurrency-mt-unsafe)
        const std::string_view found(entry->d_name);
        if (found == name) {
            return std::string(name);
        }
        if (equalsIgnoringCase(found, name)) {
            several = match.has_value();
            match = found;
        }
    }
    return several ? std::nullopt : match;
}

/// `path` with the letter case that each of its parts has on the disk.
std::optional<std::string> matchingPath(const std::string& path) {
    std::string result = path.starts_with('/') ? "/" : "";
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::string part = path.substr(begin, end - begin);
        begin = end + 1;
        if (part.empty()) {
            continue;
        }
        if (part == "." || part == "..") {
            result = joinPath(result, part);
            continue;
        }
        if (const std::string exact = joinPath(result, part);
            fileKind(exact) != FileKind::missing) {
            result = exact;
            continue;
        }
        const auto entry = matchingEntry(result, part);
        if (!entry) {
            return std::nullopt;
        }
        result = joinPath(result, *entry);
    }
    return result;
}

std::optional<FileFinder::Found> firstOf(const std::vector<std::string>& paths, bool ignoringCase) {
    std::optional<FileFinder::Found> other;
    for (const std::string& candidate : paths) {
        const auto path = ignoringCase ? matchingPath(candidate) : candidate;
        const FileKind kind = path ? fileKind(*path) : FileKind::missing;
        if (kind == FileKind::regular) {
            return FileFinder::Found{*path, ignoringCase, true};
        }
        if (kind != FileKind::missing && !other) {
            other = FileFinder::Found{*path, ignoringCase, false};
        }
    }
    return other;
}

} // namespace

FileFinder::FileFinder(std::vector<std::string> includeFolders, std::string_view includeList)
    : m_includeFolders(std::move(includeFolders)) {
    if (fileKind(std::string(includeList)) == FileKind::folder) {
        m_environmentFolders.emplace_back(includeList);
        return;
    }
    while (!includeList.empty()) {
        const std::size_t end = std::min(includeList.find(':'), includeList.size());
        if (end != 0) {
            m_environmentFolders.emplace_back(includeList.substr(0, end));
        }
        includeList.remove_prefix(std::min(end + 1, includeList.size()));
    }
}

std::optional<FileFinder::Found> FileFinder::findInput(const std::string& name) {
    const bool isBare = name.find('/') == std::string::npos;
    std::vector<std::string> paths;
    if (isBare) {
        for (const std::string& folder : m_environmentFolders) {
            paths.push_back(joinPath(folder, name));
        }
        paths.push_back(name);
    } else {
        paths = candidates(withSlashes(name), {});
    }
    // A bare name is looked for in the folders of NES_INCLUDE first, a path last.
    const std::size_t firstOfEnvironment = isBare ? 0 : 1 + m_includeFolders.size();
    const std::size_t endOfEnvironment = isBare ? m_environmentFolders.size() : paths.size();
    for (const bool ignoringCase : {false, true}) {
        for (std::size_t i = 0; i < paths.size(); ++i) {
            auto found = firstOf({paths[i]}, ignoringCase);
            if (!found || !found->isRegular) {
                continue;
            }
            m_searchesCurrentFolder = i < firstOfEnvironment || i >= endOfEnvironment;
            return found;
        }
    }
    return firstOf(paths, false);
}

std::optional<FileFinder::Found>
FileFinder::find(std::string_view name, const std::string& includingFolder, bool isSource) const {
    const std::string path = withSlashes(name);
    if (path.empty() || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    std::vector<std::vector<std::string>> searches{candidates(path, includingFolder)};
    if (isSource) {
        searches.push_back(candidates(path + ".asm", includingFolder));
    }
    std::optional<Found> other;
    for (const bool ignoringCase : {false, true}) {
        for (const auto& paths : searches) {
            auto found = firstOf(paths, ignoringCase);
            if (found && found->isRegular) {
                return found;
            }
            if (!other) {
                other = std::move(found);
            }
        }
    }
    return other;
}

std::vector<std::string> FileFinder::candidates(const std::string& name,
                                                const std::string& folder) const {
    if (name.starts_with('/')) {
        return {name};
    }
    std::vector<std::string> paths;
    if (m_searchesCurrentFolder) {
        paths.push_back(name);
    }
    for (const std::string& place : m_includeFolders) {
        paths.push_back(joinPath(place, name));
    }
    for (const std::string& place : m_environmentFolders) {
        paths.push_back(joinPath(place, name));
    }
    if (!folder.empty()) {
        paths.push_back(joinPath(folder, name));
    }
    const std::string bareName = name.substr(name.rfind('/') + 1);
    for (const std::string& place : m_environmentFolders) {
        paths.push_back(joinPath(place, bareName));
    }
    return paths;
}

} // namespace nesasm
