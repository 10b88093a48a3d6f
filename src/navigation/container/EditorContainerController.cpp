// SPDX-License-Identifier: MIT
#include "navigation/container/EditorContainerController.h"

#include "build/NESBuildSettings.h"
#include "editors/CommonEditorControllers.h"
#include "model/FileProcessor.h"
#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectFiles.h"
#include "model/ProjectNavigationSettingItem.h"
#include "model/ProjectRegistry.h"
#include "model/StructureFile.h"
#include "navigation/container/NewFileWriter.h"
#include "navigation/container/RegistryNotice.h"
#include "navigation/container/SameProject.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"
#include "newitem/CreateNewFileController.h"
#include "newitem/CreateNewProjectController.h"
#include "widgets/Sheet.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QSplitter>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

constexpr int TreeWidth = 240;
constexpr int PanesWidth = 760;
constexpr int SmallestTreeWidth = 120;
constexpr int SmallestPanesWidth = 280;

} // namespace

EditorContainerController::EditorContainerController(NotificationCentre& centre, QWidget* parent)
    : QWidget(parent)
    , m_centre(centre) {
    setObjectName(QStringLiteral("editorContainer"));
    setAccessibleName(tr("Projects and editor"));
    buildView(centre);
}

EditorContainerController::~EditorContainerController() {
    if (m_commonController && m_commonController->projectSettingsDatasource == this) {
        m_commonController->projectSettingsDatasource = nullptr;
    }
}

void EditorContainerController::buildView(NotificationCentre& centre) {
    auto* split = new QSplitter(Qt::Horizontal, this);
    split->setObjectName(QStringLiteral("splitView"));
    split->setAccessibleName(tr("Projects and editor"));
    split->setChildrenCollapsible(false);
    auto* tree = new ProjectNavigationController(&centre, split);
    tree->setObjectName(QStringLiteral("projectNavigation"));
    tree->setAccessibleName(tr("Project navigation"));
    tree->setMinimumWidth(SmallestTreeWidth);
    auto* panes = new CommonEditorControllers(split);
    panes->setMinimumWidth(SmallestPanesWidth);
    panes->addPanes();
    panes->viewDidLoad();
    // Only the panes grow with the window.
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setSizes({TreeWidth, PanesWidth});
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(split);
    prepare(split);
}

std::map<std::string, std::any>& EditorContainerController::projectDirectory() {
    static std::map<std::string, std::any> directory;
    return directory;
}

void EditorContainerController::prepare(QWidget* destination) {
    const auto* split = qobject_cast<QSplitter*>(destination);
    if (split == nullptr) {
        return;
    }
    for (int i = 0; i < split->count(); ++i) {
        if (auto* tree = qobject_cast<ProjectNavigationController*>(split->widget(i))) {
            m_projectNavigationController = tree;
            tree->setProjectNavigationDelegate(this);
            connect(tree, &ProjectNavigationController::selectedRowChosenAgain, this,
                    &EditorContainerController::showSelectedAgain);
        } else if (auto* panes = qobject_cast<CommonEditorControllers*>(split->widget(i))) {
            m_commonController = panes;
        }
    }
}

void EditorContainerController::viewDidLoad() {
    ProjectItems projects = FileProcessor::loadRecentlyConfiguredProjects();
    for (std::shared_ptr<ProjectItem>& project : projects) {
        if (auto tree = structureTree(*project)) {
            project = std::move(tree);
        }
    }
    shareRepeatedProjects(projects);
    if (m_commonController) {
        m_commonController->projectSettingsDatasource = this;
        if (m_commonController->projectSettings) {
            m_commonController->projectSettings->setProjectNavigation(
                m_projectNavigationController);
        }
    }
    if (m_projectNavigationController) {
        m_projectNavigationController->setAllItems(std::move(projects));
        showRegistryNotice();
    }
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive) {
                    reloadControllers();
                }
            });
    m_commands =
        m_centre.observe(std::string(ProjectNavigationMenuClicked),
                         [this](const std::any& object) { projectNavigationMenuSelected(object); });
}

/// An unreadable list of projects must not look like an empty one.
void EditorContainerController::showRegistryNotice() {
    const QString notice = registryNotice();
    OutlineView* const rows = m_projectNavigationController->outlineView();
    if (!notice.isEmpty() && rows != nullptr) {
        writeLog(notice.section(QLatin1Char('\n'), 0, 0).toStdString());
        rows->setEmptyText(notice);
    }
}

ProjectNavigationController* EditorContainerController::projectNavigationController() const {
    return m_projectNavigationController;
}

CommonEditorControllers* EditorContainerController::commonController() const {
    return m_commonController;
}

void EditorContainerController::setFilePanel(FilePanel filePanel) {
    m_filePanel = std::move(filePanel);
}

std::shared_ptr<ProjectItem> EditorContainerController::selectedProject() const {
    return m_projectNavigationController ? m_projectNavigationController->currentlySelectedProject()
                                         : nullptr;
}

