// SPDX-License-Identifier: MIT
#pragma once

#include "build/AssemblerLocation.h"
#include "build/ProjectBuilder.h"

#include <string>
#include <utility>
#include <vector>

namespace kestrel {

/// Builds an NES project with NESasm, and runs it. Made for one request, always in a
/// std::shared_ptr, and kept by its maker until the next request replaces it: an output that comes
/// in after that finds the builder gone and is dropped. The last reference may be dropped on any
/// thread.
class NESProjectBuilder final : public ProjectBuilder,
                                public std::enable_shared_from_this<NESProjectBuilder> {
public:
    /// `locator` is asked for the assembler at each build.
    explicit NESProjectBuilder(
        std::shared_ptr<BuildSettingsConfiguration> buildSetting,
        AssemblerLocation::Locator locator = [] { return AssemblerLocation::find(); });

    std::weak_ptr<ConsoleOutputDelegate> consoleOutput() const override { return m_consoleOutput; }
    void setConsoleOutput(std::weak_ptr<ConsoleOutputDelegate> consoleOutput) override;

    /// The emulator of the settings, their output folder, and the folder "tmp" in the project's
    /// folder into which the files are gathered.
    std::optional<std::filesystem::path> pathToEmulator() const;
    std::optional<std::filesystem::path> outputPath() const;
    std::optional<std::filesystem::path> tempPath() const;

    std::shared_ptr<BuildSettingsConfiguration> buildSetting() const override {
        return m_buildSetting;
    }
    void setBuildSetting(std::shared_ptr<BuildSettingsConfiguration> buildSetting) override;

    /// Arguments that the assembler gets behind its usual ones; none unless somebody sets them,
    /// which the environment never does.
    void setExtraArguments(std::vector<std::string> arguments) {
        m_extraArguments = std::move(arguments);
    }

    /// Assembles the project. The handler is called exactly once: before this returns when the
    /// set-up fails, there is no main file or the files cannot be gathered; otherwise later, on a
    /// background worker, when the assembler has ended (right after its output was posted to the
    /// main thread, where the console gets it whole) or could not be started. Whether the assembler
    /// succeeded is not examined. Only when the program quits before the assembler has ended is the
    /// handler dropped uncalled; the assembler is killed then.
    void build(BuildHandler completionHandler) override;

    /// Removes the project's files from the temporary folder, and nothing else in it. True when
    /// none of them is left there.
    bool clean();

    /// Builds, then opens the image with the emulator. The handler gets the build's error, or an
    /// error of domain "2" and code 0 when no emulator is set, or nothing; whether the emulator
    /// started is not reported. It is called where `build` would call its own.
    void run(RunHandler completionHandler) override;

private:
    /// What a build works with, all of it absolute.
    struct Plan {
        std::filesystem::path assembler;
        std::filesystem::path outputFolder;
        std::filesystem::path projectFolder;
        std::filesystem::path tempFolder;
        std::filesystem::path image;
    };

    std::optional<Plan> setUp();
    std::optional<std::string> findMainAssemblyFile();
    bool moveAllFilesToTempFolderToAssemble(const std::filesystem::path& tempFolder);
    void startAssembler(const Plan& plan, const std::string& mainFile, BuildHandler handler);
    static bool createFolder(const std::filesystem::path& directory);
    std::vector<const ProjectItems*> fileLists() const;

    std::weak_ptr<ConsoleOutputDelegate> m_consoleOutput;
    std::shared_ptr<BuildSettingsConfiguration> m_buildSetting;
    AssemblerLocation::Locator m_locator;
    std::vector<std::string> m_extraArguments;
};

} // namespace kestrel
