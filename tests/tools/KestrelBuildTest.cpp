// SPDX-License-Identifier: MIT
#include "tools/KestrelBuildFixture.h"

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrel::test {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class KestrelBuild : public KestrelBuildFixture {};

/// What NESasm itself prints for the gathered sources of the project.
std::string assemblersText(const TestProject& project) {
    const Program assembler{
        .executable = NESASM_PROGRAM,
        .arguments = {"--input", "main.asm", "--output", project.image().string()},
        .environment = {"NES_INCLUDE=" + (project.folder() / "tmp").string()}};
    return assembler.run().output;
}

void expectImage(const fs::path& image, char value) {
    const std::string bytes = contentOf(image);
    ASSERT_EQ(bytes.size(), 16U + 16384U);
    EXPECT_THAT(bytes, StartsWith("NES\x1A\x01"));
    EXPECT_EQ(bytes.at(16), '\xA9'); // LDA immediate
    EXPECT_EQ(bytes.at(17), value);
}

TEST_F(KestrelBuild, AGoodBuildPrintsWhatTheAssemblerSaysAndNothingElse) {
    const TestProject project(at("game"), "game");
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, IsEmpty());
    EXPECT_THAT(finished.output, Not(IsEmpty()));
    expectImage(project.image(), 1);
    EXPECT_EQ(finished.output, assemblersText(project));
}

TEST_F(KestrelBuild, AnErrorInTheSourceFailsAndLeavesNoOldImage) {
    const TestProject project(at("game"), "game");
    ASSERT_EQ(run({project.file().string()}).status, 0);
    project.setMain("  .org $FFFA\n  nonsense here\n");
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.output, AllOf(HasSubstr("main.asm:2:"), HasSubstr("error")));
    EXPECT_THAT(finished.errors, HasSubstr("no image was made; see what the assembler says"));
    EXPECT_FALSE(fs::exists(project.image()));
}

TEST_F(KestrelBuild, AFileThatCannotBeCopiedFailsAndIsNamedWithTheReason) {
    const TestProject project(at("game"), "game");
    ASSERT_EQ(run({project.file().string()}).status, 0);
    const fs::path temp = project.folder() / "tmp";
    fs::rename(temp, at("elsewhere"));
    fs::create_directory_symlink(at("elsewhere"), temp);
    project.setMain(TestProject::goodSource(2));
    Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.errors, "kestrel-build: \"main.asm\" could not be copied to \"" +
                                   temp.string() +
                                   "\": that is a link; an older copy was built.\n"
                                   "kestrel-build: the image was made, but not of the project's "
                                   "files as they are.\n");
    expectImage(project.image(), 1);

    fs::remove(temp);
    fs::create_directories(temp / "main.asm/inner");
    finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, AllOf(HasSubstr("\"main.asm\" could not be copied to"),
                                       HasSubstr("a folder of its name is there.\n"),
                                       HasSubstr("no image was made; see what the assembler says"),
                                       Not(HasSubstr("the image was made"))));
    fs::remove_all(temp);
    EXPECT_EQ(run({project.file().string()}).status, 0);
    expectImage(project.image(), 2);
}

TEST_F(KestrelBuild, AListedFileThatIsMissingIsLeftToTheAssembler) {
    const TestProject project(at("game"), "game");
    std::string settings = contentOf(project.settingsFile());
    const std::string name = "\"main.asm\"";
    ASSERT_NE(settings.find(name), std::string::npos);
    const std::size_t begin = settings.rfind('{', settings.find(name));
    const std::size_t end = settings.find('}', begin) + 1;
    std::string other = settings.substr(begin, end - begin);
    other.replace(other.find(name), name.size(), "\"gone.asm\"");
    settings.insert(end, "," + other);
    writeFile(project.settingsFile(), settings);
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, IsEmpty());
    project.setMain(TestProject::goodSource() + "  .include \"gone.asm\"\n");
    EXPECT_EQ(run({project.file().string()}).status, 1);
}

TEST_F(KestrelBuild, FilesForDebuggersNameTheProjectsFilesInsteadOfTheirCopies) {
    const TestProject project(at("game"), "game");
    project.setMain("\t.labels \"dbg\"\n" + TestProject::goodSource());
    ASSERT_EQ(run({project.file().string()}).status, 0);
    const std::string text = contentOf(project.image().replace_extension(".dbg"));
    EXPECT_THAT(text, HasSubstr("name=\"../src/main.asm\""));
    EXPECT_THAT(text, Not(HasSubstr("tmp")));
}

TEST_F(KestrelBuild, BuildingTheSameBytesAgainIsSuccess) {
    const TestProject project(at("game"), "game");
    ASSERT_EQ(run({project.file().string()}).status, 0);
    const std::string first = contentOf(project.image());
    EXPECT_EQ(run({project.file().string()}).status, 0);
    EXPECT_EQ(contentOf(project.image()), first);
}

