// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramKnowledge.h"

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <optional>

namespace kestrel {

class EditorContainerController;
class StatusBoard;
class TextEditorController;

/// Tells in the status bar what the code editor's line, or its selected lines, came to in the last
/// build: address, bytes, cycles. After an edit it is marked as what was before the changes.
class AddressStatus : public QObject {
    Q_OBJECT

public:
    /// `editor`, which must have its panes, and `knowledge` must outlive this.
    AddressStatus(EditorContainerController& editor, const ProgramKnowledge& knowledge,
                  QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void findFile();
    void show() const;
    QString text() const;

    EditorContainerController& m_editor;
    const ProgramKnowledge& m_knowledge;
    TextEditorController& m_pane;
    QPointer<StatusBoard> m_board;
    ProgramKnowledge::Facts m_facts;   ///< that m_file is in
    const FileFacts* m_file = nullptr; ///< the pane's; null when nothing is known of it
    bool m_isOther = false;            ///< the file on the disk was another one at the build
};

} // namespace kestrel
