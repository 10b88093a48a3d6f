// SPDX-License-Identifier: MIT
#include "app/MemoryAge.h"

#include "app/MemoryWindow.h"
#include "build/BackgroundWork.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/code/TextEditorController.h"
#include "editors/CommonEditorControllers.h"
#include "facts/ProgramKnowledge.h"
#include "memory/MemoryView.h"
#include "model/FileReader.h"
#include "navigation/container/EditorContainerController.h"
#include "navigation/container/KnownFile.h"
#include "navigation/tree/ProjectNavigationController.h"

#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace kestrel {

namespace {

QString shownName(const std::filesystem::path& path) {
    return QFile::decodeName(path.filename().c_str());
}

} // namespace

MemoryAge::MemoryAge(EditorContainerController& editor, const ProgramKnowledge& knowledge,
                     MemoryWindow& window)
    : m_editor(&editor)
    , m_knowledge(knowledge)
    , m_window(window)
    , m_look(std::make_shared<int>(0)) {
    connect(&knowledge, &ProgramKnowledge::changed, this, &MemoryAge::findSources);
    const TextEditorController* const pane = editor.commonController()->textEditor;
    connect(pane, &TextEditorController::fileSaved, this, &MemoryAge::lookAtDisk);
    connect(pane, &TextEditorController::fileShown, this, &MemoryAge::lookAtDisk);
    connect(pane->codeEditor->document(), &QTextDocument::modificationChanged, this,
            &MemoryAge::tell);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &MemoryAge::lookAtDisk);
    window.installEventFilter(this);
    findSources();
}

MemoryAge::~MemoryAge() = default;

bool MemoryAge::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) {
        lookAtDisk();
    }
    return QObject::eventFilter(watched, event);
}

void MemoryAge::findSources() {
    m_sources.clear();
    m_changed.clear();
    const ProjectNavigationController* const tree =
        m_editor ? m_editor->projectNavigationController() : nullptr;
    const auto& facts = m_knowledge.facts();
    if (facts && tree != nullptr) {
        const CopiedSources copied(builtProject(*facts, tree->allItems()));
        for (const FileFacts& file : facts->files) {
            if (auto path = copied.sourceOf(file); !path.empty()) {
                m_sources.push_back({std::move(path), {file.size, file.hash}});
            }
        }
    }
    lookAtDisk();
}

void MemoryAge::lookAtDisk() {
    ++*m_look;
    tell();
    if (!m_window.isVisible() || m_sources.empty()) {
        return;
    }
    startInBackground([this, sources = m_sources, number = *m_look, alive = std::weak_ptr(m_look),
                       application = QCoreApplication::instance()] {
        QStringList changed;
        for (const Source& source : sources) {
            const auto content = readFile(source.path);
            if (!content || fingerprintOf(*content) != source.fingerprint) {
                changed += shownName(source.path);
            }
        }
        postToMainThread(application, [this, changed, number, alive] {
            const auto look = alive.lock();
            if (look && *look == number) {
                m_changed = changed;
                tell();
            }
        });
    });
}

/// The name of the shown source whose text was changed and not saved; empty when there is none.
QString MemoryAge::unsavedSource() const {
    const TextEditorController* const pane =
        m_editor ? m_editor->commonController()->textEditor.data() : nullptr;
    if (pane == nullptr || !pane->path() || !pane->codeEditor ||
        !pane->codeEditor->document()->isModified()) {
        return {};
    }
    const std::filesystem::path shown = pane->path()->lexically_normal();
    const bool isSource =
        std::ranges::any_of(m_sources, [&](const Source& source) { return source.path == shown; });
    return isSource ? shownName(shown) : QString();
}

void MemoryAge::tell() const {
    QStringList names = m_changed;
    if (const QString unsaved = unsavedSource(); !unsaved.isEmpty()) {
        names.prepend(unsaved);
    }
    names.removeDuplicates();
    QStringList sentences;
    if (m_knowledge.gaveUp()) {
        sentences += m_knowledge.facts()
                         ? tr("Of an earlier build: looking at the last one took too long.")
                         : tr("Looking at the last build took too long.");
    }
    if (names.size() == 1) {
        sentences +=
            tr("From before the changes in %1: build to see the new numbers.").arg(names.front());
    } else if (!names.isEmpty()) {
        sentences += tr("From before the changes in %1 and %2 more: build to see the new numbers.")
                         .arg(names.front())
                         .arg(names.size() - 1);
    }
    m_window.view()->setNote(sentences.join(QLatin1Char(' ')));
}

} // namespace kestrel
