// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {

/// One golden case: a source file, what stands beside it, and the check that the assembler does
/// with it exactly what is expected. The files: tests/assembler/README.md.
class GoldenCase {
public:
    /// A case by its source file, which need not be there when the .run file names a shared one.
    explicit GoldenCase(std::filesystem::path source);

    /// "topic/name-of-the-case".
    std::string name() const;

    /// The shared files that the .run file names.
    std::vector<std::string> sharedInputs() const;

    /// Assembles in a fresh folder with `program` and gives a sentence for everything that is not
    /// as expected; empty when the case passes.
    std::vector<std::string> problemsWith(const std::filesystem::path& program) const;

private:
    struct Setting {
        std::string input;   ///< what --input gets
        std::string output;  ///< what --output gets; where the image is looked for
        std::string folder;  ///< the current folder of the assembler, below the fresh folder
        std::string include; ///< the value of NES_INCLUDE; "@" stands for the fresh folder
        std::vector<std::string> arguments; ///< further arguments
        std::vector<std::string> call;      ///< all arguments, when it is not empty
        std::string source;                 ///< the shared file that is the source, or nothing
        /// Where in the fresh folder each further shared file lies, and its name.
        std::vector<std::pair<std::string, std::string>> files;
    };

    std::filesystem::path beside(const char* ending) const;
    std::optional<Setting> setting(std::vector<std::string>& problems) const;
    bool prepare(const std::filesystem::path& folder, const Setting& run,
                 std::vector<std::string>& problems) const;
    void compareImage(const std::optional<std::string>& image,
                      std::vector<std::string>& problems) const;
    void compareFiles(const std::filesystem::path& folder,
                      std::vector<std::string>& problems) const;
    void compareOutput(const std::string& output, const std::optional<std::string>& image,
                       std::vector<std::string>& problems) const;

    std::filesystem::path m_source;
};

} // namespace kestrel::test
