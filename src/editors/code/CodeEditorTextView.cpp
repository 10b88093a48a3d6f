// SPDX-License-Identifier: MIT
#include "editors/code/CodeEditorTextView.h"

#include "editors/code/CharacterPosition.h"
#include "editors/code/LinePieces.h"
#include "widgets/FixedFont.h"

#include <QFontMetricsF>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QWheelEvent>

#include <algorithm>
#include <memory>

namespace kestrel {

namespace {

constexpr int ActualSize = 13;
constexpr int SmallestSize = 6;
constexpr int LargestSize = 72;
constexpr int TabColumns = 8;

QFont codeFont() {
    QFont font = fixedFont();
    font.setPixelSize(ActualSize);
    return font;
}

/// Whether text holds what the document has in another form.
bool needsConversion(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) {
        return c.isSurrogate() || c == u'\n' || c == u'\r' || c.unicode() == 0x2028 ||
               c.unicode() == 0x2029 || c.unicode() == 0xfdd0 || c.unicode() == 0xfdd1;
    });
}

bool isTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

} // namespace

CodeEditorTextView::CodeEditorTextView(QWidget* parent)
    : LineNumberedTextView(parent)
    , m_source(*document())
    , m_lineCount(*document(), m_source) {
    setObjectName(QStringLiteral("codeEditor"));
    setAccessibleName(tr("Source text"));
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFrameShape(QFrame::NoFrame);
    setFont(codeFont());
    updateTabWidth();
    connect(document(), &QTextDocument::contentsChange, this, [this](int position) {
        m_lineCount.changedFrom(position);
        m_columnCount.changedFrom(position);
    });
}

void CodeEditorTextView::insertTab() {
    insertText(QStringLiteral("\t"));
    if (textCursor().selectionStart() == 0) {
        ++tabCounter;
    }
}

void CodeEditorTextView::insertNewline() {
    QTextCursor cursor = textCursor();
    const int caret = cursor.selectionStart();
    const int column = caret - firstPiece(document()->findBlock(caret)).position();
    const int tabs = std::min(findLastTabItem(caret), column);
    m_source.insertNewline(cursor, QString(tabs, u'\t'));
    setTextCursor(cursor);
    ensureCursorVisible();
}

int CodeEditorTextView::findLastTabItem(int caretPosition) const {
    const QTextBlock line = document()->findBlock(caretPosition);
    if (!line.isValid()) {
        return 0;
    }
    int tabs = 0;
    QTextBlock piece = firstPiece(line);
    while (true) {
        const QString text = piece.text();
        const int more = characterRowAndLineAt({text}, 0).tabs;
        tabs += more;
        piece = piece.next();
        if (more < text.size() || !continuesLine(piece)) {
            return tabs;
        }
    }
}

int CodeEditorTextView::lineAt(int position) const {
    return m_lineCount.lineOf(document()->findBlock(position));
}

int CodeEditorTextView::startOfLine(int line) const {
    return m_lineCount.blockOf(line).position();
}

int CodeEditorTextView::lineCount() const {
    return m_lineCount.lines();
}

int CodeEditorTextView::charactersBefore(const QTextBlock& piece) const {
    return m_columnCount.before(piece);
}

void CodeEditorTextView::zoomBy(int steps) {
    QFont zoomed = font();
    zoomed.setPixelSize(std::clamp(zoomed.pixelSize() + steps, SmallestSize, LargestSize));
    setFont(zoomed);
}

void CodeEditorTextView::zoomToActualSize() {
    zoomBy(ActualSize - font().pixelSize());
}

int CodeEditorTextView::startNumber(const QTextBlock& firstVisible) const {
    return m_lineCount.lineOf(firstVisible) + 1 - m_lineCount.loneReturnsBefore(firstVisible);
}

void CodeEditorTextView::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly()) {
        LineNumberedTextView::keyPressEvent(event);
        return;
    }
    if (event->matches(QKeySequence::InsertParagraphSeparator) ||
        event->matches(QKeySequence::InsertLineSeparator)) {
        insertNewline();
        event->accept();
    } else if (isTab(*event)) {
        // With a modifier it does nothing. Passed on, a widget around this one would move the focus
        // by it, and what is typed next would go elsewhere.
        if (event->key() == Qt::Key_Tab &&
            (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
            insertTab();
        }
        event->accept();
    } else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter &&
               needsOwnInsertion(event->text()) &&
               (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) == 0) {
        insertText(event->text());
        event->accept();
    } else if (mayUnsettlePieces(textCursor()) && deleteInLongLine(*event)) {
        event->accept();
    } else {
        moveByKey(*event);
    }
}

/// Whether typed text needs more than Qt's own insertion.
bool CodeEditorTextView::needsOwnInsertion(const QString& text) const {
    const bool makesLineLong = !text.isEmpty() && text[0].isPrint() &&
                               textCursor().block().length() + text.size() > LongestPiece;
    return makesLineLong || needsConversion(text);
}

