// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

class QTextBlock;
class QTextCharFormat;
class QTextCursor;
class QTextDocument;

namespace kestrel {

// A text document lays a block out as a whole, whatever of it is in sight, and takes time with the
// square of its length where nothing in it can be wrapped. So a long line is kept in several
// blocks, its pieces. What separates two pieces is a seam: it stands for nothing in the text.

/// A line up to this many characters is one piece.
inline constexpr qsizetype LongestPiece = 8192;

/// How long the pieces of a longer line are at most when it is cut.
inline constexpr qsizetype UsualPiece = 4096;

/// Where to cut the first piece off a line: at its end when it is no longer than LongestPiece, else
/// behind a blank where there is one, and never within what is seen as one character.
qsizetype pieceLength(QStringView line);

/// The format that makes a block separator a seam.
QTextCharFormat seamFormat();

/// Whether a block goes on with the line of the block before it.
bool continuesLine(const QTextBlock& block);

/// The first and the last piece of the line that a block belongs to.
QTextBlock firstPiece(QTextBlock block);
QTextBlock lastPiece(QTextBlock block);

/// Whether removing something at the cursor may leave something to settle. Qt takes what is settled
/// into the edit before only when that was a block of edits.
bool mayUnsettlePieces(const QTextCursor& cursor);

/// Cuts and joins pieces where a change between two positions made them longer than LongestPiece,
/// or needlessly short. What it does becomes a part of the last edit in the undo history. True when
/// it made seams.
bool settlePieces(QTextDocument& document, int from, int to);

} // namespace kestrel
