// SPDX-License-Identifier: MIT
#include "editors/settings/ProjectSettingsController.h"

#include "build/NESProjectBuilder.h"
#include "editors/settings/BuildFileList.h"
#include "editors/settings/BuildFileListModel.h"
#include "editors/settings/BuildFileTable.h"
#include "editors/settings/BuildMembership.h"
#include "editors/settings/EmulatorField.h"
#include "editors/settings/EmulatorMenu.h"
#include "editors/settings/EmulatorPanel.h"
#include "editors/settings/OutputField.h"
#include "editors/settings/ProjectSettingCell.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "newitem/AddNewItemFromProjectController.h"
#include "widgets/ElidedLabel.h"
#include "widgets/LightPalette.h"
#include "widgets/Sheet.h"

#include <QBoxLayout>
#include <QEvent>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

constexpr int RoomForColumns = 540; // in a narrower pane the lists are below one another

} // namespace

ProjectSettingsController::ProjectSettingsController(QWidget* parent)
    : QWidget(parent)
    , m_projectLabel(new ElidedLabel(this))
    , m_outputField(new OutputField(this))
    , m_emulatorField(new EmulatorField(this))
    , m_fields{m_outputField, m_emulatorField}
    , m_filePicker(AddNewItemFromProjectController::openSheet)
    , m_emulatorPanel(openEmulatorPanel) {
    setObjectName(QStringLiteral("projectSettings"));
    setAccessibleName(tr("Project settings"));
    makeWhite(*this);
    const BuildFileList::Names lists[placeCount] = {
        {FileType::text, tr("&Assembly files"), tr("assembly file"), tr("No assembly files yet"),
         "codeTableView", "subtractCodeEntryButton", "addCodeEntryButton"},
        {FileType::graphics, tr("&Graphics files"), tr("graphics file"),
         tr("No graphics files yet"), "graphicsTableView", "subtractGraphicsEntryButton",
         "addGraphicsEntryButton"},
        {FileType::palette, tr("&Palette files"), tr("palette file"), tr("No palette files yet"),
         "paletteTableView", "subtractPaletteEntryButton", "addPaletteEntryButton"},
    };
    for (std::size_t place = 0; place < placeCount; ++place) {
        m_lists[place] = new BuildFileList(lists[place], this);
    }
    buildView();
    connectLists();
    connectEmulatorField();
    setCurrentProject(nullptr);
}

ProjectSettingsController::~ProjectSettingsController() = default;

void ProjectSettingsController::buildView() {
    m_projectLabel->setObjectName(QStringLiteral("projectLabel"));
    QFont font = m_projectLabel->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    m_projectLabel->setFont(font);

    auto* scrollArea = new QScrollArea(this);
    scrollArea->setObjectName(QStringLiteral("settingsScrollArea"));
    scrollArea->setAccessibleName(tr("Project settings"));
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setWidgetResizable(true);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget(scrollArea);
    content->setObjectName(QStringLiteral("settingsContent"));
    m_listsLayout = new QBoxLayout(QBoxLayout::LeftToRight);
    for (BuildFileList* list : m_lists) {
        m_listsLayout->addWidget(list, 1);
    }
    auto* column = new QVBoxLayout(content);
    column->addWidget(m_projectLabel);
    column->addLayout(m_listsLayout, 1);
    for (SettingField* field : m_fields) {
        column->addWidget(field);
    }
    scrollArea->setWidget(content);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scrollArea);
    QWidget* former = m_lists.back()->addButton();
    for (const SettingField* field : m_fields) {
        for (QWidget* stop : field->tabStops()) {
            setTabOrder(former, stop);
            former = stop;
        }
    }
}

void ProjectSettingsController::connectLists() {
    for (BuildFileList* list : m_lists) {
        connect(list->addButton(), &QPushButton::clicked, this,
                [this, list] { addEntry(list->addButton()); });
        connect(list->subtractButton(), &QPushButton::clicked, this,
                [this, list] { subtractEntry(list->subtractButton()); });
        connect(list->table(), &BuildFileTable::selectedRowChanged, this,
                [this, list] { entrySelectedForTableView(list->table()); });
    }
}

void ProjectSettingsController::connectEmulatorField() {
    connect(m_emulatorField->chooseButton(), &QPushButton::clicked, this,
            [this] { setPathForEmulator(m_emulatorField->chooseButton()); });
    const EmulatorMenu* menu = m_emulatorField->menu();
    connect(menu, &EmulatorMenu::otherProgramWanted, this,
            [this] { setPathForEmulator(m_emulatorField->installedButton()); });
    connect(menu, &EmulatorMenu::emulatorChosen, this, [this](const auto& emulator) {
        if (settingsAreCurrent()) {
            emulatorWasChosen(*m_buildSettings, emulator);
        }
    });
}

