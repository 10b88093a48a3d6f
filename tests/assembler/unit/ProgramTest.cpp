// SPDX-License-Identifier: MIT
#include "assembler/run/Program.h"

#include "assembler/unit/ChildProgram.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <utility>

namespace nesasm::test {

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* Good = " .inesprg 1\n .ineschr 0\n .bank 1\n .db 1\n";
constexpr const char* Bad = " wrong\n";

class ProgramTest : public ::testing::Test {
protected:
    ChildResult build(const fs::path& source, const fs::path& output) const {
        ChildStart start;
        start.arguments = {"--input", source.string(), "--output", output.string()};
        return runNesasm(start);
    }
    std::size_t entries() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.path()), {}));
    }
    fs::path at(const char* name) const { return m_folder.path() / name; }

    kestrel::test::TemporaryFolder m_folder;
};

TEST_F(ProgramTest, BuildsAnImageAndSumsItUp) {
    const auto result = build(m_folder.write("a.asm", Good), at("a.nes"));
    EXPECT_EQ(result.status, Built);
    EXPECT_EQ(result.output,
              at("a.nes").string() +
                  ": 16400 bytes, mapper 0, PRG 2 x 8 KiB banks (0 % used), CHR 0 x 8 KiB\n");
    EXPECT_EQ(fs::file_size(at("a.nes")), 16400U);
    EXPECT_EQ(entries(), 2U);
}

