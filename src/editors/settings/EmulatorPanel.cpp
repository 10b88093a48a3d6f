// SPDX-License-Identifier: MIT
#include "editors/settings/EmulatorPanel.h"

#include "build/InstalledEmulators.h"
#include "build/ProgramSearch.h"
#include "editors/settings/ProgramFilter.h"
#include "model/Paths.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

#include <optional>
#include <utility>
#include <vector>

namespace kestrel {

namespace {

/// Folders where programs and desktop entries usually are, the best first.
QStringList applicationFolders() {
    QStringList folders{QStringLiteral("/usr/share/applications")};
    folders += QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    folders += gameFolders();
    folders += QStringLiteral("/usr/bin");
    folders.removeDuplicates();
    folders.removeIf([](const QString& folder) { return !QDir(folder).exists(); });
    return folders;
}

/// A file dialog in which also the name of a program can be typed.
class ProgramDialog final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    /// Begins to watch what is typed; the dialog must not be the desktop's own.
    void watchNameField() {
        m_nameField = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        const auto* buttons = findChild<QDialogButtonBox*>();
        QPushButton* const choose = buttons->button(QDialogButtonBox::Open);
        // The dialog itself disables the button for a name that no file has.
        connect(m_nameField, &QLineEdit::textChanged, choose, [this, choose] {
            if (!typedProgram().isEmpty()) {
                choose->setEnabled(true);
            }
        });
    }

protected:
    void accept() override {
        if (const QString file = typedProgram(); !file.isEmpty()) {
            m_nameField->setText(file);
        }
        QFileDialog::accept();
    }

private:
    /// The path of the program, or of the installed emulator's desktop entry, whose name is typed;
    /// empty when there is neither, and for the name of a file in the folder that is shown.
    QString typedProgram() {
        const QString name = m_nameField != nullptr ? m_nameField->text() : QString();
        if (name.isEmpty() || name.contains(QLatin1Char('/')) || directory().exists(name)) {
            return {};
        }
        if (QString program = findProgram(name); !program.isEmpty()) {
            return program;
        }
        if (!m_emulators) {
            m_emulators = installedEmulators();
        }
        for (const InstalledEmulator& emulator : *m_emulators) {
            if (emulator.name.compare(name, Qt::CaseInsensitive) == 0) {
                return QFile::decodeName(QByteArray::fromStdString(emulator.file.string()));
            }
        }
        return {};
    }

    QLineEdit* m_nameField = nullptr;
    std::optional<std::vector<InstalledEmulator>> m_emulators; ///< looked for when first needed
};

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
    auto* panel = new ProgramDialog(window, title, QString::fromStdString(folder.string()));
    setUpFilePanel(*panel, title, std::move(handler));
    panel->setLabelText(QFileDialog::Accept, QFileDialog::tr("Choose"));
#ifndef Q_OS_MACOS
    // The desktop's own panels cannot tell programs from other files; on macOS theirs alone takes
    // an application for a file.
    panel->setOption(QFileDialog::DontUseNativeDialog);
    panel->setProxyModel(new ProgramFilter(panel));
    panel->watchNameField();
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
