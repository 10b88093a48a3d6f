// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include "app/AppDelegate.h"
#include "app/ButtonKeys.h"
#include "app/MainMenu.h"
#include "app/MainWindowController.h"
#include "app/PlaceWalk.h"
#include "app/StatusBar.h"
#include "app/UsesWindow.h"
#include "app/Window.h"
#include "app/WindowCommands.h"
#include "drafts/DraftKeeper.h"
#include "drafts/UnsavedWork.h"
#include "editors/CommonEditorControllers.h"
#include "model/Paths.h"
#include "model/StateFolder.h"
#include "navigation/container/AddressStatus.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/container/NameCommands.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/EditorPane.h"
#include "widgets/StatusBoard.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>

namespace kestrel {

namespace {

constexpr QSize FirstSize(1200, 780);
constexpr QSize SmallestSize(480, 320);

std::shared_ptr<DraftKeeper> makeDraftKeeper() {
    const std::filesystem::path state = stateFolder();
    return std::make_shared<DraftKeeper>(
        DraftStore(state.empty() ? state : joined(state, "drafts")));
}

/// Names the window after the project of the selected node.
void nameAfterProject(Window& window, const EditorContainerController& editor) {
    const ProjectNavigationController* tree = editor.projectNavigationController();
    const auto project = findParentFromItem(tree->selectedItem());
    if (!project) {
        window.setWindowTitle(QObject::tr("Kestrel"));
        return;
    }
    QString name = QString::fromStdString(project->itemName());
    // Doubled it is not taken for Qt's placeholder for a changed document.
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    window.setWindowTitle(QObject::tr("%1 - Kestrel").arg(name));
}

/// Shows how the latest build stands in the status bar, and lets `stop` be given while one runs.
void followBuilds(BuildSession& session, StatusBoard& board, StatusBar& bar, QAction& stop) {
    QObject::connect(&session, &BuildSession::newsChanged, &bar,
                     [&board, &bar](const BuildNews& news) {
                         bar.setBuildMark(news.mark);
                         board.setText(StatusField::build,
                                       news.elapsed.isEmpty()
                                           ? news.text
                                           : QObject::tr("%1 %2").arg(news.text, news.elapsed));
                     });
    stop.setEnabled(false);
    QObject::connect(&session, &BuildSession::runningChanged, &stop, &QAction::setEnabled);
}

/// Withdraws the offer to save and build again once the file that it is about is saved or left.
void offerToSaveWhileUnsaved(BuildSession& session, const CommonEditorControllers& panes) {
    QObject::connect(&panes, &CommonEditorControllers::currentChanged, &session,
                     &BuildSession::withdrawOffer);
    for (int index = 0; index < panes.count(); ++index) {
        auto* pane = dynamic_cast<EditorPane*>(panes.widget(index));
        const UnsavedWork* const work = pane != nullptr ? pane->unsavedWork() : nullptr;
        if (work != nullptr) {
            QObject::connect(work, &UnsavedWork::settled, &session, &BuildSession::withdrawOffer);
        }
    }
}

/// What the window does with its knowledge of the program.
void watchProgram(EditorContainerController& editor, const MainWindowController& controller,
                  PlaceWalk& walk) {
    new AddressStatus(editor, controller.knowledge(), &editor);
    auto* names = new NameCommands(editor, controller.knowledge(), walk.jump(), walk.list(), &walk);
    auto* uses = new UsesWindow(walk.list(), walk.jump(), editor.window());
    QObject::connect(names, &NameCommands::usesFound, uses, &UsesWindow::showUsesOf);
    QObject::connect(uses, &UsesWindow::closed, &walk, &PlaceWalk::returnToProblems);
}

} // namespace

std::shared_ptr<MainWindowController> makeMainWindow(AppDelegate& delegate,
                                                     NotificationCentre& centre) {
    auto ownedWindow = std::make_unique<Window>();
    Window& window = *ownedWindow;
    window.setObjectName(QStringLiteral("mainWindow"));
    window.setAccessibleName(QObject::tr("Kestrel"));
    window.setMinimumSize(SmallestSize);
    // A small screen shall show the whole window, with some room for its frame and a task bar.
    const QScreen* screen = QGuiApplication::primaryScreen();
    window.resize(screen != nullptr ? FirstSize.boundedTo(screen->availableSize() * 0.9)
                                    : FirstSize);
    new ButtonKeys(&window);
    auto* editor = new EditorContainerController(centre, &window);
    window.setCentralWidget(editor);
    StatusBoard& board = *editor->commonController()->statusBoard();
    auto* statusBar = new StatusBar(board, &window);
    window.setStatusBar(statusBar);
    editor->commonController()->setDraftKeeper(makeDraftKeeper());
    editor->viewDidLoad();
    const ProjectNavigationController* tree = editor->projectNavigationController();
    QObject::connect(tree, &ProjectNavigationController::selectedRowChanged, &window,
                     [&window, editor] { nameAfterProject(window, *editor); });
    nameAfterProject(window, *editor);

    auto controller = std::make_shared<MainWindowController>(std::move(ownedWindow));
    controller->awakeFromNib();
    auto* bar = window.menuBar();
    bar->setObjectName(QStringLiteral("menuBar"));
    bar->setAccessibleName(QObject::tr("Menu bar"));
    auto* commands = new WindowCommands(controller, *editor, &window);
    // Closed by the user, the window takes the console and everything else with it.
    QObject::connect(controller.get(), &MainWindowController::windowClosed, commands,
                     &WindowCommands::quit, Qt::QueuedConnection);
    QObject::connect(controller.get(), &MainWindowController::saveAndBuildRequested, commands,
                     &WindowCommands::saveAndBuild);
    QObject::connect(controller.get(), &MainWindowController::saveAndRunRequested, commands,
                     &WindowCommands::saveAndRun);
    offerToSaveWhileUnsaved(controller->buildSession(), *editor->commonController());
    followBuilds(controller->buildSession(), board, *statusBar,
                 *commands->commands().action("stopAction"));
    const auto* menu = new MainMenu(*bar, *editor, commands->commands(), &window);
    auto* walk = new PlaceWalk(*controller, *editor, &window);
    watchProgram(*editor, *controller, *walk);
    QObject::connect(menu->action("nextProblemAction"), &QAction::triggered, walk,
                     &PlaceWalk::goToNext);
    QObject::connect(menu->action("previousProblemAction"), &QAction::triggered, walk,
                     &PlaceWalk::goToPrevious);
    delegate.setBuildMenuItem(menu->action("buildAction"));
    delegate.setRunMenuItem(menu->action("runAction"));
    return controller;
}

} // namespace kestrel
