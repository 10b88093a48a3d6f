// SPDX-License-Identifier: MIT
#include "editors/settings/BuildFileListModel.h"

#include "build/SourceLocation.h"
#include "model/Paths.h"

#include <QTextDocument>

#include <utility>

namespace kestrel {

namespace {

/// A tool tip shows text with tags as rich text unless it is told not to.
QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text)
               ? QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped())
               : text;
}

QString wholePath(const ProjectItem& file, const ProjectItem* project) {
    const auto folder =
        sourceFolder(file, project != nullptr ? project->itemPath() : std::filesystem::path());
    return QString::fromStdString(pathText(folder ? joined(*folder, file.itemName())
                                                  : std::filesystem::path(file.itemName())));
}

} // namespace

void BuildFileListModel::setFiles(ProjectItems files, std::shared_ptr<ProjectItem> project) {
    beginResetModel();
    m_files = std::move(files);
    m_project = std::move(project);
    m_missing.assign(m_files.size(), std::nullopt);
    endResetModel();
}

bool BuildFileListModel::isMissing(int row) const {
    const auto place = static_cast<std::size_t>(row);
    if (row < 0 || place >= m_files.size()) {
        return false;
    }
    if (!m_missing[place]) {
        m_rule.projectItem = m_files[place];
        m_rule.currentProjectItem = m_project;
        m_missing[place] = !m_rule.checkFile().value_or(true);
    }
    return *m_missing[place];
}

void BuildFileListModel::forgetPresence() {
    m_missing.assign(m_files.size(), std::nullopt);
    if (!m_files.empty()) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
    }
}

void BuildFileListModel::setFileExistence(ProjectNavigationItem::FileExistence fileExists) {
    m_rule = ProjectNavigationItem(std::move(fileExists));
    forgetPresence();
}

int BuildFileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_files.size());
}

QVariant BuildFileListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const ProjectItem& file = *m_files[static_cast<std::size_t>(index.row())];
    const QString name = QString::fromStdString(file.itemName());
    switch (role) {
    case Qt::DisplayRole:
        return name;
    case Qt::ToolTipRole:
        return plainToolTip(wholePath(file, m_project.get()));
    case Qt::AccessibleTextRole:
        return isMissing(index.row()) ? tr("%1 (missing)").arg(name) : name;
    default:
        return {};
    }
}

} // namespace kestrel
