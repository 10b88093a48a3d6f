// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"
#include "navigation/tree/ProjectNavigationItem.h"

#include <QAbstractListModel>

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// The files of one list of the build settings as rows. A file is looked for on disk when its row
/// is first painted or asked about, by the rule of the navigation tree.
class BuildFileListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// The rows' nodes; relative ones lie below the folder of `project`.
    const ProjectItems& files() const { return m_files; }
    void setFiles(ProjectItems files, std::shared_ptr<ProjectItem> project);

    /// Whether the row's file was not found.
    bool isMissing(int row) const;

    /// Makes every row's file be looked for again.
    void forgetPresence();

    /// Replaces how the file system is asked; for tests.
    void setFileExistence(ProjectNavigationItem::FileExistence fileExists);

    int rowCount(const QModelIndex& parent = {}) const override;

    /// The file's name (nothing else is put in for it), its whole path as tool tip, and for screen
    /// readers the name with a word on a missing file.
    QVariant data(const QModelIndex& index, int role) const override;

private:
    ProjectItems m_files;
    std::shared_ptr<ProjectItem> m_project;
    mutable ProjectNavigationItem m_rule; ///< decides for one row at a time
    mutable std::vector<std::optional<bool>> m_missing;
};

} // namespace kestrel
