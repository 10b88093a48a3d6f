// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/TextEditorController.h"
#include "editors/EmptyController.h"
#include "editors/settings/ProjectSettingsController.h"
#include "graphics/GraphicsEditorController.h"
#include "graphics/PaletteEditorController.h"

#include <QPointer>

namespace kestrel {

/// The panes of a tabbed container, each by what it shows; null when the container has no such
/// pane.
struct PaneReferences {
    QPointer<TextEditorController> textEditor;
    QPointer<PaletteEditorController> paletteEditor;
    QPointer<GraphicsEditorController> graphicsEditor;
    QPointer<ProjectSettingsController> projectSettings;
    QPointer<EmptyController> emptyController;
};

} // namespace kestrel
