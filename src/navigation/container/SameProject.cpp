// SPDX-License-Identifier: MIT
#include "navigation/container/SameProject.h"

#include "model/Paths.h"

#include <algorithm>
#include <system_error>

namespace kestrel {

namespace {

bool isSameFolder(const std::filesystem::path& one, const std::filesystem::path& other) {
    std::error_code unreadable;
    return pathText(one) == pathText(other) ||
           std::filesystem::equivalent(one, other, unreadable); // when one is a link
}

} // namespace

std::shared_ptr<ProjectItem> findSameProject(const ProjectItems& projects,
                                             const ProjectItem& project) {
    const auto found = std::find_if(projects.begin(), projects.end(), [&](const auto& other) {
        return other && other->itemFileType() == FileType::project &&
               other->itemName() == project.itemName() &&
               isSameFolder(other->itemPath(), project.itemPath());
    });
    return found != projects.end() ? *found : nullptr;
}

void shareRepeatedProjects(ProjectItems& projects) {
    ProjectItems shown;
    for (std::shared_ptr<ProjectItem>& project : projects) {
        if (const auto former = findSameProject(shown, *project)) {
            project = former;
        }
        shown.push_back(project);
    }
}

} // namespace kestrel
