// SPDX-License-Identifier: MIT
#pragma once

#include "editors/DisplayController.h"
#include "editors/PaneReferences.h"
#include "editors/settings/ProjectSettingsDataSource.h"

#include <QHash>
#include <QStackedWidget>

#include <memory>
#include <vector>

namespace kestrel {

class DraftKeeper;
class EditorPane;
class StatusBoard;

/// The right-hand side of the main window: holds the five panes and shows one at a time. Its
/// children are its panes; the references to them are shortcuts.
class CommonEditorControllers : public QStackedWidget,
                                public PaneReferences,
                                public DisplayController,
                                public ProjectSettingsDataSource {
    Q_OBJECT

public:
    explicit CommonEditorControllers(QWidget* parent = nullptr);

    /// Makes the panes as children, in the order of their tabs.
    void addPanes();

    /// Takes the present children as panes and shows that nothing is selected yet. To be called
    /// once, after the children were added.
    void viewDidLoad();

    /// Has the unsaved work of all panes kept. To be called before a file is shown.
    void setDraftKeeper(const std::shared_ptr<DraftKeeper>& keeper);

    /// All panes with commands or files, shown or not, in the order of their tabs.
    std::vector<EditorPane*> editorPanes() const;

    /// The pane that is shown, as the menus see it; null for one without commands and files.
    EditorPane* shownEditorPane() const;

    /// What the panes tell the status bar; every pane gets it in viewDidLoad().
    StatusBoard* statusBoard() const { return m_statusBoard; }

    /// Whom updatedFileType() is passed on to; not owned. Whoever sets itself takes itself back
    /// when it goes.
    ProjectSettingsDataSource* projectSettingsDatasource = nullptr;

    /// The tab of each pane, by object identity.
    QHash<const QObject*, int> tabItemsIndex;

    std::shared_ptr<ProjectItem> currentlySelectedProject;
    int currentlySelectedTabIndex = 0;

    void updatedFileType() override;

protected:
    PaneReferences& panes() override { return *this; }
    void recordTab(const QWidget* pane, int tabIndex) override;
    std::optional<int> tabIndexOf(const QWidget* pane) const override;
    void selectTab(int tabIndex) override;

private:
    StatusBoard* m_statusBoard;
};

} // namespace kestrel
