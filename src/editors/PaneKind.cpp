// SPDX-License-Identifier: MIT
#include "editors/PaneKind.h"

#include "editors/PaneReferences.h"
#include "model/Paths.h"

#include <algorithm>

namespace kestrel {

namespace {

/// The node's place below the project's folder, its sub-path included.
std::filesystem::path belowProject(const ProjectItem& file, const ProjectItem& project) {
    return joined(joined(project.itemPath(), pathText(file.itemPath())), file.itemName());
}

void loadText(TextEditorController& pane, const PaneRequest& request) {
    const ProjectItem& file = *request.file;
    const bool relative =
        file.itemPathType() == FilePathType::relative && request.project != nullptr;
    pane.loadFile(relative ? belowProject(file, *request.project)
                           : joined(file.itemPath(), file.itemName()));
}

void preparePalettes(PaletteEditorController& pane, const PaneRequest& request) {
    const ProjectItem& file = *request.file;
    const bool absolute =
        file.itemPathType() == FilePathType::absolute || request.project == nullptr;
    pane.setFilePathForPalette(absolute ? joined(file.itemPath(), file.itemName())
                                        : belowProject(file, *request.project));
}

void loadPalettes(PaletteEditorController& pane, const PaneRequest& /*request*/) {
    pane.update();
}

void loadGraphics(GraphicsEditorController& pane, const PaneRequest& request) {
    pane.loadFile(request.file, request.project,
                  [displayError = request.displayError](const std::optional<ErrorValue>& error) {
                      if (error) {
                          displayError(QString::fromStdString(error->localizedDescription()));
                      }
                  });
}

void loadSettings(ProjectSettingsController& pane, const PaneRequest& request) {
    pane.setCurrentProject(request.file);
    if (!pane.updateBuildSettings()) {
        request.displayError(
            QStringLiteral("Build Project settings is misconfigured and could not display"));
    }
}

template<typename Pane> void nothing(Pane& /*pane*/, const PaneRequest& /*request*/) {}

/// The registration of the pane that `Reference` refers to.
template<typename Pane, QPointer<Pane> PaneReferences::*Reference, auto Load = nothing<Pane>,
         auto Prepare = nothing<Pane>>
constexpr PaneKind registered(std::optional<FileType> fileType, const char* fileNotFound) {
    return {
        fileType,
        fileNotFound,
        [](QWidget* parent) -> QWidget* { return new Pane(parent); },
        [](PaneReferences& panes, QWidget& child) {
            auto* pane = qobject_cast<Pane*>(&child);
            if (pane != nullptr) {
                panes.*Reference = pane;
            }
            return pane != nullptr;
        },
        [](const PaneReferences& panes) -> QWidget* { return (panes.*Reference).data(); },
        [](const PaneReferences& panes, const PaneRequest& request) {
            Prepare(*(panes.*Reference), request);
        },
        [](const PaneReferences& panes, const PaneRequest& request) {
            Load(*(panes.*Reference), request);
        },
    };
}

using Panes = PaneReferences;

constexpr PaneKind Kinds[] = {
    registered<TextEditorController, &Panes::textEditor, loadText>(
        FileType::text, "File could not be found for code editor"),
    // The code editor's text, as the log of this pane always had it.
    registered<PaletteEditorController, &Panes::paletteEditor, loadPalettes, preparePalettes>(
        FileType::palette, "File could not be found for code editor"),
    registered<GraphicsEditorController, &Panes::graphicsEditor, loadGraphics>(
        FileType::graphics, "File could not be found for graphics editor"),
    registered<ProjectSettingsController, &Panes::projectSettings, loadSettings>(
        FileType::project, "File could not be found for project settings"),
    registered<EmptyController, &Panes::emptyController>(std::nullopt, ""),
};

} // namespace

std::span<const PaneKind> paneKinds() {
    return Kinds;
}

const PaneKind* paneKindFor(FileType fileType) {
    const auto* const found =
        std::find_if(std::begin(Kinds), std::end(Kinds),
                     [fileType](const PaneKind& kind) { return kind.fileType == fileType; });
    return found == std::end(Kinds) ? nullptr : found;
}

} // namespace kestrel
