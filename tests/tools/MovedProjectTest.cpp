// SPDX-License-Identifier: MIT
#include "model/Json.h"
#include "tools/KestrelBuildFixture.h"

#include <algorithm>
#include <csignal>

namespace kestrel::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class MovedProject : public KestrelBuildFixture {
protected:
    /// The folder that the files of a moved project name; it is not there.
    fs::path former() const { return at("gone/old"); }

    Finished relocate(const TestProject& project) const {
        return run({"--relocate", project.file().string()});
    }

    /// A relocation in which a rename goes wrong: see RenameFault.cpp.
    Finished relocateWithFault(const TestProject& project, const std::string& fault) const {
        Program relocation = program({"--relocate", project.file().string()});
        relocation.environment = {"LD_PRELOAD=" RENAME_FAULT_LIBRARY, "RENAME_FAULT=" + fault};
        return relocation.run();
    }

    /// That the files of a project say all that they said, of another folder.
    static void expectNamed(const TestProject& project, const fs::path& folder) {
        const TestProject like(project.folder().string() + "-expected",
                               project.file().stem().string(), folder);
        const auto same = [](const fs::path& one, const fs::path& other) {
            EXPECT_EQ(parseJson(contentOf(one)), parseJson(contentOf(other))) << one;
        };
        same(project.structureFile(), like.structureFile());
        same(project.settingsFile(), like.settingsFile());
        same(project.file(), like.file());
    }

    static std::size_t filesIn(const fs::path& folder) {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
};

TEST_F(MovedProject, ItIsBuiltWhereItLiesAndOneLineSaysSo) {
    const TestProject project(at("new"), "game", former());
    const auto files = stateOf(at("new/.project"));
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 0);
    EXPECT_TRUE(fs::exists(project.image()));
    EXPECT_THAT(finished.errors,
                AllOf(HasSubstr('"' + former().string() + '"'), HasSubstr(at("new").string())));
    EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), 1);
    EXPECT_EQ(stateOf(at("new/.project")), files);
    EXPECT_FALSE(fs::exists(at("gone")));
}

TEST_F(MovedProject, ACopyIsBuiltFromItsOwnFilesAndTheOriginalIsNotTouched) {
    const TestProject original(at("old"), "game");
    ASSERT_EQ(run({original.file().string()}).status, 0);
    fs::copy(at("old"), at("new"), fs::copy_options::recursive);
    const TestProject copy(at("new"), "game", at("old"));
    copy.setMain(TestProject::goodSource(42));
    const auto before = stateOf(at("old"));
    EXPECT_EQ(run({copy.file().string()}).status, 0);
    EXPECT_EQ(contentOf(copy.image()).at(17), 42);
    EXPECT_EQ(relocate(copy).status, 0);
    EXPECT_EQ(run({copy.file().string()}).status, 0);
    EXPECT_EQ(stateOf(at("old")), before);
}

TEST_F(MovedProject, NamesThatOnlyBeginLikeTheFormerFolderStay) {
    const TestProject project(at("old"), "game");
    const TestProject neighbour(at("old and more"), "other");
    neighbour.setMain(TestProject::goodSource(7));
    std::string settings = contentOf(project.settingsFile());
    const std::string source = at("old").string() + "/src";
    settings.replace(settings.find(source), source.size(), at("old and more").string() + "/src");
    writeFile(project.settingsFile(), settings);
    fs::rename(at("old"), at("new"));
    const TestProject moved(at("elsewhere"), "unused");
    EXPECT_EQ(run({at("new/game.kst").string()}).status, 0);
    EXPECT_EQ(contentOf(at("new/output/game.nes")).at(17), 7);
}

TEST_F(MovedProject, ThroughALinkToItsFolderItHasNotMoved) {
    const TestProject project(at("game"), "game");
    fs::create_directory_symlink(at("game"), at("link"));
    const Finished finished = run({at("link/game.kst").string()});
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, IsEmpty());
    const Finished relocation = run({"--relocate", at("link/game.kst").string()});
    EXPECT_EQ(relocation.status, 0);
    EXPECT_THAT(relocation.output, HasSubstr("nothing to do"));
}

TEST_F(MovedProject, AnImageThatIsALinkBackIsNotMadeInTheFormerFolder) {
    const TestProject original(at("old"), "game");
    fs::create_directories(at("old/output"));
    const TestProject copy(at("new"), "game", at("old"));
    fs::create_directories(at("new/output"));
    fs::create_symlink(original.image(), copy.image());
    const auto before = stateOf(at("old"));
    EXPECT_EQ(run({copy.file().string()}).status, 1);
    EXPECT_EQ(stateOf(at("old")), before);
}

