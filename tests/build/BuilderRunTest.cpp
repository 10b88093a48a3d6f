// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"
#include "build/EmulatorLauncher.h"
#include "model/Paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QThread>

#include <vector>

namespace kestrel {
namespace {

using namespace test;
using ::testing::HasSubstr;

class BuilderRun : public ::testing::Test {
protected:
    void run() {
        const auto builder = m_project.makeBuilder();
        builder->run(m_outcome.runHandler());
        ASSERT_TRUE(waitUntil([&] { return m_outcome.calls() > 0; }));
        EXPECT_EQ(m_outcome.calls(), 1);
        EXPECT_NE(m_outcome.thread(), std::this_thread::get_id());
    }
    /// What the fake emulator was opened with.
    std::string opened() const {
        const auto file = m_project.folder() / "output/opened";
        EXPECT_TRUE(waitUntil([&] { return existsAt(file); })) << "the emulator was not started";
        return contentOf(file);
    }
    std::filesystem::path image() const { return m_project.folder() / "output/Game.nes"; }
    std::filesystem::path desktopEntry(const std::string& exec, const std::string& more = "") {
        return m_project.home.write("emu.desktop", "[Desktop Entry]\nType=Application\nName=Emu\n"
                                                   "Exec=" +
                                                       exec + "\n" + more);
    }
    static std::string here() { return std::filesystem::current_path().string(); }

