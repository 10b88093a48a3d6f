// SPDX-License-Identifier: MIT
#include "editors/code/SourceDocument.h"

#include "editors/code/DocumentCharacters.h"
#include "editors/code/LinePieces.h"
#include "editors/code/LineReader.h"

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace kestrel {

namespace {

/// Marks a separator: its value is the LineEnd. A separator without it has the line end
/// that was the most frequent one when the text was loaded.
constexpr int LineEndProperty = QTextFormat::UserProperty + 1;

/// The most frequent line end; LF when there is none.
LineEnd usualLineEnd(QStringView text) {
    std::array<qsizetype, 3> counts{};
    LineReader reader(text);
    while (const auto line = reader.next()) {
        if (line->end) {
            ++counts.at(static_cast<std::size_t>(*line->end));
        }
    }
    LineEnd usual = LineEnd::lf;
    for (const LineEnd end : {LineEnd::crlf, LineEnd::cr}) {
        if (counts.at(static_cast<std::size_t>(end)) > counts.at(static_cast<std::size_t>(usual))) {
            usual = end;
        }
    }
    return usual;
}

QLatin1StringView textOf(LineEnd end) {
    const std::string_view bytes = bytesOf(end);
    return {bytes.data(), std::ssize(bytes)};
}

/// A document's raw text has this between its blocks.
constexpr QChar Separator = QChar::ParagraphSeparator;

/// What update() leaves as it is: so many lines at the start and at the end.
struct CommonLines {
    qsizetype before = 0;
    qsizetype after = 0;
};

using Lines = std::vector<LineReader::Line>;

Lines linesOf(QStringView text) {
    Lines lines;
    LineReader reader(text);
    while (const auto line = reader.next()) {
        lines.push_back(*line);
    }
    return lines;
}

CommonLines commonLines(const Lines& former, const Lines& present) {
    CommonLines common;
    const qsizetype most = std::min(std::ssize(former), std::ssize(present));
    const auto at = [](const Lines& lines, qsizetype index) -> const LineReader::Line& {
        return lines[static_cast<std::size_t>(index)];
    };
    while (common.before < most && at(former, common.before) == at(present, common.before)) {
        ++common.before;
    }
    while (common.after < most - common.before &&
           at(former, std::ssize(former) - 1 - common.after) ==
               at(present, std::ssize(present) - 1 - common.after)) {
        ++common.after;
    }
    return common;
}

/// How the lines of a document's blocks end, one for each block; empty when all end alike.
using Ends = std::vector<std::optional<LineEnd>>;

/// A document's raw text as that of a file. Without `ends` all lines end in `usual`.
QString withLineEnds(const QString& raw, const Ends& ends, LineEnd usual) {
    QString result;
    result.reserve(raw.size() + raw.size() / 16); // room for ends of two characters
    qsizetype start = 0;
    for (std::size_t block = 0;; ++block) {
        const qsizetype separator = raw.indexOf(Separator, start);
        const QStringView part =
            QStringView(raw).sliced(start, (separator < 0 ? raw.size() : separator) - start);
        if (hasStandIns(part)) {
            result += fromDocumentCharacters(part.toString());
        } else {
            result += part;
        }
        if (separator < 0) {
            return result;
        }
        if (const auto end = ends.empty() ? std::optional(usual) : ends[block]) {
            result += textOf(*end);
        }
        start = separator + 1;
    }
}

} // namespace

SourceDocument::SourceDocument(QTextDocument& document)
    : m_document(document) {
    QObject::connect(&m_document, &QTextDocument::contentsChange, &m_receiver,
                     [this](int position, int /*removed*/, int added) {
                         m_changedFrom = position;
                         m_changedTo = position + added;
                     });
    QObject::connect(&m_document, &QTextDocument::contentsChanged, &m_receiver,
                     [this] { settle(); });
}

void SourceDocument::load(const QString& text) {
    m_unmarked = usualLineEnd(text);
    m_usual = m_unmarked;
    m_hasMarks = false;
    m_mayHavePieces = false;
    m_mayHaveLoneReturns = m_unmarked == LineEnd::cr;
    m_document.setUndoRedoEnabled(false);
    QTextCursor cursor(&m_document);
    cursor.beginEditBlock();
    m_document.clear();
    insertLines(cursor, text);
    cursor.endEditBlock();
    m_document.setUndoRedoEnabled(true);
}

bool SourceDocument::update(const QString& text) {
    const QString formerText = this->text();
    if (formerText == text) {
        return false;
    }
    m_usual = usualLineEnd(text);
    const Lines former = linesOf(formerText);
    const Lines present = linesOf(text);
    // A lone CR before an empty line that ends in LF reads as one line end, but is two lines of the
    // document. Then its lines have other numbers, and all are replaced.
    const CommonLines common =
        std::ssize(former) == lineCount() ? commonLines(former, present) : CommonLines();
    const auto firstAfter = std::ssize(former) - common.after;
    QTextCursor cursor(&m_document);
    cursor.beginEditBlock();
    cursor.setPosition(blockOfLine(common.before).position());
    if (common.after > 0) {
        cursor.setPosition(blockOfLine(firstAfter).position(), QTextCursor::KeepAnchor);
    } else {
        cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    }
    cursor.removeSelectedText();
    const auto inserted = std::ssize(present) - common.after;
    if (common.before < inserted) {
        const QChar* const start = present[static_cast<std::size_t>(common.before)].text.begin();
        const QChar* const end = common.after > 0
                                     ? present[static_cast<std::size_t>(inserted)].text.begin()
                                     : QStringView(text).end();
        insertLines(cursor, QStringView(start, end));
    }
    cursor.endEditBlock();
    return true;
}

/// Inserts lines whose ends are those of a file. Runs of lines that need no mark go in at once.
void SourceDocument::insertLines(QTextCursor& cursor, QStringView text) {
    const QChar* runStart = text.begin();
    LineReader reader(text);
    while (const auto line = reader.next()) {
        if (line->end && *line->end != m_unmarked) {
            insertRun(cursor, QStringView(runStart, line->text.end()), QTextCharFormat());
            cursor.insertBlock(QTextBlockFormat(), formatOf(*line->end));
            runStart = line->text.end() + bytesOf(*line->end).size();
        }
    }
    insertRun(cursor, QStringView(runStart, text.end()), QTextCharFormat());
}

/// Inserts lines whose ends all get the same format; the long ones in pieces.
void SourceDocument::insertRun(QTextCursor& cursor, QStringView text,
                               const QTextCharFormat& format) {
    const QChar* start = text.begin();
    const auto insertUpTo = [&](const QChar* end) {
        if (end != start) {
            cursor.insertText(toDocumentCharacters(QString(start, end - start)), format);
            start = end;
        }
    };
    LineReader reader(text);
    while (const auto line = text.size() > LongestPiece ? reader.next() : std::nullopt) {
        QStringView rest = line->text;
        while (rest.size() > LongestPiece) {
            rest = rest.sliced(pieceLength(rest));
            insertUpTo(rest.begin());
            cursor.insertBlock(QTextBlockFormat(), seamFormat());
            m_hasMarks = true;
            m_mayHavePieces = true;
        }
    }
    insertUpTo(text.end());
}

QString SourceDocument::text() const {
    return textLater()();
}

std::function<QString()> SourceDocument::textLater() const {
    Ends ends;
    if (m_hasMarks) {
        ends.reserve(static_cast<std::size_t>(m_document.blockCount()));
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
            ends.push_back(lineEnd(block));
        }
    }
    return [raw = m_document.toRawText(), ends = std::move(ends), unmarked = m_unmarked] {
        return withLineEnds(raw, ends, unmarked);
    };
}

