// SPDX-License-Identifier: MIT
#include "build/InstalledEmulators.h"

#include "support/ApplicationFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QStringList>

namespace kestrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InstalledEmulators : public ::testing::Test {
protected:
    /// The names of the emulators that are found, in their order.
    static std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const InstalledEmulator& emulator : installedEmulators()) {
            result.push_back(emulator.name.toStdString());
        }
        return result;
    }

    /// An entry with all of its lines as given.
    void entry(const std::string& name, const std::string& lines) const {
        folders.write("system/applications/" + name + ".desktop", "[Desktop Entry]\n" + lines);
    }

    test::ApplicationFolders folders;
};

/// Sets the locale of messages as long as it lives.
class MessagesIn {
public:
    explicit MessagesIn(const char* locale, const char* language = "") {
        qputenv("LC_ALL", locale);
        qputenv("LANGUAGE", language);
    }
    ~MessagesIn() {
        qputenv("LC_ALL", m_former);
        qputenv("LANGUAGE", m_formerLanguage);
    }

private:
    QByteArray m_former = qgetenv("LC_ALL");
    QByteArray m_formerLanguage = qgetenv("LANGUAGE");
};

TEST_F(InstalledEmulators, NoneIsFoundWhereNoneIs) {
    EXPECT_THAT(names(), IsEmpty());
    folders.write("system/applications/other.desktop",
                  "[Desktop Entry]\nType=Application\nName=Pictures\nMimeType=image/png;\nExec=" +
                      folders.program("pictures").string() + "\n");
    folders.emulator("system/applications/readme.txt", "No entry");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(InstalledEmulators, OneIsFoundWithItsFileNameAndIcon) {
    const auto file =
        folders.emulator("system/applications/emu.desktop", "An  Emulator", "Icon=emu-icon\n");
    const auto found = installedEmulators();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().file, file);
    EXPECT_EQ(found.front().name.toStdString(), "An Emulator");
    EXPECT_EQ(found.front().icon.toStdString(), "emu-icon");
}

TEST_F(InstalledEmulators, AllFoldersAndThoseBelowThemAreSearchedAndTheNamesSorted) {
    folders.emulator("user/applications/c.desktop", "Bee");
    folders.emulator("local/applications/a.desktop", "Cat");
    folders.emulator("system/applications/games/b.desktop", "Ant");
    EXPECT_THAT(names(), ElementsAre("Ant", "Bee", "Cat"));
}

TEST_F(InstalledEmulators, TheUsersEntryOverridesTheSystemsOfTheSameIdentifier) {
    folders.emulator("system/applications/games/emu.desktop", "System");
    const auto mine = folders.emulator("user/applications/games-emu.desktop", "Mine");
    EXPECT_THAT(names(), ElementsAre("Mine"));
    EXPECT_EQ(installedEmulators().front().file, mine);
    folders.write("user/applications/games-emu.desktop", "[Desktop Entry]\nHidden=true\n");
    EXPECT_THAT(names(), IsEmpty()) << "the user took it away";
}

TEST_F(InstalledEmulators, WhatIsNotToBeShownIsLeftOut) {
    folders.emulator("system/applications/a.desktop", "Hidden", "Hidden=true\n");
    folders.emulator("system/applications/b.desktop", "Not displayed", "NoDisplay=true\n");
    folders.emulator("system/applications/c.desktop", "Shown", "NoDisplay=false\nHidden=false\n");
    EXPECT_THAT(names(), ElementsAre("Shown"));
}

TEST_F(InstalledEmulators, ATestProgramThatIsMissingMeansNotInstalled) {
    folders.emulator("system/applications/a.desktop", "Gone", "TryExec=/nowhere/emulator\n");
    folders.emulator("system/applications/b.desktop", "Gone too", "TryExec=no-such-emulator\n");
    folders.emulator("system/applications/c.desktop", "By path",
                     "TryExec=" + folders.program("probe").string() + "\n");
    folders.emulator("system/applications/d.desktop", "In PATH", "TryExec=sh\n");
    EXPECT_THAT(names(), ElementsAre("By path", "In PATH"));
}

TEST_F(InstalledEmulators, ProgramsWhereGamesAreNeedNotBeInPath) {
    entry("emu", "Type=Application\nName=Game\nMimeType=application/x-nes-rom;\n"
                 "TryExec=fceux\nExec=fceux %f\n");
    const QByteArray formerPath = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    const auto found = names();
    qputenv("PATH", formerPath);
    EXPECT_THAT(found, ElementsAre("Game"));
}

