// SPDX-License-Identifier: MIT
#include "app/PlaceWalk.h"

#include "app/BuildStrip.h"
#include "app/ConsoleOutput.h"
#include "app/ConsolePlaces.h"
#include "app/ConsoleWindow.h"
#include "app/MainWindowController.h"
#include "app/ProblemMarks.h"
#include "build/NESProjectBuilder.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "widgets/StatusBoard.h"

#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

/// What the list says of its current place, and the how manieth of all it is.
QString sentenceAbout(const PlaceList& list) {
    const Place& place = *list.current();
    const QString number = QString::number(*list.currentIndex() + 1);
    const QString count = QString::number(list.places().size());
    const QString text = place.text.trimmed();
    switch (place.kind) {
    case Place::Kind::error:
        return PlaceWalk::tr("Error (%1 of %2): %3").arg(number, count, text);
    case Place::Kind::warning:
        return PlaceWalk::tr("Warning (%1 of %2): %3").arg(number, count, text);
    case Place::Kind::note:
        return PlaceWalk::tr("Note (%1 of %2): %3").arg(number, count, text);
    case Place::Kind::use:
        return PlaceWalk::tr("Use (%1 of %2): %3").arg(number, count, text);
    case Place::Kind::found:
        return PlaceWalk::tr("Found (%1 of %2): %3").arg(number, count, text);
    }
    return {};
}

} // namespace

PlaceWalk::PlaceWalk(MainWindowController& controller, EditorContainerController& editor,
                     QObject* parent)
    : QObject(parent)
    , m_controller(&controller)
    , m_editor(editor)
    , m_jump(editor) {
    if (TextEditorController* pane = editor.commonController()->textEditor) {
        m_marks = std::make_unique<ProblemMarks>(*pane);
    }
    connect(&controller, &MainWindowController::consoleMade, this, &PlaceWalk::consoleWasMade);
    connect(&m_jump, &PlaceJump::notice, this, &PlaceWalk::tell);
    connect(&m_jump, &PlaceJump::arrived, this, [this](const QString& remark) {
        m_remark = remark;
        tell(remark);
    });
    if (const QPlainTextEdit* const text = codeEditor()) {
        connect(text, &QPlainTextEdit::cursorPositionChanged, this, [this] {
            if (!m_told.isEmpty() && caretBlock() != m_toldBlock) {
                showInStatusBar({});
            }
        });
    }
}

PlaceWalk::~PlaceWalk() = default;

void PlaceWalk::consoleWasMade() {
    ConsoleOutput* const output = m_controller->consoleOutputController();
    if (output == nullptr || output->console() == nullptr) {
        return;
    }
    m_console = new ConsolePlaces(*output->console(), output);
    connect(m_console, &ConsolePlaces::cleared, this, [this] {
        m_hasProblems = false;
        m_problems.clear();
        m_list.clear(PlaceList::Content::problems);
        showInStatusBar({});
        if (m_marks) {
            m_marks->begin(nullptr);
        }
    });
    connect(m_console, &ConsolePlaces::found, this, &PlaceWalk::problemsWereFound);
    connect(m_console, &ConsolePlaces::chosen, this, &PlaceWalk::choose);
}

/// The project of the latest build, whose output the console shows.
std::shared_ptr<ProjectItem> PlaceWalk::builtProject() const {
    const auto builder = m_controller ? m_controller->projectBuilder() : nullptr;
    return builder && builder->buildSetting() ? builder->buildSetting()->projectToBuild() : nullptr;
}

void PlaceWalk::problemsWereFound(std::vector<Place> problems) {
    const bool isFirst = !std::exchange(m_hasProblems, true);
    const auto project = builtProject();
    if (m_marks) {
        if (isFirst) {
            m_marks->begin(project);
        }
        m_marks->add(problems);
    }
    const std::size_t room = PlaceList::Limit - std::min(m_problems.size(), PlaceList::Limit);
    m_problems.insert(m_problems.end(), problems.begin(),
                      problems.begin() +
                          static_cast<std::ptrdiff_t>(std::min(room, problems.size())));
    if (isFirst) {
        m_list.fill(PlaceList::Content::problems, project, std::move(problems));
    } else {
        m_list.add(PlaceList::Content::problems, std::move(problems));
    }
}

