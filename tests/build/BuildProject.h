// SPDX-License-Identifier: MIT
#pragma once

#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kestrel::test {

/// A console that remembers what it was told and on which thread.
class RecordingConsole : public ConsoleOutputDelegate {
public:
    void console(const QString& output) override;

    std::vector<std::string> texts;
    std::vector<std::thread::id> threads;
};

/// The results that builders told, in order, and on which thread.
struct RecordingResults {
    std::vector<BuildResult> all;
    std::vector<std::thread::id> threads;
};

/// What a completion handler was told, and where; read it from any thread.
class Outcome {
public:
    ProjectBuilder::BuildHandler buildHandler();
    ProjectBuilder::RunHandler runHandler();

    /// Forgets what was told, for the next request.
    void reset();

    int calls() const;
    std::optional<std::filesystem::path> image() const;
    std::optional<BuildError> error() const;
    std::thread::id thread() const;

private:
    void report(std::optional<std::filesystem::path> image, std::optional<BuildError> error);

    mutable std::mutex m_mutex;
    int m_calls = 0;
    std::optional<std::filesystem::path> m_image;
    std::optional<BuildError> m_error;
    std::thread::id m_thread;
};

/// A project folder with one main file that builds with the fake assembler, in a folder that is the
/// home folder meanwhile.
class BuildProject {
public:
    BuildProject();

    std::filesystem::path folder() const { return home.path() / "Game"; }
    /// The fake assembler's script, and what it wrote down when it was started.
    void script(const std::string& lines) const;
    std::string record() const;
    std::filesystem::path fifo(const std::string& name) const;
    std::shared_ptr<ProjectItem> addSource(const std::string& name, const std::string& content);
    /// A builder that tells `results`; all of them share their running builds.
    std::shared_ptr<NESProjectBuilder> makeBuilder();

    TemporaryHome home;
    std::shared_ptr<ProjectItem> project;
    std::shared_ptr<NESBuildSettings> settings;
    std::shared_ptr<RecordingConsole> console = std::make_shared<RecordingConsole>();
    std::shared_ptr<RecordingResults> results = std::make_shared<RecordingResults>();
    std::shared_ptr<RunningBuilds> running = std::make_shared<RunningBuilds>();
    std::optional<std::filesystem::path> assembler;
};

/// A node for a file.
std::shared_ptr<ProjectItem> fileNode(const std::string& name, const std::filesystem::path& path,
                                      FilePathType pathType = FilePathType::absolute,
                                      FileType type = FileType::text);

/// Runs the event loop until `condition` holds. False when it does not come true in that time.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::seconds limit = std::chrono::seconds(60));

inline constexpr const char* Vectors = "\t.org $FFFA\n";

} // namespace kestrel::test
