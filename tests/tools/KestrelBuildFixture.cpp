// SPDX-License-Identifier: MIT
#include "tools/KestrelBuildFixture.h"

#include <sys/stat.h>
#include <utility>

namespace kestrel::test {

namespace fs = std::filesystem;

Program KestrelBuildFixture::program(std::vector<std::string> arguments) const {
    return {.executable = KESTREL_BUILD_PROGRAM,
            .arguments = std::move(arguments),
            .folder = m_folder.path()};
}

Finished KestrelBuildFixture::run(std::vector<std::string> arguments) const {
    return program(std::move(arguments)).run();
}

Program KestrelBuildFixture::programWithAssembler(const std::string& script,
                                                  std::vector<std::string> arguments) const {
    const fs::path executable = copiedProgram(false);
    const fs::path assembler = executable.parent_path() / "NESasm";
    writeFile(assembler, "#!/bin/sh\n" + script + "\n");
    fs::permissions(assembler, fs::perms(0755));
    return {.executable = executable, .arguments = std::move(arguments), .folder = m_folder.path()};
}

fs::path KestrelBuildFixture::copiedProgram(bool withAssembler) const {
    fs::permissions(m_folder.path(), fs::perms(0755));
    const fs::path bin = at("bin");
    fs::create_directories(bin);
    fs::copy_file(KESTREL_BUILD_PROGRAM, bin / "kestrel-build",
                  fs::copy_options::overwrite_existing);
    if (withAssembler) {
        fs::copy_file(NESASM_PROGRAM, bin / "NESasm", fs::copy_options::overwrite_existing);
    }
    return bin / "kestrel-build";
}

std::map<std::string, std::string> KestrelBuildFixture::stateOf(const fs::path& folder) {
    std::map<std::string, std::string> state;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        struct stat status {};
        EXPECT_EQ(::lstat(entry.path().c_str(), &status), 0);
        std::string& text = state[entry.path().string()];
        text = std::to_string(status.st_ino) + ' ' + std::to_string(status.st_mtim.tv_sec) + '.' +
               std::to_string(status.st_mtim.tv_nsec) + ' ' + std::to_string(status.st_mode) + ' ';
        if (entry.is_regular_file()) {
            text += contentOf(entry.path());
        }
    }
    return state;
}

} // namespace kestrel::test
