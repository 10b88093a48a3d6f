// SPDX-License-Identifier: MIT
#include "model/Log.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(Log, WritesAPlainSentenceAndALineBreakToStandardError) {
    testing::internal::CaptureStderr();
    writeLog("Outline view is nil");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Outline view is nil\n");
}

TEST(Log, ASinkGetsTheSentencesInsteadOfStandardError) {
    testing::internal::CaptureStderr();
    {
        const test::LogCapture log;
        writeLog("one");
        writeLog("two");
        EXPECT_EQ(log.lines(), (std::vector<std::string>{"one", "two"}));
    }
    writeLog("three");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "three\n");
}

} // namespace
} // namespace kestrel
