// SPDX-License-Identifier: MIT
#pragma once

#include "build/AssemblerLocation.h"
#include "build/BuildResult.h"
#include "build/EmulatorLauncher.h"
#include "build/ProjectBuilder.h"
#include "build/RunningBuilds.h"

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace kestrel {

/// Builds an NES project with NESasm, and runs it. Create one for each request, in a
/// std::shared_ptr, and keep it until the next request: output that arrives later is dropped. The
/// last reference may go on any thread.
class NESProjectBuilder final : public ProjectBuilder,
                                public std::enable_shared_from_this<NESProjectBuilder> {
public:
    /// `locator` is called at each build. Builders that share `running` end the assembler of an
    /// older build of the same image before they start one.
    explicit NESProjectBuilder(
        std::shared_ptr<BuildSettingsConfiguration> buildSetting,
        AssemblerLocator locator = [] { return findAssembler(); },
        std::shared_ptr<RunningBuilds> running = std::make_shared<RunningBuilds>());

    std::weak_ptr<ConsoleOutputDelegate> consoleOutput() const override { return m_consoleOutput; }
    void setConsoleOutput(std::weak_ptr<ConsoleOutputDelegate> consoleOutput) override;

    /// The emulator and the output folder in the settings, and the folder "tmp" in the project's
    /// folder, into which the files are copied.
    std::optional<std::filesystem::path> pathToEmulator() const;
    std::optional<std::filesystem::path> outputPath() const;
    std::optional<std::filesystem::path> tempPath() const;

    std::shared_ptr<BuildSettingsConfiguration> buildSetting() const override {
        return m_buildSetting;
    }
    void setBuildSetting(std::shared_ptr<BuildSettingsConfiguration> buildSetting) override;

    /// Sets arguments that follow the assembler's usual ones. Only kestrel-build does.
    void setExtraArguments(std::vector<std::string> arguments) {
        m_extraArguments = std::move(arguments);
    }

    /// Sets who is told the result of each later request, exactly once and on the main thread:
    /// after the console got the output, if there was any, also when the builder is gone by then.
    /// Not called when the program quits first.
    void setObserver(BuildObserver observer) { m_observer = std::move(observer); }

    /// Sets who is told what became of the image of each later run whose build ended without an
    /// error, exactly once and on the main thread: after the build's result, before the text that
    /// the run's handler posts there. Not called when the program quits first.
    void setLaunchObserver(LaunchObserver observer) { m_launchObserver = std::move(observer); }

    /// Ends the assembler of the running request, and what it started, within a second, and drops
    /// the rest of a run. Its handler gets an error with the code 100 and the description "The
    /// build was stopped"; that of one whose place a newer build takes is told so in its
    /// description. Nothing happens when none runs. To be called on any thread.
    void stop();

    /// What stop() works with; outlives the builder as long as it is held.
    const std::shared_ptr<StopSwitch>& stopSwitch() const { return m_stopSwitch; }

    /// Assembles the project and calls the handler exactly once: before this returns, when the
    /// set-up fails, there is no main file or the files cannot be copied; otherwise on a background
    /// worker, after the assembler has ended and its output was posted to the main thread, or when
    /// it could not be started. Whether the assembler succeeded is not checked. When the program
    /// quits first, the assembler is killed and the handler is not called.
    void build(BuildHandler completionHandler) override;

    /// Removes the project's files, and nothing else, from the temporary folder. True when none is
    /// left there.
    bool clean();

    /// Builds, then opens the image with the emulator. The handler gets the build's error, an error
    /// with domain "2" and code 0 when no emulator is set, or no error; whether the emulator
    /// started is not reported. It is called on the thread on which build() would call its handler.
    void run(RunHandler completionHandler) override;

private:
    /// The absolute paths of a build.
    struct Plan {
        std::filesystem::path assembler;
        std::filesystem::path outputFolder;
        std::filesystem::path projectFolder;
        std::filesystem::path tempFolder;
        std::filesystem::path image;
        std::vector<UncopiedFile> notCopied;
    };

    std::optional<Plan> setUp();
    std::optional<std::string> findMainAssemblyFile();
    bool moveAllFilesToTempFolderToAssemble(const std::filesystem::path& tempFolder,
                                            std::vector<UncopiedFile>& notCopied);
    void startAssembler(const Plan& plan, const std::string& mainFile, BuildHandler handler,
                        std::chrono::steady_clock::time_point requested);
    void reportRefusal(const BuildError& error) const;
    static bool createFolder(const std::filesystem::path& directory);
    std::vector<const ProjectItems*> fileLists() const;

    std::weak_ptr<ConsoleOutputDelegate> m_consoleOutput;
    std::shared_ptr<BuildSettingsConfiguration> m_buildSetting;
    AssemblerLocator m_locator;
    std::shared_ptr<RunningBuilds> m_running;
    BuildObserver m_observer;
    LaunchObserver m_launchObserver;
    std::shared_ptr<StopSwitch> m_stopSwitch = std::make_shared<StopSwitch>();
    std::vector<std::string> m_extraArguments;
};

} // namespace kestrel
