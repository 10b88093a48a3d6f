// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::test {

/// A project with the one assembly file "main.asm" in its folder "src", written to disk by the
/// test.
class TestProject {
public:
    /// Writes the project NAME into `folder`, its files naming `named` as the project's folder.
    TestProject(std::filesystem::path folder, std::string name, std::filesystem::path named);
    /// The same for a project that lies where its files say.
    TestProject(const std::filesystem::path& folder, const std::string& name);

    const std::filesystem::path& folder() const { return m_folder; }
    std::filesystem::path file() const { return m_folder / (m_name + ".kst"); }
    std::filesystem::path structureFile() const;
    std::filesystem::path settingsFile() const;
    std::filesystem::path mainFile() const { return m_folder / "src" / "main.asm"; }
    std::filesystem::path image() const { return m_folder / "output" / (m_name + ".nes"); }

    void setMain(std::string_view source) const;

    /// A program that builds, with `value` at its start so that images differ.
    static std::string goodSource(int value = 1);

private:
    std::filesystem::path m_folder;
    std::string m_name;
};

/// Replaces the file, its folders made where they are missing.
void writeFile(const std::filesystem::path& path, std::string_view content);

} // namespace kestrel::test
