// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/CommandSet.h"

#include <QObject>

#include <memory>

namespace kestrel {

class EditorContainerController;
class MainWindowController;
class MemoryAge;
class MemoryWindow;
class UserGuideWindow;

/// Carries out the commands of the menu bar that belong to no project and no pane.
class WindowCommands : public QObject {
    Q_OBJECT

public:
    /// `editor` must outlive this; the controller is held weakly, since it owns the window that
    /// owns this.
    WindowCommands(std::weak_ptr<MainWindowController> controller,
                   EditorContainerController& editor, QObject* parent);
    ~WindowCommands() override;

    const CommandSet& commands() const { return m_commands; }

    /// Saves the pane that is shown.
    void save();

    /// Saves the pane that is shown, then builds.
    void saveAndBuild();
    void saveAndRun();

    /// Stops the builds and runs that are under way.
    void stop();

    /// Asks for a project file in a sheet and adds its project.
    void openProject();

    /// Ends the program.
    void quit();

    void showConsole();

    /// Opens the window that shows how full banks and memory are, of which there is one.
    void showMemory();

    /// Moves the focus from the tree to the pane that is shown, and back.
    void focusNextPart();

    /// Opens the user guide in a window of its own, of which there is one.
    void showUserGuide();

    /// Says in a sheet what this program is.
    void showAbout();

private:
    void addCommands();
    bool saveToBuild(MainWindowController& controller);

    std::weak_ptr<MainWindowController> m_controller;
    EditorContainerController& m_editor;
    std::unique_ptr<MemoryWindow> m_memory;
    std::unique_ptr<MemoryAge> m_memoryAge; ///< of m_memory
    std::unique_ptr<UserGuideWindow> m_userGuide;
    CommandSet m_commands{*this};
};

} // namespace kestrel
