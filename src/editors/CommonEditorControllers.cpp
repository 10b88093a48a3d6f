// SPDX-License-Identifier: MIT
#include "editors/CommonEditorControllers.h"

namespace kestrel {

CommonEditorControllers::CommonEditorControllers(QWidget* parent)
    : QStackedWidget(parent) {
    setObjectName(QStringLiteral("commonEditorControllers"));
    setAccessibleName(tr("Editor"));
}

void CommonEditorControllers::viewDidLoad() {
    QList<QWidget*> panes;
    for (int index = 0; index < count(); ++index) {
        panes.append(widget(index));
    }
    initiateViewControllers(panes);
    displayError(QString::fromLatin1(PleaseSelectProject));
    if (projectSettings) {
        projectSettings->setDatasource(this);
    }
}

void CommonEditorControllers::updatedFileType() {
    if (projectSettingsDatasource != nullptr) {
        projectSettingsDatasource->updatedFileType();
    }
}

TextEditorController* CommonEditorControllers::textEditorPane() const {
    return textEditor;
}

PaletteEditorController* CommonEditorControllers::paletteEditorPane() const {
    return paletteEditor;
}

GraphicsEditorController* CommonEditorControllers::graphicsEditorPane() const {
    return graphicsEditor;
}

ProjectSettingsController* CommonEditorControllers::projectSettingsPane() const {
    return projectSettings;
}

EmptyController* CommonEditorControllers::emptyPane() const {
    return emptyController;
}

bool CommonEditorControllers::adoptPane(QWidget* pane, int tabIndex) {
    tabItemsIndex.insert(pane, tabIndex);
    if (auto* text = qobject_cast<TextEditorController*>(pane)) {
        textEditor = text;
    } else if (auto* palettes = qobject_cast<PaletteEditorController*>(pane)) {
        paletteEditor = palettes;
    } else if (auto* graphics = qobject_cast<GraphicsEditorController*>(pane)) {
        graphicsEditor = graphics;
    } else if (auto* settings = qobject_cast<ProjectSettingsController*>(pane)) {
        projectSettings = settings;
    } else if (auto* empty = qobject_cast<EmptyController*>(pane)) {
        emptyController = empty;
    } else {
        return false;
    }
    return true;
}

std::optional<int> CommonEditorControllers::tabIndexOf(const QWidget* pane) const {
    const auto found = tabItemsIndex.constFind(pane);
    if (pane == nullptr || found == tabItemsIndex.cend()) {
        return std::nullopt;
    }
    return *found;
}

void CommonEditorControllers::selectTab(int tabIndex) {
    setCurrentIndex(tabIndex);
}

} // namespace kestrel