void ProjectSettingsController::setCurrentProject(const std::shared_ptr<ProjectItem>& project) {
    m_currentProject = project;
    for (SettingField* field : m_fields) {
        field->setProjectPresent(project != nullptr);
    }
}

void ProjectSettingsController::setProjectNavigation(ProjectNavigationController* tree) {
    m_projectNavigation = tree;
}

void ProjectSettingsController::setFilePicker(FilePicker picker) {
    m_filePicker = std::move(picker);
}

void ProjectSettingsController::setEmulatorPanel(FilePanel panel) {
    m_emulatorPanel = std::move(panel);
}

AddNewItemFromProjectController*
ProjectSettingsController::addNewItemFromProjectController() const {
    return m_addNewItemFromProjectController;
}

const ProjectItems& ProjectSettingsController::assemblyFiles() const {
    return m_lists[assembly]->files();
}

const ProjectItems& ProjectSettingsController::graphicFiles() const {
    return m_lists[graphics]->files();
}

const ProjectItems& ProjectSettingsController::paletteFiles() const {
    return m_lists[palettes]->files();
}

bool ProjectSettingsController::updateBuildSettings() {
    if (!m_currentProject) {
        return false;
    }
    m_buildSettings = std::make_shared<NESBuildSettings>(m_currentProject);
    // What is shown is what a build would work with.
    const NESProjectBuilder builder(m_buildSettings);
    if (!builder.outputPath()) {
        return false;
    }
    m_projectLabel->setText(QString::fromStdString(m_currentProject->itemName()));
    for (SettingField* field : m_fields) {
        field->showSetting(builder);
    }
    for (BuildFileList* list : m_lists) {
        list->setFiles(*m_buildSettings->listFor(list->kind()), m_currentProject);
    }
    return true;
}

/// Loads the current project's settings unless they are loaded; whether there are any.
bool ProjectSettingsController::settingsAreCurrent() {
    return m_currentProject &&
           ((m_buildSettings && m_buildSettings->projectToBuild() == m_currentProject) ||
            updateBuildSettings());
}

ProjectSettingsController::Place
ProjectSettingsController::placeOfTable(const QAbstractItemView* tableView) const {
    std::size_t place = 0;
    while (place < placeCount && m_lists[place]->table() != tableView) {
        ++place;
    }
    return static_cast<Place>(place);
}

int ProjectSettingsController::numberOfRows(const QAbstractItemView* tableView) const {
    const Place place = placeOfTable(tableView);
    return place == placeCount ? 0 : static_cast<int>(m_lists[place]->files().size());
}

const ProjectSettingCell* ProjectSettingsController::viewFor(const QAbstractItemView* tableView,
                                                             int row) const {
    if (row < 0 || row >= numberOfRows(tableView)) {
        return nullptr;
    }
    const BuildFileList& list = *m_lists[placeOfTable(tableView)];
    list.cell()->show(list.model()->index(row));
    return list.cell();
}

void ProjectSettingsController::entrySelectedForTableView(const QAbstractItemView* tableView) {
    const Place place = placeOfTable(tableView);
    if (place != placeCount) {
        m_selectedRows[place] = m_lists[place]->table()->selectedRow();
    }
}

void ProjectSettingsController::addEntry(const QObject* sender) {
    const auto pressed =
        std::find_if(m_lists.begin(), m_lists.end(),
                     [&](const BuildFileList* list) { return list->addButton() == sender; });
    if (!m_currentProject || pressed == m_lists.end() || Sheet::isOpenOn(window())) {
        return;
    }
    const auto place = static_cast<Place>(pressed - m_lists.begin());
    const QPointer<ProjectSettingsController> self = this;
    m_addNewItemFromProjectController =
        m_filePicker(m_currentProject, window(),
                     [self, place, project = m_currentProject](const ProjectItems& files) {
                         if (!self) {
                             return;
                         }
                         self->m_addNewItemFromProjectController = nullptr;
                         if (!files.empty() && self->m_currentProject == project) {
                             self->fileWasPicked(place, files.front());
                         }
                     });
}

void ProjectSettingsController::fileWasPicked(Place place,
                                              const std::shared_ptr<ProjectItem>& file) {
    if (!settingsAreCurrent()) {
        return;
    }
    const BuildFileList& list = *m_lists[place];
    m_removals[m_currentProject].forget(*file);
    moveToListOf(list.kind(), file, *m_buildSettings);
    file->setItemFileType(list.kind());
    showLists();
    list.table()->selectRow(rowOf(*file, list.files()));
    m_buildSettings->saveBuildSettings();
    if (m_datasource != nullptr) {
        m_datasource->updatedFileType();
    }
    if (m_projectNavigation) {
        m_projectNavigation->reloadFileStatusForNavigationContent();
    }
}

