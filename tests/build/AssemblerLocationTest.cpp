// SPDX-License-Identifier: MIT
#include "build/AssemblerLocation.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

TEST(AssemblerLocation, is_beside_the_program_in_a_build_tree) {
    const test::TemporaryFolder folder;
    const auto beside = folder.write("bin/NESasm", "");
    folder.write("libexec/kestrel/NESasm", "");
    EXPECT_EQ(AssemblerLocation::find(folder.path() / "bin"), beside);
}

TEST(AssemblerLocation, is_in_the_libexec_folder_of_an_installation) {
    const test::TemporaryFolder folder;
    const auto installed = folder.write("libexec/kestrel/NESasm", "");
    folder.write("bin/Kestrel", "");
    const auto found = AssemblerLocation::find(folder.path() / "bin");
    ASSERT_TRUE(found);
    EXPECT_TRUE(std::filesystem::equivalent(*found, installed));
}

TEST(AssemblerLocation, is_nowhere_when_there_is_only_a_folder_of_that_name) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "bin/NESasm");
    EXPECT_FALSE(AssemblerLocation::find(folder.path() / "bin"));
}

TEST(AssemblerLocation, is_looked_up_anew_each_time) {
    const test::TemporaryFolder folder;
    EXPECT_FALSE(AssemblerLocation::find(folder.path()));
    folder.write("NESasm", "");
    EXPECT_TRUE(AssemblerLocation::find(folder.path()));
}

} // namespace
} // namespace kestrel
