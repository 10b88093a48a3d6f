// SPDX-License-Identifier: MIT
#include "tools/KestrelBuildFixture.h"

#include <algorithm>
#include <sys/stat.h>

namespace kestrel::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class UnreadableProject : public KestrelBuildFixture {
protected:
    /// Both uses of the program refuse the file in a sentence that says `reason`.
    void expectRefused(const fs::path& file, const std::string& reason) const {
        for (const std::vector<std::string>& arguments :
             {std::vector<std::string>{file.string()}, {"--relocate", file.string()}}) {
            const Finished finished = run(arguments);
            EXPECT_EQ(finished.status, 2) << reason;
            EXPECT_THAT(finished.output, IsEmpty());
            EXPECT_THAT(finished.errors, HasSubstr(reason));
        }
    }
};

TEST_F(UnreadableProject, WrongUsageIsRefusedOnStandardErrorOnly) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--frob", "x.kst"}, {"a.kst", "b.kst"}, {""}}) {
        const Finished finished = run(arguments);
        EXPECT_EQ(finished.status, 2);
        EXPECT_THAT(finished.output, IsEmpty());
        EXPECT_THAT(finished.errors, AllOf(StartsWith("kestrel-build: "), EndsWith("\n")));
    }
}

TEST_F(UnreadableProject, HelpAndVersionGoToStandardOutput) {
    const Finished help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, StartsWith("Usage: kestrel-build PROJECT.kst\n"));
    EXPECT_THAT(help.errors, IsEmpty());
    const Finished version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "kestrel-build " KESTREL_VERSION "\n");
}

TEST_F(UnreadableProject, EachKindOfUselessProjectFileIsExplained) {
    const TestProject project(at("game"), "game");
    expectRefused(at("game/none.kst"), "there is no project file");
    expectRefused(at("none/game.kst"), "there is no project file");
    expectRefused(at("game"), "is a folder: name the project file in it");
    expectRefused(at("game").string() + "/", "is a folder: name the project file in it");
    expectRefused(project.file().string() + "/", "project file");
    writeFile(at("game/empty.kst"), "");
    expectRefused(at("game/empty.kst"), "is not a JSON object");
    writeFile(at("game/list.kst"), "[]");
    expectRefused(at("game/list.kst"), "is not a JSON object.");
    writeFile(at("game/other.kst"), R"({"ProjectStructure": 7})");
    expectRefused(at("game/other.kst"), "it has no text \"ProjectStructure\"");
    fs::create_symlink("nowhere", at("game/lost.kst"));
    expectRefused(at("game/lost.kst"), "there is no project file");
    ASSERT_EQ(::mkfifo(at("game/fifo.kst").c_str(), 0600), 0);
    expectRefused(at("game/fifo.kst"), "is not an ordinary file");
    expectRefused(std::string(5000, 'x'), "project file");
}

TEST_F(UnreadableProject, EachKindOfUselessStructureIsExplained) {
    const TestProject project(at("game"), "game");
    writeFile(project.structureFile(), R"({"name": "game"})");
    expectRefused(project.file(), "describes no project");
    writeFile(project.structureFile(), "no JSON");
    expectRefused(project.file(), "is not a JSON object: parse error at line 1, column 2: ");
    fs::remove(project.structureFile());
    expectRefused(project.file(), "there is no structure file");
    fs::create_directory(project.structureFile());
    expectRefused(project.file(), "is a folder, not a structure file");
}

TEST_F(UnreadableProject, AMessageStaysOnItsLineWhateverTheName) {
    const Finished finished = run({at("two\nlines\033[31m.kst").string()});
    EXPECT_THAT(finished.errors, HasSubstr("two\\nlines\\x1B[31m.kst"));
    EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), 1);
}

TEST_F(UnreadableProject, AFileWithoutReadPermissionIsExplained) {
    const TestProject project(at("game"), "game");
    fs::permissions(project.file(), fs::perms::none);
    Program build{.executable = copiedProgram(true), .arguments = {project.file().string()}};
    giveToOrdinaryUser(at("game"));
    build.asOrdinaryUser = true;
    const Finished finished = build.run();
    EXPECT_EQ(finished.status, 2);
    EXPECT_THAT(finished.errors, HasSubstr("may not be read"));
}

