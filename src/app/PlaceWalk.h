// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"
#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class QPlainTextEdit;

namespace kestrel {

class ConsolePlaces;
class EditorContainerController;
class MainWindowController;
class ProblemMarks;

/// Goes from place to place: has the window's list of places, enters the problems in it that the
/// console shows, and carries out the commands for the next and the previous one.
class PlaceWalk : public QObject {
    Q_OBJECT

public:
    /// `editor`, which must have its panes, must outlive this.
    PlaceWalk(MainWindowController& controller, EditorContainerController& editor, QObject* parent);
    ~PlaceWalk() override;

    /// Whoever fills it last is walked through.
    PlaceList& list() { return m_list; }
    PlaceJump& jump() { return m_jump; }

    void goToNext();
    void goToPrevious();

    /// Walks through the problems again after other places.
    void returnToProblems();

    /// Goes to the list's current place. False when there is none or it cannot be shown.
    bool goToCurrent();

private:
    void consoleWasMade();
    void step(bool (PlaceList::*move)());
    void problemsWereFound(std::vector<Place> problems);
    void choose(const Place& place, std::optional<std::size_t> problem);
    std::shared_ptr<ProjectItem> builtProject() const;
    void tell(const QString& text);
    void showInStatusBar(const QString& text);
    const QPlainTextEdit* codeEditor() const;
    int caretBlock() const;

    QPointer<MainWindowController> m_controller;
    EditorContainerController& m_editor;
    PlaceList m_list;
    PlaceJump m_jump;
    std::unique_ptr<ProblemMarks> m_marks; ///< null without a code editor
    QPointer<ConsolePlaces> m_console;
    QString m_remark;              ///< on the place gone to last
    QString m_told;                ///< what stands in the status bar, if it is of this
    int m_toldBlock = 0;           ///< where the caret stood then
    bool m_hasProblems = false;    ///< of what the console shows some were found
    std::vector<Place> m_problems; ///< as many of them as the list takes
};

} // namespace kestrel
