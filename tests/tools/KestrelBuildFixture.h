// SPDX-License-Identifier: MIT
#pragma once

#include "support/TemporaryFolder.h"
#include "tools/Program.h"
#include "tools/TestProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kestrel::test {

/// Cases that run the real kestrel-build, with the real NESasm unless they say otherwise.
class KestrelBuildFixture : public ::testing::Test {
protected:
    KestrelBuildFixture() = default;

    std::filesystem::path at(const std::string& name) const { return m_folder.path() / name; }

    /// A run of kestrel-build with this home folder.
    Program program(std::vector<std::string> arguments) const;
    Finished run(std::vector<std::string> arguments) const;

    /// A run of a copy of kestrel-build that has a shell script for an assembler. In it, "$4" is
    /// the image and "$NES_INCLUDE" the folder of the sources.
    Program programWithAssembler(const std::string& script,
                                 std::vector<std::string> arguments) const;

    /// A copy of kestrel-build, and of NESasm when asked for, in a folder that every user may
    /// enter.
    std::filesystem::path copiedProgram(bool withAssembler) const;

    /// All files and folders below `folder` with their contents and what tells whether they were
    /// replaced.
    static std::map<std::string, std::string> stateOf(const std::filesystem::path& folder);

private:
    TemporaryHome m_folder;
};

} // namespace kestrel::test
