// SPDX-License-Identifier: MIT
#include "navigation/container/KnownFile.h"

#include "model/Paths.h"
#include "navigation/container/PlaceJump.h"

#include <QString>

#include <algorithm>
#include <string>

namespace kestrel {

namespace {

std::filesystem::path copiesOf(const ProjectItem* project) {
    return project != nullptr ? joined(project->itemPath(), "tmp").lexically_normal()
                              : std::filesystem::path();
}

} // namespace

CopiedSources::CopiedSources(const std::shared_ptr<ProjectItem>& project)
    : m_copies(copiesOf(project.get()))
    , m_gathered(gatheredFilesOf(project)) {}

CopiedSources::CopiedSources(const ProjectItem& project, NESBuildSettings& settings)
    : m_copies(copiesOf(&project))
    , m_gathered(gatheredFilesOf(project, settings)) {}

std::filesystem::path CopiedSources::sourceOf(const FileFacts& file) const {
    std::filesystem::path path = std::filesystem::path(file.path).lexically_normal();
    if (m_copies.empty() || path.parent_path() != m_copies) {
        return path; // read where it lies
    }
    return m_gathered.find(QString::fromStdString(std::string(file.name())))
        .value_or(std::filesystem::path())
        .lexically_normal();
}

const FileFacts* knownFile(const ProgramFacts& facts, const std::filesystem::path& path,
                           const CopiedSources& sources) {
    const std::string name = path.filename().string();
    const auto found = std::ranges::find_if(facts.files, [&](const FileFacts& file) {
        return file.name() == name && sources.sourceOf(file) == path.lexically_normal();
    });
    return found != facts.files.end() ? &*found : nullptr;
}

std::shared_ptr<ProjectItem> builtProject(const ProgramFacts& facts, const ProjectItems& projects) {
    const auto found = std::ranges::find_if(projects, [&](const auto& project) {
        const std::filesystem::path copies = copiesOf(project.get());
        return !copies.empty() && std::ranges::any_of(facts.files, [&](const FileFacts& file) {
            return std::filesystem::path(file.path).lexically_normal().parent_path() == copies;
        });
    });
    return found != projects.end() ? *found : nullptr;
}

} // namespace kestrel
