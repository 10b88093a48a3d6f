// SPDX-License-Identifier: MIT
#pragma once

#include "build/NESBuildSettings.h"
#include "editors/CommonEditorControllers.h"
#include "model/FileProcessor.h"
#include "model/Paths.h"
#include "model/ProjectRegistry.h"
#include "model/StructureFile.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/NavigationFixture.h"
#include "newitem/AddNewItemController.h"
#include "newitem/CreateNewFileController.h"
#include "newitem/CreateNewItemAtPathController.h"
#include "newitem/CreateNewItemController.h"
#include "newitem/CreateNewItemPageController.h"
#include "newitem/CreateNewProjectController.h"
#include "widgets/Sheet.h"

#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>

#include <filesystem>
#include <functional>

namespace kestrel::test {

using Option = ProjectNavigationMenuClickedOptions;

/// A code editor in which one can type, and which knows how often it was given a file.
class TypingPane final : public TextEditorController {
public:
    explicit TypingPane(QWidget* parent = nullptr)
        : TextEditorController(parent)
        , edit(new QPlainTextEdit(this)) {}

    void loadFile(const std::filesystem::path& path) override {
        TextEditorController::loadFile(path);
        ++loads;
        if (whenLoaded) {
            whenLoaded();
        }
        edit->setPlainText(QString::fromStdString(contentOf(path)));
    }

    QPlainTextEdit* edit;
    int loads = 0;
    std::function<void()> whenLoaded;
};

/// The real container in a main window, with real files in a fresh home folder.
class ContainerTest : public testing::Test {
protected:
    ~ContainerTest() override { close(); }

    /// Starts the program's window. Called again it is a restart.
    void start() {
        close();
        window = std::make_unique<QMainWindow>();
        container = new EditorContainerController(centre);
        window->setCentralWidget(container);
        typing = new TypingPane(panes());
        panes()->tabItemsIndex.insert(typing, panes()->addWidget(typing));
        panes()->textEditor = typing;
        container->viewDidLoad();
        container->setFilePanel([this](QWidget* on, const QString& prompt,
                                       const std::filesystem::path& folder,
                                       const FilePanelHandler& handler) {
            ++panels;
            panelWindow = on;
            panelPrompt = prompt.toStdString();
            panelFolder = folder;
            if (answer) {
                handler(*answer);
            }
        });
        window->resize(1000, 600);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        view().setFocus();
        QApplication::processEvents();
    }

    void close() {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Lays a project with these children out below home and registers it.
    Node makeProject(const std::string& name, const ProjectItems& children = {}) const {
        Node node = makeNode(name, FileType::project, children, home.path() / "Kestrel" / name);
        EXPECT_TRUE(FileProcessor::createFilesForNewProject(node));
        EXPECT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(node));
        return node;
    }

    /// A node for a file that is written into the project's folder and listed in its settings.
    Node fileOf(const std::string& projectName, const std::string& name, FileType type) const {
        const auto folder = home.path() / "Kestrel" / projectName;
        const bool tiles = type == FileType::graphics;
        home.write("Kestrel/" + projectName + "/" + name, tiles ? std::string(16, '\0') : name);
        return makeNode(name, type, {}, folder);
    }

    ProjectNavigationController& tree() const { return *container->projectNavigationController(); }
    CommonEditorControllers* panes() const { return container->commonController(); }
    OutlineView& view() const { return *tree().outlineView(); }
    std::string message() const { return panes()->emptyController->message().toStdString(); }
    QWidget* shown() const { return panes()->currentWidget(); }
    Node root(std::size_t place = 0) const { return tree().allItems().at(place); }

    /// The first node of this name in the whole tree.
    Node find(const std::string& name) const {
        ProjectItems waiting = tree().allItems();
        for (std::size_t i = 0; i < waiting.size(); ++i) {
            const Node node = waiting[i];
            if (node->itemName() == name) {
                return node;
            }
            waiting.insert(waiting.end(), node->subItems().begin(), node->subItems().end());
        }
        return nullptr;
    }

    void click(const Node& node) const {
        ASSERT_NE(node, nullptr);
        view().expandWhole(QModelIndex());
        const QRect row = view().visualRect(tree().model()->indexOf(node));
        ASSERT_TRUE(row.isValid()) << node->itemName();
        QTest::mouseClick(view().viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
        ASSERT_EQ(tree().selectedItem(), node);
    }

    void click(const std::string& name) const { click(find(name)); }

    void deselect() const { view().selectionModel()->clearSelection(); }

    /// Chooses an entry of the context menu.
    void command(Option option) const {
        tree().menu()->action(option)->trigger();
        QApplication::processEvents();
    }

    /// Works a wizard from the grid to the end.
    static void finishWizard(const NewItemController* request, int kind, const char* name) {
        ASSERT_NE(request, nullptr);
        ASSERT_NE(request->newItemController(), nullptr);
        AddNewItemController& wizard = *request->newItemController();
        const QListView* grid =
            wizard.pageController()->createNewItemController()->collectionView();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid->visualRect(grid->model()->index(kind, 0)).center());
        QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
        QTest::keyClicks(
            wizard.pageController()->createNewItemPathController()->fileNameTextField(),
            QString::fromUtf8(name));
        QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
        QApplication::processEvents();
    }

    void makeFile(int kind, const char* name) const {
        command(Option::newFile);
        finishWizard(container->newFileController(), kind, name);
    }

    /// The open sheets; one that has ended may wait for its deletion still.
    std::vector<Sheet*> sheets() const {
        std::vector<Sheet*> open;
        for (Sheet* sheet : window->findChildren<Sheet*>()) {
            if (sheet->isVisible()) {
                open.push_back(sheet);
            }
        }
        return open;
    }

    /// The open sheet, or null.
    Sheet* sheet() const { return sheets().empty() ? nullptr : sheets().front(); }

    /// The names in the saved structure of a project, one a line, indented by two spaces a level.
    static std::string savedStructure(const Node& project) {
        const auto stored = fetchStructure(*project);
        return stored ? namesIn(*stored, "") : "none";
    }

    static std::string namesIn(const Dictionary& node, const std::string& indent) {
        std::string text = indent + node.at("name").get<std::string>() + "\n";
        for (const auto& child : node.at("sub_items")) {
            text += namesIn(child, indent + "  ");
        }
        return text;
    }

    static std::vector<std::string> savedAssemblyFiles(const Node& project) {
        return names(NESBuildSettings(project).assemblyFiles());
    }

    static std::vector<std::string> registered() {
        std::vector<std::string> result;
        for (const auto& entry : registryEntries()) {
            result.push_back(entry.name);
        }
        return result;
    }

    bool exists(const std::string& belowHome) const { return existsAt(home.path() / belowHome); }
    std::string content(const std::string& belowHome) const {
        return contentOf(home.path() / belowHome);
    }

    LogCapture log;
    TemporaryHome home;
    NotificationCentre centre;
    std::unique_ptr<QMainWindow> window;
    EditorContainerController* container = nullptr;
    TypingPane* typing = nullptr;

    /// What the file panel answers; while there is no answer it stays open.
    std::optional<std::optional<std::filesystem::path>> answer;
    int panels = 0;
    QWidget* panelWindow = nullptr;
    std::string panelPrompt;
    std::filesystem::path panelFolder;
};

} // namespace kestrel::test
