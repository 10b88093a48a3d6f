// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/ColumnCount.h"
#include "editors/code/LineCount.h"
#include "editors/code/LineNumberedTextView.h"
#include "editors/code/SourceDocument.h"

namespace kestrel {

/// The text view of the code editor: plain text with line numbers, new lines indented like the line
/// before, and every line's end kept as it was.
class CodeEditorTextView : public LineNumberedTextView {
    Q_OBJECT

public:
    explicit CodeEditorTextView(QWidget* parent = nullptr);

    /// The text as it is in the file. Text from outside is inserted through this only.
    SourceDocument& source() { return m_source; }
    const SourceDocument& source() const { return m_source; }

    /// The Tab key: a tab character, in place of the selection. With a modifier the key does
    /// nothing; it never leaves the text.
    void insertTab();

    /// The Return key: a new line that begins with as many tabs as the caret's line has before the
    /// caret.
    void insertNewline();

    /// The number of tabs that the line at a position of the document begins with; 0 outside of it.
    int findLastTabItem(int caretPosition) const;

    /// The line at a position of the document, the first position of a line (both counted from 0),
    /// and the number of lines, whatever the document keeps long lines in.
    int lineAt(int position) const;
    int startOfLine(int line) const;
    int lineCount() const;

    /// How many characters of its line are before a piece of it, as messages count them.
    int charactersBefore(const QTextBlock& piece) const;

    /// How often a tab left the caret at the very start, which inserting one never does.
    int tabCounter = 0;

    /// Zooming by the font's size in pixels, the tab width included.
    void zoomBy(int steps);
    void zoomToActualSize();

protected:
    int startNumber(const QTextBlock& firstVisible) const override;

    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void insertText(const QString& text);
    bool needsOwnInsertion(const QString& text) const;
    bool deleteInLongLine(const QKeyEvent& event);
    void moveByKey(QKeyEvent& event);
    void updateTabWidth();

    SourceDocument m_source;
    mutable LineCount m_lineCount;
    mutable ColumnCount m_columnCount;
    int m_wheelRest = 0;
};

} // namespace kestrel