SourceDocument::Joined SourceDocument::joined() const {
    Joined joined{m_document.toRawText(), {}};
    if (!m_mayHavePieces) {
        return joined;
    }
    const QString raw = std::exchange(joined.characters, QString());
    joined.characters.reserve(raw.size());
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
        if (continuesLine(block)) {
            joined.characters.chop(1); // the separator
            joined.seams.push_back(joined.characters.size());
        }
        joined.characters += QStringView(raw).sliced(block.position()).first(block.length() - 1);
        joined.characters += Separator;
    }
    joined.characters.chop(1);
    return joined;
}

QString SourceDocument::selectedText(const QTextCursor& cursor) {
    const QString selected = cursor.selectedText();
    QString text;
    text.reserve(selected.size());
    QTextBlock block;
    qsizetype start = 0;
    for (qsizetype separator = selected.indexOf(Separator); separator >= 0;
         separator = selected.indexOf(Separator, start)) {
        text += QStringView(selected).sliced(start, separator - start);
        block = block.isValid() ? block.next()
                                : cursor.document()->findBlock(cursor.selectionStart()).next();
        if (!continuesLine(block)) {
            text += u'\n';
        }
        start = separator + 1;
    }
    text += QStringView(selected).sliced(start);
    return fromDocumentCharacters(std::move(text));
}

