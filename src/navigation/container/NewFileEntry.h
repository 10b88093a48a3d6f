// SPDX-License-Identifier: MIT
#pragma once

#include "model/BuildSettingsFile.h"
#include "navigation/container/NewFileWriter.h"

#include <memory>
#include <optional>
#include <string>

namespace kestrel {

class ProjectNavigationController;

/// A new file with its node in the tree and its entry in the build settings: all of it or nothing.
class NewFileEntry {
public:
    /// Writes the file of `newItem`, inserts the node into `tree`, which must outlive the result,
    /// and adds it to the build settings of `project`. Nothing when the file cannot be written, or
    /// when the settings cannot be saved, which is logged; then tree and disk are as before.
    static std::optional<NewFileEntry> make(ProjectNavigationController& tree,
                                            std::shared_ptr<ProjectItem> newItem,
                                            std::shared_ptr<ProjectItem> project);

    /// Undoes it because `what` could not be saved, and logs that.
    void takeBack(const std::string& what, const std::string& reason);

private:
    NewFileEntry() = default;
    void removeNodeAndFile(const std::string& what, const std::string& reason);

    ProjectNavigationController* m_tree = nullptr;
    std::shared_ptr<ProjectItem> m_item;
    std::shared_ptr<ProjectItem> m_project;
    WrittenFile m_file;
    BuildSettingsContents m_formerSettings;
};

} // namespace kestrel
