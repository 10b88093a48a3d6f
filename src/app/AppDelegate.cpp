// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/MainWindowController.h"
#include "app/Window.h"
#include "model/OpenedProject.h"
#include "navigation/container/EditorContainerController.h"

#include <QAction>
#include <QFile>
#include <QFileOpenEvent>

#include <utility>

namespace kestrel {

namespace {

void openFile(EditorContainerController& editor, const std::filesystem::path& path) {
    if (const auto project = openProjectTree(path)) {
        editor.addProjectToEditor(project);
    }
}

} // namespace

AppDelegate::AppDelegate(QObject* parent)
    : QObject(parent) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching(std::shared_ptr<MainWindowController> firstWindow) {
    m_windowController = std::move(firstWindow);
    if (m_windowController) {
        m_windowController->setBuildMenuItem(m_buildMenuItem);
        m_windowController->setRunMenuItem(m_runMenuItem);
    }
}

void AppDelegate::openFiles(const std::vector<std::filesystem::path>& paths) {
    const QPointer<EditorContainerController> editor =
        m_windowController ? m_windowController->editorController() : nullptr;
    if (!editor) {
        return;
    }
    for (const std::filesystem::path& path : paths) {
        editor->whenNoSheetIsOpen([editor, path] {
            if (editor) {
                openFile(*editor, path);
            }
        });
    }
}

void AppDelegate::comeToFront() {
    Window* window = m_windowController ? m_windowController->window() : nullptr;
    if (window == nullptr) {
        return;
    }
    if (window->isMinimized()) {
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    }
    window->show();
    window->raise();
    window->activateWindow();
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FileOpen) {
        return QObject::eventFilter(watched, event);
    }
    const QString file = static_cast<QFileOpenEvent*>(event)->file();
    if (!file.isEmpty()) {
        openFiles({std::filesystem::path(QFile::encodeName(file).toStdString())});
    }
    return true;
}

} // namespace kestrel
