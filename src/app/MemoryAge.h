// SPDX-License-Identifier: MIT
#pragma once

#include "model/Fingerprint.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <filesystem>
#include <memory>
#include <vector>

namespace kestrel {

class EditorContainerController;
class MemoryWindow;
class ProgramKnowledge;

/// Has the memory window say when its numbers are older than the sources: than what is on the disk,
/// which is looked at in the background whenever a window comes to the front, or on the screen.
class MemoryAge : public QObject {
    Q_OBJECT

public:
    /// `editor` must have its panes. `knowledge` and `window` must outlive this.
    MemoryAge(EditorContainerController& editor, const ProgramKnowledge& knowledge,
              MemoryWindow& window);
    ~MemoryAge() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A source of the program, as the build read it.
    struct Source {
        std::filesystem::path path;
        Fingerprint fingerprint;
    };

    void findSources();
    void lookAtDisk();
    void tell() const;
    QString unsavedSource() const;

    QPointer<EditorContainerController> m_editor;
    const ProgramKnowledge& m_knowledge;
    MemoryWindow& m_window;
    std::vector<Source> m_sources;
    QStringList m_changed;       ///< the names of those that are others on the disk now
    std::shared_ptr<int> m_look; ///< counts the looks; gone with this
};

} // namespace kestrel