TEST_F(KestrelBuild, AnImageOfAnEarlierBuildIsNoSuccess) {
    const TestProject project(at("game"), "game");
    writeFile(project.image(), "yesterday's");
    for (const char* script : {"exit 0", "exit 1", "echo done", "kill -9 $$"}) {
        const Finished finished = programWithAssembler(script, {project.file().string()}).run();
        EXPECT_EQ(finished.status, 1) << script;
        EXPECT_THAT(finished.errors, HasSubstr("no image was made")) << script;
    }
    EXPECT_EQ(contentOf(project.image()), "yesterday's");
}

TEST_F(KestrelBuild, NeitherAFolderNorALostLinkIsAnImage) {
    const TestProject project(at("game"), "game");
    fs::create_directories(project.image());
    EXPECT_EQ(run({project.file().string()}).status, 1);
    fs::remove(project.image());
    const Finished finished =
        programWithAssembler("ln -s nowhere \"$4\"", {project.file().string()}).run();
    EXPECT_EQ(finished.status, 1);
}

TEST_F(KestrelBuild, AnImageThatWasMadeIsSuccessWhateverTheAssemblersStatus) {
    const TestProject project(at("game"), "game");
    const Finished finished =
        programWithAssembler("echo bytes >\"$4\"; exit 3", {project.file().string()}).run();
    EXPECT_EQ(finished.status, 0) << finished.errors;
}

TEST_F(KestrelBuild, TheTextComesThroughByteForByte) {
    const TestProject project(at("game"), "game");
    std::string text = std::string("one\r\ntwo\rthree \033[1m \0 four", 26) + "\xEF\xBB\xBF";
    for (int i = 0; i < 300'000; ++i) {
        text += "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8E\xAE"; // 1, 2, 3 and 4 bytes a character
    }
    writeFile(project.folder() / "text", text);
    const Finished finished = programWithAssembler("cat \"$NES_INCLUDE/../text\"; echo x >\"$4\"",
                                                   {project.file().string()})
                                  .run();
    EXPECT_EQ(finished.status, 0);
    EXPECT_TRUE(finished.output == text) << finished.output.size() << " of " << text.size();
}

TEST_F(KestrelBuild, TextThatIsNotUtf8IsNotPrintedAndDecidesNothing) {
    const TestProject project(at("game"), "game");
    const Finished finished =
        programWithAssembler("printf 'a\\377b'; echo x >\"$4\"", {project.file().string()}).run();
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.output, IsEmpty());
}

TEST_F(KestrelBuild, TheBytesAreTheSameFromWhateverFolder) {
    const TestProject project(at("place/game"), "game");
    writeFile(at("place/decoy/main.asm"), TestProject::goodSource(99));
    writeFile(at("place/decoy/part.asm"), "  .db 99\n");
    writeFile(at("place/game/src/part.asm"), "  .db 5\n");
    project.setMain(TestProject::goodSource(1) + "  .bank 0\n  .org $D000\n");
    ASSERT_EQ(run({project.file().string()}).status, 0);
    const std::string expected = contentOf(project.image());
    struct Start {
        fs::path folder;
        std::string argument;
    };
    for (const Start& start :
         {Start{at("place/game"), "game.kst"}, Start{at("place"), "game/game.kst"},
          Start{at("place/decoy"), "../game/game.kst"},
          Start{at("place/decoy"), "./.././game//game.kst"},
          Start{at("place/game/src"), "../game.kst"}}) {
        fs::remove(project.image());
        Program again = program({start.argument});
        again.folder = start.folder;
        const Finished finished = again.run();
        EXPECT_EQ(finished.status, 0) << start.argument << finished.errors;
        EXPECT_THAT(finished.errors, IsEmpty()) << start.argument;
        EXPECT_EQ(contentOf(project.image()), expected) << start.argument;
    }
}

TEST_F(KestrelBuild, RelativePathsInTheFilesCountFromTheProjectsFolder) {
    const TestProject project(at("game"), "game");
    std::string settings = contentOf(project.settingsFile());
    for (const std::string name : {"output", "src"}) {
        const std::string folder = (project.folder() / name).string();
        settings.replace(settings.find(folder), folder.size(), name);
    }
    writeFile(project.settingsFile(), settings);
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, IsEmpty());
    expectImage(project.image(), 1);
    EXPECT_FALSE(fs::exists(at("output")));
}

TEST_F(KestrelBuild, AProjectWhoseFilesNameNoAbsoluteFolderIsAtHomeWhereItLies) {
    const TestProject project(at("game"), "game", "");
    const Finished finished = run({project.file().string()});
    EXPECT_EQ(finished.status, 0) << finished.errors;
    expectImage(project.image(), 1);
}