void PlaceWalk::returnToProblems() {
    if (m_list.content() != PlaceList::Content::problems) {
        m_list.fill(PlaceList::Content::problems, builtProject(), m_problems);
    }
}

void PlaceWalk::goToNext() {
    step(&PlaceList::next);
}

void PlaceWalk::goToPrevious() {
    step(&PlaceList::previous);
}

void PlaceWalk::step(bool (PlaceList::*move)()) {
    const ConsoleOutput* const output =
        m_controller ? m_controller->consoleOutputController() : nullptr;
    if (m_console && output != nullptr && !output->isBusy()) {
        m_console->readLastLine();
    }
    if ((m_list.*move)()) {
        goToCurrent();
    } else {
        tell(tr("There is no problem to go to"));
    }
}

bool PlaceWalk::goToCurrent() {
    const Place* const current = m_list.current();
    if (current == nullptr) {
        return false;
    }
    Place place = *current;
    const bool isProblem = m_list.content() == PlaceList::Content::problems && m_marks;
    const std::size_t number = *m_list.currentIndex();
    const auto present = [&] {
        return (isProblem ? m_marks->placeOf(number) : std::nullopt)
            .value_or(SourcePlace{place.line, place.column});
    };
    const SourcePlace before = present();
    place.line = before.line;
    place.column = before.column;
    if (isProblem && m_console) {
        m_console->showProblem(number);
    }
    if (!m_jump.goTo(m_list.project(), place)) {
        return false;
    }
    // Reading the file may have moved what is marked in it.
    if (const SourcePlace after = present(); after != before) {
        moveCaretTo(*m_editor.commonController()->textEditor->codeEditor, after);
    }
    const QString sentence = sentenceAbout(m_list);
    showInStatusBar(m_remark.isEmpty() ? sentence : tr("%1. %2").arg(m_remark, sentence));
    return true;
}

/// Tells the user something, in the strip of the console and in the status bar, since either may be
/// out of sight; nothing any more when it is empty.
void PlaceWalk::tell(const QString& text) {
    showInStatusBar(text);
    const ConsoleWindow* const console = m_controller ? m_controller->windowController() : nullptr;
    if (console != nullptr) {
        console->buildStrip()->showNotice(text);
    }
}

/// Shows this while the caret stays in its line. Nothing takes back only what this showed.
void PlaceWalk::showInStatusBar(const QString& text) {
    StatusBoard* const board = m_editor.commonController()->statusBoard();
    if (!text.isEmpty() || board->text(StatusField::notice) == m_told) {
        board->setText(StatusField::notice, text);
    }
    m_told = text;
    m_toldBlock = caretBlock();
}

const QPlainTextEdit* PlaceWalk::codeEditor() const {
    const TextEditorController* const pane = m_editor.commonController()->textEditor;
    return pane != nullptr ? pane->codeEditor : nullptr;
}

int PlaceWalk::caretBlock() const {
    const QPlainTextEdit* const text = codeEditor();
    return text != nullptr ? text->textCursor().blockNumber() : 0;
}

/// Goes to the place of a line of the console.
void PlaceWalk::choose(const Place& place, std::optional<std::size_t> problem) {
    if (problem && *problem < m_problems.size()) {
        returnToProblems();
        m_list.setCurrentIndex(*problem);
        goToCurrent();
        return;
    }
    Place found = place;
    if (m_marks && m_hasProblems) {
        m_marks->findFile(found);
    }
    m_jump.goTo(builtProject(), found);
}

} // namespace kestrel
