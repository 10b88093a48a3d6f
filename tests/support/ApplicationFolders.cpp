// SPDX-License-Identifier: MIT
#include "support/ApplicationFolders.h"

#include <cstdlib>

namespace kestrel::test {

namespace {

/// Sets an environment variable; its former value, empty when it had none.
std::string exchangeVariable(const char* name, const std::string& value) {
    const char* former = std::getenv(name);
    const std::string before = former != nullptr ? former : "";
    // The standard of base folders takes an empty value for none.
    setenv(name, value.c_str(), 1);
    return before;
}

} // namespace

ApplicationFolders::ApplicationFolders()
    : m_formerHome(exchangeVariable("XDG_DATA_HOME", (path() / "user").string()))
    , m_formerFolders(exchangeVariable("XDG_DATA_DIRS", (path() / "local").string() + ":" +
                                                            (path() / "system").string())) {}

ApplicationFolders::~ApplicationFolders() {
    exchangeVariable("XDG_DATA_HOME", m_formerHome);
    exchangeVariable("XDG_DATA_DIRS", m_formerFolders);
}

std::filesystem::path ApplicationFolders::program(const std::string& name) const {
    const auto file = write("programs/" + name, "#!/bin/sh\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

std::filesystem::path ApplicationFolders::emulator(const std::string& place,
                                                   const std::string& name,
                                                   const std::string& more) const {
    return write(place, "[Desktop Entry]\nType=Application\nName=" + name + "\n" + more +
                            "MimeType=application/x-nes-rom;\nExec=" +
                            program("emulator").string() + " %f\n");
}

} // namespace kestrel::test
