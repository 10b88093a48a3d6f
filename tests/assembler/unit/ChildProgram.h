// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace nesasm::test {

/// How a run of the NESasm program ended.
struct ChildResult {
    int status = -1; ///< exit status, or 1000 plus the signal that ended it
    std::string output;
};

/// How the program is started.
struct ChildStart {
    std::vector<std::string> arguments;
    std::vector<std::string> environment; ///< all of it, as NAME=value
    std::filesystem::path folder = "/";
    std::uint64_t largestFile = 0; ///< bytes that it may write to one file, 0 for no limit
    std::string standardOutput;    ///< a file for the output instead of the result, "" for none
    bool isOrdinaryUser = false;   ///< started without root's rights
};

ChildResult runNesasm(const ChildStart& start);

} // namespace nesasm::test