TEST_F(UnreadableProject, ANestingThatIsTooDeepIsRefused) {
    const TestProject project(at("game"), "game");
    std::string text;
    for (int level = 0; level < 100'000; ++level) {
        text += R"({"sub_items":[)";
    }
    writeFile(project.structureFile(), text);
    expectRefused(project.file(), "is not a JSON object: it is nested deeper than 1000 levels.");
}

TEST_F(UnreadableProject, ABuildWithoutSettingsFailsAndSaysWhichFileIsMissing) {
    const TestProject project(at("game"), "game");
    fs::remove(project.settingsFile());
    Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, AllOf(HasSubstr("Could not create temp folder to build project"),
                                       HasSubstr("There are no build settings"),
                                       HasSubstr(project.settingsFile().string())));
    writeFile(project.settingsFile(), "{}");
    finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("cannot be understood"));
    writeFile(project.settingsFile(), R"({"output_folder": "", "emulator": ""})");
    EXPECT_THAT(run({project.file().string()}).errors, HasSubstr("name no output folder"));
}

TEST_F(UnreadableProject, ABuildWithoutAnAssemblerSaysSo) {
    const TestProject project(at("game"), "game");
    const Program build{.executable = copiedProgram(false), .arguments = {project.file().string()}};
    const Finished finished = build.run();
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, AllOf(HasSubstr("Could not create temp folder to build project"),
                                       HasSubstr("NESasm is neither beside kestrel-build")));
}

TEST_F(UnreadableProject, AnAssemblerThatCannotBeStartedIsExplained) {
    const TestProject project(at("game"), "game");
    const Program build = programWithAssembler("exit 0", {project.file().string()});
    fs::permissions(at("bin/NESasm"), fs::perms(0644));
    const Finished finished = build.run();
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("Could not start the assembler"));
}

TEST_F(UnreadableProject, AProjectNameThatIsNoFileNameIsExplained) {
    const TestProject project(at("game"), "game");
    std::string structure = contentOf(project.structureFile());
    structure.replace(structure.find("\"game\""), 6, "\"a/b\"");
    writeFile(project.structureFile(), structure);
    fs::create_directories(at("game/.project/a"));
    fs::rename(project.settingsFile(), at("game/.project/a/b-BuildSettings.cfg"));
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("cannot be the name of an image file"));
}

TEST_F(UnreadableProject, WithoutAMainFileTheHintsSayWhatToDo) {
    const TestProject project(at("game"), "game");
    project.setMain("  .org $8000\n");
    Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors,
                AllOf(HasSubstr("Could not find main entry point for assembly file(s)"),
                      HasSubstr("\"; .org $FFFA\" near the top"),
                      Not(HasSubstr("too near the end")), Not(HasSubstr("cannot be read"))));
    fs::remove(project.mainFile());
    EXPECT_THAT(run({project.file().string()}).errors, HasSubstr("main.asm\" cannot be read"));
    project.setMain("  .org $FFFA ; \xFF\n");
    EXPECT_THAT(run({project.file().string()}).errors, HasSubstr("not valid UTF-8"));
}

TEST_F(UnreadableProject, VectorsAtTheEndOfAFileWithCrLfAreHintedAtAndTheCommentHelps) {
    const TestProject project(at("game"), "game");
    std::string source;
    for (const char letter : TestProject::goodSource()) {
        source += letter == '\n' ? "\r\n" : std::string(1, letter);
    }
    source.resize(source.find("$FFFA") + 5);
    source += "\r\n .dw 0\r\n";
    project.setMain(source);
    const Finished missed = run({project.file().string()});
    EXPECT_EQ(missed.status, 1);
    EXPECT_THAT(missed.errors, HasSubstr("the vectors stand too near the end to be found"));
    project.setMain("; .org $FFFA\r\n" + source);
    EXPECT_EQ(run({project.file().string()}).status, 0);
}

TEST_F(UnreadableProject, SettingsThatListNoFileAreHintedAt) {
    const TestProject project(at("game"), "game");
    writeFile(project.settingsFile(), R"({"output_folder": "output", "emulator": ""})");
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("list no assembly file"));
}

} // namespace
} // namespace kestrel::test