TEST_F(ProgramTest, SourceErrorsGive1AndRemoveAnOlderImage) {
    m_folder.write("a.nes", "NES\x1A and more");
    const auto result = build(m_folder.write("a.asm", Bad), at("a.nes"));
    EXPECT_EQ(result.status, SourceErrors);
    EXPECT_FALSE(fs::exists(at("a.nes")));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(ProgramTest, AFileThatIsNoImageIsNotRemoved) {
    m_folder.write("a.nes", "my diary");
    EXPECT_EQ(build(m_folder.write("a.asm", Bad), at("a.nes")).status, SourceErrors);
    EXPECT_EQ(kestrel::test::contentOf(at("a.nes")), "my diary");
}

TEST_F(ProgramTest, AMissingIncludeIsASourceError) {
    EXPECT_EQ(build(m_folder.write("a.asm", " .include \"none\"\n"), at("a.nes")).status,
              SourceErrors);
}

TEST_F(ProgramTest, AMissingInputGives2AndRemovesAnOlderImage) {
    m_folder.write("a.nes", "NES\x1A");
    EXPECT_EQ(build(at("none.asm"), at("a.nes")).status, WrongUse);
    EXPECT_FALSE(fs::exists(at("a.nes")));
}

TEST_F(ProgramTest, AnOutputThatIsReadIsRefused) {
    const auto source = m_folder.write("a.asm", " .incbin \"old.nes\"\n");
    const fs::path old = m_folder.write("old.nes", "NES\x1A");
    ChildStart start;
    start.arguments = {"--input", source.string(), "--output", old.string()};
    start.folder = m_folder.path();
    EXPECT_EQ(runNesasm(start).status, WrongUse);
    EXPECT_EQ(kestrel::test::contentOf(old), "NES\x1A");
    EXPECT_EQ(build(source, source).status, WrongUse);
    EXPECT_EQ(kestrel::test::contentOf(source), " .incbin \"old.nes\"\n");
    fs::create_symlink(source, at("link.nes"));
    EXPECT_EQ(build(source, at("link.nes")).status, WrongUse);
    EXPECT_TRUE(fs::exists(source));
}

TEST_F(ProgramTest, OutputsThatCannotBeWrittenGive2) {
    const auto source = m_folder.write("a.asm", Good);
    fs::create_directory(at("folder"));
    EXPECT_EQ(build(source, at("folder")).status, WrongUse);
    EXPECT_EQ(build(source, at("none") / "a.nes").status, WrongUse);
    ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
    EXPECT_EQ(build(source, at("fifo")).status, WrongUse);
    EXPECT_EQ(build(source, "/dev/null").status, WrongUse);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(ProgramTest, ThingsThatAreNoFilesAreErrorsAndNoHang) {
    fs::create_directory(at("folder"));
    ASSERT_EQ(mkfifo(at("fifo").c_str(), 0600), 0);
    for (const fs::path& input : {at("folder"), at("fifo"), fs::path("/dev/zero")}) {
        EXPECT_EQ(build(input, at("a.nes")).status, WrongUse) << input;
    }
    const std::string names[]{at("folder").string(), at("fifo").string(), "/dev/zero"};
    for (const std::string& name : names) {
        for (const char* const directive : {".include", ".incbin", ".incchr"}) {
            EXPECT_EQ(
                build(m_folder.write("a.asm", std::string(" ") + directive + " \"" + name + "\"\n"),
                      at("a.nes"))
                    .status,
                SourceErrors)
                << directive << name;
        }
    }
}

TEST_F(ProgramTest, AnEmptyFileWithAHugeSizeIsRefused) {
    const fs::path huge = m_folder.write("huge.bin", "");
    fs::resize_file(huge, std::uintmax_t{1} << 40U);
    const auto result =
        build(m_folder.write("a.asm", " .incbin \"" + huge.string() + "\"\n"), at("a.nes"));
    EXPECT_EQ(result.status, SourceErrors);
    EXPECT_THAT(result.output, HasSubstr("larger than 256 MiB"));
}

TEST_F(ProgramTest, AFullDiskLeavesNothingBehind) {
    m_folder.write("a.nes", "NES\x1A old");
    ChildStart start;
    start.arguments = {"--input", m_folder.write("a.asm", Good).string(), "--output",
                       at("a.nes").string()};
    start.largestFile = 1000;
    EXPECT_EQ(runNesasm(start).status, WrongUse);
    EXPECT_FALSE(fs::exists(at("a.nes")));
    EXPECT_EQ(entries(), 1U);
}

TEST_F(ProgramTest, NobodyListeningDoesNotKeepTheImageFromBeingWritten) {
    ChildStart start;
    start.arguments = {"--input", m_folder.write("a.asm", Good).string(), "--output",
                       at("a.nes").string()};
    start.standardOutput = "/dev/full";
    EXPECT_EQ(runNesasm(start).status, Built);
    EXPECT_TRUE(fs::exists(at("a.nes")));
}

TEST_F(ProgramTest, ALinkIsFollowedAndPermissionsAreKept) {
    fs::create_directory(at("real"));
    m_folder.write("real/a.nes", "NES\x1A");
    fs::permissions(at("real") / "a.nes", fs::perms::owner_all);
    fs::create_symlink("real/a.nes", at("a.nes"));
    EXPECT_EQ(build(m_folder.write("a.asm", Good), at("a.nes")).status, Built);
    EXPECT_TRUE(fs::is_symlink(at("a.nes")));
    EXPECT_EQ(fs::file_size(at("real") / "a.nes"), 16400U);
    EXPECT_EQ(fs::status(at("a.nes")).permissions(), fs::perms::owner_all);
}

TEST_F(ProgramTest, FilesWithoutPermissionAreErrors) {
    const auto source = m_folder.write("a.asm", Good);
    const auto secret = m_folder.write("secret.asm", Good);
    const auto fixed = m_folder.write("fixed.nes", "NES\x1A");
    fs::permissions(m_folder.path(), fs::perms::all);
    fs::permissions(source, fs::perms::all);
    fs::permissions(secret, fs::perms::none);
    fs::permissions(fixed, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    ChildStart start;
    start.isOrdinaryUser = true;
    start.arguments = {"--input", source.string(), "--output", at("a.nes").string()};
    ASSERT_EQ(runNesasm(start).status, Built);
    start.arguments[1] = secret.string();
    EXPECT_EQ(runNesasm(start).status, WrongUse);
    start.arguments = {"--input", source.string(), "--output", fixed.string()};
    EXPECT_EQ(runNesasm(start).status, WrongUse);
}

TEST_F(ProgramTest, NesIncludeMayBeTheOnlyVariable) {
    m_folder.write("tmp:x/game.asm", " .include \"code/lib.asm\"\n");
    m_folder.write("tmp:x/lib.asm", Good);
    m_folder.write("elsewhere/code/lib.asm", Bad);
    ChildStart start;
    start.arguments = {"--input", "game.asm", "--output", at("a.nes").string()};
    start.environment = {"NES_INCLUDE=" + at("tmp:x").string()};
    start.folder = at("elsewhere");
    const auto result = runNesasm(start);
    EXPECT_EQ(result.status, Built) << result.output;
    EXPECT_EQ(fs::file_size(at("a.nes")), 16400U);
}

TEST_F(ProgramTest, TheCurrentFolderIsSearchedWhenTheInputComesFromThere) {
    m_folder.write("work/game.asm", " .include \"lib\"\n");
    m_folder.write("work/lib.asm", Good);
    m_folder.write("tmp/lib.asm", Bad);
    ChildStart start;
    start.arguments = {"--input", "game.asm", "--output", at("a.nes").string()};
    start.environment = {"NES_INCLUDE=" + at("tmp").string()};
    start.folder = at("work");
    EXPECT_EQ(runNesasm(start).status, Built);
}

TEST_F(ProgramTest, WhatIsShownIsTextOnly) {
    const auto result = build(
        m_folder.write("a.asm", std::string_view("\t\x1b[31m\xFF\0 wrong\n", 14)), at("a.nes"));
    EXPECT_EQ(result.status, SourceErrors);
    EXPECT_THAT(result.output, HasSubstr("\n\t\uFFFD[31m\uFFFD\uFFFD wrong\n"));
    EXPECT_THAT(result.output, Not(HasSubstr("\x1b")));
}

TEST_F(ProgramTest, WrongUseGives2) {
    EXPECT_EQ(runNesasm({}).status, WrongUse);
    ChildStart start;
    start.arguments = {"--colour"};
    EXPECT_EQ(runNesasm(start).status, WrongUse);
}

TEST_F(ProgramTest, WrongUseRemovesAnOlderImage) {
    const std::string source = m_folder.write("a.asm", Good).string();
    const std::string image = at("a.nes").string();
    const std::vector<std::vector<std::string>> calls{
        {"--bogus", "--input", source, "--output", image},
        {"--output", image, "--input", source, "--max-errors", "many"},
        {"--output=" + image, "--input"},
        {"--output", image},
    };
    for (const auto& call : calls) {
        m_folder.write("a.nes", "NES\x1A and more");
        ChildStart start;
        start.arguments = call;
        EXPECT_EQ(runNesasm(start).status, WrongUse);
        EXPECT_FALSE(fs::exists(image)) << call[0];
    }
    m_folder.write("a.nes", "my diary");
    ChildStart start;
    start.arguments = calls[0];
    EXPECT_EQ(runNesasm(start).status, WrongUse);
    EXPECT_EQ(kestrel::test::contentOf(image), "my diary");
}

TEST_F(ProgramTest, WrongUseRemovesNoImageThatIsRead) {
    const std::string image = m_folder.write("original.nes", "NES\x1A and more").string();
    const std::string source = m_folder.write("a.asm", " .incbin \"original.nes\"\n").string();
    for (const std::string& input : {source, image}) {
        ChildStart start;
        start.arguments = {"--output", image, "--bogus", "--input", input};
        EXPECT_EQ(runNesasm(start).status, WrongUse);
        EXPECT_EQ(kestrel::test::contentOf(image), "NES\x1A and more");
    }
}

TEST_F(ProgramTest, HelpRemovesNothing) {
    m_folder.write("a.nes", "NES\x1A and more");
    ChildStart start;
    start.arguments = {"--output", at("a.nes").string(), "--help"};
    EXPECT_EQ(runNesasm(start).status, Built);
    EXPECT_TRUE(fs::exists(at("a.nes")));
}

TEST_F(ProgramTest, HelpAndVersionGive0) {
    ChildStart start;
    start.arguments = {"--help"};
    const auto help = runNesasm(start);
    EXPECT_EQ(help.status, Built);
    EXPECT_THAT(help.output, HasSubstr("--max-errors"));
    start.arguments = {"--version"};
    EXPECT_THAT(runNesasm(start).output, ::testing::StartsWith("NESasm "));
}

TEST_F(ProgramTest, ColoursAreForTerminals) {
    const auto source = m_folder.write("a.asm", Bad).string();
    const auto output = at("a.nes").string();
    const auto said = [&](const char* wish, bool isTerminal, bool refuses) {
        std::string text;
        const std::string_view arguments[]{"--input", source, "--output", output, "--color", wish};
        EXPECT_EQ(runProgram(arguments, {{}, isTerminal, refuses},
                             [&](std::string_view part) { text += part; }),
                  SourceErrors);
        return text.find('\x1b') != std::string::npos;
    };
    EXPECT_TRUE(said("auto", true, false));
    EXPECT_TRUE(said("always", true, true));
    EXPECT_FALSE(said("auto", true, true));
    EXPECT_FALSE(said("never", true, false));
    EXPECT_FALSE(said("auto", false, false));
    EXPECT_FALSE(said("always", false, false));
}

TEST_F(ProgramTest, MemoryThatIsNotEnoughIsToldAndLeavesNoOldImage) {
    const auto source = m_folder.write("a.asm", Bad).string();
    const auto output = m_folder.write("a.nes", "NES\x1A of yesterday").string();
    const std::string_view arguments[]{"--input", source, "--output", output};
    std::string text;
    bool isFirst = true;
    const TextSink sink = [&](std::string_view part) {
        if (std::exchange(isFirst, false)) {
            throw std::bad_alloc();
        }
        text += part;
    };
    EXPECT_EQ(runProgram(arguments, {}, sink), WrongUse);
    EXPECT_EQ(text, "error: there is not enough memory for this program\n");
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(ProgramTest, VerboseSaysHowFullEachBankIs) {
    ChildStart start;
    start.arguments = {"--input", m_folder.write("a.asm", Good).string(), "--output",
                       at("a.nes").string(), "-v"};
    EXPECT_THAT(runNesasm(start).output, HasSubstr("bank 1: 1 of 8192 bytes (0 %)\n"));
}

} // namespace

} // namespace nesasm::test
