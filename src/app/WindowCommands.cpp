// SPDX-License-Identifier: MIT
#include "app/WindowCommands.h"

#include "app/BuildStrip.h"
#include "app/ConsoleWindow.h"
#include "app/MainWindowController.h"
#include "app/MemoryAge.h"
#include "app/MemoryWindow.h"
#include "app/UserGuideWindow.h"
#include "drafts/UnsavedWork.h"
#include "editors/CommonEditorControllers.h"
#include "icons/Icons.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/tree/OutlineView.h"
#include "navigation/tree/ProjectNavigationController.h"
#include "widgets/EditorPane.h"
#include "widgets/Sheet.h"
#include "widgets/StatusBoard.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

#include <filesystem>
#include <functional>
#include <utility>

namespace kestrel {

namespace {

/// Where projects lie that were made Here, if that folder is there already.
QString projectsFolder() {
    const QString kestrel = QDir::homePath() + QStringLiteral("/Kestrel");
    return QDir(kestrel).exists() ? kestrel : QDir::homePath();
}

/// The widget within `part` that is worked in, or that its focus is passed to, or else the first
/// one that takes the focus from the Tab key.
QWidget* firstFocusable(QWidget& part) {
    const auto takesFocus = [](const QWidget* widget) {
        return (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() &&
               widget->isEnabled();
    };
    const auto* pane = dynamic_cast<const EditorPane*>(&part);
    QWidget* own = pane != nullptr ? pane->workPlace() : nullptr;
    if (own == nullptr) {
        own = part.focusProxy() != nullptr ? part.focusProxy() : &part;
    }
    if (takesFocus(own)) {
        return own;
    }
    for (QWidget* widget = part.nextInFocusChain(); widget != nullptr && widget != &part;
         widget = widget->nextInFocusChain()) {
        if (part.isAncestorOf(widget) && takesFocus(widget)) {
            return widget;
        }
    }
    return nullptr;
}

} // namespace

WindowCommands::WindowCommands(std::weak_ptr<MainWindowController> controller,
                               EditorContainerController& editor, QObject* parent)
    : QObject(parent)
    , m_controller(std::move(controller))
    , m_editor(editor) {
    addCommands();
}

WindowCommands::~WindowCommands() = default;

void WindowCommands::addCommands() {
    constexpr auto Here = Qt::WindowShortcut;
    constexpr auto Everywhere = Qt::ApplicationShortcut;
    const auto add = [this](const char* id, const char* title, QList<QKeySequence> shortcuts,
                            Qt::ShortcutContext context, std::function<void()> handler,
                            QAction::MenuRole role = QAction::TextHeuristicRole) {
        m_commands.add({.id = id,
                        .title = title,
                        .shortcuts = std::move(shortcuts),
                        .handler = std::move(handler),
                        .autoRepeat = false, // held down, a key builds or saves once
                        .shortcutContext = context,
                        .menuRole = role});
    };
    add("openProjectAction", QT_TRANSLATE_NOOP("Command", "&Open Project..."), {QKeySequence::Open},
        Here, [this] { openProject(); });
    add("saveAction", QT_TRANSLATE_NOOP("Command", "&Save"), {QKeySequence::Save}, Here,
        [this] { save(); });
    add(
        "quitAction", QT_TRANSLATE_NOOP("Command", "&Quit"), {Qt::CTRL | Qt::Key_Q}, Everywhere,
        [this] { quit(); }, QAction::QuitRole);
    // The main window's controller carries out these two.
    add("buildAction", QT_TRANSLATE_NOOP("Command", "&Build"), {Qt::CTRL | Qt::Key_B}, Everywhere,
        {});
    add("runAction", QT_TRANSLATE_NOOP("Command", "&Run"), {Qt::CTRL | Qt::Key_R}, Everywhere, {});
    add("saveAndBuildAction", QT_TRANSLATE_NOOP("Command", "Sa&ve and Build"),
        {Qt::CTRL | Qt::SHIFT | Qt::Key_B}, Everywhere, [this] { saveAndBuild(); });
    add("stopAction", QT_TRANSLATE_NOOP("Command", "&Stop"),
        {Qt::CTRL | Qt::Key_Period, Qt::SHIFT | Qt::Key_F5}, Everywhere, [this] { stop(); });
    // The walk through places carries out these.
    add("nextProblemAction", QT_TRANSLATE_NOOP("Command", "&Next Problem"), {Qt::Key_F4},
        Everywhere, {});
    add("previousProblemAction", QT_TRANSLATE_NOOP("Command", "&Previous Problem"),
        {Qt::SHIFT | Qt::Key_F4}, Everywhere, {});
    add("consoleAction", QT_TRANSLATE_NOOP("Command", "&Console"),
        {Qt::CTRL | Qt::SHIFT | Qt::Key_C}, Here, [this] { showConsole(); });
    add("memoryAction", QT_TRANSLATE_NOOP("Command", "&Memory"), {Qt::CTRL | Qt::SHIFT | Qt::Key_M},
        Here, [this] { showMemory(); });
    add("nextPaneAction", QT_TRANSLATE_NOOP("Command", "&Next Part of the Window"), {Qt::Key_F6},
        Here, [this] { focusNextPart(); });
    add("userGuideAction", QT_TRANSLATE_NOOP("Command", "&User Guide"),
        {QKeySequence::HelpContents}, Everywhere, [this] { showUserGuide(); });
    add(
        "aboutAction", QT_TRANSLATE_NOOP("Command", "&About Kestrel"), {}, Here,
        [this] { showAbout(); }, QAction::AboutRole);
}

void WindowCommands::save() {
    if (EditorPane* pane = m_editor.commonController()->shownEditorPane()) {
        pane->savePane();
    }
}

void WindowCommands::saveAndBuild() {
    if (const auto controller = m_controller.lock(); controller && saveToBuild(*controller)) {
        controller->build();
    }
}

void WindowCommands::saveAndRun() {
    if (const auto controller = m_controller.lock(); controller && saveToBuild(*controller)) {
        controller->buildAndRun();
    }
}

/// False, after saying so, when the file on the screen could not be saved: building what is on the
/// disk is not what was asked for.
bool WindowCommands::saveToBuild(MainWindowController& controller) {
    save();
    EditorPane* const pane = m_editor.commonController()->shownEditorPane();
    const UnsavedWork* const work = pane != nullptr ? pane->unsavedWork() : nullptr;
    if (work == nullptr || !work->hasChanges()) {
        return true;
    }
    controller.showConsole();
    const QString reason = m_editor.commonController()->statusBoard()->text(StatusField::saving);
    const QString text = reason.isEmpty()
                             ? tr("Nothing was built: the file on the screen could not be saved")
                             : tr("Nothing was built: %1").arg(reason);
    if (!controller.buildSession().tellNothingWasBuilt(text)) {
        controller.windowController()->buildStrip()->showNotice(text + QLatin1Char('.'));
    }
    return false;
}

void WindowCommands::stop() {
    if (const auto controller = m_controller.lock()) {
        controller->buildSession().stop();
    }
}

void WindowCommands::openProject() {
    if (Sheet::isOpenOn(m_editor.window())) {
        return;
    }
    auto* panel = new QFileDialog(m_editor.window(), tr("Open Project"), projectsFolder(),
                                  tr("Kestrel projects (*.kst);;All files (*)"));
    panel->setObjectName(QStringLiteral("openProjectPanel"));
    panel->setAccessibleName(tr("Open Project"));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    panel->setFileMode(QFileDialog::ExistingFile);
    connect(panel, &QFileDialog::fileSelected, this, [this](const QString& file) {
        const auto controller = m_controller.lock();
        const std::filesystem::path path(QFile::encodeName(file).toStdString());
        if (controller && !controller->importNewProjectFromFile(path)) {
            // Asked for by name, a file that is no project shall not be passed over in silence.
            controller->console(
                tr("“%1” could not be opened as a project.").arg(QDir::toNativeSeparators(file)));
        }
    });
    panel->open();
}

void WindowCommands::quit() {
    QCoreApplication::quit();
}

void WindowCommands::showConsole() {
    if (const auto controller = m_controller.lock()) {
        controller->showConsole();
    }
}

void WindowCommands::showMemory() {
    const auto controller = m_controller.lock();
    if (!controller) {
        return;
    }
    if (!m_memory) {
        m_memory = std::make_unique<MemoryWindow>(controller->knowledge());
        m_memoryAge = std::make_unique<MemoryAge>(m_editor, controller->knowledge(), *m_memory);
    }
    m_memory->comeToFront();
}

void WindowCommands::focusNextPart() {
    const QWidget* focused = QApplication::focusWidget();
    QWidget* pane = m_editor.commonController()->currentWidget();
    const bool inPane =
        pane != nullptr && focused != nullptr && (pane == focused || pane->isAncestorOf(focused));
    QWidget* next = pane != nullptr && !inPane ? firstFocusable(*pane) : nullptr;
    if (next == nullptr) {
        next = m_editor.projectNavigationController()->outlineView();
    }
    if (next != nullptr) {
        next->setFocus(Qt::ShortcutFocusReason);
    }
}

void WindowCommands::showUserGuide() {
    if (!m_userGuide) {
        m_userGuide = std::make_unique<UserGuideWindow>();
    }
    m_userGuide->comeToFront();
}

void WindowCommands::showAbout() {
    auto* box = new QMessageBox(m_editor.window());
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setAccessibleName(tr("About Kestrel"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setWindowTitle(tr("About Kestrel"));
    box->setIconPixmap(iconNamed(u"kestrel").pixmap(QSize(64, 64), box->devicePixelRatio()));
    box->setText(tr("<b>Kestrel %1</b>").arg(QCoreApplication::applicationVersion()));
    box->setInformativeText(
        tr("A desktop environment for making NES games.\nFree software under the MIT licence."));
    box->setStandardButtons(QMessageBox::Close);
    box->open();
}

} // namespace kestrel