void SourceDocument::insert(QTextCursor& cursor, const QString& text) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    // The mark is read of separators only, so the text between them may carry it, too.
    insertRun(cursor, text, formatOf(lineEndForSplit(cursor.block())));
    cursor.endEditBlock();
}

void SourceDocument::insertNewline(QTextCursor& cursor, const QString& indentation) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const QTextCharFormat format = formatOf(lineEndForSplit(cursor.block()));
    const int place = cursor.position();
    // The separator goes in last: the undo history would otherwise join the indentation with what
    // is typed after it.
    cursor.insertText(indentation, QTextCharFormat());
    const int end = cursor.position();
    cursor.setPosition(place);
    cursor.insertBlock(QTextBlockFormat(), format);
    cursor.setPosition(end + 1);
    cursor.endEditBlock();
}

std::optional<LineEnd> SourceDocument::lineEnd(const QTextBlock& line) const {
    const QTextBlock next = line.next();
    if (!next.isValid() || (m_mayHavePieces && continuesLine(next))) {
        return std::nullopt;
    }
    // A block's own character format is that of the separator before it.
    const QTextCharFormat format = next.charFormat();
    return format.hasProperty(LineEndProperty)
               ? static_cast<LineEnd>(format.intProperty(LineEndProperty))
               : m_unmarked;
}

QTextCharFormat SourceDocument::formatOf(LineEnd end) {
    QTextCharFormat format;
    if (end != m_unmarked) {
        format.setProperty(LineEndProperty, static_cast<int>(end));
        m_hasMarks = true;
        m_mayHaveLoneReturns = m_mayHaveLoneReturns || end == LineEnd::cr;
    }
    return format;
}

/// What the first part of a block's line ends in when it is split: the line's own end, for the last
/// line the end before it, for an only line what the file had.
LineEnd SourceDocument::lineEndForSplit(const QTextBlock& block) const {
    return lineEnd(lastPiece(block))
        .value_or(lineEnd(firstPiece(block).previous()).value_or(m_usual));
}

/// The first piece of a line of the document, counted from 0.
QTextBlock SourceDocument::blockOfLine(qsizetype line) const {
    if (!m_mayHavePieces) {
        return m_document.findBlockByNumber(static_cast<int>(line));
    }
    QTextBlock block = m_document.begin();
    for (qsizetype i = 0; i < line; ++i) {
        block = lastPiece(block).next();
    }
    return block;
}

/// How many lines the document has.
qsizetype SourceDocument::lineCount() const {
    qsizetype count = m_document.blockCount();
    for (QTextBlock block = m_document.begin(); m_mayHavePieces && block.isValid();
         block = block.next()) {
        count -= continuesLine(block) ? 1 : 0;
    }
    return count;
}

/// Follows an edit. What comes out of the undo history was settled when it went in.
void SourceDocument::settle() {
    if (m_settling || m_document.isRedoAvailable()) {
        return;
    }
    m_settling = true;
    if (settlePieces(m_document, m_changedFrom, m_changedTo)) {
        m_hasMarks = true;
        m_mayHavePieces = true;
    }
    m_settling = false;
}

} // namespace kestrel
