#pragma once

#include "editors/ProjectSettingsDataSource.h"
#include "model/ProjectItem.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class QLabel;

namespace kestrel {

/// The pane for a project's build settings. For now it names the project.
class ProjectSettingsController : public QWidget {
    Q_OBJECT

public:
    explicit ProjectSettingsController(QWidget* parent = nullptr);

    /// The project whose settings are shown; shared with the navigation tree.
    std::shared_ptr<ProjectItem> currentProject() const;
    void setCurrentProject(const std::shared_ptr<ProjectItem>& project);

    /// Who is told of changed file kinds; not owned, must outlive the pane or be taken back.
    ProjectSettingsDataSource* datasource() const;
    void setDatasource(ProjectSettingsDataSource* datasource);

    /// Shows the current project's settings; false without a project.
    virtual bool updateBuildSettings();

private:
    std::shared_ptr<ProjectItem> m_currentProject;
    ProjectSettingsDataSource* m_datasource = nullptr;
    QPointer<QLabel> m_nameLabel;
};

} // namespace kestrel
