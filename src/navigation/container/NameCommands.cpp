// SPDX-License-Identifier: MIT
#include "navigation/container/NameCommands.h"

#include "build/BackgroundWork.h"
#include "build/NESBuildSettings.h"
#include "build/SourceLocation.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/container/KnownFile.h"
#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/StatusBoard.h"

#include <QCoreApplication>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

/// The name at a position of a line's text, or that ends there.
QStringView nameAt(QStringView line, qsizetype position) {
    qsizetype begin = position;
    while (begin > 0 && isNameCharacter(line[begin - 1])) {
        --begin;
    }
    qsizetype end = position;
    while (end < line.size() && isNameCharacter(line[end])) {
        ++end;
    }
    return line.sliced(begin, end - begin);
}

/// The label that local names in a line belong to.
std::string scopeAt(QTextBlock block) {
    for (; block.isValid(); block = block.previous()) {
        const std::string line = block.text().toUtf8().toStdString();
        if (const std::string_view label = scopeLabel(line); !label.empty()) {
            return std::string(label);
        }
    }
    return {};
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

std::optional<NameCommands::Name> NameCommands::nameAtCaret() {
    const ProjectNavigationController* const tree = m_editor.projectNavigationController();
    Name name;
    name.project = tree != nullptr ? findParentFromItem(tree->selectedItem()) : nullptr;
    if (!name.project || !m_pane.path() || !m_pane.codeEditor) {
        return std::nullopt;
    }
    const QTextCursor cursor = m_pane.codeEditor->textCursor();
    const QString line = cursor.block().text();
    name.text = nameAt(line, cursor.position() - cursor.block().position()).toUtf8().toStdString();
    if (name.text.empty() || name.text == "." || (name.text[0] >= '0' && name.text[0] <= '9')) {
        tell(tr("There is no name at the caret"));
        return std::nullopt;
    }
    if (name.text.starts_with('.')) {
        name.scope = scopeAt(cursor.block());
    }
    m_facts = m_knowledge.facts();
    if (m_facts && knownFile(*m_facts, *m_pane.path(), name.project) != nullptr) {
        name.known = m_facts->symbol(name.text, name.scope);
    }
    return name;
}

void NameCommands::goToDefinition() {
    const std::optional<Name> found = nameAtCaret();
    if (!found) {
        return;
    }
    const Name name = *found;
    std::function<Places()> find;
    if (name.known != nullptr && !name.known->definitions.empty()) {
        find = [places = placesOf(name.known->definitions, name)] {
            return placesWithText(places, Place::Kind::found);
        };
    } else {
        find = [files = sourcesOf(name.project), text = name.text, scope = name.scope] {
            return placesWithText(findName(files, text, scope).definitions, Place::Kind::found);
        };
    }
    work(std::move(find), [this, name](const Places& places) {
        if (places.empty()) {
            tell(tr("No definition of “%1” was found").arg(QString::fromStdString(name.text)));
        } else {
            m_jump.goTo(name.project, places.front());
        }
    });
}

void NameCommands::findUses() {
    const std::optional<Name> found = nameAtCaret();
    if (!found) {
        return;
    }
    const Name name = *found;
    std::function<Places()> find;
    if (name.known != nullptr) {
        find = [places = placesOf(name.known->uses, name)] {
            return placesWithText(places, Place::Kind::use);
        };
    } else {
        find = [files = sourcesOf(name.project), text = name.text, scope = name.scope] {
            FoundName all = findName(files, text, scope);
            std::erase_if(all.all, [&](const BytePlace& place) {
                return std::ranges::find(all.definitions, place) != all.definitions.end();
            });
            return placesWithText(all.all, Place::Kind::use);
        };
    }
    work(std::move(find), [this, name](const Places& places) {
        const QString text = QString::fromStdString(name.text);
        if (places.empty()) {
            tell(tr("No use of “%1” was found").arg(text));
            return;
        }
        m_list.fill(PlaceList::Content::uses, name.project, places);
        Q_EMIT usesFound(text);
    });
}

std::vector<BytePlace> NameCommands::placesOf(const std::vector<FactPlace>& places,
                                              const Name& name) const {
    std::vector<BytePlace> result;
    std::vector<std::filesystem::path> paths(m_facts->files.size());
    for (const FactPlace& place : places) {
        std::filesystem::path& path = paths[place.file];
        if (path.empty()) {
            path = sourceOf(m_facts->files[place.file], name.project);
        }
        result.push_back({path, place.line, place.column});
    }
    return result;
}

std::vector<std::filesystem::path>
NameCommands::sourcesOf(const std::shared_ptr<ProjectItem>& project) {
    std::vector<std::filesystem::path> files;
    NESBuildSettings settings(project);
    for (const auto& node : settings.assemblyFiles()) {
        const auto path = node ? sourceFile(*node, project->itemPath()) : std::nullopt;
        if (path && std::ranges::find(files, *path) == files.end()) {
            files.push_back(*path);
        }
    }
    return files;
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
