// SPDX-License-Identifier: MIT
#include "model/Json.h"
#include "support/ApplicationFolders.h"
#include "tools/KestrelBuildFixture.h"

namespace kestrel::test {
namespace {

using ::testing::HasSubstr;

class EmulatorChoiceTest : public KestrelBuildFixture {
protected:
    Finished findEmulator() const { return run({"--find-emulator", project.file().string()}); }

    /// The settings as they are and as they would be with this emulator.
    Dictionary settings() const { return parseJson(contentOf(project.settingsFile())).value(); }
    Dictionary settingsWith(const std::filesystem::path& emulator) const {
        Dictionary result = settings();
        result["emulator"] = emulator.string();
        return result;
    }

    ApplicationFolders folders;
    const TestProject project{at("game"), "game"};
};

TEST_F(EmulatorChoiceTest, TheFirstInstalledEmulatorIsWrittenAndNothingElseChanges) {
    folders.emulator("system/applications/a.desktop", "Second");
    const auto first = folders.emulator("system/applications/b.desktop", "First");
    const Dictionary expected = settingsWith(first);
    ASSERT_NE(settings(), expected);
    const Finished finished = findEmulator();
    EXPECT_EQ(finished.status, 0) << finished.errors;
    EXPECT_THAT(finished.output, HasSubstr(first.string()));
    EXPECT_EQ(settings(), expected);
    EXPECT_FALSE(std::filesystem::exists(project.image()));
}

TEST_F(EmulatorChoiceTest, AUsersOwnChoiceStays) {
    folders.emulator("system/applications/emu.desktop", "Emulator");
    Dictionary chosen = settingsWith("/my/own/emulator");
    chosen["mine"] = "stays";
    writeFile(project.settingsFile(), chosen.dump());
    const auto before = stateOf(at("game"));
    const Finished finished = findEmulator();
    EXPECT_EQ(finished.status, 0) << finished.errors;
    EXPECT_THAT(finished.output, HasSubstr("/my/own/emulator"));
    EXPECT_EQ(stateOf(at("game")), before);
}

TEST_F(EmulatorChoiceTest, WithoutAnInstalledEmulatorNothingChanges) {
    const auto before = stateOf(at("game"));
    const Finished finished = findEmulator();
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("no emulator for the NES is installed"));
    EXPECT_EQ(stateOf(at("game")), before);
}

TEST_F(EmulatorChoiceTest, SettingsThatMakeNoSenseStay) {
    folders.emulator("system/applications/emu.desktop", "Emulator");
    for (const char* text : {"", "[]", "{}", R"({"emulator": 1})"}) {
        writeFile(project.settingsFile(), text);
        EXPECT_EQ(findEmulator().status, 2) << text;
        EXPECT_EQ(contentOf(project.settingsFile()), text);
    }
}

TEST_F(EmulatorChoiceTest, TheSystemsOtherNamesForTheFileTypeCountToo) {
    folders.write("system/mime/packages/rom.xml",
                  "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">"
                  "<mime-type type=\"application/x-other-rom\"><glob pattern=\"*.nes\"/>"
                  "</mime-type></mime-info>");
    const auto emulator = folders.write("system/applications/emu.desktop",
                                        "[Desktop Entry]\nType=Application\nName=Other\n"
                                        "MimeType=application/x-other-rom;\nExec=" +
                                            folders.program("emulator").string() + " %f\n");
    EXPECT_EQ(findEmulator().status, 0);
    EXPECT_EQ(settings()["emulator"], emulator.string());
}

} // namespace
} // namespace kestrel::test
