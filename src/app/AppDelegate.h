// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <filesystem>
#include <memory>
#include <vector>

class QAction;

namespace kestrel {

class MainWindowController;

/// Starts the program's one window, wires its two build commands, and adds the project files that
/// the desktop, the command line and later starts hand over.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    explicit AppDelegate(QObject* parent = nullptr);
    ~AppDelegate() override;

    /// The menu items of the build commands; not owned. To be set before launching has finished.
    QAction* buildMenuItem() const { return m_buildMenuItem; }
    QAction* runMenuItem() const { return m_runMenuItem; }
    void setBuildMenuItem(QAction* item) { m_buildMenuItem = item; }
    void setRunMenuItem(QAction* item) { m_runMenuItem = item; }

    const std::shared_ptr<MainWindowController>& windowController() const {
        return m_windowController;
    }

    /// Keeps the controller of the first window, if there is one, and gives it the menu items.
    void applicationDidFinishLaunching(std::shared_ptr<MainWindowController> firstWindow);

    /// Adds the projects of these project files, in order; ignored before launching has finished.
    /// Files that cannot be read are left out silently. While a sheet is open the files wait.
    void openFiles(const std::vector<std::filesystem::path>& paths);

    /// Shows the main window before all others.
    void comeToFront();

    /// Takes the file-open events of the application on which it is installed.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QAction> m_buildMenuItem;
    QPointer<QAction> m_runMenuItem;
    std::shared_ptr<MainWindowController> m_windowController;
};

} // namespace kestrel
