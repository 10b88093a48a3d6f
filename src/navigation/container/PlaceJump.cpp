// SPDX-License-Identifier: MIT
#include "navigation/container/PlaceJump.h"

#include "build/NESBuildSettings.h"
#include "build/SourceLocation.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/SourcePlace.h"
#include "editors/CommonEditorControllers.h"
#include "model/Paths.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/NodeRoot.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "navigation/tree/ProjectNavigationModel.h"
#include "widgets/Sheet.h"

#include <QFile>

#include <vector>

namespace kestrel {

namespace {

/// The path of a node's file, as the code editor gets it.
std::filesystem::path pathOf(const ProjectItem& node, const ProjectItem& project) {
    const auto path = sourceFile(node, project.itemPath());
    return path ? path->lexically_normal() : std::filesystem::path();
}

QString shownName(const std::filesystem::path& path) {
    return QFile::decodeName(path.filename().c_str());
}

} // namespace

std::filesystem::path fileOf(const Place& place, const std::shared_ptr<ProjectItem>& project) {
    if (!place.path.empty() || !project) {
        return place.path;
    }
    return gatheredFilesOf(project).find(place.file).value_or(std::filesystem::path());
}

GatheredFiles gatheredFilesOf(const std::shared_ptr<ProjectItem>& project) {
    if (!project) {
        return {{}, {}};
    }
    NESBuildSettings settings(project);
    return gatheredFilesOf(*project, settings);
}

GatheredFiles gatheredFilesOf(const ProjectItem& project, NESBuildSettings& settings) {
    const auto lists = settings.contents().fileLists();
    return {{lists.begin(), lists.end()}, project.itemPath()};
}

PlaceJump::PlaceJump(EditorContainerController& editor, QObject* parent)
    : QObject(parent)
    , m_editor(editor) {}

bool PlaceJump::goTo(const std::shared_ptr<ProjectItem>& project, const Place& place) {
    const auto node = nodeAt(fileOf(place, project), project);
    return node ? goTo(node, place.line, place.column)
                : refuse(tr("“%1” is in no project of the tree").arg(place.file));
}

bool PlaceJump::goTo(const std::shared_ptr<ProjectItem>& project, const std::filesystem::path& path,
                     int line, int column) {
    const auto node = nodeAt(path, project);
    return node ? goTo(node, line, column)
                : refuse(tr("“%1” is in no project of the tree").arg(shownName(path)));
}

bool PlaceJump::goTo(const std::shared_ptr<ProjectItem>& node, int line, int column) {
    bringToFront();
    if (Sheet::isOpenOn(m_editor.window())) {
        return false;
    }
    TextEditorController* const pane = show(node);
    if (pane == nullptr || !pane->codeEditor) {
        return refuse(tr("“%1” could not be shown").arg(QString::fromStdString(node->itemName())));
    }
    CodeEditorTextView& view = *pane->codeEditor;
    moveCaretTo(view, {line, column});
    view.setFocus(Qt::ShortcutFocusReason);
    Q_EMIT arrived(
        line > view.lineCount()
            ? tr("“%1” ends before line %2").arg(QString::fromStdString(node->itemName())).arg(line)
            : QString());
    return true;
}

/// The code editor with the node's file, whatever kind the node is of; null when that fails.
TextEditorController* PlaceJump::show(const std::shared_ptr<ProjectItem>& node) {
    ProjectNavigationController* const tree = m_editor.projectNavigationController();
    CommonEditorControllers* const panes = m_editor.commonController();
    TextEditorController* const pane = panes != nullptr ? panes->textEditor.data() : nullptr;
    const auto project = findParentFromItem(node);
    const std::filesystem::path path = pathOf(*node, *project);
    if (tree == nullptr || pane == nullptr || path.empty()) {
        return nullptr;
    }
    const auto isShown = [&] {
        return panes->currentWidget() == pane && pane->path() &&
               pane->path()->lexically_normal() == path;
    };
    if (isShown()) {
        m_editor.selectShown(node);
        return pane;
    }
    if (tree->selectedItem() == node) {
        m_editor.showSelectedAgain();
    } else {
        tree->select(node);
    }
    if (!isShown()) {
        panes->displayEditorController(node, project);
    }
    return isShown() ? pane : nullptr;
}

/// The node with a row whose file this is: the selected one, else the project's first, else the
/// first of all; nullptr when there is none.
std::shared_ptr<ProjectItem> PlaceJump::nodeAt(const std::filesystem::path& path,
                                               const std::shared_ptr<ProjectItem>& project) const {
    const ProjectNavigationController* const tree = m_editor.projectNavigationController();
    if (tree == nullptr || path.empty()) {
        return nullptr;
    }
    const std::filesystem::path wanted = path.lexically_normal();
    const auto matches = [&](const std::shared_ptr<ProjectItem>& node) {
        const auto root = findParentFromItem(node);
        return node && node != root && node->itemFileType() != FileType::group &&
               pathOf(*node, *root) == wanted;
    };
    if (auto selected = tree->selectedItem();
        matches(selected) && findParentFromItem(selected) == project) {
        return selected;
    }
    // Taken from the end: the last one pushed comes first.
    ProjectItems waiting(tree->allItems().rbegin(), tree->allItems().rend());
    waiting.push_back(project);
    while (!waiting.empty()) {
        std::shared_ptr<ProjectItem> node = waiting.back();
        waiting.pop_back();
        if (!node) {
            continue;
        }
        if (matches(node) && tree->model()->indexOf(node).isValid()) {
            return node;
        }
        const ProjectItems& below = node->subItems();
        waiting.insert(waiting.end(), below.rbegin(), below.rend());
    }
    return nullptr;
}

void PlaceJump::bringToFront() const {
    QWidget* const window = m_editor.window();
    if (window->isMinimized()) {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    }
    window->raise();
    window->activateWindow();
}

bool PlaceJump::refuse(const QString& text) {
    Q_EMIT notice(text);
    return false;
}

} // namespace kestrel
