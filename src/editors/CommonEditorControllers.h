// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/TextEditorController.h"
#include "editors/DisplayController.h"
#include "editors/EmptyController.h"
#include "editors/settings/ProjectSettingsController.h"
#include "editors/settings/ProjectSettingsDataSource.h"
#include "graphics/GraphicsEditorController.h"
#include "graphics/PaletteEditorController.h"

#include <QHash>
#include <QPointer>
#include <QStackedWidget>

namespace kestrel {

/// The right-hand side of the main window: holds the five panes and shows one at a time. Its
/// children are its panes; the references to them are shortcuts.
class CommonEditorControllers : public QStackedWidget,
                                public DisplayController,
                                public ProjectSettingsDataSource {
    Q_OBJECT

public:
    explicit CommonEditorControllers(QWidget* parent = nullptr);

    /// Takes the present children as panes and shows that nothing is selected yet. To be called
    /// once, after the children were added.
    void viewDidLoad();

    QPointer<TextEditorController> textEditor;
    QPointer<PaletteEditorController> paletteEditor;
    QPointer<GraphicsEditorController> graphicsEditor;
    QPointer<ProjectSettingsController> projectSettings;
    QPointer<EmptyController> emptyController;

    /// Whom updatedFileType() is passed on to; not owned. Whoever sets itself takes itself back
    /// when it goes.
    ProjectSettingsDataSource* projectSettingsDatasource = nullptr;

    /// The tab of each pane, by object identity.
    QHash<const QObject*, int> tabItemsIndex;

    std::shared_ptr<ProjectItem> currentlySelectedProject;
    int currentlySelectedTabIndex = 0;

    void updatedFileType() override;

protected:
    TextEditorController* textEditorPane() const override;
    PaletteEditorController* paletteEditorPane() const override;
    GraphicsEditorController* graphicsEditorPane() const override;
    ProjectSettingsController* projectSettingsPane() const override;
    EmptyController* emptyPane() const override;
    bool adoptPane(QWidget* pane, int tabIndex) override;
    std::optional<int> tabIndexOf(const QWidget* pane) const override;
    void selectTab(int tabIndex) override;
};

} // namespace kestrel
