// SPDX-License-Identifier: MIT
#pragma once

#include "app/AppDelegate.h"
#include "app/ConsoleOutput.h"
#include "app/ConsoleWindow.h"
#include "app/MainWindow.h"
#include "app/MainWindowController.h"
#include "app/Window.h"
#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "model/FileProcessor.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/NavigationFixture.h"

#include <QAction>
#include <QMenu>
#include <QThreadPool>

#include <filesystem>
#include <memory>
#include <string>

namespace kestrel::test {

/// The program's real window, with real files in a fresh home folder and, where a test builds, a
/// program that stands in for the assembler.
class WindowTest : public testing::Test {
protected:
    ~WindowTest() override { close(); }

    /// Starts the window. Called again it is a restart.
    void start() {
        close();
        delegate = std::make_unique<AppDelegate>();
        controller = makeMainWindow(*delegate, centre);
        delegate->applicationDidFinishLaunching(controller);
#ifdef FAKE_ASSEMBLER
        controller->setBuilderFactory([](std::shared_ptr<BuildSettingsConfiguration> settings) {
            return std::make_shared<NESProjectBuilder>(
                std::move(settings), [] { return std::filesystem::path(FAKE_ASSEMBLER); });
        });
#endif
        window().show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    void close() {
        controller.reset();
        delegate.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    Window& window() const {
        return *controller->window();
    }
    EditorContainerController& editor() const {
        return *controller->editorController();
    }
    ProjectNavigationController& tree() const {
        return *editor().projectNavigationController();
    }
    std::vector<std::string> projects() const {
        return names(tree().allItems());
    }

    QAction* action(const char* name) const {
        auto* found = window().findChild<QAction*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    QMenu* menu(const char* name) const {
        auto* found = window().findChild<QMenu*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    std::filesystem::path folder(const std::string& name) const {
        return home.path() / "Kestrel" / name;
    }

    /// Lays out a project with one main file and gives the path of its project file.
    std::filesystem::path layOut(const std::string& name) const {
        const auto file = makeNode("main.asm", FileType::text, {}, folder(name));
        const auto root = makeNode(name, FileType::project, {file}, folder(name));
        std::filesystem::create_directories(folder(name));
        home.write("Kestrel/" + name + "/main.asm", "\t.org $FFFA\n");
        EXPECT_TRUE(FileProcessor::createFilesForNewProject(root));
        NESBuildSettings::add(file, root);
        return folder(name) / (name + ".kst");
    }

    /// The same, and it is registered, so that the window shows it.
    void registerProject(const std::string& name) const {
        layOut(name);
        EXPECT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(
            makeNode(name, FileType::project, {}, folder(name))));
    }

    /// What the stand-in for the assembler is to do in this project.
    void script(const std::string& name, const std::string& lines) const {
        home.write("Kestrel/" + name + "/script", lines);
    }

    void chooseEmulator(const std::string& name, const std::filesystem::path& emulator) const {
        NESBuildSettings settings(makeNode(name, FileType::project, {}, folder(name)));
        settings.pathToEmulator() = emulator;
        settings.saveBuildSettings();
    }

    std::string consoleText() const {
        const ConsoleOutput* console = controller->consoleOutputController();
        return console == nullptr ? "" : console->console()->toPlainText().toStdString();
    }

    /// Waits until the console ends with `line`, all of it shown.
    bool consoleEndsWith(const std::string& line) const {
        return QTest::qWaitFor(
            [&] {
                const ConsoleOutput* console = controller->consoleOutputController();
                return console != nullptr && !console->isBusy() && consoleText().ends_with(line);
            },
            60000);
    }

    LogCapture log;
    TemporaryHome home;
    NotificationCentre centre;
    std::unique_ptr<AppDelegate> delegate;
    std::shared_ptr<MainWindowController> controller;
};

} // namespace kestrel::test
