// SPDX-License-Identifier: MIT
#pragma once

#include "build/GatheredFiles.h"
#include "build/Place.h"
#include "model/ProjectItem.h"

#include <QObject>

#include <filesystem>
#include <memory>

namespace kestrel {

class EditorContainerController;
class NESBuildSettings;
class TextEditorController;

/// Goes to places in sources: selects the file's row in the tree as a click does, shows the file in
/// the code editor, and puts the caret at the place. A file that is shown already is not read
/// again.
class PlaceJump : public QObject {
    Q_OBJECT

public:
    /// `editor` must outlive this.
    explicit PlaceJump(EditorContainerController& editor, QObject* parent = nullptr);

    /// Goes to a place of the project's sources. A place without a path is in the file that a build
    /// of the project gathers under the place's name. False, after notice(), when that is not to be
    /// had; false while a sheet is open on the window, which is brought to the front.
    bool goTo(const std::shared_ptr<ProjectItem>& project, const Place& place);

    /// The same for the file at `path` of a node of `project`, or else of any other project.
    bool goTo(const std::shared_ptr<ProjectItem>& project, const std::filesystem::path& path,
              int line, int column);

    /// Goes to a place of a node's file.
    bool goTo(const std::shared_ptr<ProjectItem>& node, int line, int column);

Q_SIGNALS:
    /// Why a place cannot be shown, as a sentence for the user.
    void notice(const QString& text);
    /// The caret is at the place. `remark` is empty, or says that the file ends before it, so that
    /// the caret is in the last line.
    void arrived(const QString& remark);

private:
    TextEditorController* show(const std::shared_ptr<ProjectItem>& node);
    std::shared_ptr<ProjectItem> nodeAt(const std::filesystem::path& path,
                                        const std::shared_ptr<ProjectItem>& project) const;
    void bringToFront() const;
    bool refuse(const QString& text);

    EditorContainerController& m_editor;
};

/// The file behind a place of the project's sources; empty when no file is gathered under its name.
std::filesystem::path fileOf(const Place& place, const std::shared_ptr<ProjectItem>& project);

/// What a build of the project gathers. Reads the project's settings; without a project there is
/// nothing.
GatheredFiles gatheredFilesOf(const std::shared_ptr<ProjectItem>& project);
GatheredFiles gatheredFilesOf(const ProjectItem& project, NESBuildSettings& settings);

} // namespace kestrel
