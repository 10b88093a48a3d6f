// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"
#include "facts/ProgramKnowledge.h"
#include "model/ProjectItem.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

class EditorContainerController;
struct NameQuestion;
class PlaceJump;
class PlaceList;
class TextEditorController;

/// Goes to the definition of the name at the code editor's caret, and finds its uses: by what is
/// known about the program of the latest build, and by a search of the project's sources where that
/// does not know the file or the name. Files are read on a background worker.
class NameCommands : public QObject {
    Q_OBJECT

public:
    /// All but `parent` must outlive this; `editor` must have its panes.
    NameCommands(EditorContainerController& editor, const ProgramKnowledge& knowledge,
                 PlaceJump& jump, PlaceList& list, QObject* parent = nullptr);
    ~NameCommands() override;

    void goToDefinition();
    void findUses();

Q_SIGNALS:
    /// The list was filled with the uses of a name.
    void usesFound(const QString& name);

private:
    using Places = std::vector<Place>;

    std::shared_ptr<ProjectItem> shownProject() const;
    std::optional<NameQuestion> questionAtCaret(const std::shared_ptr<ProjectItem>& project);
    void work(std::function<Places()> find, std::function<void(const Places&)> use);
    void tell(const QString& text);
    void clearTold();

    EditorContainerController& m_editor;
    const ProgramKnowledge& m_knowledge;
    PlaceJump& m_jump;
    PlaceList& m_list;
    TextEditorController& m_pane;
    /// Belongs to the latest request; what an older one, or one of a window that is gone, found is
    /// dropped.
    std::shared_ptr<int> m_request;
    QString m_told; ///< what stands in the status bar, if it is of this
};

} // namespace kestrel