TEST_F(MovedProject, CopiesThatLieInTheFormerFolderAreNotBuilt) {
    const TestProject original(at("old"), "game");
    ASSERT_EQ(run({original.file().string()}).status, 0);
    const TestProject copy(at("new"), "game", at("old"));
    fs::create_directory_symlink(at("old/tmp"), at("new/tmp"));
    const auto before = stateOf(at("old"));
    const Finished finished = run({copy.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("whose files would be built. Nothing was built."));
    EXPECT_FALSE(fs::exists(copy.image()));
    EXPECT_EQ(stateOf(at("old")), before);
}

TEST_F(MovedProject, ALinkBackIntoTheFormerFolderIsNotWrittenThrough) {
    const TestProject original(at("old"), "game");
    fs::create_directories(at("old/output"));
    const TestProject copy(at("new"), "game", at("old"));
    fs::create_directory_symlink(at("old/output"), at("new/output"));
    const auto before = stateOf(at("old"));
    const Finished finished = run({copy.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("to which a link leads. Nothing was built."));
    fs::remove(copy.settingsFile());
    fs::create_symlink(original.settingsFile(), copy.settingsFile());
    EXPECT_EQ(relocate(copy).status, 1);
    EXPECT_EQ(stateOf(at("old")), before);
}

TEST_F(MovedProject, RelocatingWritesTheNewFolderAndAllElseStays) {
    const TestProject project(at("new"), "game", former());
    const Finished finished = relocate(project);
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.output, HasSubstr("Relocated from \"" + former().string()));
    EXPECT_THAT(finished.errors, IsEmpty());
    expectNamed(project, at("new"));
    const Finished build = run({project.file().string()});
    EXPECT_EQ(build.status, 0);
    EXPECT_THAT(build.errors, IsEmpty());
}

TEST_F(MovedProject, RelocatingTwiceChangesNothingTheSecondTime) {
    const TestProject project(at("new"), "game", former());
    ASSERT_EQ(relocate(project).status, 0);
    const auto files = stateOf(at("new"));
    const Finished again = relocate(project);
    EXPECT_EQ(again.status, 0);
    EXPECT_THAT(again.output, HasSubstr("nothing to do"));
    EXPECT_EQ(stateOf(at("new")), files);
}

TEST_F(MovedProject, RelocatingFromTheProjectsFolderNamesItInFull) {
    const TestProject project(at("new"), "game", former());
    Program relocation = program({"--relocate", "game.kst"});
    relocation.folder = at("new");
    EXPECT_EQ(relocation.run().status, 0);
    expectNamed(project, fs::canonical(at("new")));
}

TEST_F(MovedProject, RelocatingKeepsWhatItDoesNotKnow) {
    const TestProject project(at("new"), "game", former());
    writeFile(project.settingsFile(), R"({"future": [1, {"x": null}], "emulator": "/opt/emu",
        "output_folder": "/elsewhere", "code_assembly_files": "none", "Version": "9"})");
    std::string structure = contentOf(project.structureFile());
    structure.insert(1, R"("comment": "mine",)");
    writeFile(project.structureFile(), structure);
    const auto settings = parseJson(contentOf(project.settingsFile()));
    ASSERT_EQ(relocate(project).status, 0);
    EXPECT_EQ(parseJson(contentOf(project.settingsFile())), settings);
    EXPECT_THAT(contentOf(project.structureFile()), HasSubstr(R"("comment":"mine")"));
}

TEST_F(MovedProject, AnEmulatorMovesOnlyFromBelowTheProject) {
    const TestProject project(at("new"), "game", former());
    writeFile(project.settingsFile(), Dictionary{{"emulator", (former() / "bin/emu").string()},
                                                 {"output_folder", (former() / "output").string()}}
                                          .dump());
    ASSERT_EQ(relocate(project).status, 0);
    const auto settings = parseJson(contentOf(project.settingsFile()));
    EXPECT_EQ(settings->at("emulator"), (at("new") / "bin/emu").string());
    EXPECT_EQ(settings->at("output_folder"), (at("new") / "output").string());
}

