// SPDX-License-Identifier: MIT
#include "editors/DisplayController.h"

#include "editors/code/TextEditorController.h"
#include "editors/EmptyController.h"
#include "editors/settings/ProjectSettingsController.h"
#include "graphics/GraphicsEditorController.h"
#include "graphics/PaletteEditorController.h"
#include "model/FileProcessor.h"
#include "model/Log.h"
#include "model/Paths.h"

#include <QMetaObject>
#include <QPointer>

#include <string>

namespace kestrel {

namespace {

/// The node's place below the project's folder, its sub-path included.
std::filesystem::path belowProject(const ProjectItem& file, const ProjectItem& project) {
    return joined(joined(project.itemPath(), pathText(file.itemPath())), file.itemName());
}

std::string description(const QWidget& widget) {
    std::string text = widget.metaObject()->className();
    if (!widget.objectName().isEmpty()) {
        text += " " + widget.objectName().toStdString();
    }
    return text;
}

} // namespace

void DisplayController::initiateViewControllers(const QList<QWidget*>& viewControllers) {
    int index = 0;
    for (QWidget* child : viewControllers) {
        if (child != nullptr && !adoptPane(child, index)) {
            writeLog("Failed for " + description(*child));
        }
        ++index;
    }
}

void DisplayController::displayError(const QString& message) {
    EmptyController* pane = emptyPane();
    const std::optional<int> tab = tabIndexOf(pane);
    if (!tab) {
        return;
    }
    selectTab(*tab);
    pane->setMessage(message);
}

bool DisplayController::checkFileExistsAndDisplayErrorWhenFalse(
    const std::shared_ptr<ProjectItem>& file, const std::shared_ptr<ProjectItem>& parentProject) {
    if (!file) {
        return false;
    }
    const bool isProject = file->itemFileType() == FileType::project;
    std::filesystem::path base = file->itemPath();
    if ((file->itemPathType() != FilePathType::absolute || isProject) && parentProject) {
        base = parentProject->itemPath();
    }
    std::string name = file->itemName();
    if (isProject) {
        name += ProjectFileExtension;
    }
    if (!existsAt(joined(base, name))) {
        displayError(QStringLiteral("File does not exist at path"));
        return false;
    }
    return true;
}

void DisplayController::displayProjectSettings(const std::shared_ptr<ProjectItem>& project) {
    ProjectSettingsController* pane = projectSettingsPane();
    const std::optional<int> tab = tabIndexOf(pane);
    if (!tab) {
        return;
    }
    if (!checkFileExistsAndDisplayErrorWhenFalse(project, nullptr)) {
        writeLog("File could not be found for project settings");
        return;
    }
    selectTab(*tab);
    pane->setCurrentProject(project);
    if (!pane->updateBuildSettings()) {
        displayError(
            QStringLiteral("Build Project settings is misconfigured and could not display"));
    }
}

void DisplayController::displayEditorController(const std::shared_ptr<ProjectItem>& file,
                                                const std::shared_ptr<ProjectItem>& project) {
    TextEditorController* pane = textEditorPane();
    const std::optional<int> tab = tabIndexOf(pane);
    if (!tab) {
        return;
    }
    if (!checkFileExistsAndDisplayErrorWhenFalse(file, project)) {
        writeLog("File could not be found for code editor");
        return;
    }
    selectTab(*tab);
    const bool relative = file->itemPathType() == FilePathType::relative && project != nullptr;
    pane->loadFile(relative ? belowProject(*file, *project)
                            : joined(file->itemPath(), file->itemName()));
}

void DisplayController::displayPaletteEditor(const std::shared_ptr<ProjectItem>& file,
                                             const std::shared_ptr<ProjectItem>& project) {
    PaletteEditorController* pane = paletteEditorPane();
    const std::optional<int> tab = tabIndexOf(pane);
    if (!tab) {
        return;
    }
    if (!checkFileExistsAndDisplayErrorWhenFalse(file, project)) {
        // The code editor's text, as the log of this pane always had it.
        writeLog("File could not be found for code editor");
        return;
    }
    const bool absolute = file->itemPathType() == FilePathType::absolute || project == nullptr;
    pane->setFilePathForPalette(absolute ? joined(file->itemPath(), file->itemName())
                                         : belowProject(*file, *project));
    selectTab(*tab);
    pane->update();
}

void DisplayController::displayGraphicsEditor(const std::shared_ptr<ProjectItem>& file,
                                              const std::shared_ptr<ProjectItem>& project) {
    GraphicsEditorController* pane = graphicsEditorPane();
    const std::optional<int> tab = tabIndexOf(pane);
    if (!tab) {
        return;
    }
    if (!checkFileExistsAndDisplayErrorWhenFalse(file, project)) {
        writeLog("File could not be found for graphics editor");
        return;
    }
    selectTab(*tab);
    // The pane calls back before loadFile returns or not at all, so `this` cannot be gone.
    pane->loadFile(file, project, [this](const std::optional<ErrorValue>& error) {
        if (error) {
            displayError(QString::fromStdString(error->localizedDescription()));
        }
    });
}

} // namespace kestrel
