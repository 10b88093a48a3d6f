// SPDX-License-Identifier: MIT
#include "editors/code/CodeEditorTextView.h"

#include "editors/code/CharacterPosition.h"
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

/// Whether typed text needs more than Qt's own insertion.
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
    , m_loneReturns(*document(), m_source) {
    setObjectName(QStringLiteral("codeEditor"));
    setAccessibleName(tr("Source text"));
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFrameShape(QFrame::NoFrame);
    setFont(codeFont());
    updateTabWidth();
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int position) { m_loneReturns.changedFrom(position); });
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
    const int column = caret - document()->findBlock(caret).position();
    const int tabs = std::min(findLastTabItem(caret), column);
    m_source.insertNewline(cursor, QString(tabs, u'\t'));
    setTextCursor(cursor);
    ensureCursorVisible();
}

int CodeEditorTextView::findLastTabItem(int caretPosition) const {
    const QTextBlock line = document()->findBlock(caretPosition);
    return line.isValid()
               ? characterRowAndLineAt({line.text()}, caretPosition - line.position()).tabs
               : 0;
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
    return LineNumberedTextView::startNumber(firstVisible) - m_loneReturns.before(firstVisible);
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
               needsConversion(event->text()) &&
               (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) == 0) {
        insertText(event->text());
        event->accept();
    } else {
        LineNumberedTextView::keyPressEvent(event);
    }
}

void CodeEditorTextView::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly() || !needsConversion(event->commitString())) {
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