/// Shows the lists as the settings have them; a list that is shown so already keeps its selection.
void ProjectSettingsController::showLists() {
    for (BuildFileList* list : m_lists) {
        const ProjectItems& files = *m_buildSettings->listFor(list->kind());
        if (list->files() != files) {
            list->setFiles(files, m_currentProject);
        }
    }
}

void ProjectSettingsController::subtractEntry(const QObject* sender) {
    const auto pressed =
        std::find_if(m_lists.begin(), m_lists.end(),
                     [&](const BuildFileList* list) { return list->subtractButton() == sender; });
    if (pressed == m_lists.end() || !m_buildSettings) {
        return;
    }
    const auto place = static_cast<Place>(pressed - m_lists.begin());
    const ProjectItems files = m_lists[place]->files();
    const int row = m_selectedRows[place];
    if (row < 0 || row >= static_cast<int>(files.size())) {
        return;
    }
    const std::shared_ptr<ProjectItem>& file = files[static_cast<std::size_t>(row)];
    // Of several files of one name the settings remove the first.
    const auto removed = std::find_if(files.begin(), files.end(), [&](const auto& entry) {
        return entry->itemName() == file->itemName();
    });
    const std::shared_ptr<ProjectItem> project = m_buildSettings->projectToBuild();
    // The button is disabled while the list is made anew, and would lose the focus.
    QPushButton* const button = m_lists[place]->subtractButton();
    const bool byButton = button->hasFocus();
    if (auto taken = takeOffList(file, *m_buildSettings)) {
        m_removals[project].removed(std::move(*taken));
    }
    if (updateBuildSettings() && m_currentProject == project) {
        const auto next = static_cast<int>(removed - files.begin());
        const int rows = static_cast<int>(m_lists[place]->files().size());
        m_lists[place]->table()->selectRow(std::min(next, rows - 1));
        if (byButton && button->isEnabled()) {
            button->setFocus();
        }
    }
}

bool ProjectSettingsController::canPerform(EditCommand command) const {
    const auto removals = m_removals.find(m_currentProject);
    return removals != m_removals.end() &&
           ((command == EditCommand::undo && removals->second.canUndo()) ||
            (command == EditCommand::redo && removals->second.canRedo()));
}

void ProjectSettingsController::perform(EditCommand command) {
    // The lists may have been changed on disk since they were shown.
    if (!canPerform(command) || !updateBuildSettings()) {
        return;
    }
    RemovalHistory& removals = m_removals[m_currentProject];
    const auto changed = command == EditCommand::undo ? removals.undo(*m_buildSettings)
                                                      : removals.redo(*m_buildSettings);
    const auto list = std::find_if(m_lists.begin(), m_lists.end(), [&](const BuildFileList* each) {
        return changed && each->kind() == changed->kind;
    });
    if (updateBuildSettings() && list != m_lists.end()) {
        const auto last = static_cast<int>((*list)->files().size()) - 1;
        (*list)->table()->selectRow(std::min(static_cast<int>(changed->place), last));
    }
}

void ProjectSettingsController::setPathForEmulator(const QObject* /*sender*/) {
    if (!settingsAreCurrent() || Sheet::isOpenOn(window())) {
        return;
    }
    const QPointer<ProjectSettingsController> self = this;
    m_emulatorPanel(
        window(), tr("Emulator Path"), emulatorStartFolder(m_buildSettings->pathToEmulator()),
        [self, settings = m_buildSettings](const std::optional<std::filesystem::path>& emulator) {
            if (self && emulator) {
                self->emulatorWasChosen(*settings, *emulator);
            }
        });
}

void ProjectSettingsController::emulatorWasChosen(NESBuildSettings& settings,
                                                  const std::filesystem::path& emulator) {
    settings.pathToEmulator() = emulator;
    settings.saveBuildSettings();
    m_emulatorField->setEmulator(emulator);
}

/// Looks again at the disk: files, output folder and emulator may have come or gone.
void ProjectSettingsController::refreshFileStatus() {
    for (BuildFileList* list : m_lists) {
        list->model()->forgetPresence();
    }
    for (SettingField* field : m_fields) {
        field->refresh();
    }
}

bool ProjectSettingsController::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && isVisible()) {
        refreshFileStatus();
    }
    return QWidget::event(event);
}

void ProjectSettingsController::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_listsLayout->setDirection(width() < RoomForColumns ? QBoxLayout::TopToBottom
                                                         : QBoxLayout::LeftToRight);
}

} // namespace kestrel
