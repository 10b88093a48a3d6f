// SPDX-License-Identifier: MIT
#pragma once

#include "build/NESBuildSettings.h"
#include "editors/settings/ProjectSettingsDataSource.h"
#include "editors/settings/RemovalHistory.h"
#include "widgets/EditTarget.h"
#include "widgets/FilePanel.h"

#include <QAbstractItemView>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QBoxLayout;

namespace kestrel {

class AddNewItemFromProjectController;
class BuildFileList;
class ElidedLabel;
class EmulatorField;
class OutputField;
class ProjectNavigationController;
class ProjectSettingCell;
class SettingField;

/// The pane for a project's build settings: the three lists of files that are built, where the
/// image goes and which emulator runs it. What is changed here is saved at once; removals from the
/// lists can be undone. User-interface thread only.
class ProjectSettingsController : public QWidget, public EditTarget {
    Q_OBJECT

public:
    /// Lets the user pick one of a project's files; the signature of
    /// AddNewItemFromProjectController::openSheet().
    using FilePicker = std::function<AddNewItemFromProjectController*(
        std::shared_ptr<ProjectItem> project, QWidget* window,
        std::function<void(const ProjectItems&)> completionHandler)>;

    explicit ProjectSettingsController(QWidget* parent = nullptr);
    ~ProjectSettingsController() override;

    std::optional<std::filesystem::path> pathForConfigurationFile; ///< nothing sets or reads it

    /// The project whose settings are shown; shared with the navigation tree. Setting it shows
    /// nothing yet.
    std::shared_ptr<ProjectItem> currentProject() const { return m_currentProject; }
    void setCurrentProject(const std::shared_ptr<ProjectItem>& project);

    /// Who is told of changed file kinds; not owned, must outlive the pane or be taken back.
    ProjectSettingsDataSource* datasource() const { return m_datasource; }
    void setDatasource(ProjectSettingsDataSource* datasource) { m_datasource = datasource; }

    /// The tree whose rows are refreshed when a file's kind was changed; may be none.
    void setProjectNavigation(ProjectNavigationController* tree);

    /// Loads the current project's settings and shows them. False, with the fields and lists as
    /// they were, without a project and for settings without an output folder; those settings are
    /// kept all the same.
    virtual bool updateBuildSettings();

    /// Asks for the emulator, then shows and saves it.
    void setPathForEmulator(const QObject* sender = nullptr);

    /// Asks for one of the project's files and adds it to the list whose plus button `sender` is.
    void addEntry(const QObject* sender);

    /// Removes the selected file from the list whose minus button `sender` is.
    void subtractEntry(const QObject* sender);

    bool canPerform(EditCommand command) const override;
    void perform(EditCommand command) override;

    /// Notes the selected row of one of the three tables.
    void entrySelectedForTableView(const QAbstractItemView* tableView);

    /// The number of rows of one of the three tables; 0 for any other.
    int numberOfRows(const QAbstractItemView* tableView) const;

    /// The table's cell, set up for the row; null for any other table and row.
    const ProjectSettingCell* viewFor(const QAbstractItemView* tableView, int row) const;

    /// The settings shown; null before the first.
    std::shared_ptr<NESBuildSettings> buildSettings() const { return m_buildSettings; }

    /// The rows of the three tables.
    const ProjectItems& assemblyFiles() const;
    const ProjectItems& graphicFiles() const;
    const ProjectItems& paletteFiles() const;

    /// The selected rows of the three tables, each -1 while nothing is selected in it.
    int currentlySelectedForForAssembly() const { return m_selectedRows[assembly]; }
    int currentlySelectedForForGraphics() const { return m_selectedRows[graphics]; }
    int currentlySelectedForForPalettes() const { return m_selectedRows[palettes]; }

    /// The picker, while it is open.
    AddNewItemFromProjectController* addNewItemFromProjectController() const;

    /// The parts of the pane, which it owns.
    BuildFileList* assemblyList() const { return m_lists[assembly]; }
    BuildFileList* graphicsList() const { return m_lists[graphics]; }
    BuildFileList* paletteList() const { return m_lists[palettes]; }
    OutputField* outputField() const { return m_outputField; }
    EmulatorField* emulatorField() const { return m_emulatorField; }

    /// Replace how a file and an emulator are asked for; for tests.
    void setFilePicker(FilePicker picker);
    void setEmulatorPanel(FilePanel panel);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    enum Place : std::size_t { assembly, graphics, palettes, placeCount };

    void buildView();
    void connectLists();
    void connectEmulatorField();
    Place placeOfTable(const QAbstractItemView* tableView) const;
    bool settingsAreCurrent();
    void fileWasPicked(Place place, const std::shared_ptr<ProjectItem>& file);
    void emulatorWasChosen(NESBuildSettings& settings, const std::filesystem::path& emulator);
    void showLists();
    void refreshFileStatus();

    std::shared_ptr<ProjectItem> m_currentProject;
    ProjectSettingsDataSource* m_datasource = nullptr;
    std::shared_ptr<NESBuildSettings> m_buildSettings;
    std::array<BuildFileList*, placeCount> m_lists{};
    std::array<int, placeCount> m_selectedRows{-1, -1, -1};
    ElidedLabel* m_projectLabel;
    QBoxLayout* m_listsLayout = nullptr;
    OutputField* m_outputField;
    EmulatorField* m_emulatorField;
    std::vector<SettingField*> m_fields; ///< all settings but the lists, in their order
    RemovalHistories m_removals;
    FilePicker m_filePicker;
    FilePanel m_emulatorPanel;
    QPointer<AddNewItemFromProjectController> m_addNewItemFromProjectController;
    QPointer<ProjectNavigationController> m_projectNavigation;
};

} // namespace kestrel
