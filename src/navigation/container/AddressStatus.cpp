// SPDX-License-Identifier: MIT
#include "navigation/container/AddressStatus.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/SourcePlace.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "facts/LineSummary.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/container/KnownFile.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/StatusBoard.h"

#include <QEvent>
#include <QTextBlock>
#include <QTextCursor>

#include <string>

namespace kestrel {

namespace {

/// The name at the beginning of a line's text, such as "loop" of "loop: nop".
std::string labelOf(QStringView line) {
    qsizetype end = 0;
    while (end < line.size() && isNameCharacter(line[end])) {
        ++end;
    }
    return line.first(end).toUtf8().toStdString();
}

} // namespace

AddressStatus::AddressStatus(EditorContainerController& editor, const ProgramKnowledge& knowledge,
                             QObject* parent)
    : QObject(parent)
    , m_editor(editor)
    , m_knowledge(knowledge)
    , m_pane(*editor.commonController()->textEditor)
    , m_board(editor.commonController()->statusBoard()) {
    connect(&m_knowledge, &ProgramKnowledge::changed, this, &AddressStatus::findFile);
    connect(&m_pane, &TextEditorController::fileShown, this, &AddressStatus::findFile);
    connect(&m_pane, &TextEditorController::fileSaved, this, &AddressStatus::findFile);
    const CodeEditorTextView* const view = m_pane.codeEditor;
    connect(view, &QPlainTextEdit::cursorPositionChanged, this, &AddressStatus::show);
    connect(view, &QPlainTextEdit::selectionChanged, this, &AddressStatus::show);
    connect(view, &QPlainTextEdit::textChanged, this, &AddressStatus::show);
    connect(view->document(), &QTextDocument::modificationChanged, this, &AddressStatus::show);
    m_pane.installEventFilter(this);
}

bool AddressStatus::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_pane && event->type() == QEvent::Show) {
        show();
    } else if (watched == &m_pane && event->type() == QEvent::Hide && !event->spontaneous() &&
               m_board) {
        m_board->clear(StatusField::address);
    }
    return QObject::eventFilter(watched, event);
}

void AddressStatus::findFile() {
    m_facts = m_knowledge.facts();
    const ProjectNavigationController* const tree = m_editor.projectNavigationController();
    auto project = tree != nullptr ? findParentFromItem(tree->selectedItem()) : nullptr;
    if (!project && tree != nullptr && m_facts) {
        project = builtProject(*m_facts, tree->allItems()); // a text stays without its row's choice
    }
    m_file = m_facts && m_pane.path() ? knownFile(*m_facts, *m_pane.path(), CopiedSources(project))
                                      : nullptr;
    const std::optional<Fingerprint>& now = m_pane.fingerprint();
    m_isOther = m_file != nullptr && now != Fingerprint{m_file->size, m_file->hash};
    show();
}

void AddressStatus::show() const {
    if (!m_pane.isVisible() || !m_board) {
        return;
    }
    const QString known = text();
    const bool isEdited = m_pane.codeEditor && m_pane.codeEditor->document()->isModified();
    const bool isOld = m_isOther || isEdited;
    if (isOld && !known.isEmpty()) {
        m_board->setText(StatusField::address, tr("Before changes: %1").arg(known),
                         StatusTone::past);
    } else {
        m_board->setText(StatusField::address, known);
    }
}

QString AddressStatus::text() const {
    if (m_file == nullptr || !m_pane.codeEditor) {
        return {};
    }
    const CodeEditorTextView& view = *m_pane.codeEditor;
    const QTextCursor cursor = view.textCursor();
    const int first = placeAt(view, cursor.selectionStart()).line;
    const SourcePlace end = placeAt(view, cursor.selectionEnd());
    // A selection of whole lines ends before the line that follows them.
    const int last = end.line > first && end.column == 1 ? end.line - 1 : end.line;
    if (last > first) {
        return LineSummary::ofLines(*m_file, static_cast<std::uint32_t>(first),
                                    static_cast<std::uint32_t>(last));
    }
    const QTextBlock block = view.document()->findBlock(positionOf(view, {first, 1}));
    return LineSummary::ofLine(*m_facts, *m_file, static_cast<std::uint32_t>(first),
                               labelOf(block.text()));
}

} // namespace kestrel
