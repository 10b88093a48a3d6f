// SPDX-License-Identifier: MIT
#include "navigation/container/NameCommands.h"

#include "build/BackgroundWork.h"
#include "build/NameSearch.h"
#include "build/NESBuildSettings.h"
#include "build/SourceLocation.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/LinePieces.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/container/NameQuestion.h"
#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/StatusBoard.h"

#include <QCoreApplication>
#include <QTextBlock>

#include <string>
#include <unordered_set>
#include <utility>

namespace kestrel {

namespace {

/// So many lines above the caret are searched for its label here, which takes some milliseconds.
/// What is further up is left to the worker.
constexpr int NearLines = 1000;

/// The name at a position of a line's text, or that ends there. A number after $ is none.
QStringView nameAt(QStringView line, qsizetype position) {
    qsizetype begin = position;
    while (begin > 0 && isNameCharacter(line[begin - 1])) {
        --begin;
    }
    qsizetype end = position;
    while (end < line.size() && isNameCharacter(line[end])) {
        ++end;
    }
    const bool isNumber = begin > 0 && line[begin - 1] == u'$';
    return isNumber ? QStringView() : line.sliced(begin, end - begin);
}

/// Asks for the label that local names in a line belong to.
void addScope(NameQuestion& question, QTextBlock block, const CodeEditorTextView& view) {
    for (int i = 0; i < NearLines && block.isValid(); ++i, block = block.previous()) {
        const std::string line = block.text().toUtf8().toStdString();
        const std::string_view label = continuesLine(block) ? "" : scopeLabel(line);
        if (!label.empty()) {
            question.scope = label;
            return;
        }
    }
    if (block.isValid()) {
        question.firstLines = static_cast<std::uint32_t>(view.lineAt(block.position()) + 1);
    } else {
        question.scope = std::string();
    }
}

/// The listed sources of a project.
std::vector<std::filesystem::path> sourcesOf(const ProjectItem& project,
                                             NESBuildSettings& settings) {
    std::vector<std::filesystem::path> files;
    std::unordered_set<std::string> taken;
    for (const auto& node : settings.assemblyFiles()) {
        const auto path = node ? sourceFile(*node, project.itemPath()) : std::nullopt;
        if (path && taken.insert(path->native()).second) {
            files.push_back(*path);
        }
    }
    return files;
}

} // namespace

NameCommands::NameCommands(EditorContainerController& editor, const ProgramKnowledge& knowledge,
                           PlaceJump& jump, PlaceList& list, QObject* parent)
    : QObject(parent)
    , m_editor(editor)
    , m_knowledge(knowledge)
    , m_jump(jump)
    , m_list(list)
    , m_pane(*editor.commonController()->textEditor) {
    connect(&m_pane, &TextEditorController::definitionWanted, this, &NameCommands::goToDefinition);
    connect(&m_pane, &TextEditorController::usesWanted, this, &NameCommands::findUses);
    connect(m_pane.codeEditor, &QPlainTextEdit::cursorPositionChanged, this,
            [this] { clearTold(); });
}

NameCommands::~NameCommands() = default;

std::shared_ptr<ProjectItem> NameCommands::shownProject() const {
    const ProjectNavigationController* const tree = m_editor.projectNavigationController();
    return tree != nullptr && m_pane.path() && m_pane.codeEditor
               ? findParentFromItem(tree->selectedItem())
               : nullptr;
}

/// What to ask about the name at the caret; nothing, and that is told, when there is none.
std::optional<NameQuestion>
NameCommands::questionAtCaret(const std::shared_ptr<ProjectItem>& project) {
    const QTextCursor cursor = m_pane.codeEditor->textCursor();
    const QString line = cursor.block().text();
    const std::string name = nameAt(line, cursor.positionInBlock()).toUtf8().toStdString();
    if (name.empty() || name == "." || (name[0] >= '0' && name[0] <= '9')) {
        tell(tr("There is no name at the caret"));
        return std::nullopt;
    }
    NESBuildSettings settings(project);
    NameQuestion question{.name = name,
                          .file = *m_pane.path(),
                          .copies = CopiedSources(*project, settings),
                          .sources = sourcesOf(*project, settings)};
    if (name.starts_with('.')) {
        addScope(question, cursor.block(), *m_pane.codeEditor);
    }
    const ProgramKnowledge::Facts& facts = m_knowledge.facts();
    if (facts && knownFile(*facts, question.file, question.copies) != nullptr) {
        question.facts = facts;
    }
    return question;
}

void NameCommands::goToDefinition() {
    const auto project = shownProject();
    const auto question = project ? questionAtCaret(project) : std::nullopt;
    if (!question) {
        return;
    }
    work([asked = *question] { return definitionsOf(asked); },
         [this, project, name = QString::fromStdString(question->name)](const Places& places) {
             if (places.empty()) {
                 tell(tr("No definition of “%1” was found").arg(name));
             } else {
                 m_jump.goTo(project, places.front());
             }
         });
}

void NameCommands::findUses() {
    const auto project = shownProject();
    const auto question = project ? questionAtCaret(project) : std::nullopt;
    if (!question) {
        return;
    }
    work([asked = *question] { return usesOf(asked); },
         [this, project, name = QString::fromStdString(question->name)](const Places& places) {
             if (places.empty()) {
                 tell(tr("No use of “%1” was found").arg(name));
                 return;
             }
             m_list.fill(PlaceList::Content::uses, project, places);
             Q_EMIT usesFound(name);
         });
}

/// Finds places on a worker and uses them on this thread, unless something newer is asked for.
void NameCommands::work(std::function<Places()> find, std::function<void(const Places&)> use) {
    clearTold();
    m_request = std::make_shared<int>();
    startInBackground([find = std::move(find), use = std::move(use),
                       request = std::weak_ptr<int>(m_request),
                       application = QCoreApplication::instance()] {
        Places places = find();
        if (!QCoreApplication::closingDown()) {
            postToMainThread(application, [places = std::move(places), use, request] {
                if (!request.expired()) {
                    use(places);
                }
            });
        }
    });
}

void NameCommands::tell(const QString& text) {
    m_editor.commonController()->statusBoard()->setText(StatusField::notice, text);
    m_told = text;
}

/// Takes back what tell() told; others tell of their jumps there, too.
void NameCommands::clearTold() {
    StatusBoard* const board = m_editor.commonController()->statusBoard();
    if (board->text(StatusField::notice) == std::exchange(m_told, QString())) {
        board->clear(StatusField::notice);
    }
}

} // namespace kestrel
