// SPDX-License-Identifier: MIT
#include "assembler/GoldenCase.h"
#include "assembler/GoldenFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace {

using kestrel::test::GoldenCase;
using kestrel::test::GoldenFolder;

const std::filesystem::path CasesFolder = KESTREL_GOLDEN_CASES;
const std::filesystem::path Assembler = KESTREL_NESASM;

std::string testName(const testing::TestParamInfo<GoldenCase>& info) {
    std::string name = info.param.name();
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '-' || c == '/' || c == '.'; }, '_');
    return name;
}

class GoldenCases : public testing::TestWithParam<GoldenCase> {};

TEST_P(GoldenCases, AssembleAsExpected) {
    for (const std::string& problem : GetParam().problemsWith(Assembler)) {
        ADD_FAILURE() << GetParam().name() << ": " << problem;
    }
}

INSTANTIATE_TEST_SUITE_P(Listed, GoldenCases, testing::ValuesIn(GoldenFolder(CasesFolder).cases()),
                         testName);

TEST(CasesFolder, HoldsNoFileWithoutACase) {
    EXPECT_EQ(GoldenFolder(CasesFolder).orphans(), std::vector<std::string>());
}

TEST(CasesFolder, SharesEqualInputs) {
    EXPECT_EQ(GoldenFolder(CasesFolder).equalInputs(), std::vector<std::string>());
}

} // namespace

namespace kestrel::test {

// Without this the test library prints the bytes of the object beside each name.
static void PrintTo(const GoldenCase& golden, std::ostream* out) {
    *out << golden.name();
}

} // namespace kestrel::test
