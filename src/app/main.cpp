// SPDX-License-Identifier: MIT
#include "app/AppCommandLine.h"
#include "app/AppDelegate.h"
#include "app/HeldKeys.h"
#include "app/InstanceChannel.h"
#include "app/MainWindow.h"
#include "app/MainWindowController.h"
#include "app/Window.h"
#include "build/SignalWatcher.h"
#include "icons/Icons.h"

#include <QApplication>

#include <cstdio>

namespace {

int start(int argc, char** argv, const kestrel::AppCommandLine& commandLine) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kestrel"));
    QApplication::setApplicationVersion(QStringLiteral(KESTREL_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("kestrel"));
    QApplication::setWindowIcon(kestrel::iconNamed(u"kestrel"));
    kestrel::InstanceChannel channel(kestrel::InstanceChannel::userFolder(),
                                     kestrel::InstanceChannel::userIdentity());
    if (channel.begin(commandLine.files) == kestrel::InstanceChannel::Role::handed) {
        return 0;
    }
    const kestrel::SignalWatcher watcher;
    kestrel::HeldKeys heldKeys;
    heldKeys.watchApplication();
    kestrel::AppDelegate delegate;
    application.installEventFilter(&delegate);
    delegate.applicationDidFinishLaunching(kestrel::makeMainWindow(delegate));
    QObject::connect(&channel, &kestrel::InstanceChannel::filesArrived, &delegate,
                     [&delegate](const std::vector<std::filesystem::path>& files) {
                         delegate.openFiles(files);
                         delegate.comeToFront();
                     });
    delegate.windowController()->window()->show();
    delegate.openFiles(commandLine.files);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    using Action = kestrel::AppCommandLine::Action;
    const auto commandLine = kestrel::AppCommandLine::fromMain(argc, argv);
    switch (commandLine.action) {
    case Action::start:
        return start(argc, argv, commandLine);
    case Action::refuse:
        std::fprintf(stderr, "Kestrel: %s\n", commandLine.problem.c_str());
        return 2;
    case Action::showHelp:
    case Action::showVersion:
        break;
    }
    return std::fputs(commandLine.text().c_str(), stdout) < 0 || std::fflush(stdout) != 0;
}
