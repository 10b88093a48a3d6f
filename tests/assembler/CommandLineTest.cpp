// SPDX-License-Identifier: MIT
// How the assembler is called: options, exit statuses, what becomes of an older image.
#include "assembler/ProgramRun.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

using kestrel::test::contentOf;
using kestrel::test::ProgramRun;
using kestrel::test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

class CommandLine : public testing::Test {
protected:
    CommandLine() {
        m_folder.write("good.asm", "\tnop\n");
        m_folder.write("bad.asm", "\tbogus\n");
    }

    ProgramRun call(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment = {}) {
        const ProgramRun run =
            ProgramRun::of(KESTREL_NESASM, arguments, environment, m_folder.path());
        EXPECT_EQ(run.errorOutput, "");
        return run;
    }

    /// The call is wrong: status 2, a sentence with `part`, and no image.
    void expectWrongUsage(const std::vector<std::string>& arguments, const std::string& part) {
        const ProgramRun run = call(arguments);
        EXPECT_EQ(run.status, 2) << run.output;
        EXPECT_THAT(run.output, HasSubstr("error: "));
        EXPECT_THAT(run.output, HasSubstr(part));
        EXPECT_THAT(run.output, HasSubstr("--help"));
        EXPECT_FALSE(hasImage());
    }

    bool hasImage() const { return fs::exists(m_folder.path() / "game.nes"); }

    TemporaryFolder m_folder;
};

TEST_F(CommandLine, HelpNamesTheOptionsAndSucceeds) {
    const ProgramRun run = call({"--help"});
    EXPECT_EQ(run.status, 0);
    for (const char* option : {"--input", "--output", "-I", "-D", "-v", "--version"}) {
        EXPECT_THAT(run.output, HasSubstr(option));
    }
}

