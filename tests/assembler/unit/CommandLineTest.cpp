// SPDX-License-Identifier: MIT
#include "assembler/run/CommandLine.h"

#include <gtest/gtest.h>

namespace nesasm {

namespace {

Problem read(const std::vector<std::string_view>& arguments, CommandLine& line) {
    return readCommandLine(arguments, line);
}

std::string problem(const std::vector<std::string_view>& arguments) {
    CommandLine line;
    return read(arguments, line).value_or("");
}

TEST(CommandLine, ReadsAllOptions) {
    CommandLine line;
    ASSERT_EQ(read({"--input",
                    "a.asm",
                    "--output=a.nes",
                    "-I",
                    "one",
                    "-Itwo",
                    "-D",
                    "X",
                    "-DY=$FF",
                    "-D",
                    "Z=-%101",
                    "--max-errors",
                    "0",
                    "--color",
                    "never",
                    "-v",
                    "--messages=json",
                    "--source-map=copies",
                    "-W",
                    "overwrite",
                    "-Wno-odd-number",
                    "-Werror=file-case"},
                   line),
              std::nullopt);
    EXPECT_EQ(line.options.input, "a.asm");
    EXPECT_EQ(line.output, "a.nes");
    EXPECT_EQ(line.options.includeFolders, (std::vector<std::string>{"one", "two"}));
    using Definitions = std::vector<std::pair<std::string, std::int32_t>>;
    EXPECT_EQ(line.options.definitions, (Definitions{{"X", 1}, {"Y", 255}, {"Z", -5}}));
    EXPECT_EQ(line.options.largestErrorCount, 0U);
    EXPECT_EQ(line.colours, CommandLine::Colours::never);
    EXPECT_TRUE(line.isVerbose);
    EXPECT_TRUE(line.wantsJson);
    EXPECT_EQ(line.sourceMap, "copies");
    EXPECT_TRUE(line.options.warnings.isOn(Warning::overwrite));
    EXPECT_FALSE(line.options.warnings.isOn(Warning::oddNumber));
    EXPECT_TRUE(line.options.warnings.isError(Warning::fileCase));
}

TEST(CommandLine, HelpAndVersionNeedNothingElse) {
    CommandLine line;
    EXPECT_EQ(read({"--help"}, line), std::nullopt);
    EXPECT_EQ(line.wish, CommandLine::Wish::help);
    EXPECT_EQ(read({"--version"}, line), std::nullopt);
    EXPECT_EQ(line.wish, CommandLine::Wish::version);
}

TEST(CommandLine, WrongUseIsExplained) {
    const std::vector<std::vector<std::string_view>> wrong{
        {},
        {"--input", "a"},
        {"--output", "a"},
        {"a.asm"},
        {"--nothing"},
        {"-x"},
        {"--input"},
        {"--input", ""},
        {"--input", "a", "--input", "b", "--output", "c"},
        {"--input", "a", "--output", "c", "--color", "blue"},
        {"--input", "a", "--output", "c", "--max-errors", "-1"},
        {"--input", "a", "--output", "c", "--max-errors", "many"},
        {"--input", "a", "--output", "c", "-D", "1x"},
        {"--input", "a", "--output", "c", "-D", "X="},
        {"--input", "a", "--output", "c", "-D", "X=5;"},
        {"--input", "a", "--output", "c", "-D", "X=4294967296"},
        {"--input", "a", "--output", "c", "-D", "X=1", "-D", "X=2"},
        {"--input", "a", "--output", "c", "-W"},
        {"--input", "a", "--output", "c", "-W", "nothing"},
        {"--input", "a", "--output", "c", "-Wno-nothing"},
        {"--input", "a", "--output", "c", "--labels", "map"},
        {"--input", "a", "--output", "c", "--messages", "xml"},
        {"--input", "a", "--output", "c", "--listing", "x", "--listing", "y"},
        {"--input", "a", "--output", "c", "--listing="},
        {"--input", "a", "--output", "c", "--expand-macros=yes"},
        {"-"},
        {""},
    };
    for (const auto& arguments : wrong) {
        EXPECT_NE(problem(arguments), "") << (arguments.empty() ? "nothing" : arguments.back());
    }
}

} // namespace

} // namespace nesasm
