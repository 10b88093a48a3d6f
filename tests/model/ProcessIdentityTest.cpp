// SPDX-License-Identifier: MIT
#include "model/ProcessIdentity.h"

#include "model/RunningProcess.h"

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <unistd.h>

namespace kestrel {
namespace {

TEST(ProcessIdentity, OfThisProcessIsRunning) {
    const ProcessIdentity present = ProcessIdentity::current();
    EXPECT_EQ(present.number, ::getpid());
    EXPECT_GT(present.start, 0U);
    EXPECT_FALSE(present.system.empty());
    EXPECT_TRUE(present.isRunning());
    EXPECT_EQ(present, ProcessIdentity::current());
}

TEST(ProcessIdentity, OfAnEndedProcessIsNotRunning) {
    test::RunningProcess process;
    EXPECT_TRUE(process.identity().isRunning());
    process.end();
    EXPECT_FALSE(process.identity().isRunning());
}

TEST(ProcessIdentity, OfAnotherStartOrSystemIsNotRunning) {
    ProcessIdentity other = ProcessIdentity::current();
    ++other.start;
    EXPECT_FALSE(other.isRunning());
    other = ProcessIdentity::current();
    other.system += 'x';
    EXPECT_FALSE(other.isRunning());
}

TEST(ProcessIdentity, IsFoundWhateverTheProgramIsCalled) {
    char former[16] = {};
    ASSERT_EQ(::prctl(PR_GET_NAME, former), 0);
    const ProcessIdentity present = ProcessIdentity::current();
    ASSERT_EQ(::prctl(PR_SET_NAME, "a ) 1 (2) x"), 0);
    EXPECT_TRUE(present.isRunning());
    ::prctl(PR_SET_NAME, former);
}

} // namespace
} // namespace kestrel
