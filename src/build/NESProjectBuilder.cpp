// SPDX-License-Identifier: MIT
#include "build/NESProjectBuilder.h"

#include "build/Assembly.h"
#include "build/BackgroundWork.h"
#include "build/BuildHints.h"
#include "build/MainAssemblyFile.h"
#include "build/SourceGatherer.h"
#include "model/Log.h"
#include "model/Paths.h"

#include <QCoreApplication>

#include <system_error>
#include <utility>

namespace kestrel {

namespace {

using HandOver = BuildHandOver<QString>;

BuildError buildError(std::string description) {
    return {"", 100, std::move(description)};
}

/// Tells the observer on the main thread. Called on a worker, for which the application object's
/// destructor waits.
void report(const LaunchObserver& observer, EmulatorLaunch launch) {
    if (observer && !QCoreApplication::closingDown()) {
        postToMainThread(QCoreApplication::instance(),
                         [observer, launch = std::move(launch)] { observer(launch); });
    }
}

/// Whether the image of a project with this name is directly in the output folder. An empty name
/// and one of dots are fine, since ".nes" follows.
bool namesImage(const std::string& projectName) {
    return projectName.find('/') == std::string::npos &&
           projectName.find('\0') == std::string::npos;
}

/// The absolute path; nothing for one that isUsablePath refuses.
std::optional<std::filesystem::path> absolutePath(const std::filesystem::path& path) {
    if (!isUsablePath(path)) {
        return std::nullopt;
    }
    std::error_code error;
    auto result = std::filesystem::absolute(path, error);
    return error ? std::nullopt : std::optional(std::move(result));
}

} // namespace

NESProjectBuilder::NESProjectBuilder(std::shared_ptr<BuildSettingsConfiguration> buildSetting,
                                     AssemblerLocator locator,
                                     std::shared_ptr<RunningBuilds> running)
    : m_buildSetting(std::move(buildSetting))
    , m_locator(std::move(locator))
    , m_running(std::move(running)) {}

void NESProjectBuilder::setConsoleOutput(std::weak_ptr<ConsoleOutputDelegate> consoleOutput) {
    m_consoleOutput = std::move(consoleOutput);
}

void NESProjectBuilder::setBuildSetting(std::shared_ptr<BuildSettingsConfiguration> buildSetting) {
    m_buildSetting = std::move(buildSetting);
}

std::optional<std::filesystem::path> NESProjectBuilder::pathToEmulator() const {
    return m_buildSetting->pathToEmulator();
}

std::optional<std::filesystem::path> NESProjectBuilder::outputPath() const {
    return m_buildSetting->outputFilePath();
}

std::optional<std::filesystem::path> NESProjectBuilder::tempPath() const {
    const auto& project = m_buildSetting->projectPath();
    return project ? std::optional(joined(*project, "tmp")) : std::nullopt;
}

void NESProjectBuilder::stop() {
    m_stopSwitch->stop();
}

void NESProjectBuilder::build(BuildHandler completionHandler) {
    const auto requested = std::chrono::steady_clock::now();
    const auto fail = [&](const char* description) {
        const BuildError error = buildError(description);
        reportRefusal(error);
        if (completionHandler) {
            completionHandler(std::nullopt, error);
        }
    };
    auto plan = setUp();
    if (!plan) {
        fail(SetUpFailed);
        return;
    }
    const auto mainFile = findMainAssemblyFile();
    if (!mainFile) {
        fail(NoMainFile);
        return;
    }
    if (!moveAllFilesToTempFolderToAssemble(plan->tempFolder, plan->notCopied)) {
        fail("Could not move files to temp location");
        return;
    }
    startAssembler(*plan, *mainFile, std::move(completionHandler), requested);
}

bool NESProjectBuilder::clean() {
    const auto& project = m_buildSetting->projectPath();
    const auto temp = tempPath();
    return project && temp && SourceGatherer(*project, *temp).clean(fileLists());
}

void NESProjectBuilder::run(RunHandler completionHandler) {
    build([settings = m_buildSetting, handler = std::move(completionHandler),
           observer = m_launchObserver, stopSwitch = m_stopSwitch, stops = m_stopSwitch->stops()](
              const std::optional<std::filesystem::path>& image, std::optional<BuildError> error) {
        if (!error) {
            EmulatorLaunch launch;
            if (stopSwitch->stops() != stops) {
                launch.state = EmulatorLaunch::State::stopped;
                error = buildError(BuildStopped);
            } else if (image && settings->pathToEmulator()) {
                launch = openWithEmulator(*image, *settings->pathToEmulator());
            } else {
                error = BuildError{"2", 0, std::nullopt};
            }
            report(observer, std::move(launch));
        }
        if (handler) {
            handler(std::move(error));
        }
    });
}

std::optional<NESProjectBuilder::Plan> NESProjectBuilder::setUp() {
    const auto assembler = m_locator ? m_locator() : std::nullopt;
    const auto output = outputPath() ? absolutePath(*outputPath()) : std::nullopt;
    const auto& projectPath = m_buildSetting->projectPath();
    const auto project = projectPath ? absolutePath(*projectPath) : std::nullopt;
    const auto& projectNode = m_buildSetting->projectToBuild();
    if (!assembler || !output || !project || !projectNode || !namesImage(projectNode->itemName())) {
        return std::nullopt;
    }
    Plan plan;
    plan.assembler = *assembler;
    plan.outputFolder = *output;
    plan.projectFolder = *project;
    plan.tempFolder = joined(*project, "tmp");
    plan.image = joined(*output, projectNode->itemName() + ".nes");
    if (!createFolder(plan.outputFolder) || !createFolder(plan.tempFolder)) {
        return std::nullopt;
    }
    return plan;
}

std::optional<std::string> NESProjectBuilder::findMainAssemblyFile() {
    const auto& base = m_buildSetting->projectPath();
    return base ? mainAssemblyFileIn(m_buildSetting->assemblyFiles(), *base) : std::nullopt;
}

bool NESProjectBuilder::moveAllFilesToTempFolderToAssemble(const std::filesystem::path& tempFolder,
                                                           std::vector<UncopiedFile>& notCopied) {
    const auto& base = m_buildSetting->projectPath();
    if (!base) {
        return false;
    }
    notCopied = SourceGatherer(*base, tempFolder).gather(fileLists());
    return true;
}

void NESProjectBuilder::startAssembler(const Plan& plan, const std::string& mainFile,
                                       BuildHandler handler,
                                       std::chrono::steady_clock::time_point requested) {
    Assembly assembly;
    assembly.image = plan.image;
    assembly.mainFile = mainFile;
    assembly.notCopied = plan.notCopied;
    assembly.preparation = std::chrono::steady_clock::now() - requested;
    assembly.stop = m_stopSwitch->next();
    assembly.running = m_running;
    assembly.observer = m_observer;
    assembly.request.assembler = plan.assembler;
    assembly.request.arguments = {"--input", mainFile, "--output", pathText(plan.image)};
    assembly.request.arguments.insert(assembly.request.arguments.end(), m_extraArguments.begin(),
                                      m_extraArguments.end());
    assembly.request.includeFolder = plan.tempFolder;

    // The application object's destructor waits for the pool's workers, so they may post to it as
    // long as they run.
    const auto post = [application = QCoreApplication::instance()](HandOver::Task task) {
        postToMainThread(application, std::move(task));
    };
    const auto deliver = [builder = weak_from_this()](const QString& output) {
        const auto alive = builder.lock();
        const auto console = alive ? alive->m_consoleOutput.lock() : nullptr;
        if (console) {
            console->console(output);
        }
    };
    assembly.handOver = std::make_shared<HandOver>(std::move(handler), post, deliver);
    m_running->start(plan.image, assembly.stop, [assembly] { carryOut(assembly); });
}

/// Tells the observer of a request that ended before the assembler was started. The hints look into
/// files, so they are found on a background worker, from a copy of what the settings name.
void NESProjectBuilder::reportRefusal(const BuildError& error) const {
    if (!m_observer) {
        return;
    }
    const bool hasAssembler = m_locator && m_locator().has_value();
    startInBackground([observer = m_observer, error,
                       subject = hintSubject(*m_buildSetting, hasAssembler),
                       application = QCoreApplication::instance()] {
        BuildResult result;
        result.error = error;
        result.hints = buildHintsFor(error, subject);
        if (!QCoreApplication::closingDown()) {
            postToMainThread(application, [observer, result] { observer(result); });
        }
    });
}

bool NESProjectBuilder::createFolder(const std::filesystem::path& directory) {
    if (existsAt(directory)) {
        return true;
    }
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) {
        writeLog(error.message());
    }
    return existsAt(directory);
}

std::vector<const ProjectItems*> NESProjectBuilder::fileLists() const {
    const auto lists = m_buildSetting->contents().fileLists();
    return {lists.begin(), lists.end()};
}

} // namespace kestrel