TEST_F(InstalledEmulators, BrokenEntriesAreSkipped) {
    const std::string program = "Exec=" + folders.program("emulator").string() + " %f\n";
    const std::string takes = "MimeType=application/x-nes-rom;\n";
    folders.write("system/applications/binary.desktop", std::string(4096, '\0'));
    folders.write("system/applications/empty.desktop", "");
    std::filesystem::create_directories(folders.path() / "system/applications/folder.desktop");
    std::filesystem::create_symlink("/nowhere",
                                    folders.path() / "system/applications/dangling.desktop");
    entry("no-exec", "Type=Application\nName=A\n" + takes);
    entry("no-name", "Type=Application\n" + takes + program);
    entry("no-type", "Name=B\n" + takes + program);
    entry("unclosed", "Type=Application\nName=C\n" + takes + "Exec=\"emu %f\n");
    entry("no-program", "Type=Application\nName=D\n" + takes + "Exec=/nowhere/emulator %f\n");
    entry("not-utf-8", "Type=Application\nName=\xff\xfe\n" + takes + program);
    entry("whole", "Type=Application\nName=Whole\n" + takes + program);
    EXPECT_THAT(names(), ElementsAre("Whole"));
}

TEST_F(InstalledEmulators, TheTypeMayStandAmongOthersButMustBeTheWholeOne) {
    const std::string rest =
        "Type=Application\nExec=" + folders.program("emulator").string() + " %f\n";
    entry("a", rest + "Name=Among\nMimeType=application/x-snes-rom; application/x-nes-rom\n");
    entry("b", rest + "Name=Longer\nMimeType=application/x-nes-rom-list;\n");
    entry("c", rest + "Name=Emulator of another\nCategories=Game;Emulator;\n");
    entry("d", rest + "Name=None\n");
    EXPECT_THAT(names(), ElementsAre("Among"));
}

TEST_F(InstalledEmulators, NamesAreInTheUsersLanguage) {
    folders.emulator("system/applications/a.desktop", "Emulator",
                     "Name[de]=Emu auf Deutsch\nName[de_AT]=Emu auf Wienerisch\n"
                     "Name[sr@latin]=Emu latinicom\nName[sr]=Emu\n");
    const auto nameIn = [](const char* locale, const char* language = "") {
        const MessagesIn messages(locale, language);
        return names();
    };
    EXPECT_THAT(nameIn("C.UTF-8"), ElementsAre("Emulator"));
    EXPECT_THAT(nameIn("fr_FR.UTF-8"), ElementsAre("Emulator"));
    EXPECT_THAT(nameIn("de_DE.UTF-8"), ElementsAre("Emu auf Deutsch"));
    EXPECT_THAT(nameIn("de"), ElementsAre("Emu auf Deutsch"));
    EXPECT_THAT(nameIn("de_AT.UTF-8@euro"), ElementsAre("Emu auf Wienerisch"));
    EXPECT_THAT(nameIn("sr_RS.UTF-8@latin"), ElementsAre("Emu latinicom"));
    EXPECT_THAT(nameIn("sr_RS"), ElementsAre("Emu"));
    EXPECT_THAT(nameIn("fr_FR.UTF-8", "it:de"), ElementsAre("Emu auf Deutsch"));
    EXPECT_THAT(nameIn("C", "de"), ElementsAre("Emulator"));
}

TEST_F(InstalledEmulators, ARingOfLinksIsNotFollowed) {
    folders.emulator("system/applications/emu.desktop", "Emulator");
    std::filesystem::create_directory_symlink(".", folders.path() / "system/applications/itself");
    EXPECT_THAT(names(), ElementsAre("Emulator"));
}

TEST_F(InstalledEmulators, AnEntryForTheConsoleIsKnownByItsTypeAlone) {
    EXPECT_TRUE(isEmulatorEntry(folders.emulator("any/emu.desktop", "E", "NoDisplay=true\n")));
    EXPECT_FALSE(isEmulatorEntry(folders.write(
        "any/other.desktop", "[Desktop Entry]\nType=Application\nName=O\nExec=other\n")));
    EXPECT_FALSE(isEmulatorEntry(folders.path() / "missing.desktop"));
}

} // namespace
} // namespace kestrel