    BuildProject m_project;
    Outcome m_outcome;
};

TEST_F(BuilderRun, BuildsAndGivesTheImageToTheEmulatorAsItsOnlyArgument) {
    m_project.settings->pathToEmulator() = FAKE_EMULATOR;
    run();
    EXPECT_FALSE(m_outcome.error());
    EXPECT_EQ(opened(), "argument " + image().string() + "\nfolder " + here() + "\n");
}

TEST_F(BuilderRun, WithoutAnEmulatorBuildsFirstAndThenFails) {
    m_project.script("image made\n");
    run();
    EXPECT_EQ(m_outcome.error(), (BuildError{"2", 0, std::nullopt}));
    EXPECT_EQ(contentOf(image()), "made");
}

TEST_F(BuilderRun, OpensTheEmulatorEvenWhenTheAssemblerFailed) {
    m_project.settings->pathToEmulator() = FAKE_EMULATOR;
    m_project.script("exit 1\n");
    run();
    EXPECT_FALSE(m_outcome.error());
    EXPECT_THAT(opened(), HasSubstr(image().string()));
}

TEST_F(BuilderRun, WithAnEmulatorThatCannotBeStartedReportsSuccessAndGoesOn) {
    const auto notExecutable = m_project.home.write("emulator", "#!/bin/sh\n");
    m_project.settings->pathToEmulator() = notExecutable;
    run();
    EXPECT_FALSE(m_outcome.error());
    EXPECT_FALSE(openWithEmulator(image(), notExecutable));
    EXPECT_FALSE(openWithEmulator(image(), m_project.home.path() / "gone"));
    EXPECT_FALSE(openWithEmulator(image(), m_project.home.path()));
    EXPECT_FALSE(openWithEmulator(image(), ""));
}

TEST_F(BuilderRun, TellsWhichEmulatorCouldNotBeStartedAndWhy) {
    const auto reason = [this](const std::filesystem::path& emulator) {
        return openWithEmulator(image(), emulator).reason;
    };
    EXPECT_EQ(reason(m_project.home.write("emulator", "#!/bin/sh\n")), "Permission denied");
    EXPECT_EQ(reason(m_project.home.path() / "gone"), "No such file or directory");
    EXPECT_EQ(reason(""), "no program is named");
    const auto missing = m_project.home.path() / "missing.desktop";
    EXPECT_EQ(reason(missing), missing.string() + " describes no application");
    const auto malformed = desktopEntry("\"unclosed %f");
    EXPECT_EQ(reason(malformed), "the line Exec in " + malformed.string() + " is not correct");
    EXPECT_EQ(openWithEmulator(image(), malformed).emulator, "Emu");
    EXPECT_EQ(openWithEmulator(image(), "/nowhere/fceux").emulator, "fceux");
}

TEST_F(BuilderRun, NamesWhatIsMissingWhenThatIsNotTheChosenFile) {
    const auto reason = [this](const std::filesystem::path& emulator) {
        return openWithEmulator(image(), emulator).reason;
    };
    EXPECT_EQ(reason(desktopEntry("/no/such/prog %f")), "/no/such/prog: No such file or directory");
    EXPECT_EQ(reason(desktopEntry("no-such-prog %f")), "no-such-prog: No such file or directory");
    EXPECT_EQ(reason(desktopEntry(FAKE_EMULATOR, "Path=/no/such/folder\n")),
              "/no/such/folder: No such file or directory");
    const auto script = m_project.home.write("player", "#!/no/such/python3\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    EXPECT_EQ(reason(script), "its first line names /no/such/python3: No such file or directory");
    const auto fromWindows = m_project.home.write("player2", "#! /bin/sh\r\nexit\r\n");
    std::filesystem::permissions(fromWindows, std::filesystem::perms::owner_all);
    EXPECT_EQ(reason(fromWindows), "its first line ends with CR LF, which a script's must not: No "
                                   "such file or directory");
    EXPECT_EQ(reason(desktopEntry(script.string())),
              script.string() +
                  ": its first line names /no/such/python3: No such file or directory");
}

TEST_F(BuilderRun, TellsTheObserverOnTheMainThreadWhatBecameOfTheImage) {
    using State = EmulatorLaunch::State;
    std::vector<EmulatorLaunch> launches;
    const auto runAndObserve = [&] {
        Outcome outcome;
        auto builder = m_project.makeBuilder();
        builder->setLaunchObserver([&launches](const EmulatorLaunch& launch) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            launches.push_back(launch);
        });
        const std::size_t before = launches.size();
        builder->run(outcome.runHandler());
        EXPECT_TRUE(waitUntil([&] { return outcome.calls() == 1 && launches.size() > before; }));
    };
    m_project.script("image made\n");
    runAndObserve();
    m_project.settings->pathToEmulator() = m_project.home.path() / "gone";
    runAndObserve();
    m_project.settings->pathToEmulator() = desktopEntry(FAKE_EMULATOR);
    runAndObserve();
    m_project.script("exit 1\n");
    std::filesystem::remove(image());
    runAndObserve();
    ASSERT_EQ(launches.size(), 4);
    EXPECT_EQ(launches.at(0).state, State::noEmulator);
    EXPECT_EQ(launches.at(1).state, State::failed);
    EXPECT_EQ(launches.at(1).reason, "No such file or directory");
    EXPECT_EQ(launches.at(2).state, State::started);
    EXPECT_EQ(launches.at(2).emulator, "Emu");
    EXPECT_TRUE(launches.at(2).hasImage);
    EXPECT_EQ(launches.at(3).state, State::started);
    EXPECT_FALSE(launches.at(3).hasImage) << "it is started all the same";
}

TEST_F(BuilderRun, StartsADesktopEntryAsItSays) {
    m_project.settings->pathToEmulator() =
        desktopEntry(std::string(FAKE_EMULATOR) + " --full %F \"two words\"");
    run();
    EXPECT_FALSE(m_outcome.error());
    EXPECT_EQ(opened(), "argument --full\nargument " + image().string() +
                            "\nargument two words\nfolder " + here() + "\n");
}

TEST_F(BuilderRun, StartsADesktopEntryInItsWorkingFolder) {
    const auto folder = m_project.home.path() / "emulators home";
    std::filesystem::create_directories(folder);
    std::filesystem::create_directories(m_project.folder() / "output");
    EXPECT_TRUE(
        openWithEmulator(image(), desktopEntry(FAKE_EMULATOR, "Path=" + folder.string() + "\n")));
    EXPECT_EQ(opened(), "argument " + image().string() + "\nfolder " + folder.string() + "\n");
}

TEST_F(BuilderRun, OpensATerminalForADesktopEntryThatWantsOne) {
    // The fake emulator stands in for the terminal too: it writes down all that it is given.
    std::filesystem::create_directories(m_project.folder() / "output");
    std::filesystem::create_directories(m_project.home.path() / "bin");
    std::filesystem::create_symlink(FAKE_EMULATOR,
                                    m_project.home.path() / "bin/x-terminal-emulator");
    const QByteArray formerPath = qgetenv("PATH");
    qputenv("PATH", (m_project.home.path() / "bin").c_str());
    EXPECT_TRUE(openWithEmulator(image(), desktopEntry("emu -x", "Terminal=true\n")));
    qputenv("PATH", formerPath);
    EXPECT_EQ(opened(), "argument -e\nargument emu\nargument -x\nargument " + image().string() +
                            "\nfolder " + here() + "\n");
}

TEST_F(BuilderRun, StartsAGameThatPathDoesNotNameByItsNameAlone) {
    // Of what is installed where games are, the tests know one program. It stands in a terminal, as
    // an argument, so that the stand-in tells by which path it would be started.
    std::filesystem::create_directories(m_project.folder() / "output");
    std::filesystem::create_directories(m_project.home.path() / "bin");
    std::filesystem::create_symlink(FAKE_EMULATOR,
                                    m_project.home.path() / "bin/x-terminal-emulator");
    const QByteArray formerPath = qgetenv("PATH");
    qputenv("PATH", (m_project.home.path() / "bin").c_str());
    EXPECT_TRUE(openWithEmulator(image(), desktopEntry("fceux %f", "Terminal=true\n")));
    qputenv("PATH", formerPath);
    EXPECT_EQ(opened(), "argument -e\nargument /usr/games/fceux\nargument " + image().string() +
                            "\nfolder " + here() + "\n");
}

TEST_F(BuilderRun, StartsWithoutATerminalWhereThereIsNone) {
    std::filesystem::create_directories(m_project.folder() / "output");
    const QByteArray formerPath = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    EXPECT_TRUE(openWithEmulator(image(), desktopEntry(FAKE_EMULATOR, "Terminal=true\n")));
    qputenv("PATH", formerPath);
    EXPECT_THAT(opened(), HasSubstr(image().string()));
}

TEST_F(BuilderRun, DoesNotStartADesktopEntryThatMakesNoSense) {
    EXPECT_FALSE(openWithEmulator(image(), desktopEntry("\"unclosed %f")));
    EXPECT_FALSE(openWithEmulator(image(), m_project.home.path() / "missing.desktop"));
    EXPECT_FALSE(openWithEmulator(
        image(), m_project.home.write("text.desktop", "#!/bin/sh\ntouch /nowhere\n")));
}

} // namespace
} // namespace kestrel