/// Does what a key deletes, as one edit that cutting and joining pieces can become a part of, and
/// as if there were no seams. False for a key that deletes nothing.
bool CodeEditorTextView::deleteInLongLine(const QKeyEvent& event) {
    QTextCursor cursor = textCursor();
    const bool isCut = event.matches(QKeySequence::Cut) && cursor.hasSelection();
    const bool startOfWord = event.matches(QKeySequence::DeleteStartOfWord);
    const bool endOfWord = event.matches(QKeySequence::DeleteEndOfWord);
    const bool endOfLine = event.matches(QKeySequence::DeleteEndOfLine);
    const bool backspace =
        event.key() == Qt::Key_Backspace &&
        (event.modifiers() & ~(Qt::ShiftModifier | Qt::GroupSwitchModifier)) == Qt::NoModifier;
    if (!isCut && !startOfWord && !endOfWord && !endOfLine && !backspace &&
        !event.matches(QKeySequence::Delete)) {
        return false;
    }
    if (isCut) {
        copy();
    }
    cursor.beginEditBlock();
    if (endOfLine && continuesLine(cursor.block().next())) {
        const QTextBlock last = lastPiece(cursor.block());
        cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    } else if (!cursor.hasSelection() && (startOfWord || backspace)) {
        if (cursor.atBlockStart() && continuesLine(cursor.block())) {
            cursor.setPosition(cursor.position() - 1);
        }
        cursor.movePosition(startOfWord ? QTextCursor::PreviousWord : QTextCursor::NoMove,
                            QTextCursor::KeepAnchor);
    } else if (!cursor.hasSelection()) {
        if (cursor.atBlockEnd() && continuesLine(cursor.block().next())) {
            cursor.setPosition(cursor.position() + 1);
        }
        const bool toEnd = endOfLine && !cursor.atBlockEnd();
        cursor.movePosition(endOfWord ? QTextCursor::NextWord
                            : toEnd   ? QTextCursor::EndOfBlock
                                      : QTextCursor::NextCharacter,
                            QTextCursor::KeepAnchor);
    }
    if (cursor.hasSelection()) {
        cursor.removeSelectedText();
    } else if (backspace) {
        cursor.deletePreviousChar(); // of a cluster only its last character
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
    return true;
}

/// Leaves a key to Qt; again where it moved the caret over nothing but a seam.
void CodeEditorTextView::moveByKey(QKeyEvent& event) {
    const int revision = document()->revision();
    const int start = textCursor().position();
    LineNumberedTextView::keyPressEvent(&event);
    const int place = textCursor().position();
    if (document()->revision() != revision || std::abs(place - start) != 1) {
        return;
    }
    const QTextBlock behind = document()->findBlock(std::max(start, place));
    if (behind.position() == std::max(start, place) && continuesLine(behind)) {
        LineNumberedTextView::keyPressEvent(&event);
    }
}

void CodeEditorTextView::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly() || !needsOwnInsertion(event->commitString())) {
        LineNumberedTextView::inputMethodEvent(event);
        return;
    }
    // First the present composition is removed, then the text is inserted, then the next
    // composition starts.
    QInputMethodEvent removal;
    removal.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    LineNumberedTextView::inputMethodEvent(&removal);
    insertText(event->commitString());
    QInputMethodEvent composition(event->preeditString(), event->attributes());
    LineNumberedTextView::inputMethodEvent(&composition);
    event->accept();
}

void CodeEditorTextView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        LineNumberedTextView::wheelEvent(event);
        return;
    }
    m_wheelRest += event->angleDelta().y();
    zoomBy(m_wheelRest / QWheelEvent::DefaultDeltasPerStep);
    m_wheelRest %= QWheelEvent::DefaultDeltasPerStep;
    event->accept();
}

void CodeEditorTextView::changeEvent(QEvent* event) {
    LineNumberedTextView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateTabWidth();
    }
}

QMimeData* CodeEditorTextView::createMimeDataFromSelection() const {
    auto text = std::make_unique<QMimeData>();
    text->setText(SourceDocument::selectedText(textCursor()));
    return text.release(); // owned by the caller, as Qt expects
}

void CodeEditorTextView::insertFromMimeData(const QMimeData* source) {
    if (!isReadOnly() && source != nullptr && source->hasText()) {
        insertText(source->text());
    }
}

/// Puts text from outside in place of the selection.
void CodeEditorTextView::insertText(const QString& text) {
    QTextCursor cursor = textCursor();
    m_source.insert(cursor, text);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void CodeEditorTextView::updateTabWidth() {
    setTabStopDistance(TabColumns * QFontMetricsF(font()).horizontalAdvance(u' '));
}

} // namespace kestrel
