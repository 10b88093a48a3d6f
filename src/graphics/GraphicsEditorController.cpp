#include "graphics/GraphicsEditorController.h"

#include "model/Paths.h"
#include "panes/LightPalette.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kestrel {

GraphicsEditorController::GraphicsEditorController(QWidget* parent)
    : QWidget(parent)
    , m_nameLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("graphicsEditor"));
    setAccessibleName(tr("Tile graphics"));
    makeWhite(*this);
    m_nameLabel->setObjectName(QStringLiteral("graphicsFileName"));
    m_nameLabel->setAccessibleName(tr("File shown"));
    m_nameLabel->setTextFormat(Qt::PlainText);
    m_nameLabel->setAlignment(Qt::AlignCenter);
    m_nameLabel->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_nameLabel);
}

void GraphicsEditorController::loadFile(const std::shared_ptr<ProjectItem>& file,
                                        const std::shared_ptr<ProjectItem>& project,
                                        const CompletionHandler& completionHandler) {
    m_file = file;
    m_project = project;
    if (!filePath()) {
        if (completionHandler) {
            completionHandler(
                ErrorValue{{}, 0, "Data type is incorrect or file is corrupt at path"});
        }
        return;
    }
    m_nameLabel->setText(QString::fromStdString(file->itemName()));
}

std::optional<std::filesystem::path> GraphicsEditorController::filePath() const {
    if (!m_file) {
        return std::nullopt;
    }
    if (m_file->itemPathType() == FilePathType::absolute) {
        return joined(m_file->itemPath(), m_file->itemName());
    }
    if (!m_project) {
        return std::nullopt;
    }
    return joined(joined(m_project->itemPath(), pathText(m_file->itemPath())), m_file->itemName());
}

} // namespace kestrel