TEST_F(CommandLine, VersionIsOneLine) {
    const ProgramRun run = call({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, testing::MatchesRegex("NESasm [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(CommandLine, WrongUsageIsStatusTwo) {
    expectWrongUsage({}, "--input");
    expectWrongUsage({"--input", "good.asm"}, "--output");
    expectWrongUsage({"--output", "game.nes"}, "--input");
    expectWrongUsage({"--input"}, "--input");
    expectWrongUsage({"--input", "good.asm", "--output"}, "--output");
    expectWrongUsage({"--input", "good.asm", "--output", "game.nes", "--bogus"}, "--bogus");
    expectWrongUsage({"--input", "good.asm", "--output", "game.nes", "more.asm"}, "more.asm");
    expectWrongUsage({"--input", "good.asm", "--output", "game.nes", "-I"}, "-I");
    expectWrongUsage({"--input", "", "--output", "game.nes"}, "--input");
}

TEST_F(CommandLine, OddBytesInAnArgumentComeOutAsValidText) {
    const ProgramRun run = call({"--\xFF\x1B[31m"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.output, Not(HasSubstr("\x1B")));
    EXPECT_THAT(run.output, Not(HasSubstr("\xFF")));
    EXPECT_THAT(run.output, HasSubstr("\xEF\xBF\xBD"));
}

TEST_F(CommandLine, UnreadableInputIsStatusTwo) {
    fs::create_directory(m_folder.path() / "folder");
    for (const char* input : {"nowhere.asm", "folder", "nowhere/good.asm", "/"}) {
        const ProgramRun run = call({"--input", input, "--output", "game.nes"});
        EXPECT_EQ(run.status, 2) << input;
        EXPECT_THAT(run.output, HasSubstr(input));
        EXPECT_FALSE(hasImage());
    }
}

TEST_F(CommandLine, UnwritableOutputIsStatusTwo) {
    fs::create_directory(m_folder.path() / "folder");
    for (const char* output : {"folder", "nowhere/game.nes", "good.asm/game.nes", "/dev/full/x"}) {
        const ProgramRun run = call({"--input", "good.asm", "--output", output});
        EXPECT_EQ(run.status, 2) << output << run.output;
        EXPECT_THAT(run.output, HasSubstr(output));
    }
    EXPECT_EQ(contentOf(m_folder.path() / "good.asm"), "\tnop\n");
    EXPECT_TRUE(fs::is_empty(m_folder.path() / "folder"));
}

TEST_F(CommandLine, OutputThatIsTheInputIsRefused) {
    for (const char* output : {"good.asm", "./good.asm"}) {
        EXPECT_EQ(call({"--input", "good.asm", "--output", output}).status, 2);
        EXPECT_EQ(contentOf(m_folder.path() / "good.asm"), "\tnop\n");
    }
}

TEST_F(CommandLine, OutputThatIsALinkToTheInputIsRefused) {
    fs::create_symlink("good.asm", m_folder.path() / "link.nes");
    fs::create_hard_link(m_folder.path() / "good.asm", m_folder.path() / "hard.nes");
    EXPECT_EQ(call({"--input", "good.asm", "--output", "link.nes"}).status, 2);
    EXPECT_EQ(call({"--input", "good.asm", "--output", "hard.nes"}).status, 2);
    EXPECT_EQ(contentOf(m_folder.path() / "good.asm"), "\tnop\n");
}

TEST_F(CommandLine, MissingInputRemovesAnOlderImageToo) {
    m_folder.write("game.nes", std::string("NES\x1A", 4) + "yesterday");
    EXPECT_EQ(call({"--input", "nowhere.asm", "--output", "game.nes"}).status, 2);
    EXPECT_FALSE(hasImage());
}

TEST_F(CommandLine, MissingIncludeRemovesAnOlderImageAndIsStatusOne) {
    m_folder.write("game.nes", std::string("NES\x1A", 4) + "yesterday");
    m_folder.write("main.asm", "\t.include \"nowhere.asm\"\n");
    EXPECT_EQ(call({"--input", "main.asm", "--output", "game.nes"}).status, 1);
    EXPECT_FALSE(hasImage());
}

TEST_F(CommandLine, ShortFileThatOnlyBeginsLikeAnImageIsKept) {
    m_folder.write("game.nes", "NES");
    EXPECT_EQ(call({"--input", "bad.asm", "--output", "game.nes"}).status, 1);
    EXPECT_EQ(contentOf(m_folder.path() / "game.nes"), "NES");
}

TEST_F(CommandLine, OlderImageIsReplaced) {
    m_folder.write("game.nes", std::string("NES\x1A", 4) + std::string(100000, 'x'));
    EXPECT_EQ(call({"--input", "good.asm", "--output", "game.nes"}).status, 0);
    EXPECT_EQ(fs::file_size(m_folder.path() / "game.nes"), 8208U);
}

TEST_F(CommandLine, TwoRunsGiveTheSameBytes) {
    EXPECT_EQ(call({"--input", "good.asm", "--output", "one.nes"}).status, 0);
    EXPECT_EQ(call({"--input", "good.asm", "--output", "two.nes"}).status, 0);
    EXPECT_EQ(contentOf(m_folder.path() / "one.nes"), contentOf(m_folder.path() / "two.nes"));
}

TEST_F(CommandLine, NoColoursInAPipe) {
    for (const char* when : {"auto", "never"}) {
        const ProgramRun run =
            call({"--input", "bad.asm", "--output", "game.nes", "--color", when});
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.output, Not(HasSubstr("\x1B")));
    }
    EXPECT_THAT(call({"--input", "bad.asm", "--output", "game.nes"}, {"TERM=xterm"}).output,
                Not(HasSubstr("\x1B")));
}

TEST_F(CommandLine, EmptyVariableIsNoFolder) {
    const ProgramRun run = call({"--input", "good.asm", "--output", "game.nes"}, {"NES_INCLUDE="});
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_TRUE(hasImage());
}

TEST_F(CommandLine, VariableThatNamesNoFolderDoesNoHarm) {
    const ProgramRun run =
        call({"--input", "good.asm", "--output", "game.nes"}, {"NES_INCLUDE=/nowhere:/else"});
    EXPECT_EQ(run.status, 0) << run.output;
}

TEST_F(CommandLine, DefinitionsHaveValuesOrOne) {
    m_folder.write("main.asm", "\t.db ONE,HEX,-MINUS\n");
    const ProgramRun run = call({"--input", "main.asm", "--output", "game.nes", "-D", "ONE", "-D",
                                 "HEX=$2F", "-D", "MINUS=-5"});
    ASSERT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(contentOf(m_folder.path() / "game.nes").substr(16, 3), "\x01\x2F\x05");
}

} // namespace
