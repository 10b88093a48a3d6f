// SPDX-License-Identifier: MIT
#pragma once

#include "app/BuildSession.h"
#include "build/BuildError.h"
#include "build/ConsoleOutputDelegate.h"
#include "model/ProjectItem.h"

#include <QObject>
#include <QPointer>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;

namespace kestrel {

class BuildSettingsConfiguration;
class ConsoleOutput;
class ConsoleWindow;
class EditorContainerController;
class NESProjectBuilder;
class ProgramInquiry;
class ProgramKnowledge;
class Window;

/// Owns the main window; carries out the build and run commands and writes their results to the
/// console. Always held in a std::shared_ptr, whose last reference must be dropped on the
/// user-interface thread. All of it is for that thread, but for console().
class MainWindowController final : public QObject,
                                   public ConsoleOutputDelegate,
                                   public std::enable_shared_from_this<MainWindowController> {
    Q_OBJECT

public:
    using BuilderFactory = std::function<std::shared_ptr<NESProjectBuilder>(
        std::shared_ptr<BuildSettingsConfiguration>)>;
    /// Gets the image's location, or an error.
    using BuildHandler =
        std::function<void(std::optional<std::filesystem::path>, std::optional<BuildError>)>;
    using RunHandler = std::function<void(std::optional<BuildError>)>;

    explicit MainWindowController(std::unique_ptr<Window> window);
    ~MainWindowController() override;

    /// To be called once the window has its content: takes that as editorController() if it is one.
    void awakeFromNib();

    Window* window() const { return m_window.get(); }
    EditorContainerController* editorController() const;

    /// Dictionaries for whoever needs them; starts empty and is not used further.
    std::vector<Dictionary>& projects() { return m_projects; }

    /// The menu items of the two commands; not owned. Setting one makes it call build() or
    /// buildAndRun(). They are never enabled or disabled.
    QAction* buildMenuItem() const { return m_buildMenuItem; }
    QAction* runMenuItem() const { return m_runMenuItem; }
    void setBuildMenuItem(QAction* item);
    void setRunMenuItem(QAction* item);

    /// Adds the project of a project file to the tree. True when the file and the structure that it
    /// names could be read, also when there is no editor to add it to.
    bool importNewProjectFromFile(const std::filesystem::path& kstFilePath);

    /// Clears the console, builds the selected project and reports the result in the console.
    void build();

    /// Clears the console, builds the selected project and, when there is an image, runs it.
    void buildAndRun();

    /// Builds the selected project, its output going to the console. The handler, which may be
    /// empty, is called where NESProjectBuilder::build calls its own.
    void buildProject(const BuildHandler& completionHandler);

    /// Builds the selected project once more, silently, and opens the image in the emulator.
    /// Neither argument is used.
    void runProject(const std::filesystem::path& romFile, const RunHandler& completionHandler);

    /// Appends a line break and `output` to the console and brings it to the front: at once on the
    /// user-interface thread; from any other it is queued after earlier calls.
    void console(const QString& output) override;

    /// Brings the console to the front as it is.
    void showConsole();

    /// What became of the commands to build and to run, and what stops them.
    BuildSession& buildSession() { return m_session; }

    /// The console's window and its view; null before the first text.
    ConsoleWindow* windowController() const { return m_windowController.get(); }
    ConsoleOutput* consoleOutputController() const;

    /// The builder of the latest request; null before the first.
    const std::shared_ptr<NESProjectBuilder>& projectBuilder() const { return m_projectBuilder; }

    /// What is known about the program that was built last.
    ProgramKnowledge& knowledge() const { return *m_knowledge; }

    /// Replaces how builders are made; for tests.
    void setBuilderFactory(BuilderFactory factory);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The main window was closed by the user, and with it the program is over.
    void windowClosed();
    /// consoleOutputController() is there now, still without a text.
    void consoleMade();

    /// The strip in the console was asked to save what is on the screen and to build that.
    void saveAndBuildRequested();
    void saveAndRunRequested();

private:
    std::shared_ptr<ProjectItem> selectedProject() const;
    QString unsavedFile() const;
    BuildSession::Number begin(BuildSession::Kind kind);
    std::shared_ptr<NESProjectBuilder> makeBuilder(const std::shared_ptr<ProjectItem>& project,
                                                   BuildSession::Number command);
    void buildPart(BuildSession::Number command, const BuildHandler& completionHandler);
    void runPart(BuildSession::Number command);
    void makeConsole();
    void clearConsole();
    void sayHowItEnded(const std::optional<BuildError>& error, const QString& text);
    void buildToRunEnded(BuildSession::Number command,
                         const std::optional<std::filesystem::path>& image,
                         const std::optional<BuildError>& error);

    std::vector<Dictionary> m_projects;
    std::unique_ptr<ProgramKnowledge> m_knowledge; ///< outlives the window, which shows it
    std::unique_ptr<Window> m_window;
    std::unique_ptr<ConsoleWindow> m_windowController;
    QPointer<ConsoleOutput> m_consoleOutputController;
    QPointer<EditorContainerController> m_editorController;
    QPointer<QAction> m_buildMenuItem;
    QPointer<QAction> m_runMenuItem;
    QMetaObject::Connection m_buildConnection;
    QMetaObject::Connection m_runConnection;
    BuildSession m_session;
    std::shared_ptr<NESProjectBuilder> m_projectBuilder;
    BuilderFactory m_builderFactory;
    std::unique_ptr<ProgramInquiry> m_inquiry;
};

} // namespace kestrel
