// SPDX-License-Identifier: MIT
#include "editors/DisplayController.h"

#include "editors/PaneKind.h"
#include "editors/PaneReferences.h"
#include "model/FileProcessor.h"
#include "model/Log.h"
#include "model/Paths.h"

#include <QMetaObject>

#include <algorithm>
#include <string>

namespace kestrel {

namespace {

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
        if (child != nullptr) {
            recordTab(child, index);
            const auto adopts = [&](const PaneKind& kind) { return kind.adopt(panes(), *child); };
            if (std::ranges::none_of(paneKinds(), adopts)) {
                writeLog("Failed for " + description(*child));
            }
        }
        ++index;
    }
}

void DisplayController::displayError(const QString& message) {
    EmptyController* pane = panes().emptyController;
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

void DisplayController::display(FileType paneFor, const std::shared_ptr<ProjectItem>& file,
                                const std::shared_ptr<ProjectItem>& project) {
    const PaneKind* const kind = paneKindFor(paneFor);
    if (kind == nullptr) {
        return;
    }
    const std::optional<int> tab = tabIndexOf(kind->pane(panes()));
    if (!tab) {
        return;
    }
    if (!checkFileExistsAndDisplayErrorWhenFalse(file, project)) {
        writeLog(kind->fileNotFound);
        return;
    }
    const PaneRequest request{file, project,
                              [this](const QString& message) { displayError(message); }};
    kind->prepare(panes(), request);
    selectTab(*tab);
    kind->load(panes(), request);
}

void DisplayController::displayFile(const std::shared_ptr<ProjectItem>& file,
                                    const std::shared_ptr<ProjectItem>& project) {
    if (file) {
        display(file->itemFileType(), file, project);
    }
}

void DisplayController::displayProjectSettings(const std::shared_ptr<ProjectItem>& project) {
    display(FileType::project, project, nullptr);
}

void DisplayController::displayEditorController(const std::shared_ptr<ProjectItem>& file,
                                                const std::shared_ptr<ProjectItem>& project) {
    display(FileType::text, file, project);
}

void DisplayController::displayPaletteEditor(const std::shared_ptr<ProjectItem>& file,
                                             const std::shared_ptr<ProjectItem>& project) {
    display(FileType::palette, file, project);
}

void DisplayController::displayGraphicsEditor(const std::shared_ptr<ProjectItem>& file,
                                              const std::shared_ptr<ProjectItem>& project) {
    display(FileType::graphics, file, project);
}

} // namespace kestrel
