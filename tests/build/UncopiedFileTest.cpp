// SPDX-License-Identifier: MIT
#include "build/UncopiedFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<UncopiedFile> files(std::size_t count) {
    std::vector<UncopiedFile> result;
    for (std::size_t i = 0; i < count; ++i) {
        result.push_back({std::string(1, static_cast<char>('a' + i)), "No reason", false});
    }
    return result;
}

TEST(UncopiedFile, IsNamedWithTheReasonAndWhatWasBuiltInstead) {
    EXPECT_THAT(sentencesAbout({}, "/Game/tmp"), IsEmpty());
    EXPECT_THAT(
        sentencesAbout({{"main.asm", "Read-only file system", true},
                        {"two\nlines.pal", "No space left on device", false}},
                       "/Game/tmp"),
        ElementsAre("\"main.asm\" could not be copied to \"/Game/tmp\": Read-only file system; an "
                    "older copy was built.",
                    "\"two\\nlines.pal\" could not be copied to \"/Game/tmp\": No space left on "
                    "device."));
}

TEST(UncopiedFile, AboveThreeTheOthersAreCounted) {
    EXPECT_EQ(sentencesAbout(files(3), "/t").size(), 3U);
    EXPECT_EQ(sentencesAbout(files(4), "/t").size(), 4U);
    EXPECT_EQ(sentencesAbout(files(4), "/t").back(), "... and 1 more.");
    EXPECT_EQ(sentencesAbout(files(15), "/t").size(), 4U);
    EXPECT_EQ(sentencesAbout(files(15), "/t").back(), "... and 12 more.");
}

} // namespace
} // namespace kestrel
