// SPDX-License-Identifier: MIT
#include "build/BuildProject.h"

#include "model/ProjectNavigationSettingItem.h"

#include <gtest/gtest.h>
#include <QTest>

#include <sys/stat.h>

namespace kestrel::test {

void RecordingConsole::console(const QString& output) {
    texts.push_back(output.toStdString());
    threads.push_back(std::this_thread::get_id());
}

ProjectBuilder::BuildHandler Outcome::buildHandler() {
    return [this](const auto& image, const auto& error) { report(image, error); };
}

ProjectBuilder::RunHandler Outcome::runHandler() {
    return [this](const auto& error) { report(std::nullopt, error); };
}

void Outcome::reset() {
    const std::lock_guard lock(m_mutex);
    m_calls = 0;
    m_image.reset();
    m_error.reset();
    m_thread = {};
}

int Outcome::calls() const {
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

std::optional<std::filesystem::path> Outcome::image() const {
    const std::lock_guard lock(m_mutex);
    return m_image;
}

std::optional<BuildError> Outcome::error() const {
    const std::lock_guard lock(m_mutex);
    return m_error;
}

std::thread::id Outcome::thread() const {
    const std::lock_guard lock(m_mutex);
    return m_thread;
}

void Outcome::report(std::optional<std::filesystem::path> image, std::optional<BuildError> error) {
    const std::lock_guard lock(m_mutex);
    ++m_calls;
    m_image = std::move(image);
    m_error = std::move(error);
    m_thread = std::this_thread::get_id();
}

BuildProject::BuildProject()
    : assembler(FAKE_ASSEMBLER) {
    std::filesystem::create_directories(folder());
    project = std::make_shared<ProjectNavigationSettingItem>("Game", folder(), FileType::project,
                                                             ProjectType::nes);
    settings = std::make_shared<NESBuildSettings>(project);
    settings->outputFilePath() = folder() / "output";
    addSource("main.asm", Vectors);
}

void BuildProject::script(const std::string& lines) const {
    home.write("Game/script", lines);
}

std::string BuildProject::record() const {
    return contentOf(folder() / "record");
}

std::filesystem::path BuildProject::fifo(const std::string& name) const {
    const auto path = folder() / name;
    EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
    return path;
}

std::shared_ptr<ProjectItem> BuildProject::addSource(const std::string& name,
                                                     const std::string& content) {
    home.write("Game/src/" + name, content);
    auto node = fileNode(name, folder() / "src");
    settings->assemblyFiles().push_back(node);
    return node;
}

std::shared_ptr<NESProjectBuilder> BuildProject::makeBuilder() {
    auto builder = std::make_shared<NESProjectBuilder>(
        settings, [place = assembler] { return place; }, running);
    builder->setConsoleOutput(console);
    builder->setObserver([told = results](const BuildResult& result) {
        told->all.push_back(result);
        told->threads.push_back(std::this_thread::get_id());
    });
    return builder;
}

std::shared_ptr<ProjectItem> fileNode(const std::string& name, const std::filesystem::path& path,
                                      FilePathType pathType, FileType type) {
    auto node = std::make_shared<ProjectNavigationSettingItem>(name, path, type, ProjectType::nes);
    node->setItemPathType(pathType);
    return node;
}

bool waitUntil(const std::function<bool()>& condition, std::chrono::seconds limit) {
    return QTest::qWaitFor(condition, static_cast<int>(std::chrono::milliseconds(limit).count()));
}

} // namespace kestrel::test