TEST_F(KestrelBuild, NamesMayHoldBlanksLineBreaksAndAnyLetters) {
    for (const std::string name : {"My Game", "Spiel \xC3\xA4\xC3\xB6 \xE2\x82\xAC", "two\nlines",
                                   "a:b", "quote\"s'", "-dash", "100%"}) {
        const TestProject project(at("folder of " + name), name);
        Program build = program({"--", name + ".kst"});
        build.folder = project.folder();
        const Finished finished = build.run();
        EXPECT_EQ(finished.status, 0) << name << ": " << finished.errors;
        EXPECT_THAT(finished.errors, IsEmpty());
        expectImage(project.image(), 1);
    }
}

TEST_F(KestrelBuild, TheProjectFileMayHaveAnotherNameThanTheProject) {
    const TestProject project(at("game"), "game");
    fs::rename(project.file(), at("game/other name"));
    EXPECT_EQ(run({at("game/other name").string()}).status, 0);
    expectImage(project.image(), 1);
}

TEST_F(KestrelBuild, ItNeedsNothingOfItsEnvironment) {
    const TestProject project(at("game"), "game");
    const Program bare{.executable = "/usr/bin/env",
                       .arguments = {"-i", KESTREL_BUILD_PROGRAM, project.file().string()}};
    const Finished finished = bare.run();
    EXPECT_EQ(finished.status, 0);
    EXPECT_THAT(finished.errors, IsEmpty());
}

TEST_F(KestrelBuild, AProgramWithoutALocaleSaysNothingAboutIt) {
    const TestProject project(at("game"), "game");
    Program build = program({project.file().string()});
    build.environment = {"LC_ALL=C", "LANG=C"};
    EXPECT_THAT(build.run().errors, IsEmpty());
}

TEST_F(KestrelBuild, AReaderThatGoesAwayChangesNothing) {
    const TestProject project(at("game"), "game");
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ::close(ends[0]);
    const int process = program({project.file().string()}).start(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    EXPECT_EQ(statusOf(process), 0);
    expectImage(project.image(), 1);
}

TEST_F(KestrelBuild, AStreamThatDoesNotBlockGetsAllTheText) {
    const TestProject project(at("game"), "game");
    const std::string text(3'000'000, 'x'); // more than a pipe holds
    writeFile(project.folder() / "text", text);
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ASSERT_EQ(::fcntl(ends[1], F_SETFL, O_NONBLOCK), 0);
    const int process = programWithAssembler("cat \"$NES_INCLUDE/../text\"; echo x >\"$4\"",
                                             {project.file().string()})
                            .start(ends[1], STDERR_FILENO);
    ::close(ends[1]);
    std::size_t received = 0;
    char piece[4096];
    for (ssize_t count = 0; (count = ::read(ends[0], piece, sizeof piece)) > 0;) {
        received += static_cast<std::size_t>(count);
    }
    ::close(ends[0]);
    EXPECT_EQ(statusOf(process), 0);
    EXPECT_EQ(received, text.size());
}

TEST_F(KestrelBuild, TextThatCannotBeWrittenIsAFailureThatIsSaid) {
    const TestProject project(at("game"), "game");
    Program build = program({project.file().string()});
    build.outputFile = "/dev/full";
    const Finished onFullDisk = build.run();
    EXPECT_EQ(onFullDisk.status, 1);
    EXPECT_THAT(onFullDisk.errors, HasSubstr("standard output could not be written"));
    expectImage(project.image(), 1);

    build = program({project.file().string()});
    build.closesOutput = true;
    EXPECT_EQ(build.run().status, 1);
    Program help = program({"--help"});
    help.outputFile = "/dev/full";
    EXPECT_EQ(help.run().status, 1);
}

TEST_F(KestrelBuild, BeingEndedEndsTheAssemblerToo) {
    const TestProject project(at("game"), "game");
    const fs::path fifo = project.folder() / "fifo";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const Program endless =
            programWithAssembler("exec 3>\"$NES_INCLUDE/../fifo\"\necho started >&3\n"
                                 "while :; do sleep 1000; done",
                                 {project.file().string()});
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        const int process = endless.start(nowhere, STDERR_FILENO);
        ::close(nowhere);
        const int reader = ::open(fifo.c_str(), O_RDONLY | O_CLOEXEC); // until there is a writer
        char letter = 0;
        EXPECT_EQ(::read(reader, &letter, 1), 1);
        ::kill(process, signal);
        EXPECT_EQ(statusOf(process), 128 + signal);
        while (::read(reader, &letter, 1) > 0) {
        } // ends when the assembler and its children are gone
        ::close(reader);
    }
}

TEST_F(KestrelBuild, ABuildIsIndependentOfWhetherTheParentIgnoresChildren) {
    const TestProject project(at("game"), "game");
    const Program shell{.executable = "/bin/sh",
                        .arguments = {"-c", "trap '' CHLD PIPE; exec \"$0\" \"$1\"",
                                      KESTREL_BUILD_PROGRAM, project.file().string()}};
    EXPECT_EQ(shell.run().status, 0);
}

} // namespace
} // namespace kestrel::test
