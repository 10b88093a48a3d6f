// SPDX-License-Identifier: MIT
#include "navigation/container/NewFileEntry.h"

#include "build/NESBuildSettings.h"
#include "model/Log.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <algorithm>
#include <utility>

namespace kestrel {

std::optional<NewFileEntry> NewFileEntry::make(ProjectNavigationController& tree,
                                               std::shared_ptr<ProjectItem> newItem,
                                               std::shared_ptr<ProjectItem> project) {
    auto written = writeNewFile(newItem, *project);
    if (!written) {
        return std::nullopt;
    }
    NESBuildSettings settings(project);
    NewFileEntry entry;
    entry.m_tree = &tree;
    entry.m_item = std::move(newItem);
    entry.m_project = std::move(project);
    entry.m_file = *std::move(written);
    entry.m_formerSettings = settings.contents();
    tree.add(entry.m_item);
    if (!settings.addNewFile(entry.m_item)) {
        entry.removeNodeAndFile("the build settings", {}); // the reason has been logged
        return std::nullopt;
    }
    return entry;
}

void NewFileEntry::takeBack(const std::string& what, const std::string& reason) {
    NESBuildSettings settings(m_project);
    settings.contents() = m_formerSettings;
    settings.saveBuildSettings();
    removeNodeAndFile(what, reason);
}

void NewFileEntry::removeNodeAndFile(const std::string& what, const std::string& reason) {
    if (const auto container = m_tree->containerOf(m_item)) {
        ProjectItems& items = container->subItems();
        items.erase(std::remove(items.begin(), items.end(), m_item), items.end());
        m_tree->reloadFileStatusForNavigationContent();
    }
    kestrel::takeBack(m_file);
    writeLog("The new file " + m_file.file.string() + " was taken back, because " + what +
             " could not be saved" + (reason.empty() ? std::string() : ": " + reason));
}

} // namespace kestrel
