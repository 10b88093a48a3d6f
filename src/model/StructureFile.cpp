// SPDX-License-Identifier: MIT
#include "model/StructureFile.h"

#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"
#include "model/ProjectItemFactory.h"
#include "model/Reason.h"

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kestrel {

namespace {

/// Whether two nodes are the same group, or stand for the same file.
bool meanTheSame(const ProjectItem& one, const ProjectItem& other) {
    if (one.itemName() != other.itemName() || one.itemFileType() != other.itemFileType()) {
        return false;
    }
    return one.itemFileType() == FileType::group ||
           (one.itemPathType() == other.itemPathType() &&
            pathText(one.itemPath()) == pathText(other.itemPath()));
}

/// A node and the stored node whose children are to be merged into it.
using Merge = std::pair<std::shared_ptr<ProjectItem>, std::shared_ptr<ProjectItem>>;

/// Puts the children of `stored` before those of `own`; a child in both is kept once. Appends pairs
/// of groups whose children are still to be merged to `open`.
void mergeChildren(const std::shared_ptr<ProjectItem>& own, ProjectItem& stored,
                   std::vector<Merge>& open) {
    ProjectItems ownChildren = std::exchange(own->subItems(), {});
    std::unordered_multimap<std::int64_t, std::shared_ptr<ProjectItem>*> unmatched;
    for (auto& child : ownChildren) {
        unmatched.emplace(child->uniqueID(), &child);
    }
    ProjectItems& merged = own->subItems();
    for (const auto& storedChild : stored.subItems()) {
        auto [first, last] = unmatched.equal_range(storedChild->uniqueID());
        while (first != last && !meanTheSame(**first->second, *storedChild)) {
            ++first;
        }
        if (first == last) {
            storedChild->setParent(own);
            merged.push_back(storedChild);
            continue;
        }
        merged.push_back(std::move(*first->second));
        unmatched.erase(first);
        open.emplace_back(merged.back(), storedChild);
    }
    for (auto& child : ownChildren) {
        if (child) {
            merged.push_back(std::move(child));
        }
    }
}

} // namespace

std::filesystem::path structureLocation(const ProjectItem& project) {
    return joined(project.itemPath(),
                  settingsFilePath(project.itemName(), ProjectStructureConfigurationExtension));
}

std::optional<Dictionary> fetchStructure(const ProjectItem& project) {
    return readJsonObject(structureLocation(project));
}

std::shared_ptr<ProjectItem> projectFromStructure(const Dictionary& structure,
                                                  const std::filesystem::path& projectFolder) {
    auto root = ProjectItemFactory::process(structure, nullptr);
    if (root && !root->itemPath().is_absolute()) {
        const std::filesystem::path below = root->itemPath().lexically_normal();
        const bool isFolderItself = below.empty() || below == "." || below == "./";
        root->setItemPath(isFolderItself ? std::filesystem::path(pathText(projectFolder))
                                         : joined(projectFolder, below.native()));
    }
    return root;
}

std::shared_ptr<ProjectItem> structureTree(const ProjectItem& project) {
    const auto structure = fetchStructure(project);
    return structure ? projectFromStructure(*structure, project.itemPath()) : nullptr;
}

bool understandsStructureFile(const std::filesystem::path& path) {
    if (!existsAt(path)) {
        return true;
    }
    bool repeatedMembers = false;
    const auto structure = readJsonFile(path, &repeatedMembers);
    return structure && !repeatedMembers && ProjectItemFactory::understandsWhole(*structure);
}

bool saveStructure(const ProjectItem& project, std::string* reason) {
    const auto text = serialiseJson(project.toDictionary());
    const std::filesystem::path path = structureLocation(project);
    if (!text) {
        giveReason(reason, "a text in it is not UTF-8, or it is nested too deep");
        return false;
    }
    return (understandsStructureFile(path) || keepBackup(path, reason)) &&
           saveBytes(path, *text, reason);
}

bool saveStructureOrLog(const ProjectItem& project) {
    std::string reason;
    const bool isSaved = saveStructure(project, &reason);
    if (!isSaved) {
        writeLog("Could not save the tree of the project " + project.itemName());
        logReason(structureLocation(project).string(), reason);
    }
    return isSaved;
}

bool adoptStructureFile(const std::shared_ptr<ProjectItem>& project) {
    if (!project) {
        return false;
    }
    const std::filesystem::path path = structureLocation(*project);
    if (!existsAt(path)) {
        return true;
    }
    const auto stored = structureTree(*project);
    if (!stored) {
        return false;
    }
    std::vector<Merge> open = {{project, stored}};
    while (!open.empty()) {
        const auto [own, other] = std::move(open.back());
        open.pop_back();
        mergeChildren(own, *other, open);
    }
    return understandsStructureFile(path);
}

void uniteWithStructureFile(const std::shared_ptr<ProjectItem>& project) {
    if (!adoptStructureFile(project)) {
        return;
    }
    const auto stored = structureTree(*project);
    if (stored && stored->toDictionary() != project->toDictionary()) {
        saveStructureOrLog(*project);
    }
}

} // namespace kestrel
