// SPDX-License-Identifier: MIT
// Starts a build of the project folder named and quits while the assembler is running.
//   QuittingBuild PROJECT-FOLDER ASSEMBLER
// It quits as soon as the assembler has made the file "record". Prints one line for every call of
// the completion handler and of the observer.
#include "build/NESBuildSettings.h"
#include "build/NESProjectBuilder.h"
#include "model/ProjectNavigationSettingItem.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

using namespace kestrel;

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const std::filesystem::path assembler = argv[2];
    QCoreApplication application(argc, argv);
    const auto project = std::make_shared<ProjectNavigationSettingItem>(
        "Game", folder, FileType::project, ProjectType::nes);
    const auto builder = std::make_shared<NESProjectBuilder>(
        std::make_shared<NESBuildSettings>(project), [&] { return assembler; });
    builder->setObserver([](const BuildResult&) { std::puts("told the result"); });
    builder->build([](const auto&, const auto&) { std::puts("completed"); });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &application, [&] {
        if (std::filesystem::exists(folder / "record")) {
            QCoreApplication::quit();
        }
    });
    timer.start(1);
    return QCoreApplication::exec();
}
