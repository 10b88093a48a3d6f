#include "editors/TextEditorController.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kestrel {

TextEditorController::TextEditorController(QWidget* parent)
    : QWidget(parent)
    , m_nameLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("textEditor"));
    setAccessibleName(tr("Code editor"));
    m_nameLabel->setObjectName(QStringLiteral("textFileName"));
    m_nameLabel->setAccessibleName(tr("File shown"));
    m_nameLabel->setTextFormat(Qt::PlainText);
    m_nameLabel->setAlignment(Qt::AlignCenter);
    m_nameLabel->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_nameLabel);
}

void TextEditorController::loadFile(const std::filesystem::path& path) {
    m_path = path;
    m_nameLabel->setText(QString::fromStdString(path.filename().string()));
}

const std::optional<std::filesystem::path>& TextEditorController::path() const {
    return m_path;
}

} // namespace kestrel
