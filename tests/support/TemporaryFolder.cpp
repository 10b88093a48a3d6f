// SPDX-License-Identifier: MIT
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kestrel::test {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kestrel-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("cannot make a temporary folder");
    }
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TemporaryFolder::write(std::string_view relativePath,
                                             std::string_view content) const {
    const std::filesystem::path path = m_path / relativePath;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    EXPECT_TRUE(stream.good()) << "cannot write " << path;
    return path;
}

TemporaryHome::TemporaryHome() {
    if (const char* former = std::getenv("HOME")) {
        m_hadHome = true;
        m_formerHome = former;
    }
    ::setenv("HOME", path().c_str(), 1);
}

TemporaryHome::~TemporaryHome() {
    if (m_hadHome) {
        ::setenv("HOME", m_formerHome.c_str(), 1);
    } else {
        ::unsetenv("HOME");
    }
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.good()) << "cannot read " << path;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace kestrel::test
