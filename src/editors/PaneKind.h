// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <span>

class QWidget;

namespace kestrel {

struct PaneReferences;

/// What a pane is asked to show.
struct PaneRequest {
    std::shared_ptr<ProjectItem> file;
    std::shared_ptr<ProjectItem> project; ///< what a relative `file` lies in; may be null
    /// Shows a text in the message pane instead.
    std::function<void(const QString& message)> displayError;
};

/// The registration of one pane: the nodes it is for, and how it is made, found and filled.
struct PaneKind {
    /// The kind of the nodes that it shows; the message pane has none.
    std::optional<FileType> fileType;
    /// Logged when a node's file does not exist.
    const char* fileNotFound;

    QWidget* (*make)(QWidget* parent);
    /// Keeps `child` as this pane if it is one; whether it is.
    bool (*adopt)(PaneReferences& panes, QWidget& child);
    QWidget* (*pane)(const PaneReferences& panes);

    // The pane must be there for both.
    /// What comes before the pane is shown.
    void (*prepare)(const PaneReferences& panes, const PaneRequest& request);
    /// Fills the pane, which is shown already.
    void (*load)(const PaneReferences& panes, const PaneRequest& request);
};

/// All panes, in the order of their tabs.
std::span<const PaneKind> paneKinds();

/// The pane for nodes of this kind; null when there is none.
const PaneKind* paneKindFor(FileType fileType);

} // namespace kestrel
