// SPDX-License-Identifier: MIT
#include "editors/code/LinePieces.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <vector>

namespace kestrel {

namespace {

/// Set on a separator that is a seam.
constexpr int SeamProperty = QTextFormat::UserProperty + 2;

/// A piece shorter than this is joined to the one beside it.
constexpr qsizetype ShortestPiece = 1024;

/// So far before the usual length a blank is looked for.
constexpr qsizetype BlankDistance = 256;

/// So many characters around a place are looked at for what belongs together.
constexpr qsizetype ClusterDistance = 64;

qsizetype lengthOf(const QTextBlock& block) {
    return block.isValid() ? block.length() - 1 : 0;
}

qsizetype clusterStart(QStringView line, qsizetype place) {
    const qsizetype start = place - ClusterDistance;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme,
                               line.sliced(start, 2 * ClusterDistance));
    finder.setPosition(ClusterDistance);
    if (finder.isAtBoundary()) {
        return place;
    }
    const qsizetype before = finder.toPreviousBoundary();
    if (before > 0) {
        return start + before;
    }
    return line[place - 1].isHighSurrogate() && line[place].isLowSurrogate() ? place - 1 : place;
}

/// Whether two pieces should be one.
bool belongTogether(const QTextBlock& piece, const QTextBlock& next) {
    const qsizetype length = lengthOf(piece);
    const qsizetype nextLength = lengthOf(next);
    return length + nextLength <= UsualPiece || std::min(length, nextLength) < ShortestPiece;
}

/// The edits of settlePieces().
class Settling {
public:
    explicit Settling(QTextDocument& document)
        : m_cursor(&document) {}
    Settling(const Settling&) = delete;
    Settling& operator=(const Settling&) = delete;
    ~Settling() {
        if (m_begun) {
            m_cursor.endEditBlock();
        }
    }

    bool madeSeams() const { return m_madeSeams; }

    /// Makes the seam before a block nothing; returns the block that is joined.
    QTextBlock join(const QTextBlock& next) {
        begin();
        m_cursor.setPosition(next.position() - 1);
        m_cursor.deleteChar();
        return m_cursor.block();
    }

    /// Cuts a block into pieces; returns the last one.
    QTextBlock cut(const QTextBlock& block) {
        begin();
        const QString line = block.text();
        std::vector<qsizetype> places;
        qsizetype place = pieceLength(line);
        while (place < line.size()) {
            places.push_back(place);
            place += pieceLength(QStringView(line).sliced(place));
        }
        const int start = block.position();
        std::ranges::reverse(places); // the last first, so that those before it stay where they are
        for (const qsizetype seam : places) {
            m_cursor.setPosition(start + static_cast<int>(seam));
            m_cursor.insertBlock(QTextBlockFormat(), seamFormat());
        }
        m_madeSeams = true;
        return m_cursor.document()->findBlock(start + static_cast<int>(line.size()) +
                                              static_cast<int>(std::ssize(places)));
    }

private:
    void begin() {
        if (!m_begun) {
            m_cursor.joinPreviousEditBlock();
            m_begun = true;
        }
    }

    QTextCursor m_cursor;
    bool m_begun = false;
    bool m_madeSeams = false;
};

} // namespace

qsizetype pieceLength(QStringView line) {
    if (line.size() <= LongestPiece) {
        return line.size();
    }
    for (qsizetype length = UsualPiece; length > UsualPiece - BlankDistance; --length) {
        if (line[length - 1] == u' ' || line[length - 1] == u'\t') {
            return clusterStart(line, length);
        }
    }
    return clusterStart(line, UsualPiece);
}

QTextCharFormat seamFormat() {
    QTextCharFormat format;
    format.setProperty(SeamProperty, true);
    return format;
}

bool continuesLine(const QTextBlock& block) {
    // A block's own character format is that of the separator before it; the first one has none.
    return block.isValid() && block.position() > 0 && block.charFormat().hasProperty(SeamProperty);
}

QTextBlock firstPiece(QTextBlock block) {
    while (continuesLine(block)) {
        block = block.previous();
    }
    return block;
}

QTextBlock lastPiece(QTextBlock block) {
    for (QTextBlock next = block.next(); continuesLine(next); next = block.next()) {
        block = next;
    }
    return block;
}

bool mayUnsettlePieces(const QTextCursor& cursor) {
    const QTextDocument& document = *cursor.document();
    const QTextBlock first = document.findBlock(cursor.selectionStart());
    const QTextBlock last = document.findBlock(cursor.selectionEnd());
    const QTextBlock before = first.previous();
    const QTextBlock after = last.next();
    const qsizetype length = lengthOf(first) + (last == first ? 0 : lengthOf(last));
    return length + lengthOf(before) > LongestPiece || length + lengthOf(after) > LongestPiece ||
           continuesLine(first) || continuesLine(first.next()) || continuesLine(last) ||
           continuesLine(after);
}

bool settlePieces(QTextDocument& document, int from, int to) {
    QTextCursor last(&document); // moves along with what is done before it
    last.setPosition(std::min(to, document.characterCount() - 1));
    Settling settling(document);
    QTextBlock block = document.findBlock(from);
    if (continuesLine(block)) {
        block = block.previous();
    }
    while (block.isValid() && block.position() <= last.position()) {
        const QTextBlock next = block.next();
        if (continuesLine(next) && belongTogether(block, next)) {
            block = settling.join(next);
        } else if (lengthOf(block) > LongestPiece) {
            block = settling.cut(block);
        } else {
            block = next;
        }
    }
    return settling.madeSeams();
}

} // namespace kestrel
