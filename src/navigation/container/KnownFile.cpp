// SPDX-License-Identifier: MIT
#include "navigation/container/KnownFile.h"

#include "model/Paths.h"
#include "navigation/container/PlaceJump.h"

#include <QString>

namespace kestrel {

std::filesystem::path sourceOf(const FileFacts& file, const std::shared_ptr<ProjectItem>& project) {
    const std::filesystem::path path = std::filesystem::path(file.path).lexically_normal();
    if (!project || path.parent_path() != joined(project->itemPath(), "tmp").lexically_normal()) {
        return path; // read where it lies
    }
    Place place;
    place.file = QString::fromStdString(std::string(file.name()));
    return fileOf(place, project).lexically_normal();
}

const FileFacts* knownFile(const ProgramFacts& facts, const std::filesystem::path& path,
                           const std::shared_ptr<ProjectItem>& project) {
    const FileFacts* const file = facts.fileNamed(path.filename().string());
    return file != nullptr && sourceOf(*file, project) == path.lexically_normal() ? file : nullptr;
}

} // namespace kestrel
