// SPDX-License-Identifier: MIT
#pragma once

#include "model/ProjectItem.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

namespace kestrel {

struct PaneReferences;

inline constexpr char PleaseSelectProject[] = "Please select a file or project";

/// Switches a tabbed container to the pane for a node. Every operation does nothing when the pane
/// it needs is missing or is none of the container's tabs.
class DisplayController {
public:
    DisplayController() = default;
    DisplayController(const DisplayController&) = delete;
    DisplayController& operator=(const DisplayController&) = delete;
    virtual ~DisplayController() = default;

    /// Takes the container's children, in tab order, as its panes. A child of another class is
    /// logged.
    void initiateViewControllers(const QList<QWidget*>& viewControllers);

    /// Shows `message` in the message pane.
    void displayError(const QString& message);

    /// Whether the file or project of the node `file` exists on disk; shows an error when it does
    /// not. A relative node is looked for by name in the project's own folder, without its
    /// sub-path.
    bool checkFileExistsAndDisplayErrorWhenFalse(const std::shared_ptr<ProjectItem>& file,
                                                 const std::shared_ptr<ProjectItem>& parentProject);

    /// Shows `file` in the pane for its kind; nothing for a kind that has none.
    void displayFile(const std::shared_ptr<ProjectItem>& file,
                     const std::shared_ptr<ProjectItem>& project);

    // The same in a particular pane, whatever the node's kind.
    void displayProjectSettings(const std::shared_ptr<ProjectItem>& project);
    void displayEditorController(const std::shared_ptr<ProjectItem>& file,
                                 const std::shared_ptr<ProjectItem>& project);
    void displayPaletteEditor(const std::shared_ptr<ProjectItem>& file,
                              const std::shared_ptr<ProjectItem>& project);
    void displayGraphicsEditor(const std::shared_ptr<ProjectItem>& file,
                               const std::shared_ptr<ProjectItem>& project);

protected:
    /// The container's panes.
    virtual PaneReferences& panes() = 0;

    virtual void recordTab(const QWidget* pane, int tabIndex) = 0;
    virtual std::optional<int> tabIndexOf(const QWidget* pane) const = 0;
    virtual void selectTab(int tabIndex) = 0;

private:
    void display(FileType paneFor, const std::shared_ptr<ProjectItem>& file,
                 const std::shared_ptr<ProjectItem>& project);
};

} // namespace kestrel
