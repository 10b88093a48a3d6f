// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/ProjectSettingsDataSource.h"
#include "model/ProjectItem.h"
#include "navigation/container/ProjectItemDeletion.h"
#include "navigation/container/ShownPane.h"
#include "navigation/tree/NotificationCentre.h"
#include "navigation/tree/ProjectNavigationDelegate.h"
#include "widgets/FilePanel.h"
#include "widgets/SheetQueue.h"

#include <QPointer>
#include <QWidget>

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kestrel {

class CommonEditorControllers;
class CreateNewFileController;
class CreateNewProjectController;
class ProjectNavigationController;

/// Holds the navigation tree on the left and the editor panes on the right: loads the projects,
/// turns a selected node into the pane that is shown, and carries out the project commands. Sheets
/// open on the window that it stands in, whichever window is in front.
///
/// To be used on the user-interface thread.
class EditorContainerController : public QWidget,
                                  public ProjectNavigationDelegate,
                                  public ProjectSettingsDataSource {
    Q_OBJECT

public:
    /// `centre` is where the commands arrive from, and must outlive the container.
    explicit EditorContainerController(
        NotificationCentre& centre = NotificationCentre::defaultCentre(),
        QWidget* parent = nullptr);
    ~EditorContainerController() override;

    /// A dictionary for whoever needs one; the container neither reads nor fills it.
    static std::map<std::string, std::any>& projectDirectory();

    /// Takes tree and panes from the children of a split view; anything else is ignored. The
    /// constructor does so with its own.
    void prepare(QWidget* destination);

    /// Loads the registered projects into the tree and begins to observe commands and the
    /// application's state. To be called once, before the container is shown.
    void viewDidLoad();

    ProjectNavigationController* projectNavigationController() const;
    CommonEditorControllers* commonController() const;

    /// The latest requests, running or not; null before the first.
    CreateNewFileController* newFileController() const { return m_newFileController.get(); }
    CreateNewProjectController* newProjectController() const {
        return m_newProjectController.get();
    }

    /// Replaces how a file to import is asked for; for tests.
    void setFilePanel(FilePanel filePanel);

    void projectNavigation(const std::shared_ptr<ProjectItem>& itemSelected) override;
    void projectNavigationMenuSelected(const std::any& object);

    /// Writes the file of a new node; see NewFileWriter.
    bool createNewFile(const std::shared_ptr<ProjectItem>& newItem,
                       const std::shared_ptr<ProjectItem>& currentProject);

    /// Writes the file of a new node and, when that succeeded, adds it to tree and build settings.
    void addItemToBuildSettingsAndNavigationController(const std::shared_ptr<ProjectItem>& newItem,
                                                       const std::shared_ptr<ProjectItem>& project);

    /// Lays a project out on disk, puts it on top of the tree and into the registry; what a
    /// structure file there holds already becomes part of it. A project that the tree has already
    /// is selected instead. True when it is in the registry afterwards.
    bool addProjectToEditor(const std::shared_ptr<ProjectItem>& newProject);

    void updatedFileType() override;

    /// Carries `action` out at once, or, while a sheet is open on the window, after it has ended.
    /// Actions keep their order; those that still wait when the container goes are dropped.
    void whenNoSheetIsOpen(std::function<void()> action);

    /// Whether there is a deletion to be undone.
    bool canUndoDelete() const { return !m_deletions.empty(); }

    // The project commands, callable by name, too. Each does nothing when what it needs is not
    // selected, and those that ask something do nothing while a sheet is open.
    Q_INVOKABLE void addNewFile();
    Q_INVOKABLE void importFile();
    Q_INVOKABLE void addNewGroup();
    Q_INVOKABLE void newProject();
    /// Deletes without asking; the files stay on disk.
    Q_INVOKABLE void delete_();
    /// Brings back what the last deletion took that has not been brought back yet.
    void undoDelete();

    /// Shows the rows as the nodes and the disk are now, and says so when the project shown is gone
    /// from disk or there is none.
    void reloadControllers();

    /// Writes the structure file of the selected project.
    void saveProjectStructure();

Q_SIGNALS:
    void undoDeleteAvailable(bool available);

private:
    void buildView(NotificationCentre& centre);
    std::shared_ptr<ProjectItem> selectedProject() const;
    bool canInsert() const;
    void fileWasMade(const std::shared_ptr<ProjectItem>& newItem,
                     const std::shared_ptr<ProjectItem>& parent,
                     const std::shared_ptr<ProjectItem>& project);
    void fileWasChosen(const std::filesystem::path& file);
    void selectedRowWasChosenAgain();
    void saveWithContainerAsParent(const std::shared_ptr<ProjectItem>& inserted);

    NotificationCentre& m_centre;
    QPointer<ProjectNavigationController> m_projectNavigationController;
    QPointer<CommonEditorControllers> m_commonController;
    std::unique_ptr<CreateNewFileController> m_newFileController;
    std::unique_ptr<CreateNewProjectController> m_newProjectController;
    FilePanel m_filePanel = openFilePanel;
    ShownPane m_shownPane;
    std::vector<ProjectItemDeletion> m_deletions;
    SheetQueue m_afterSheets{*this};
    NotificationCentre::Connection m_commands; ///< the last to be made, the first to go
};

} // namespace kestrel
