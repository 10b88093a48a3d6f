// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QPushButton>
#include <QString>
#include <QWidget>

#include <memory>

namespace kestrel {

class BuildFileListModel;
class BuildFileTable;
class ProjectSettingCell;

/// One list of files that take part in a build: its heading, its table, and a minus and a plus
/// button below. It shows and reports; what the buttons do is its owner's work.
class BuildFileList : public QWidget {
    Q_OBJECT

public:
    /// What is different in each list.
    struct Names {
        FileType kind;      ///< of the files that it lists
        QString heading;    ///< with the mark of its mnemonic
        QString fileOfKind; ///< for "Add ..." and "Remove ...", in lower case
        QString emptyText;  ///< shown while the list is empty
        const char* table;  ///< object names of the table and the two buttons
        const char* subtractButton;
        const char* addButton;
    };

    explicit BuildFileList(const Names& names, QWidget* parent = nullptr);

    /// The kind of the files that it lists.
    FileType kind() const { return m_kind; }

    BuildFileTable* table() const { return m_table; }
    BuildFileListModel* model() const { return m_model; }
    ProjectSettingCell* cell() const { return m_cell; }
    QPushButton* subtractButton() const { return m_subtractButton; }
    QPushButton* addButton() const { return m_addButton; }

    const ProjectItems& files() const;

    /// Replaces the rows; none is selected then. Without a project nothing can be added.
    void setFiles(ProjectItems files, const std::shared_ptr<ProjectItem>& project);

private:
    void buildButtons(const Names& names);
    void updateButtons();

    FileType m_kind;
    BuildFileListModel* m_model;
    BuildFileTable* m_table;
    ProjectSettingCell* m_cell;
    QPushButton* m_subtractButton;
    QPushButton* m_addButton;
};

} // namespace kestrel
