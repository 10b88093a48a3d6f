// SPDX-License-Identifier: MIT
#pragma once

#include "editors/settings/ProjectSettingsDataSource.h"
#include "model/ProjectItem.h"
#include "navigation/container/NewFileEntry.h"
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
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

class CommonEditorControllers;
class CreateNewFileController;
class CreateNewProjectController;
class ProjectNavigationController;

/// The navigation tree on the left and the editor panes on the right. Loads the projects, shows the
/// pane for the selected node, and carries out the project commands. Its sheets open on its own
/// window, even when another one is in front. User-interface thread only.
class EditorContainerController : public QWidget,
                                  public ProjectNavigationDelegate,
                                  public ProjectSettingsDataSource {
    Q_OBJECT

public:
    /// The commands are posted to `centre`, which must outlive the container.
    explicit EditorContainerController(
        NotificationCentre& centre = NotificationCentre::defaultCentre(),
        QWidget* parent = nullptr);
    ~EditorContainerController() override;

    /// A dictionary for other code; the container neither reads nor fills it.
    static std::map<std::string, std::any>& projectDirectory();

    /// Uses the tree and the panes among the children of a split view; ignores anything else. The
    /// constructor calls it with its own split view.
    void prepare(QWidget* destination);

    /// Loads the registered projects and starts to observe the commands and the application's
    /// state. To be called once, before the container is shown.
    void viewDidLoad();

    ProjectNavigationController* projectNavigationController() const;
    CommonEditorControllers* commonController() const;

    /// The latest requests, running or not; nullptr before the first.
    CreateNewFileController* newFileController() const { return m_newFileController.get(); }
    CreateNewProjectController* newProjectController() const {
        return m_newProjectController.get();
    }

    /// Replaces the panel that asks for a file to import; for tests.
    void setFilePanel(FilePanel filePanel);

    void projectNavigation(const std::shared_ptr<ProjectItem>& itemSelected) override;
    void projectNavigationMenuSelected(const std::any& object);

    /// Selects the row of a node whose file the shown pane has already; nothing is read.
    void selectShown(const std::shared_ptr<ProjectItem>& item);

    /// Shows the selected row's pane again if a message hides it, such as that of an imported file,
    /// which is shown without being selected.
    void showSelectedAgain();

    /// Writes the file of a new node; see writeNewFile.
    bool createNewFile(const std::shared_ptr<ProjectItem>& newItem,
                       const std::shared_ptr<ProjectItem>& currentProject);

    /// Writes the file of a new node and, if that succeeds, adds the node to the tree and the build
    /// settings; see NewFileEntry.
    std::optional<NewFileEntry>
    addItemToBuildSettingsAndNavigationController(const std::shared_ptr<ProjectItem>& newItem,
                                                  const std::shared_ptr<ProjectItem>& project);

    /// Creates a project's files and adds it to the tree and the registry; adopts the nodes of an
    /// existing structure file. If the tree already has the project, only selects it. True when the
    /// project is then in the registry.
    bool addProjectToEditor(const std::shared_ptr<ProjectItem>& newProject);

    void updatedFileType() override;

    /// Calls `action` at once or, while a sheet is open on the window, after it has closed. Actions
    /// keep their order; the container's destructor drops waiting ones.
    void whenNoSheetIsOpen(std::function<void()> action);

    /// Whether there is a deletion to undo.
    bool canUndoDelete() const { return !m_deletions.empty(); }

    // The project commands, also callable by name. Each does nothing without the selection that it
    // needs; those that open a sheet do nothing while one is open.
    Q_INVOKABLE void addNewFile();
    Q_INVOKABLE void importFile();
    Q_INVOKABLE void addNewGroup();
    Q_INVOKABLE void newProject();
    /// Deletes without asking; the files stay on disk.
    Q_INVOKABLE void delete_();
    /// Undoes the latest deletion that has not been undone.
    void undoDelete();

    /// Updates the rows and checks again which files exist. Shows a message when the current
    /// project's file is missing or there is no current project.
    void reloadControllers();

    /// Writes the structure file of the selected project.
    void saveProjectStructure();

Q_SIGNALS:
    void undoDeleteAvailable(bool available);

private:
    void buildView(NotificationCentre& centre);
    void showRegistryNotice();
    std::shared_ptr<ProjectItem> selectedProject() const;
    bool canInsert() const;
    void fileWasMade(const std::shared_ptr<ProjectItem>& newItem,
                     const std::shared_ptr<ProjectItem>& parent,
                     const std::shared_ptr<ProjectItem>& project);
    void fileWasChosen(const std::filesystem::path& file);
    void saveWithContainerAsParent(const std::shared_ptr<ProjectItem>& inserted);

    NotificationCentre& m_centre;
    QPointer<ProjectNavigationController> m_projectNavigationController;
    QPointer<CommonEditorControllers> m_commonController;
    std::unique_ptr<CreateNewFileController> m_newFileController;
    std::unique_ptr<CreateNewProjectController> m_newProjectController;
    FilePanel m_filePanel = openFilePanel;
    ShownPane m_shownPane;
    bool m_isShownAlready = false; ///< of what is being selected: the pane stays as it is
    std::vector<ProjectItemDeletion> m_deletions;
    SheetQueue m_afterSheets{*this};
    NotificationCentre::Connection m_commands; ///< declared last: destroyed first
};

} // namespace kestrel