TEST_F(MovedProject, AFailedRenameIsUndoneAndTheNextRunRelocates) {
    const TestProject project(at("new"), "game", former());
    for (const std::string fault : {"fail:1", "fail:2"}) {
        const Finished failed = relocateWithFault(project, fault);
        EXPECT_EQ(failed.status, 1) << fault;
        EXPECT_THAT(failed.errors, HasSubstr("could not be written")) << fault;
        expectNamed(project, former());
        EXPECT_EQ(filesIn(at("new/.project")), 2U) << fault;
    }
    EXPECT_EQ(relocate(project).status, 0);
    expectNamed(project, at("new"));
}

TEST_F(MovedProject, ARelocationThatIsCutShortIsRepairedByTheNext) {
    for (const std::string fault : {"die:1", "die:2"}) {
        const TestProject project(at("new " + fault), "game", former());
        EXPECT_EQ(relocateWithFault(project, fault).status, 128 + SIGKILL);
        EXPECT_EQ(run({project.file().string()}).status, 0) << "it builds in between too";
        EXPECT_EQ(relocate(project).status, 0);
        expectNamed(project, project.folder());
    }
}

TEST_F(MovedProject, WithoutWritePermissionNothingChanges) {
    const TestProject project(at("new"), "game", former());
    Program relocation{.executable = copiedProgram(true),
                       .arguments = {"--relocate", project.file().string()}};
    relocation.asOrdinaryUser = true;
    giveToOrdinaryUser(at("new"));
    fs::permissions(at("new/.project"), fs::perms(0555));
    EXPECT_EQ(relocation.run().status, 1);
    fs::permissions(at("new/.project"), fs::perms(0755));
    fs::permissions(project.structureFile(), fs::perms(0444));
    EXPECT_EQ(relocation.run().status, 1);
    expectNamed(project, former());
    EXPECT_EQ(filesIn(at("new/.project")), 2U);
    fs::permissions(project.structureFile(), fs::perms(0640));
    EXPECT_EQ(relocation.run().status, 0);
    EXPECT_EQ(fs::status(project.structureFile()).permissions(), fs::perms(0640));
}

TEST_F(MovedProject, SettingsThatAreNotUnderstoodAreLeftAlone) {
    const TestProject project(at("new"), "game", former());
    writeFile(project.settingsFile(), "{ half a");
    const auto files = stateOf(at("new"));
    const Finished finished = relocate(project);
    EXPECT_EQ(finished.status, 2);
    EXPECT_THAT(finished.errors, HasSubstr("Nothing was changed"));
    EXPECT_EQ(stateOf(at("new")), files);
}

TEST_F(MovedProject, WithoutSettingsTheStructureIsRelocatedAlone) {
    const TestProject project(at("new"), "game", former());
    fs::remove(project.settingsFile());
    const Finished finished = relocate(project);
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, HasSubstr("there are no build settings"));
    EXPECT_FALSE(fs::exists(project.settingsFile()));
    EXPECT_THAT(contentOf(project.structureFile()), Not(HasSubstr(former().string())));
}

TEST_F(MovedProject, MembersThatAreThereTwiceAreKeptInABackup) {
    const TestProject project(at("new"), "game", former());
    std::string text = contentOf(project.structureFile());
    text.insert(1, R"("name": "lost",)");
    writeFile(project.structureFile(), text);
    ASSERT_EQ(relocate(project).status, 0);
    EXPECT_EQ(contentOf(project.structureFile().string() + ".bak"), text);
}

TEST_F(MovedProject, AFolderThatJsonCannotNameIsBuiltNeitherNorWritten) {
    const TestProject project(at("new \xFF"), "game", former());
    const auto files = stateOf(project.folder());
    const Finished finished = relocate(project);
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("not valid UTF-8"));
    EXPECT_EQ(stateOf(project.folder()), files);
    const Finished build = run({project.file().string()});
    EXPECT_EQ(build.status, 1);
    EXPECT_FALSE(fs::exists(project.image()));
}

TEST_F(MovedProject, AProjectNameWithASeparatorIsNotFollowed) {
    const TestProject project(at("new"), "game", former());
    std::string structure = contentOf(project.structureFile());
    structure.replace(structure.find("\"game\""), 6, "\"../../x\"");
    writeFile(project.structureFile(), structure);
    const Finished finished = relocate(project);
    EXPECT_EQ(finished.status, 2);
    EXPECT_THAT(finished.errors, HasSubstr("holds a \"/\""));
    EXPECT_EQ(contentOf(project.structureFile()), structure);
}

} // namespace
} // namespace kestrel::test
