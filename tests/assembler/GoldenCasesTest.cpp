// SPDX-License-Identifier: MIT
#include "assembler/GoldenCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace {

using kestrel::test::GoldenCase;

const std::filesystem::path casesFolder = KESTREL_GOLDEN_CASES;
const std::filesystem::path assembler = KESTREL_NESASM;

std::string testName(const testing::TestParamInfo<GoldenCase>& info) {
    std::string name = info.param.name();
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '-' || c == '/' || c == '.'; }, '_');
    return name;
}

class GoldenCases : public testing::TestWithParam<GoldenCase> {};

TEST_P(GoldenCases, assembleAsExpected) {
    for (const std::string& problem : GetParam().problemsWith(assembler)) {
        ADD_FAILURE() << GetParam().name() << ": " << problem;
    }
}

INSTANTIATE_TEST_SUITE_P(Listed, GoldenCases, testing::ValuesIn(GoldenCase::listedIn(casesFolder)),
                         testName);

TEST(GoldenFolder, holdsNoFileWithoutACase) {
    EXPECT_EQ(GoldenCase::orphansIn(casesFolder), std::vector<std::string>());
}

} // namespace

namespace kestrel::test {

// Without this the test library prints the bytes of the object beside each name.
static void PrintTo(const GoldenCase& golden, std::ostream* out) {
    *out << golden.name();
}

} // namespace kestrel::test
