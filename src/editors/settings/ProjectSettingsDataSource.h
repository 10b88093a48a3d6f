// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// Is told when the settings pane changed the kind of a file.
class ProjectSettingsDataSource {
public:
    virtual void updatedFileType() = 0;

protected:
    ProjectSettingsDataSource() = default;
    ProjectSettingsDataSource(const ProjectSettingsDataSource&) = default;
    ProjectSettingsDataSource& operator=(const ProjectSettingsDataSource&) = default;
    ~ProjectSettingsDataSource() = default;
};

} // namespace kestrel
