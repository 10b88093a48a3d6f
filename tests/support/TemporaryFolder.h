// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel::test {

/// A fresh folder that is removed, with all it holds, when the object goes.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    /// Writes a file below the folder, parents included, and gives its path.
    std::filesystem::path write(std::string_view relativePath, std::string_view content) const;

private:
    std::filesystem::path m_path;
};

/// A TemporaryFolder that is the home folder (HOME) as long as the object lives.
class TemporaryHome : public TemporaryFolder {
public:
    TemporaryHome();
    ~TemporaryHome();

private:
    std::string m_formerHome;
    bool m_hadHome = false;
};

/// The bytes of a file; fails the running test when it cannot be read.
std::string contentOf(const std::filesystem::path& path);

} // namespace kestrel::test
