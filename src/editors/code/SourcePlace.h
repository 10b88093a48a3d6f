// SPDX-License-Identifier: MIT
#pragma once

class QTextBlock;

namespace kestrel {

class CodeEditorTextView;

/// A place in a source text as messages name it: line and column from 1, the column in Unicode
/// characters; a byte that is part of no character counts as one.
struct SourcePlace {
    int line = 1;
    int column = 1;

    bool operator==(const SourcePlace&) const = default;
};

/// The position of a place in the view's document: at the end of the line when that is shorter, in
/// the last line when there are fewer.
int positionOf(const CodeEditorTextView& view, const SourcePlace& place);

/// The place at a position of the view's document.
SourcePlace placeAt(const CodeEditorTextView& view, int position);

/// The end of the word at a position of the document, as the assembler takes words: a name, a
/// number with its prefix, a text in quotes; otherwise of the one character there. A position at
/// the end of a line is an end itself.
int endOfWord(const QTextBlock& piece, int position);

/// Puts the caret at a place, in the middle of the view where the text allows it.
void moveCaretTo(CodeEditorTextView& view, const SourcePlace& place);

} // namespace kestrel
