// SPDX-License-Identifier: MIT
#include "tools/BuildCommand.h"

#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "build/ShownPath.h"
#include "model/BuildSettingsFile.h"
#include "model/Paths.h"
#include "tools/ConsolePrinter.h"
#include "tools/Messages.h"
#include "tools/Relocation.h"
#include "tools/SourceMap.h"

#include <QCoreApplication>

#include <string>
#include <system_error>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

BuildCommand::BuildCommand(OpenedProject project, std::vector<std::string> assemblerArguments)
    : m_project(std::move(project))
    , m_assemblerArguments(std::move(assemblerArguments))
    , m_printer(std::make_shared<ConsolePrinter>()) {}

BuildCommand::~BuildCommand() = default;

bool BuildCommand::run() {
    // Relative paths in the project's files must not depend on the caller's working folder.
    std::error_code error;
    fs::current_path(m_project.folder, error);
    if (error) {
        complain("the folder " + shown(m_project.folder) + " cannot be entered.");
        return false;
    }
    const auto relocation = Relocation::between(m_project.namedFolder, m_project.folder);
    if (!relocation) {
        m_settings = std::make_shared<NESBuildSettings>(m_project.root);
    } else {
        m_project.root->setItemPath(m_project.folder);
        m_settings = movedSettings(*relocation);
        complain("the project was moved: for this build paths below " +
                 shown(relocation->former()) + " are taken as below " +
                 shown(relocation->present()) + " (--relocate writes that into its files).");
        const fs::path gathered = joined(m_project.folder, "tmp");
        if (relocation->leadsBack(gathered)) {
            complain("the folder " + shown(gathered) + " is a link into the former folder " +
                     shown(relocation->former()) +
                     ", whose files would be built. Nothing was built.");
            return false;
        }
    }
    const auto& output = m_settings->outputFilePath();
    if (relocation && output && !output->empty()) {
        const fs::path image = joined(*output, m_project.root->itemName() + ".nes");
        if (relocation->leadsBack(image)) {
            complain("the image " + shown(image) + " would be written into the former folder " +
                     shown(relocation->former()) + ", to which a link leads. Nothing was built.");
            return false;
        }
    }
    return build() && !m_printer->hasFailed();
}

/// The build settings as --relocate would write them.
std::shared_ptr<BuildSettingsConfiguration>
BuildCommand::movedSettings(const Relocation& relocation) const {
    auto settings = std::make_shared<NESBuildSettings>();
    settings->projectToBuild() = m_project.root;
    settings->projectPath() = m_project.folder;
    if (auto stored = fetchBuildSettings(*m_project.root)) {
        relocation.applyToSettings(*stored);
        if (auto contents = readBuildSettings(*stored)) {
            settings->contents() = *std::move(contents);
        }
    }
    return settings;
}

bool BuildCommand::build() {
    const std::optional<BuildResult> result = buildResult();
    if (!result) {
        return false; // ended by a signal: nothing to report
    }
    if (result->error) {
        complain(result->error->localizedDescription());
        for (const std::string& hint : result->hints) {
            complain("hint: " + hint);
        }
    } else if (!result->isMade()) {
        complain(m_printer->hasPrinted() ? "no image was made; see what the assembler says."
                                         : "no image was made, and the assembler said nothing.");
    }
    if (!result->error) {
        for (const std::string& hint : result->hints) {
            complain(hint);
        }
    }
    if (result->isMade() && !result->isGood()) {
        complain("the image was made, but not of the project's files as they are.");
    }
    return result->isGood();
}

std::optional<BuildResult> BuildCommand::buildResult() {
    // Shared with the observer, which may be called after a signal has ended the loop.
    const auto result = std::make_shared<std::optional<BuildResult>>();
    const auto builder = std::make_shared<NESProjectBuilder>(m_settings);
    builder->setConsoleOutput(m_printer);
    const SourceMap map(*m_settings);
    std::vector<std::string> arguments = map.arguments();
    arguments.insert(arguments.end(), m_assemblerArguments.begin(), m_assemblerArguments.end());
    builder->setExtraArguments(std::move(arguments));
    builder->setObserver([result](const BuildResult& told) {
        *result = told;
        QCoreApplication::exit();
    });
    builder->build({});
    QCoreApplication::exec();
    return *result;
}

} // namespace kestrel
