// SPDX-License-Identifier: MIT
#include "tools/OpenedProject.h"

#include "model/FileProcessor.h"
#include "model/FileReader.h"
#include "model/Paths.h"
#include "model/ProjectItemFactory.h"
#include "tools/Messages.h"

#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

namespace {

/// The folder of `file`, as the user spelled it where that is unambiguous: only with ".." in it are
/// its links resolved.
fs::path folderOf(const fs::path& file) {
    fs::path folder;
    for (const fs::path& component : file.parent_path()) {
        if (component == "..") {
            std::error_code error;
            const fs::path resolved = fs::canonical(file.parent_path(), error);
            return error ? file.parent_path() : resolved;
        }
        if (component != "." && !component.empty()) {
            folder /= component;
        }
    }
    return folder;
}

/// What is wrong with a file that could not be read as a JSON object.
std::string fileProblem(const std::string& what, const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return "there is no " + what + " " + shown(path) + ".";
    }
    if (status.type() == fs::file_type::directory) {
        return shown(path) + " is a folder, not a " + what + ".";
    }
    if (!fs::is_regular_file(status)) {
        return "the " + what + " " + shown(path) + " is not an ordinary file.";
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return "the " + what + " " + shown(path) + " may not be read.";
    }
    return "the " + what + " " + shown(path) + " is not a JSON object.";
}

std::string whyUnreadable(const fs::path& file, const fs::path& folder) {
    const auto content = readJsonFile(file);
    if (!content || !content->is_object()) {
        std::error_code error;
        if (fs::is_directory(file, error)) {
            return shown(file) +
                   " is a folder: name the project file in it, which ends in \".kst\".";
        }
        return fileProblem("project file", file);
    }
    const auto structure = stringMember(*content, "ProjectStructure");
    if (!structure) {
        return shown(file) + " is no project file: it has no text \"ProjectStructure\".";
    }
    return fileProblem("structure file", joined(folder, *structure));
}

} // namespace

std::variant<OpenedProject, ProjectProblem> openProject(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    if (error) {
        return ProjectProblem{"the current folder is gone, so " + shown(path) +
                              " cannot be found."};
    }
    OpenedProject project;
    project.folder = folderOf(absolute);
    project.file = joined(project.folder, absolute.filename().native());
    if (!absolute.has_filename()) {
        return ProjectProblem{whyUnreadable(absolute, project.folder)};
    }
    auto structure = FileProcessor::retrieveConfiguration(project.file);
    const auto content = readJsonFile(project.file);
    const auto name = content ? stringMember(*content, "ProjectStructure") : std::nullopt;
    if (!structure || !name) {
        return ProjectProblem{whyUnreadable(project.file, project.folder)};
    }
    project.structureFile = joined(project.folder, *name);
    project.root = ProjectItemFactory::process(*structure, nullptr);
    if (!project.root) {
        return ProjectProblem{"the structure file " + shown(project.structureFile) +
                              " describes no project: its root needs \"name\", \"type\", "
                              "\"path_type\" and \"path\"."};
    }
    project.structure = std::move(*structure);
    return project;
}

} // namespace kestrel
