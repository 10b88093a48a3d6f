// SPDX-License-Identifier: MIT
#include "editors/code/SourcePlace.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/LinePieces.h"

#include <QTextBlock>

#include <algorithm>

namespace kestrel {

namespace {

bool isWordPart(QChar c) {
    return c.unicode() > 0x7F || c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'@';
}

qsizetype endOfName(QStringView text, qsizetype begin) {
    const auto* const end = std::find_if_not(text.begin() + begin, text.end(), isWordPart);
    return end - text.begin();
}

} // namespace

int positionOf(const CodeEditorTextView& view, const SourcePlace& place) {
    const int line = std::clamp(place.line, 1, view.lineCount()) - 1;
    QTextBlock piece = view.document()->findBlock(view.startOfLine(line));
    int left = std::max(place.column, 1) - 1;
    while (true) {
        const QString text = piece.text();
        qsizetype units = 0;
        for (; left > 0 && units < text.size(); --left) {
            units += unitsAt(text, units);
        }
        const QTextBlock next = piece.next();
        if (units < text.size() || !continuesLine(next)) {
            return piece.position() + static_cast<int>(units);
        }
        piece = next; // a place at a seam is at the start of the piece behind it
    }
}

SourcePlace placeAt(const CodeEditorTextView& view, int position) {
    const QTextBlock piece = view.document()->findBlock(position);
    const QString text = piece.text();
    const auto units = std::clamp<qsizetype>(position - piece.position(), 0, text.size());
    return {view.lineAt(position) + 1,
            view.charactersBefore(piece) + charactersIn(QStringView(text).first(units)) + 1};
}

int endOfWord(const QTextBlock& piece, int position) {
    const QString line = piece.text();
    const QStringView text = line;
    const qsizetype begin = position - piece.position();
    if (begin >= text.size()) {
        return position;
    }
    qsizetype end = begin + (text[begin] == u'#' ? 1 : 0);
    if (end < text.size() && text[end] == u'"') {
        const qsizetype closing = text.indexOf(u'"', end + 1);
        end = closing < 0 ? begin : closing + 1;
    } else if (end + 1 < text.size() && (text[end] == u'$' || text[end] == u'%')) {
        end = endOfName(text, end + 1);
    } else {
        end = endOfName(text, end);
    }
    return piece.position() + static_cast<int>(std::max(end, begin + unitsAt(text, begin)));
}

void moveCaretTo(CodeEditorTextView& view, const SourcePlace& place) {
    QTextCursor caret = view.textCursor();
    caret.setPosition(positionOf(view, place));
    view.setTextCursor(caret);
    view.centerCursor();
}

} // namespace kestrel
