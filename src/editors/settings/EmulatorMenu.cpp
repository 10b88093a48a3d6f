// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorMenu.h"

#include "build/InstalledEmulators.h"

#include <QAction>
#include <QDir>
#include <QIcon>

#include <algorithm>
#include <vector>

namespace kestrel {

namespace {

constexpr int LongestName = 40; // in characters of average width

QIcon iconOf(const InstalledEmulator& emulator) {
    return QDir::isAbsolutePath(emulator.icon) ? QIcon(emulator.icon)
                                               : QIcon::fromTheme(emulator.icon);
}

/// What tells this emulator from the others: its name, and that of its file if the name does not.
QString labelOf(const InstalledEmulator& emulator, const std::vector<InstalledEmulator>& all) {
    const auto namesakes = std::count_if(
        all.begin(), all.end(), [&](const auto& other) { return other.name == emulator.name; });
    return namesakes < 2
               ? emulator.name
               : QStringLiteral("%1 (%2)").arg(
                     emulator.name, QString::fromStdString(emulator.file.filename().string()));
}

} // namespace

EmulatorMenu::EmulatorMenu(QWidget* parent)
    : QMenu(parent) {
    setObjectName(QStringLiteral("installedEmulators"));
    setAccessibleName(tr("Installed emulators"));
    connect(this, &QMenu::aboutToShow, this, &EmulatorMenu::fill);
}

void EmulatorMenu::setPresentEmulator(const std::optional<std::filesystem::path>& emulator) {
    m_presentEmulator = emulator;
}

void EmulatorMenu::fill() {
    clear();
    const std::vector<InstalledEmulator> emulators = installedEmulators();
    const int room = LongestName * fontMetrics().averageCharWidth();
    for (const InstalledEmulator& emulator : emulators) {
        QString text =
            fontMetrics().elidedText(labelOf(emulator, emulators), Qt::ElideMiddle, room);
        text.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* entry = addAction(iconOf(emulator), text);
        entry->setIconVisibleInMenu(true);
        if (m_presentEmulator == emulator.file) {
            entry->setCheckable(true);
            entry->setChecked(true);
        }
        connect(entry, &QAction::triggered, this,
                [this, file = emulator.file] { Q_EMIT emulatorChosen(file); });
    }
    if (emulators.empty()) {
        addAction(tr("No emulator for the NES is installed"))->setEnabled(false);
    }
    addSeparator();
    connect(addAction(tr("Choose Another Program...")), &QAction::triggered, this,
            &EmulatorMenu::otherProgramWanted);
}

} // namespace kestrel
