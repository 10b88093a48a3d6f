// SPDX-License-Identifier: MIT
// What no small file can show: sources of enormous lines, deep nesting, every odd byte, and places
// in the file system that cannot be checked in.
#include "assembler/HexImage.h"
#include "assembler/ProgramRun.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

using kestrel::test::HexImage;
using kestrel::test::ProgramRun;
using kestrel::test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

constexpr std::size_t Million = 1U << 20U;

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

/// How many bytes the UTF-8 character that begins here has, 0 when none begins.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = byte(0) < 0x80   ? 1
                               : byte(0) < 0xC2 ? 0
                               : byte(0) < 0xE0 ? 2
                               : byte(0) < 0xF0 ? 3
                               : byte(0) < 0xF5 ? 4
                                                : 0;
    if (length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80) {
            return 0;
        }
    }
    return length;
}

/// Is this valid UTF-8 without control characters but line ends and tabs?
bool isPlainText(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const unsigned char first = static_cast<unsigned char>(text[0]);
        const bool control =
            (first < 0x20 && first != '\n' && first != '\t') || first == 0x7F ||
            (first == 0xC2 && length == 2 && static_cast<unsigned char>(text[1]) < 0xA0);
        if (length == 0 || control) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

/// Sources in a folder of their own, assembled into game.nes beside them.
class GeneratedSources : public testing::Test {
protected:
    ProgramRun assemble(std::string_view source) {
        m_folder.write("project/main.asm", source);
        return call();
    }

    ProgramRun call() const {
        return ProgramRun::of(KESTREL_NESASM, {"--input", "main.asm", "--output", image().string()},
                              {"NES_INCLUDE=" + (m_folder.path() / "project").string()},
                              m_folder.path());
    }

    fs::path image() const { return m_folder.path() / "game.nes"; }

    /// The image in readable form, "none" when there is none.
    std::string made() const {
        return fs::exists(image()) ? HexImage::describe(content(image())) : "none";
    }

    static std::string content(const fs::path& path) { return kestrel::test::contentOf(path); }

    void expectError(const ProgramRun& run, const std::string& part) const {
        EXPECT_EQ(run.status, 1) << run.output.substr(0, 2000) << run.errorOutput;
        EXPECT_THAT(run.output.substr(0, 4000), HasSubstr(part));
        EXPECT_EQ(run.errorOutput, "");
        EXPECT_EQ(made(), "none");
        EXPECT_LT(run.output.size(), 4 * Million);
        EXPECT_TRUE(isPlainText(run.output));
    }

    void expectImage(const ProgramRun& run, const std::string& hex) const {
        EXPECT_EQ(run.status, 0) << run.output.substr(0, 2000) << run.errorOutput;
        EXPECT_EQ(made(), hex);
    }

    TemporaryFolder m_folder;
};

TEST_F(GeneratedSources, CommentOfAMegabyte) {
    expectImage(assemble("\tnop ;" + std::string(Million, 'x') + "\n\tinx\n"),
                "size 8208\n0:0000: EA E8\n");
}

TEST_F(GeneratedSources, BlanksOfAMegabyte) {
    expectImage(assemble("\tlda" + std::string(Million, ' ') + "#1\n"),
                "size 8208\n0:0000: A9 01\n");
}

TEST_F(GeneratedSources, SumOfAMegabyte) {
    expectImage(assemble("\t.db (1" + repeated("-1+1", Million / 4) + ")\n"),
                "size 8208\n0:0000: 01\n");
}

TEST_F(GeneratedSources, StringOfAMegabyteOverflowsTheBank) {
    expectError(assemble("\t.db \"" + std::string(Million, 'x') + "\"\n"), "main.asm:1:");
}

TEST_F(GeneratedSources, DataLineThatFillsABankToItsLastByte) {
    expectImage(assemble("\t.db 7" + repeated(",7", 8191) + "\n"), "size 8208\n0:0000: 07*8192\n");
}

TEST_F(GeneratedSources, NameOfAMegabyte) {
    const std::string name(Million, 'n');
    expectImage(assemble(name + " = 5\n\t.db " + name + "\n"), "size 8208\n0:0000: 05\n");
}

TEST_F(GeneratedSources, UnknownNameOfAMegabyteIsOneError) {
    expectError(assemble("\tlda " + std::string(Million, 'n') + "\n"), "main.asm:1:6: error:");
}

TEST_F(GeneratedSources, NumberOfAMegabyteIsAnError) {
    expectError(assemble("\t.db " + std::string(Million, '9') + "\n"), "main.asm:1:6: error:");
}

TEST_F(GeneratedSources, ParenthesesOfAMegabyteAreAnErrorNotACrash) {
    expectError(assemble("\t.db " + std::string(Million / 2, '(') + "1" +
                         std::string(Million / 2, ')') + "\n"),
                "main.asm:1:");
}

TEST_F(GeneratedSources, SignsOfAMegabyteAreNoCrash) {
    const ProgramRun run = assemble("\t.db " + std::string(Million, '-') + "1\n");
    EXPECT_THAT(run.status, testing::AnyOf(0, 1));
    EXPECT_EQ(run.errorOutput, "");
}

TEST_F(GeneratedSources, MacroArgumentOfAMegabyte) {
    expectImage(
        assemble("put .macro\n\t.db \\2\n\t.endm\n\tput " + std::string(Million, 'x') + ",6\n"),
        "size 8208\n0:0000: 06\n");
}

TEST_F(GeneratedSources, ConditionsNestedAHundredThousandDeep) {
    expectImage(
        assemble(repeated("\t.if 1\n", 100000) + "\tnop\n" + repeated("\t.endif\n", 100000)),
        "size 8208\n0:0000: EA\n");
}

TEST_F(GeneratedSources, SymbolsThatWaitForEachOtherAHundredThousandLong) {
    std::string source = "\t.dw S0\n";
    for (int i = 0; i < 100000; ++i) {
        source += "S" + std::to_string(i) + " = S" + std::to_string(i + 1) + "+1\n";
    }
    // 100000 = $186A0 is cut to a word, with a warning.
    expectImage(assemble(source + "S100000 = 0\n"), "size 8208\n0:0000: A0 86\n");
}

TEST_F(GeneratedSources, MacroThatCallsItselfTwiceEndsSoon) {
    expectError(assemble("twice .macro\n\ttwice\n\ttwice\n\t.endm\n\ttwice\n"), "main.asm:");
}

TEST_F(GeneratedSources, MacroThatDoublesItsArgumentEndsSoon) {
    expectError(assemble("grow .macro\n\tgrow \\1\\1\n\t.endm\n\tgrow xxxxxxxxxxxxxxxx\n"),
                "main.asm:");
}

TEST_F(GeneratedSources, HugeRepetitionOfCodeIsOneErrorAndEndsSoon) {
    expectError(assemble("\t.rept 2000000000\n\tnop\n\t.endr\n"), "main.asm:");
}

TEST_F(GeneratedSources, OfAHugeFileOnlyTheBytesWantedAreRead) {
    fs::resize_file(m_folder.write("project/huge.bin", "ab"), 200 * Million);
    // Were the whole file read each time, this would take hours.
    expectImage(assemble("\t.rept 8192\n\t.incbin \"huge.bin\",1,1\n\t.endr\n"),
                "size 8208\n0:0000: 62*8192\n");
}

TEST_F(GeneratedSources, HugeFileIsNotReadWhenNoImageCanHoldIt) {
    fs::resize_file(m_folder.write("project/huge.bin", "ab"), 200 * Million);
    expectError(assemble("\t.rept 65535\n\t.incbin \"huge.bin\"\n\t.endr\n"),
                "these 209715200 bytes go beyond the last bank");
}

TEST_F(GeneratedSources, LargeFilesReadAgainAndAgainAreAnErrorThatComesSoon) {
    fs::resize_file(m_folder.write("project/large.bin", "ab"), 5 * Million);
    // Repeated by .rept, and written out by the thousand.
    const std::string again = "\t.bank 0\n\t.org $8000\n\t.incbin \"large.bin\"\n";
    expectError(assemble("\t.rept 65535\n" + again + "\t.endr\n"), "files are read too often");
    expectError(assemble(repeated(again, 20000)), "files are read too often");
}

TEST_F(GeneratedSources, HugePicturesReadAgainAndAgainAreAnErrorThatComesSoon) {
    fs::resize_file(m_folder.write("project/huge.pcx", "\x0A"), 200 * Million);
    const ProgramRun run = assemble("\t.rept 65535\n\t.incchr \"huge.pcx\"\n\t.endr\n");
    expectError(run, "files are read too often");
    EXPECT_THAT(run.output, HasSubstr("the picture 'huge.pcx' cannot be used"));
}

TEST_F(GeneratedSources, FilesThatAreNotThereAreSoughtNoMoreThanSoOften) {
    const ProgramRun run =
        assemble(repeated("\t.rept 65535\n\t.incbin \"none.bin\"\n\t.endr\n", 2));
    expectError(run, "files are read too often");
    EXPECT_THAT(run.output, HasSubstr("there is no such file"));
}

TEST_F(GeneratedSources, EnormousReservationIsAnError) {
    expectError(assemble("\t.ds $7FFFFFFF\n"), "main.asm:1:");
    expectError(assemble("\t.bss\n\t.ds $7FFFFFFF\n"), "main.asm:2:");
    expectError(assemble("\tnop\n\t.align $40000000\n"), "main.asm:2:");
}

TEST_F(GeneratedSources, IncludedDataOfAWholeBankBehindAFullBank) {
    m_folder.write("project/bank.bin", std::string(8192, 'b'));
    // Bank 0 is full, the data fills bank 1, and the position is bank 2 already, on the page of the
    // beginning.
    expectImage(
        assemble(
            "\t.org $C000\n\t.ds 8192\n\t.incbin \"bank.bin\"\nhere: .dw here\n\t.db BANK(here)\n"),
        "size 24592\n0:0000: 00*8192\n1:0000: 62*8192\n2:0000: 00 C0 02\n");
}

TEST_F(GeneratedSources, IncludedDataThatFillsTwoBanksUsesNoThird) {
    m_folder.write("project/banks.bin", std::string(16384, 'b'));
    expectImage(assemble("\t.incbin \"banks.bin\"\n"),
                "size 16400\n0:0000: 62*8192\n1:0000: 62*8192\n");
}

/// A main file that includes 1.asm, which includes 2.asm, up to `depth`, whose last holds one
/// instruction.
void writeChain(const TemporaryFolder& folder, int depth) {
    folder.write("project/main.asm", "\t.include \"1.asm\"\n");
    for (int i = 1; i < depth; ++i) {
        folder.write("project/" + std::to_string(i) + ".asm",
                     "\t.include \"" + std::to_string(i + 1) + ".asm\"\n");
    }
    folder.write("project/" + std::to_string(depth) + ".asm", "\tnop\n");
}

TEST_F(GeneratedSources, IncludesSixtyFourDeep) {
    writeChain(m_folder, 64);
    expectImage(call(), "size 8208\n0:0000: EA\n");
}

TEST_F(GeneratedSources, IncludesSixtyFiveDeepAreAnErrorThatShowsTheRing) {
    writeChain(m_folder, 65);
    const ProgramRun run = call();
    expectError(run, "64.asm:1:");
    EXPECT_THAT(run.output, HasSubstr("63.asm"));
    EXPECT_THAT(run.output, HasSubstr("main.asm"));
}

TEST_F(GeneratedSources, AbsolutePathsAreTakenAsTheyAre) {
    const fs::path more = m_folder.write("other/more.asm", "\t.db 1\n");
    const fs::path data = m_folder.write("other/data.bin", "ab");
    m_folder.write("project/more.asm", "\t.db 2\n");
    expectImage(
        assemble("\t.include \"" + more.string() + "\"\n\t.incbin \"" + data.string() + "\"\n"),
        "size 8208\n0:0000: 01 61 62\n");
}

TEST_F(GeneratedSources, IncludeFolderWhoseNameHoldsAColon) {
    m_folder.write("some:where/main.asm", "\t.db 1\n");
    m_folder.write("some/main.asm", "\t.db 2\n");
    const ProgramRun run = ProgramRun::of(
        KESTREL_NESASM, {"--input", "main.asm", "--output", image().string()},
        {"NES_INCLUDE=" + (m_folder.path() / "some").string() + ":where"}, m_folder.path());
    expectImage(run, "size 8208\n0:0000: 01\n");
}

TEST_F(GeneratedSources, ExactLetterCaseWinsWithoutAWarning) {
    m_folder.write("project/MORE.asm", "\t.db 2\n");
    m_folder.write("project/more.asm", "\t.db 1\n");
    const ProgramRun run = assemble("\t.include \"more.asm\"\n");
    expectImage(run, "size 8208\n0:0000: 01\n");
    EXPECT_THAT(run.output, Not(HasSubstr("file-case")));
}

TEST_F(GeneratedSources, TwoOtherLetterCasesAreNotGuessed) {
    m_folder.write("project/MORE.asm", "\t.db 2\n");
    m_folder.write("project/More.asm", "\t.db 1\n");
    expectError(assemble("\t.include \"more.asm\"\n"), "main.asm:1:11: error:");
}

TEST_F(GeneratedSources, FifoAsIncludeDoesNotBlock) {
    ASSERT_EQ(::mkfifo((m_folder.path() / "pipe.asm").c_str(), 0666), 0);
    expectError(assemble("\t.include \"" + (m_folder.path() / "pipe.asm").string() + "\"\n"),
                "main.asm:1:11: error:");
}

TEST_F(GeneratedSources, OutputIsPlainTextWhateverByteIsQuoted) {
    // Six bytes a run: each is quoted in three lines, and no more than twenty errors are shown.
    for (int first = 0; first < 256; first += 6) {
        std::string source;
        for (int byte = first; byte < std::min(first + 6, 256); ++byte) {
            const std::string odd(1, static_cast<char>(byte));
            source +=
                "\tlda nowhere ;" + odd + "\n\tbogus \"" + odd + "\" " + odd + "\n" + odd + "\n";
        }
        const ProgramRun run = assemble(source);
        EXPECT_EQ(run.status, 1) << first;
        EXPECT_THAT(run.output, HasSubstr("main.asm:2:2: error:"));
        EXPECT_TRUE(isPlainText(run.output)) << first << ": " << run.output;
    }
}

TEST_F(GeneratedSources, OutputIsPlainTextForBrokenAndOverlongCharacters) {
    for (const char* odd :
         {"\xC3", "\xC0\xAF", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC2\x85"}) {
        const ProgramRun run =
            assemble("\tbogus \"" + std::string(odd) + "\"\n\t.fail \"" + odd + "\"\n");
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(isPlainText(run.output)) << run.output;
        EXPECT_THAT(run.output, HasSubstr("\xEF\xBF\xBD"));
    }
}

TEST_F(GeneratedSources, EveryCutOfAWorkingSourceIsHandled) {
    const std::string whole =
        "put .macro\n\t.db \\1,\"a\\\"b\",';'\n\t.endm\nmain: lda #LOW($12)+(1<<2)\n\t.if 1\n"
        "\tput [$10,x],5\n\t.rept 2\n\tnop\n\t.endr\n\t.endif\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const ProgramRun run = assemble(whole.substr(0, length));
        EXPECT_THAT(run.status, testing::AnyOf(0, 1)) << length << run.output << run.errorOutput;
        EXPECT_EQ(run.status == 0, fs::exists(image())) << length;
        EXPECT_EQ(run.errorOutput, "");
    }
}

TEST_F(GeneratedSources, ErrorRemovesAnOlderImage) {
    m_folder.write("game.nes", std::string("NES\x1A", 4) + "yesterday");
    expectError(assemble("\tbogus\n"), "main.asm:1:2: error:");
}

TEST_F(GeneratedSources, ErrorKeepsAFileThatIsNoImage) {
    m_folder.write("game.nes", "NESting boxes\n");
    EXPECT_EQ(assemble("\tbogus\n").status, 1);
    EXPECT_EQ(content(image()), "NESting boxes\n");
}

TEST_F(GeneratedSources, OutputThatIsAFileReadIsRefused) {
    m_folder.write("game.nes", "\t.db 1\n");
    const ProgramRun run = assemble("\t.include \"" + image().string() + "\"\n");
    EXPECT_EQ(run.status, 2) << run.output;
    EXPECT_EQ(content(image()), "\t.db 1\n");
    EXPECT_THAT(run.output, HasSubstr("game.nes"));
}

TEST_F(GeneratedSources, SuccessLeavesNothingBesideTheImage) {
    EXPECT_EQ(assemble("\tnop\n").status, 0);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.path()), fs::directory_iterator()), 2);
}

TEST_F(GeneratedSources, InputWithPathNeedsNoVariableAtAll) {
    const fs::path source = m_folder.write("project/main.asm", "\tnop\n");
    const ProgramRun run = ProgramRun::of(
        KESTREL_NESASM, {"--input", source.string(), "--output", image().string()}, {}, "/");
    expectImage(run, "size 8208\n0:0000: EA\n");
    EXPECT_THAT(run.output, HasSubstr("game.nes: 8208 bytes, mapper 0, PRG "));
}

} // namespace
