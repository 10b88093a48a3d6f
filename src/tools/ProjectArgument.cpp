// SPDX-License-Identifier: MIT
#include "tools/ProjectArgument.h"

#include "build/ShownPath.h"
#include "model/FileReader.h"
#include "model/Paths.h"

#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

namespace {

/// The folder of `file` as the user wrote it; with links resolved only if it has a "..".
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

/// Why a file could not be read as a JSON object.
std::string fileProblem(const std::string& what, const ProjectProblem& problem) {
    const fs::path& path = problem.file;
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
    const bool isJson = problem.reason == NoJsonObject;
    return "the " + what + " " + shown(path) + " is not a JSON object" +
           (isJson ? "." : ": " + problem.reason + ".");
}

std::string sentenceFor(const ProjectProblem& problem) {
    switch (problem.fault) {
    case ProjectFault::unreadableProjectFile: {
        std::error_code error;
        if (fs::is_directory(problem.file, error)) {
            return shown(problem.file) +
                   " is a folder: name the project file in it, which ends in \".kst\".";
        }
        return fileProblem("project file", problem);
    }
    case ProjectFault::noStructureNamed:
        return shown(problem.file) + " is no project file: it has no text \"ProjectStructure\".";
    case ProjectFault::unreadableStructure:
        return fileProblem("structure file", problem);
    case ProjectFault::noProjectInStructure:
        break;
    }
    return "the structure file " + shown(problem.file) +
           " describes no project: its root needs \"name\", \"type\", \"path_type\" and "
           "\"path\".";
}

} // namespace

std::variant<OpenedProject, std::string> openProjectArgument(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    if (error) {
        return "the current folder is gone, so " + shown(path) + " cannot be found.";
    }
    if (!absolute.has_filename()) {
        return sentenceFor({ProjectFault::unreadableProjectFile, absolute, {}});
    }
    const fs::path folder = folderOf(absolute);
    auto opened = openProject(joined(folder, absolute.filename().native()), folder);
    if (const auto* const problem = std::get_if<ProjectProblem>(&opened)) {
        return sentenceFor(*problem);
    }
    return std::get<OpenedProject>(std::move(opened));
}

} // namespace kestrel
