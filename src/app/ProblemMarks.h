// SPDX-License-Identifier: MIT
#pragma once

#include "build/GatheredFiles.h"
#include "build/Place.h"
#include "editors/code/SourceMarks.h"
#include "model/ProjectItem.h"

#include <QHash>
#include <QObject>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

class TextEditorController;

/// The problems of a build: finds their files and marks those of the file that the code editor
/// shows. Marks that moved or went with edits are so remembered once the file is saved.
class ProblemMarks : public QObject {
    Q_OBJECT

public:
    /// `pane` must outlive this.
    explicit ProblemMarks(TextEditorController& pane, QObject* parent = nullptr);

    /// Forgets all problems; those that come next are of a build of `project`.
    void begin(const std::shared_ptr<ProjectItem>& project);

    /// Adds problems, numbered in order from 0 on, and sets the path of each whose file is known.
    void add(std::vector<Place>& problems);

    /// Sets the path of a place in the sources of the project, if it is known.
    void findFile(Place& place);

    /// Where a problem is now, whatever has been edited and saved since the build.
    std::optional<SourcePlace> placeOf(std::size_t number) const;

private:
    struct Problem {
        SourceMark mark;
        std::filesystem::path path;
        bool isMarked = false; ///< in the shown file, or it was until its line was edited
        bool isGone = false;
    };

    void markShownFile(std::size_t first);
    void fileWasSaved();
    std::filesystem::path shownPath() const;

    TextEditorController& m_pane;
    std::optional<GatheredFiles> m_files;
    QHash<QString, std::filesystem::path> m_paths; ///< by the names in messages
    std::vector<Problem> m_problems;
};

} // namespace kestrel
