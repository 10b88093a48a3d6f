// SPDX-License-Identifier: MIT
#include "app/ProblemMarks.h"

#include "build/NESBuildSettings.h"
#include "editors/code/TextEditorController.h"

#include <algorithm>

namespace kestrel {

namespace {

SourceMark::Kind kindOf(Place::Kind kind) {
    switch (kind) {
    case Place::Kind::error:
        return SourceMark::Kind::error;
    case Place::Kind::warning:
        return SourceMark::Kind::warning;
    case Place::Kind::note:
    case Place::Kind::use:
    case Place::Kind::found:
        break;
    }
    return SourceMark::Kind::note;
}

} // namespace

ProblemMarks::ProblemMarks(TextEditorController& pane, QObject* parent)
    : QObject(parent)
    , m_pane(pane) {
    connect(&pane, &TextEditorController::fileShown, this, [this](bool isOther) {
        if (isOther) {
            std::ranges::for_each(m_problems, [](Problem& problem) { problem.isMarked = false; });
            markShownFile(0);
        }
    });
    connect(&pane, &TextEditorController::fileSaved, this, &ProblemMarks::fileWasSaved);
}

void ProblemMarks::begin(const std::shared_ptr<ProjectItem>& project) {
    m_problems.clear();
    m_paths.clear();
    m_files.reset();
    m_pane.marks().clear();
    if (project) {
        NESBuildSettings settings(project);
        const auto lists = settings.contents().fileLists();
        m_files.emplace(std::vector<const ProjectItems*>(lists.begin(), lists.end()),
                        project->itemPath());
    }
}

void ProblemMarks::add(std::vector<Place>& problems) {
    const std::size_t first = m_problems.size();
    for (Place& place : problems) {
        findFile(place);
        m_problems.push_back(
            {{m_problems.size(), {place.line, place.column}, kindOf(place.kind), place.text},
             place.path.lexically_normal()});
    }
    markShownFile(first);
}

void ProblemMarks::findFile(Place& place) {
    const auto known = m_paths.constFind(place.file);
    if (known != m_paths.cend()) {
        place.path = *known;
    } else if (m_files && place.path.empty()) {
        place.path = m_files->find(place.file).value_or(std::filesystem::path());
        m_paths.insert(place.file, place.path);
    }
}

std::optional<SourcePlace> ProblemMarks::placeOf(std::size_t number) const {
    if (number >= m_problems.size()) {
        return std::nullopt;
    }
    const Problem& problem = m_problems[number];
    const auto present =
        problem.isMarked ? m_pane.marks().placeOf(number) : std::optional<SourcePlace>();
    return present.value_or(problem.mark.place);
}

std::filesystem::path ProblemMarks::shownPath() const {
    return m_pane.path().value_or(std::filesystem::path()).lexically_normal();
}

/// Marks the problems from this one on that are in the shown file.
void ProblemMarks::markShownFile(std::size_t first) {
    const std::filesystem::path path = shownPath();
    std::vector<SourceMark> marks;
    for (std::size_t i = first; i < m_problems.size() && marks.size() < SourceMarks::Limit; ++i) {
        Problem& problem = m_problems[i];
        if (!path.empty() && problem.path == path && !problem.isGone) {
            problem.isMarked = true;
            marks.push_back(problem.mark);
        }
    }
    if (!marks.empty()) {
        m_pane.marks().add(marks);
    }
}

/// What the marks are now holds for the file, too.
void ProblemMarks::fileWasSaved() {
    for (Problem& problem : m_problems) {
        problem.isGone = problem.isGone || problem.isMarked;
    }
    for (const SourceMark& mark : m_pane.marks().marks()) {
        m_problems[mark.id].mark = mark;
        m_problems[mark.id].isGone = false;
    }
}

} // namespace kestrel
