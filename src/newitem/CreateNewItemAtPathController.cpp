// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemAtPathController.h"

#include "model/Log.h"
#include "model/Paths.h"
#include "model/ProjectItem.h"
#include "newitem/NameNote.h"

#include <QFormLayout>
#include <QSignalBlocker>

#include <string>
#include <utility>

namespace kestrel {

CreateNewItemAtPathController::CreateNewItemAtPathController(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("CreateNewItemAtPathController"));
    buildView();
    for (QLineEdit* field : {fileNameTextField(), filePathTextField()}) {
        connect(field, &QLineEdit::textChanged, this,
                [this, field] { controlTextDidChange(field); });
    }
}

void CreateNewItemAtPathController::buildView() {
    m_fileNameTextField = new QLineEdit(this);
    m_fileNameTextField->setObjectName(QStringLiteral("fileNameTextField"));
    m_fileNameTextField->setAccessibleName(QStringLiteral("Name"));
    m_filePathTextField = new PathField(this);
    m_filePathTextField->setObjectName(QStringLiteral("filePathTextField"));
    m_filePathTextField->setAccessibleName(QStringLiteral("Location"));

    m_existingItemLabel = new QLabel(this);
    m_existingItemLabel->setObjectName(QStringLiteral("existingItemLabel"));
    m_existingItemLabel->setTextFormat(Qt::PlainText);
    m_existingItemLabel->setWordWrap(true);
    m_existingItemLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Has room for its text from the start, so that nothing moves when the text appears.
    m_existingItemLabel->setMinimumHeight(3 * m_existingItemLabel->fontMetrics().lineSpacing());

    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(QStringLiteral("&Name:"), m_fileNameTextField);
    form->addRow(QStringLiteral("&Location:"), m_filePathTextField);
    form->addRow(QString(), m_existingItemLabel);
}

void CreateNewItemAtPathController::setNewItem(std::shared_ptr<ProjectItem> newItem) {
    m_newItem = std::move(newItem);
}

void CreateNewItemAtPathController::viewDidAppear() {
    if (m_newItem && m_fileNameTextField) {
        m_rootPath = m_newItem->itemPath();
        const QSignalBlocker ownWrite(m_fileNameTextField);
        m_fileNameTextField->clear();
        const std::string& name = m_newItem->itemName();
        const auto dot = name.rfind('.');
        const bool isProject = m_newItem->itemFileType() == FileType::project;
        m_fileNameTextField->setPlaceholderText(
            isProject || dot == std::string::npos || dot + 1 == name.size()
                ? QString()
                : QStringLiteral("Name and extension (%1)")
                      .arg(QString::fromStdString(name.substr(dot))));
        show(*m_rootPath);
    }
    updateExistingItemLabel();
    updatedButtons();
    if (m_fileNameTextField) {
        m_fileNameTextField->setFocus();
    }
}

void CreateNewItemAtPathController::show(const std::filesystem::path& location) {
    if (m_filePathTextField) {
        const QSignalBlocker ownWrite(m_filePathTextField);
        m_filePathTextField->setPath(QString::fromStdString(pathText(location)));
    }
}

void CreateNewItemAtPathController::controlTextDidChange(QObject* sender) {
    const auto* field = qobject_cast<QLineEdit*>(sender);
    if (field == nullptr || !m_filePathTextField || !m_rootPath || !m_newItem) {
        writeLog("Errrrr");
        return;
    }
    const std::string text = field->text().toStdString();
    const std::filesystem::path location = joined(*m_rootPath, text);
    if (m_newItem->itemFileType() == FileType::project) {
        m_newItem->setItemName(text);
        m_newItem->setItemPathType(FilePathType::absolute);
        m_newItem->setItemPath(location);
        show(location);
    } else if (field == m_fileNameTextField) {
        m_newItem->setItemName(text);
        m_newItem->setItemPathType(FilePathType::absolute);
        show(location);
    }
    updateExistingItemLabel();
    updatedButtons();
}

void CreateNewItemAtPathController::updatedButtons() {
    if (m_nextButton && m_fileNameTextField) {
        m_nextButton->setEnabled(!m_fileNameTextField->text().isEmpty());
    }
}

void CreateNewItemAtPathController::updateExistingItemLabel() {
    if (!m_existingItemLabel) {
        return;
    }
    const QString text = textOnExistingItem();
    m_existingItemLabel->setText(text);
    if (m_fileNameTextField) {
        m_fileNameTextField->setAccessibleDescription(text);
    }
}

QString CreateNewItemAtPathController::textOnExistingItem() const {
    if (!m_newItem || !m_rootPath || !m_fileNameTextField ||
        m_fileNameTextField->text().isEmpty()) {
        return {};
    }
    const std::string name = m_fileNameTextField->text().toStdString();
    const std::filesystem::path location = joined(*m_rootPath, name);
    return m_newItem->itemFileType() == FileType::project ? noteOnProject(location, name)
                                                          : noteOnFile(location);
}

} // namespace kestrel
