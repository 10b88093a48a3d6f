// SPDX-License-Identifier: MIT
#include "build/DesktopEntry.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using ::testing::ElementsAre;

/// The whole command, program first, of an entry with this Exec line; empty when there is none.
std::vector<std::string> wordsFor(const std::string& exec, const std::string& more = "") {
    const test::TemporaryFolder folder;
    const auto file = folder.write("emu.desktop", "[Desktop Entry]\nType=Application\nName=An Emu\n"
                                                  "Exec=" +
                                                      exec + "\n" + more);
    const auto entry = DesktopEntry::read(file);
    const auto command = entry ? entry->command("/games/My Game.nes") : std::nullopt;
    if (!command) {
        return {};
    }
    std::vector<std::string> words{command->program};
    words.insert(words.end(), command->arguments.begin(), command->arguments.end());
    return words;
}

TEST(DesktopEntry, EveryFileAndUrlCodeBecomesTheDocument) {
    for (const char* code : {"%f", "%F", "%u", "%U"}) {
        EXPECT_THAT(wordsFor(std::string("emu --full ") + code + " --end"),
                    ElementsAre("emu", "--full", "/games/My Game.nes", "--end"));
    }
}

TEST(DesktopEntry, TheDocumentIsAppendedWhenThereIsNoCodeForIt) {
    EXPECT_THAT(wordsFor("emu"), ElementsAre("emu", "/games/My Game.nes"));
    EXPECT_THAT(wordsFor("emu  -x\t-y "), ElementsAre("emu", "-x", "-y", "/games/My Game.nes"));
    EXPECT_THAT(wordsFor("emu %%f"), ElementsAre("emu", "%f", "/games/My Game.nes"));
}

TEST(DesktopEntry, ACodeInsideAWordIsFilledInThere) {
    EXPECT_THAT(wordsFor("emu --rom=%f"), ElementsAre("emu", "--rom=/games/My Game.nes"));
    EXPECT_THAT(wordsFor("emu \"--rom=%f\""), ElementsAre("emu", "--rom=/games/My Game.nes"));
}

TEST(DesktopEntry, IconNameAndLocationCodesAreFilledIn) {
    EXPECT_THAT(wordsFor("emu %i %c %f", "Icon=emu-icon\n"),
                ElementsAre("emu", "--icon", "emu-icon", "An Emu", "/games/My Game.nes"));
    EXPECT_THAT(wordsFor("emu %i %f"), ElementsAre("emu", "/games/My Game.nes"));
    const auto located = wordsFor("emu %k %f");
    ASSERT_EQ(located.size(), 3U);
    EXPECT_EQ(std::filesystem::path(located[1]).filename(), "emu.desktop");
}

TEST(DesktopEntry, ObsoleteAndUnknownCodesAreLeftOut) {
    EXPECT_THAT(wordsFor("emu %d %D %n %N %v %m %q x%y %f %"),
                ElementsAre("emu", "x", "/games/My Game.nes"));
}

TEST(DesktopEntry, QuotedWordsKeepBlanksAndResolveTheirEscapes) {
    EXPECT_THAT(wordsFor(R"("/opt/my emu/emu" "a \\"b\\" \\$c \\\\ \\`d" "" %f)"),
                ElementsAre("/opt/my emu/emu", "a \"b\" $c \\ `d", "", "/games/My Game.nes"));
}

TEST(DesktopEntry, ValueEscapesAreResolvedBeforeQuoting) {
    EXPECT_THAT(wordsFor(R"(emu\s"tab\there" %f)"),
                ElementsAre("emu", "tab\there", "/games/My Game.nes"));
}

TEST(DesktopEntry, NothingIsLeftToAShell) {
    EXPECT_THAT(wordsFor("emu ; rm $HOME 'x y' %f"),
                ElementsAre("emu", ";", "rm", "$HOME", "'x", "y'", "/games/My Game.nes"));
}

TEST(DesktopEntry, AMalformedLineIsNoCommand) {
    EXPECT_TRUE(wordsFor("\"emu %f").empty());
    EXPECT_TRUE(wordsFor("\"\" %f").empty());
    EXPECT_TRUE(wordsFor("").empty());
    EXPECT_TRUE(wordsFor("   ").empty());
    EXPECT_TRUE(wordsFor("%d").empty());
    EXPECT_TRUE(wordsFor("%f -x").empty()) << "the image would be executed";
}

TEST(DesktopEntry, OnlyTheMainGroupCountsAndTheFirstOfARepeatedKey) {
    const test::TemporaryFolder folder;
    const auto file = folder.write("emu.desktop", "# a comment\n[Other]\nExec=wrong\n"
                                                  "[Desktop Entry]\r\nType = Application\r\n"
                                                  "  Exec =  emu %f\r\nExec=second\r\n"
                                                  "Exec[de]=falsch\nPath=/opt/emu\nTerminal=true\n"
                                                  "[Desktop Action x]\nExec=wrong\nPath=/wrong\n");
    const auto entry = DesktopEntry::read(file);
    ASSERT_TRUE(entry);
    const auto command = entry->command("/g.nes");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->program, "emu");
    EXPECT_THAT(command->arguments, ElementsAre("/g.nes"));
    EXPECT_EQ(command->workingFolder, "/opt/emu");
    EXPECT_TRUE(command->inTerminal);
}

TEST(DesktopEntry, OnlyAnApplicationWithACommandIsAnEntry) {
    const test::TemporaryFolder folder;
    for (const char* text :
         {"", "Exec=emu\n", "[Desktop Entry]\nType=Application\n", "[Desktop Entry]\nExec=emu\n",
          "[Desktop Entry]\nType=Link\nExec=emu\n"}) {
        EXPECT_FALSE(DesktopEntry::read(folder.write("emu.desktop", text))) << text;
    }
    EXPECT_FALSE(DesktopEntry::read(folder.path() / "missing.desktop"));
    EXPECT_FALSE(DesktopEntry::read(folder.path()));
}

TEST(DesktopEntry, AFileBeyondAllSenseIsNotRead) {
    const test::TemporaryFolder folder;
    const std::string huge = "[Desktop Entry]\nType=Application\nExec=emu\n#";
    EXPECT_FALSE(DesktopEntry::read(folder.write("emu.desktop", huge + std::string(2 << 20, 'x'))));
}

} // namespace
} // namespace kestrel
