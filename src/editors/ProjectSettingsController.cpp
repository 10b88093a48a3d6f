#include "editors/ProjectSettingsController.h"

#include "panes/LightPalette.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kestrel {

ProjectSettingsController::ProjectSettingsController(QWidget* parent)
    : QWidget(parent)
    , m_nameLabel(new QLabel(this)) {
    setObjectName(QStringLiteral("projectSettings"));
    setAccessibleName(tr("Project settings"));
    makeWhite(*this);
    m_nameLabel->setObjectName(QStringLiteral("projectName"));
    m_nameLabel->setAccessibleName(tr("Project shown"));
    m_nameLabel->setTextFormat(Qt::PlainText);
    m_nameLabel->setAlignment(Qt::AlignCenter);
    m_nameLabel->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_nameLabel);
}

std::shared_ptr<ProjectItem> ProjectSettingsController::currentProject() const {
    return m_currentProject;
}

void ProjectSettingsController::setCurrentProject(const std::shared_ptr<ProjectItem>& project) {
    m_currentProject = project;
}

ProjectSettingsDataSource* ProjectSettingsController::datasource() const {
    return m_datasource;
}

void ProjectSettingsController::setDatasource(ProjectSettingsDataSource* datasource) {
    m_datasource = datasource;
}

bool ProjectSettingsController::updateBuildSettings() {
    if (!m_currentProject) {
        return false;
    }
    m_nameLabel->setText(QString::fromStdString(m_currentProject->itemName()));
    return true;
}

} // namespace kestrel