void EditorContainerController::projectNavigation(
    const std::shared_ptr<ProjectItem>& itemSelected) {
    const std::shared_ptr<ProjectItem> project = selectedProject();
    if (!project || !itemSelected || !m_commonController) {
        return;
    }
    if (m_commonController->projectSettings) {
        m_commonController->projectSettings->setCurrentProject(project);
    }
    if (!m_isShownAlready) {
        ShownPane::show(itemSelected, project, *m_commonController);
    }
    if (itemSelected == m_projectNavigationController->selectedItem()) {
        m_shownPane.noteSelection(itemSelected, *m_commonController);
    }
}

void EditorContainerController::selectShown(const std::shared_ptr<ProjectItem>& item) {
    const QScopedValueRollback keepsPane(m_isShownAlready, true);
    m_projectNavigationController->select(item);
}

void EditorContainerController::showSelectedAgain() {
    if (!m_commonController ||
        m_commonController->currentWidget() != m_commonController->emptyController) {
        return;
    }
    const auto item = m_projectNavigationController->selectedItem();
    const bool showsNothing = item && item->itemFileType() == FileType::empty;
    if (!showsNothing && !m_shownPane.comeBack(item, selectedProject(), *m_commonController)) {
        projectNavigation(item);
    }
}

void EditorContainerController::projectNavigationMenuSelected(const std::any& object) {
    const auto* option = std::any_cast<ProjectNavigationMenuClickedOptions>(&object);
    if (option == nullptr) {
        writeLog("projectNavigationMenuSelected called but failed at guard");
        return;
    }
    switch (*option) {
    case ProjectNavigationMenuClickedOptions::newFile:
        addNewFile();
        break;
    case ProjectNavigationMenuClickedOptions::importFile:
        importFile();
        break;
    case ProjectNavigationMenuClickedOptions::newGroup:
        addNewGroup();
        break;
    case ProjectNavigationMenuClickedOptions::newProject:
        newProject();
        break;
    case ProjectNavigationMenuClickedOptions::delete_:
        delete_();
        reloadControllers();
        break;
    }
}

void EditorContainerController::reloadControllers() {
    if (m_projectNavigationController) {
        m_projectNavigationController->reloadFileStatusForNavigationContent();
    }
    if (!m_commonController) {
        return;
    }
    const ProjectSettingsController* settings = m_commonController->projectSettings;
    const std::shared_ptr<ProjectItem> project =
        settings != nullptr ? settings->currentProject() : nullptr;
    if (project) {
        m_commonController->checkFileExistsAndDisplayErrorWhenFalse(project, nullptr);
    } else {
        m_commonController->displayError(QString::fromLatin1(PleaseSelectProject));
    }
}

/// Whether a new node can be inserted at the selected row: not at a root that is neither a project
/// nor a group.
bool EditorContainerController::canInsert() const {
    const std::shared_ptr<ProjectItem> selected =
        m_projectNavigationController ? m_projectNavigationController->selectedItem() : nullptr;
    return selected && (selected->itemFileType() == FileType::project ||
                        selected->itemFileType() == FileType::group ||
                        m_projectNavigationController->containerOf(selected));
}

void EditorContainerController::addNewFile() {
    const std::shared_ptr<ProjectItem> project = selectedProject();
    if (!project || !canInsert() || Sheet::isOpenOn(window())) {
        return;
    }
    const std::shared_ptr<ProjectItem> selected = m_projectNavigationController->selectedItem();
    std::shared_ptr<ProjectItem> parent = selected->parent();
    if (!parent) {
        parent = selected;
    }
    const std::string folder = pathText(project->itemPath());
    if (folder.empty()) {
        return;
    }
    m_newFileController = std::make_unique<CreateNewFileController>(folder);
    m_newFileController->prompt(
        window(), [this, parent, project](const std::shared_ptr<ProjectItem>& newItem,
                                          const std::optional<ErrorValue>& /*error*/) {
            if (newItem) {
                fileWasMade(newItem, parent, project);
            }
        });
}

void EditorContainerController::fileWasMade(const std::shared_ptr<ProjectItem>& newItem,
                                            const std::shared_ptr<ProjectItem>& parent,
                                            const std::shared_ptr<ProjectItem>& project) {
    newItem->setParent(parent);
    auto entry = addItemToBuildSettingsAndNavigationController(newItem, project);
    std::string reason;
    if (!saveStructure(*project, &reason) && entry) {
        entry->takeBack("the project's structure", reason);
    }
    if (m_commonController && m_commonController->projectSettings) {
        m_commonController->projectSettings->updateBuildSettings();
    }
}

bool EditorContainerController::createNewFile(const std::shared_ptr<ProjectItem>& newItem,
                                              const std::shared_ptr<ProjectItem>& currentProject) {
    return newItem && currentProject && writeNewFile(newItem, *currentProject).has_value();
}

