#include "graphics/PaletteEditorController.h"

#include "panes/LightPalette.h"

#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

PaletteEditorController::PaletteEditorController(QWidget* parent)
    : QWidget(parent)
    , m_nameLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("paletteEditor"));
    setAccessibleName(tr("Palettes"));
    makeWhite(*this);
    m_nameLabel->setObjectName(QStringLiteral("paletteFileName"));
    m_nameLabel->setAccessibleName(tr("File shown"));
    m_nameLabel->setTextFormat(Qt::PlainText);
    m_nameLabel->setAlignment(Qt::AlignCenter);
    m_nameLabel->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_nameLabel);
}

const std::optional<std::filesystem::path>& PaletteEditorController::filePathForPalette() const {
    return m_filePathForPalette;
}

void PaletteEditorController::setFilePathForPalette(std::optional<std::filesystem::path> path) {
    m_filePathForPalette = std::move(path);
}

void PaletteEditorController::update() {
    if (m_filePathForPalette) {
        m_nameLabel->setText(QString::fromStdString(m_filePathForPalette->filename().string()));
    }
}

} // namespace kestrel
