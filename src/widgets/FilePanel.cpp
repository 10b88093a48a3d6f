// SPDX-License-Identifier: MIT
#include "widgets/FilePanel.h"

#include <QFileDialog>

#include <memory>
#include <utility>

namespace kestrel {

QFileDialog* makeFilePanel(QWidget* window, const QString& prompt,
                           const std::filesystem::path& folder, FilePanelHandler handler) {
    auto* panel = new QFileDialog(window, prompt, QString::fromStdString(folder.string()));
    setUpFilePanel(*panel, prompt, std::move(handler));
    return panel;
}

void setUpFilePanel(QFileDialog& panel, const QString& prompt, FilePanelHandler handler) {
    panel.setObjectName(QStringLiteral("filePanel"));
    panel.setAccessibleName(prompt);
    panel.setAttribute(Qt::WA_DeleteOnClose);
    panel.setWindowModality(Qt::WindowModal);
    panel.setAcceptMode(QFileDialog::AcceptOpen);
    panel.setFileMode(QFileDialog::ExistingFile);
    panel.setLabelText(QFileDialog::Accept, prompt);
    // The first of the two takes the handler: the panel is closed, or its window is destroyed.
    const auto waiting = std::make_shared<FilePanelHandler>(std::move(handler));
    QObject::connect(&panel, &QDialog::finished, [&panel, waiting](int result) {
        const FilePanelHandler told = std::exchange(*waiting, nullptr);
        const QStringList files = panel.selectedFiles();
        if (told && result == QDialog::Accepted && !files.isEmpty()) {
            told(std::filesystem::path(files.first().toStdString()));
        } else if (told) {
            told(std::nullopt);
        }
    });
    QObject::connect(&panel, &QObject::destroyed, [waiting] {
        if (const FilePanelHandler told = std::exchange(*waiting, nullptr)) {
            told(std::nullopt);
        }
    });
}

void openFilePanel(QWidget* window, const QString& prompt, const std::filesystem::path& folder,
                   FilePanelHandler handler) {
    makeFilePanel(window, prompt, folder, std::move(handler))->open();
}

} // namespace kestrel
