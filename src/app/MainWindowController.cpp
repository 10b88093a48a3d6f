// SPDX-License-Identifier: MIT
#include "app/MainWindowController.h"

#include "app/BuildStrip.h"
#include "app/ConsoleOutput.h"
#include "app/ConsoleWindow.h"
#include "app/Window.h"
#include "build/BackgroundWork.h"
#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "build/ProgramInquiry.h"
#include "drafts/UnsavedWork.h"
#include "editors/CommonEditorControllers.h"
#include "facts/ProgramKnowledge.h"
#include "model/OpenedProject.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/EditorPane.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <utility>

namespace kestrel {

namespace {

bool isMainThread() {
    // Asked for once: at the end of the program it goes while workers may still run.
    const QCoreApplication* application = QCoreApplication::instance();
    return application != nullptr && QThread::currentThread() == application->thread();
}

/// Calls `task` with the controller, if it is still there: at once on the user-interface thread,
/// from any other when that thread comes to it, after everything that was queued before.
void withController(const std::weak_ptr<MainWindowController>& controller,
                    std::function<void(MainWindowController&)> task) {
    auto call = [controller, task = std::move(task)] {
        if (const auto present = controller.lock()) {
            task(*present);
        }
    };
    if (isMainThread()) {
        call();
    } else {
        postToMainThread(QCoreApplication::instance(), std::move(call));
    }
}

QString messageOf(const BuildError& error) {
    return QString::fromStdString(textOf(error));
}

} // namespace

MainWindowController::MainWindowController(std::unique_ptr<Window> window)
    : m_knowledge(std::make_unique<ProgramKnowledge>())
    , m_window(std::move(window))
    , m_builderFactory([running = std::make_shared<RunningBuilds>()](
                           std::shared_ptr<BuildSettingsConfiguration> settings) {
        return std::make_shared<NESProjectBuilder>(
            std::move(settings), [] { return findAssembler(); }, running);
    })
    , m_inquiry(std::make_unique<ProgramInquiry>(*m_knowledge)) {
    if (m_window) {
        m_window->installEventFilter(this);
    }
}

MainWindowController::~MainWindowController() = default;

void MainWindowController::awakeFromNib() {
    m_editorController =
        m_window ? qobject_cast<EditorContainerController*>(m_window->centralWidget()) : nullptr;
}

EditorContainerController* MainWindowController::editorController() const {
    return m_editorController;
}

ConsoleOutput* MainWindowController::consoleOutputController() const {
    return m_consoleOutputController;
}

void MainWindowController::setBuildMenuItem(QAction* item) {
    disconnect(m_buildConnection);
    m_buildMenuItem = item;
    if (item != nullptr) {
        m_buildConnection = connect(item, &QAction::triggered, this, &MainWindowController::build);
    }
}

void MainWindowController::setRunMenuItem(QAction* item) {
    disconnect(m_runConnection);
    m_runMenuItem = item;
    if (item != nullptr) {
        m_runConnection =
            connect(item, &QAction::triggered, this, &MainWindowController::buildAndRun);
    }
}

void MainWindowController::setBuilderFactory(BuilderFactory factory) {
    m_builderFactory = std::move(factory);
}

bool MainWindowController::importNewProjectFromFile(const std::filesystem::path& kstFilePath) {
    const auto project = openProjectTree(kstFilePath);
    if (!project) {
        return false;
    }
    if (m_editorController) {
        m_editorController->addProjectToEditor(project);
    }
    return true;
}

std::shared_ptr<ProjectItem> MainWindowController::selectedProject() const {
    const ProjectNavigationController* tree =
        m_editorController ? m_editorController->projectNavigationController() : nullptr;
    return tree != nullptr ? tree->currentlySelectedProject() : nullptr;
}

/// The name of the shown file if it was edited and not saved since.
QString MainWindowController::unsavedFile() const {
    EditorPane* pane =
        m_editorController ? m_editorController->commonController()->shownEditorPane() : nullptr;
    const UnsavedWork* work = pane != nullptr ? pane->unsavedWork() : nullptr;
    return work != nullptr && work->hasChanges()
               ? QString::fromStdString(work->file().filename().string())
               : QString();
}

BuildSession::Number MainWindowController::begin(BuildSession::Kind kind) {
    return m_session.begin(kind, selectedProject(), unsavedFile());
}

std::shared_ptr<NESProjectBuilder>
MainWindowController::makeBuilder(const std::shared_ptr<ProjectItem>& project,
                                  BuildSession::Number command) {
    auto settings = std::make_shared<NESBuildSettings>();
    settings->projectToBuild() = project;
    settings->populateProperties(*project);
    settings->projectPath() = project->itemPath();
    m_projectBuilder = m_builderFactory(std::move(settings));
    m_session.watch(command, *m_projectBuilder, m_inquiry->nextBuild());
    return m_projectBuilder;
}

void MainWindowController::buildProject(const BuildHandler& completionHandler) {
    buildPart(begin(BuildSession::Kind::build), completionHandler);
}

void MainWindowController::buildPart(BuildSession::Number command,
                                     const BuildHandler& completionHandler) {
    const std::shared_ptr<ProjectItem> project = selectedProject();
    if (!project) {
        const BuildError error{"", 100, "Please select a project to build"};
        if (completionHandler) {
            completionHandler(std::nullopt, error);
        }
        m_session.refused(command, error);
        return;
    }
    // Held while it works: what its handler does may replace it.
    const std::shared_ptr<NESProjectBuilder> builder = makeBuilder(project, command);
    builder->setConsoleOutput(weak_from_this());
    builder->build([completionHandler](std::optional<std::filesystem::path> image,
                                       std::optional<BuildError> error) {
        if (completionHandler) {
            completionHandler(std::move(image), std::move(error));
        }
    });
}

void MainWindowController::build() {
    clearConsole();
    const std::weak_ptr<MainWindowController> self = weak_from_this();
    buildProject([self](const std::optional<std::filesystem::path>& /*image*/,
                        const std::optional<BuildError>& error) {
        withController(self, [error](MainWindowController& present) {
            present.sayHowItEnded(error, QStringLiteral("Internal Error when building"));
        });
    });
}

void MainWindowController::buildAndRun() {
    clearConsole();
    const std::weak_ptr<MainWindowController> self = weak_from_this();
    const BuildSession::Number command = begin(BuildSession::Kind::run);
    buildPart(command, [self, command](const std::optional<std::filesystem::path>& image,
                                       const std::optional<BuildError>& error) {
        // After the assembler's output: running replaces the builder that it comes from.
        withController(self, [command, image, error](MainWindowController& present) {
            present.buildToRunEnded(command, image, error);
        });
    });
}

void MainWindowController::buildToRunEnded(BuildSession::Number command,
                                           const std::optional<std::filesystem::path>& image,
                                           const std::optional<BuildError>& error) {
    if (error) {
        sayHowItEnded(error, {});
        return;
    }
    if (!image) {
        const BuildError missing{
            "", 100, "Internal Error: Successfully built project but output was not available"};
        console(messageOf(missing));
        m_session.refused(command, missing);
        return;
    }
    switch (m_session.restOf(command, selectedProject())) {
    case BuildSession::Rest::goesOn:
        runPart(command);
        break;
    case BuildSession::Rest::stopped:
        console(QLatin1String(BuildStopped));
        break;
    case BuildSession::Rest::dropped:
        break;
    }
}

void MainWindowController::runProject(const std::filesystem::path& /*romFile*/,
                                      const RunHandler& /*completionHandler*/) {
    if (selectedProject()) {
        runPart(begin(BuildSession::Kind::run));
    }
}

void MainWindowController::runPart(BuildSession::Number command) {
    const std::weak_ptr<MainWindowController> self = weak_from_this();
    const std::shared_ptr<NESProjectBuilder> builder = makeBuilder(selectedProject(), command);
    builder->run([self](const std::optional<BuildError>& error) {
        withController(self, [error](MainWindowController& present) {
            present.sayHowItEnded(error, QStringLiteral("Running Project"));
        });
    });
}

/// Ends the console's text on a command: with the error, or with `text` when there is none. One
/// that a newer command overtook says nothing: the console was cleared for that one.
void MainWindowController::sayHowItEnded(const std::optional<BuildError>& error,
                                         const QString& text) {
    if (!error) {
        console(text);
    } else if (error->description != BuildOvertaken) {
        console(messageOf(*error));
    }
}

void MainWindowController::console(const QString& output) {
    if (!isMainThread()) {
        withController(weak_from_this(),
                       [output](MainWindowController& present) { present.console(output); });
        return;
    }
    makeConsole();
    if (m_consoleOutputController) {
        m_consoleOutputController->append(QStringLiteral("\n"));
        m_consoleOutputController->append(output); // shared, not copied: it may be gigabytes
    }
    if (m_session.isRunning() && !m_windowController->isVisible()) {
        // The result comes next: with the window the strip would announce an older one first.
        m_windowController->buildStrip()->showNews({});
    }
    showConsole();
}

void MainWindowController::showConsole() {
    makeConsole();
    m_windowController->comeToFront();
}

void MainWindowController::makeConsole() {
    if (!m_windowController) {
        m_windowController = std::make_unique<ConsoleWindow>();
        m_consoleOutputController = m_windowController->consoleOutput();
        BuildStrip* strip = m_windowController->buildStrip();
        strip->showNews(m_session.news());
        connect(&m_session, &BuildSession::newsChanged, strip, &BuildStrip::showNews);
        connect(&m_session, &BuildSession::offerWithdrawn, strip, &BuildStrip::withdrawOffer);
        connect(strip, &BuildStrip::saveAndBuildRequested, this,
                &MainWindowController::saveAndBuildRequested);
        connect(strip, &BuildStrip::saveAndRunRequested, this,
                &MainWindowController::saveAndRunRequested);
        Q_EMIT consoleMade();
    }
}

void MainWindowController::clearConsole() {
    if (m_consoleOutputController) {
        m_consoleOutputController->clear();
    }
}

bool MainWindowController::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_window.get() && event->type() == QEvent::Close) {
        if (m_windowController) {
            m_windowController->close();
        }
        Q_EMIT windowClosed();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kestrel
