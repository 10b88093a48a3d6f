// SPDX-License-Identifier: MIT
#include "build/AssemblerLocation.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(AssemblerLocation, IsBesideTheProgramInABuildTree) {
    const test::TemporaryFolder folder;
    const auto beside = folder.write("bin/NESasm", "");
    folder.write("libexec/kestrel/NESasm", "");
    EXPECT_EQ(findAssembler(folder.path() / "bin"), beside);
}

TEST(AssemblerLocation, IsInTheLibexecFolderOfAnInstallation) {
    const test::TemporaryFolder folder;
    const auto installed = folder.write("libexec/kestrel/NESasm", "");
    folder.write("bin/Kestrel", "");
    const auto found = findAssembler(folder.path() / "bin");
    ASSERT_TRUE(found);
    EXPECT_TRUE(std::filesystem::equivalent(*found, installed));
}

TEST(AssemblerLocation, IsNowhereWhenThereIsOnlyAFolderOfThatName) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "bin/NESasm");
    EXPECT_FALSE(findAssembler(folder.path() / "bin"));
}

TEST(AssemblerLocation, IsLookedUpAnewEachTime) {
    const test::TemporaryFolder folder;
    EXPECT_FALSE(findAssembler(folder.path()));
    folder.write("NESasm", "");
    EXPECT_TRUE(findAssembler(folder.path()));
}

} // namespace
} // namespace kestrel