std::optional<NewFileEntry>
EditorContainerController::addItemToBuildSettingsAndNavigationController(
    const std::shared_ptr<ProjectItem>& newItem, const std::shared_ptr<ProjectItem>& project) {
    return canInsert() && newItem && project
               ? NewFileEntry::make(*m_projectNavigationController, newItem, project)
               : std::nullopt;
}

void EditorContainerController::importFile() {
    const std::shared_ptr<ProjectItem> project = selectedProject();
    if (!project || !canInsert() || Sheet::isOpenOn(window())) {
        return;
    }
    const QPointer<EditorContainerController> self = this;
    m_filePanel(window(), tr("Select path"), project->itemPath(),
                [self](const std::optional<std::filesystem::path>& file) {
                    if (self && file) {
                        self->fileWasChosen(*file);
                    } else {
                        writeLog("Could not import file");
                    }
                });
}

void EditorContainerController::fileWasChosen(const std::filesystem::path& file) {
    if (canInsert()) {
        saveWithContainerAsParent(m_projectNavigationController->add(file));
    }
}

void EditorContainerController::addNewGroup() {
    const std::shared_ptr<ProjectItem> project = selectedProject();
    if (!project) {
        return;
    }
    const auto group = std::make_shared<ProjectNavigationSettingItem>(
        "Group", project->itemPath(), FileType::group, ProjectType::nes);
    if (const auto selected = m_projectNavigationController->selectedItem()) {
        group->setParent(selected->parent());
    }
    if (m_projectNavigationController->add(group)) {
        saveWithContainerAsParent(group);
    }
}

/// Saves the structure after setting a missing parent: a node without one would count as a project.
void EditorContainerController::saveWithContainerAsParent(
    const std::shared_ptr<ProjectItem>& inserted) {
    const std::shared_ptr<ProjectItem> container =
        m_projectNavigationController->containerOf(inserted);
    if (!container) {
        return;
    }
    if (!inserted->parent()) {
        inserted->setParent(container);
    }
    saveProjectStructure();
}

void EditorContainerController::newProject() {
    if (Sheet::isOpenOn(window())) {
        return;
    }
    m_newProjectController =
        std::make_unique<CreateNewProjectController>(pathText(homeFolder()) + "/Kestrel/");
    m_newProjectController->prompt(window(), [this](const std::shared_ptr<ProjectItem>& project,
                                                    const std::optional<ErrorValue>& /*error*/) {
        if (project) {
            addProjectToEditor(project);
        }
    });
}

bool EditorContainerController::addProjectToEditor(const std::shared_ptr<ProjectItem>& newProject) {
    if (!newProject || !m_projectNavigationController) {
        return false;
    }
    if (const auto present =
            findSameProject(m_projectNavigationController->allItems(), *newProject)) {
        // A missing project file is created again, below "Kestrel" as always.
        if (!existsAt(projectFileLocation(present->itemPath(), present->itemName()))) {
            if (!FileProcessor::createFilesForNewProject(present)) {
                return false;
            }
            m_projectNavigationController->reloadFileStatusForNavigationContent();
        }
        const bool wasSelected = m_projectNavigationController->selectedItem() == present;
        m_projectNavigationController->select(present);
        if (wasSelected) {
            showSelectedAgain(); // hides the message that its file is missing
        }
        return true;
    }
    if (!FileProcessor::createFilesForNewProject(newProject)) {
        return false;
    }
    uniteWithStructureFile(newProject);
    NESBuildSettings settings(newProject);
    m_projectNavigationController->add(newProject);
    settings.addNewFile(newProject);
    return isRegistered(*newProject) || FileProcessor::saveToRecentlyConfiguredProjects(newProject);
}

void EditorContainerController::delete_() {
    if (!m_projectNavigationController) {
        return;
    }
    const auto deletion = ProjectItemDeletion::carryOut(*m_projectNavigationController);
    if (!deletion) {
        return;
    }
    m_deletions.push_back(*deletion);
    m_projectNavigationController->reportSelection();
    Q_EMIT undoDeleteAvailable(true);
}

void EditorContainerController::undoDelete() {
    if (!m_projectNavigationController || m_deletions.empty()) {
        return;
    }
    const ProjectItemDeletion deletion = std::move(m_deletions.back());
    m_deletions.pop_back();
    if (const auto node = deletion.undo(*m_projectNavigationController)) {
        m_projectNavigationController->select(node);
    }
    reloadControllers();
    Q_EMIT undoDeleteAvailable(canUndoDelete());
}

void EditorContainerController::saveProjectStructure() {
    if (const std::shared_ptr<ProjectItem> project = selectedProject()) {
        saveStructureOrLog(*project);
    }
}

void EditorContainerController::updatedFileType() {
    saveProjectStructure();
}

void EditorContainerController::whenNoSheetIsOpen(std::function<void()> action) {
    m_afterSheets.carryOut(std::move(action));
}

} // namespace kestrel
