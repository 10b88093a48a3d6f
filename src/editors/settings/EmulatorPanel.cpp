// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorPanel.h"

#include "editors/settings/ProgramFilter.h"
#include "model/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QStandardPaths>
#include <QUrl>

#include <utility>

namespace kestrel {

namespace {

/// Folders where programs and desktop entries usually are, the best first.
QStringList applicationFolders() {
    QStringList folders{QStringLiteral("/usr/share/applications")};
    folders += QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    folders += {QStringLiteral("/usr/games"), QStringLiteral("/usr/bin")};
    folders.removeDuplicates();
    folders.removeIf([](const QString& folder) { return !QDir(folder).exists(); });
    return folders;
}

} // namespace

std::filesystem::path
emulatorStartFolder(const std::optional<std::filesystem::path>& presentEmulator) {
    if (presentEmulator && presentEmulator->has_parent_path() &&
        existsAt(presentEmulator->parent_path())) {
        return presentEmulator->parent_path();
    }
    const QStringList folders = applicationFolders();
    return folders.isEmpty()
               ? homeFolder()
               : std::filesystem::path(QFile::encodeName(folders.first()).toStdString());
}

void openEmulatorPanel(QWidget* window, const QString& title, const std::filesystem::path& folder,
                       FilePanelHandler handler) {
    QFileDialog* panel = makeFilePanel(window, title, folder, std::move(handler));
    panel->setLabelText(QFileDialog::Accept, QFileDialog::tr("Choose"));
#ifndef Q_OS_MACOS
    // The desktop's own panels cannot tell programs from other files; on macOS theirs alone takes
    // an application for a file.
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setProxyModel(new ProgramFilter(panel));
#endif
    panel->setNameFilter(QFileDialog::tr("Programs and desktop entries (*)"));
    QList<QUrl> places{QUrl::fromLocalFile(QDir::homePath())};
    for (const QString& place : applicationFolders()) {
        places.append(QUrl::fromLocalFile(place));
    }
    panel->setSidebarUrls(places);
    panel->open();
}

} // namespace kestrel
