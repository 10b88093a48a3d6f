// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/LineEnd.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QTextBlock;
class QTextCharFormat;
class QTextCursor;
class QTextDocument;

namespace kestrel {

/// Keeps a source text in a text document, every line with its own line end. The document itself
/// folds all line ends into one; those that differ from the most frequent one of the text loaded
/// are marked in the character format of the block separator, which undo and all edits carry along.
class SourceDocument {
public:
    /// Works on `document`, which must outlive this; what it holds now has ends of LF.
    explicit SourceDocument(QTextDocument& document);

    /// Puts `text`, with the line ends of a file, in place of everything. Empties the undo history.
    void load(const QString& text);

    /// Changes what the document holds to `text` as one edit that can be undone, and only where it
    /// differs. False when there was nothing to change.
    bool update(const QString& text);

    /// The text with the line ends of a file.
    QString text() const;

    /// The text as it is now, put together when it is asked for. That takes most of the time, and
    /// may be done on another thread.
    std::function<QString()> textLater() const;

    /// The document's characters without the seams between the pieces of lines.
    struct Joined {
        QString characters;
        /// Where in the characters there is a seam, in order.
        std::vector<qsizetype> seams;
    };
    Joined joined() const;

    /// A stretch of the text, with LF for every line end: the form for the clipboard.
    static QString selectedText(const QTextCursor& cursor);

    /// Puts text from outside in place of the cursor's selection, as one edit. Its line ends become
    /// that of the line that it is inserted into; where no other line is left, the file's most
    /// frequent one.
    void insert(QTextCursor& cursor, const QString& text);

    /// Splits the line at the cursor, or replaces the selection, and begins the new line with
    /// `indentation`, as one edit.
    void insertNewline(QTextCursor& cursor, const QString& indentation);

    /// How the line ends that a block is the last piece of; nothing for the last line, and for the
    /// further pieces of a line.
    std::optional<LineEnd> lineEnd(const QTextBlock& line) const;

    /// Whether lines that end in a lone CR may be there; never false when they are.
    bool mayHaveLoneReturns() const { return m_mayHaveLoneReturns; }

    /// Whether lines in several pieces may be there; never false when they are.
    bool mayHavePieces() const { return m_mayHavePieces; }

private:
    QTextCharFormat formatOf(LineEnd end);
    LineEnd lineEndForSplit(const QTextBlock& block) const;
    void insertLines(QTextCursor& cursor, QStringView text);
    void insertRun(QTextCursor& cursor, QStringView text, const QTextCharFormat& format);
    QTextBlock blockOfLine(qsizetype line) const;
    qsizetype lineCount() const;
    void settle();

    QTextDocument& m_document;
    LineEnd m_unmarked = LineEnd::lf; // what a separator without a mark stands for
    LineEnd m_usual = LineEnd::lf;    // the file's most frequent one, as it was read last
    bool m_hasMarks = false;          // stays set once there was one: undo may bring it back
    bool m_mayHaveLoneReturns = false;
    bool m_mayHavePieces = false; // stays set, too
    bool m_settling = false;
    int m_changedFrom = 0;
    int m_changedTo = 0;
    QObject m_receiver; // of the document's signals
};

} // namespace kestrel
