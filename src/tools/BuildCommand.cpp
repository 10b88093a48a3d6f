// SPDX-License-Identifier: MIT
#include "tools/BuildCommand.h"

#include "build/BackgroundWork.h"
#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "model/BuildSettingsFile.h"
#include "model/Paths.h"
#include "tools/BuildHints.h"
#include "tools/ConsolePrinter.h"
#include "tools/ImageStamp.h"
#include "tools/Messages.h"
#include "tools/Relocation.h"

#include <QCoreApplication>

#include <string>
#include <system_error>
#include <utility>

namespace kestrel {

namespace fs = std::filesystem;

BuildCommand::BuildCommand(QCoreApplication& application, OpenedProject project,
                           std::vector<std::string> assemblerArguments)
    : m_application(application)
    , m_project(std::move(project))
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
    fs::path image;
    if (const auto& output = m_settings->outputFilePath(); output && !output->empty()) {
        image = joined(*output, m_project.root->itemName() + ".nes");
        if (relocation && relocation->leadsBack(image)) {
            complain("the image " + shown(image) + " would be written into the former folder " +
                     shown(relocation->former()) + ", to which a link leads. Nothing was built.");
            return false;
        }
    }
    return build(image) && !m_printer->hasFailed();
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

bool BuildCommand::build(const fs::path& expectedImage) {
    const ImageStamp before = ImageStamp::of(expectedImage);
    const std::optional<Report> report = buildReport();
    if (!report) {
        return false; // ended by a signal: nothing to report
    }
    if (report->error || !report->image) {
        tellError(report->error.value_or(BuildError{}));
        return false;
    }
    const ImageStamp after = ImageStamp::of(*report->image);
    if (!after.present || after == before) {
        complain(m_printer->hasPrinted() ? "no image was made; see what the assembler says."
                                         : "no image was made, and the assembler said nothing.");
        return false;
    }
    return true;
}

std::optional<BuildCommand::Report> BuildCommand::buildReport() {
    // Shared with the worker, which may report after a signal has ended the loop.
    const auto report = std::make_shared<std::optional<Report>>();
    const auto builder = std::make_shared<NESProjectBuilder>(m_settings);
    builder->setConsoleOutput(m_printer);
    builder->setExtraArguments(m_assemblerArguments);
    QCoreApplication* const application = &m_application;
    builder->build(
        [application, report](std::optional<fs::path> image, std::optional<BuildError> error) {
            // Queued after the assembler's output, so that that is printed first.
            const auto take = [report, outcome = Report{std::move(image), std::move(error)}] {
                *report = outcome;
                QCoreApplication::exit();
            };
            postToMainThread(application, take);
        });
    QCoreApplication::exec();
    return *report;
}

void BuildCommand::tellError(const BuildError& error) {
    complain(error.localizedDescription());
    for (const std::string& hint : buildHintsFor(error, *m_settings)) {
        complain("hint: " + hint);
    }
}

} // namespace kestrel
