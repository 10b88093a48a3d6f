// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QTextBlock;
class QTextDocument;

namespace kestrel {

class SourceDocument;

/// Counts lines where they are not the document's blocks: a long line has several, and a lone CR
/// starts no line in the numbering of what follows. Keeps its counts from one question to the next.
class LineCount {
public:
    /// Both must outlive this.
    LineCount(const QTextDocument& document, const SourceDocument& source);

    /// The line that a block belongs to, counted from 0.
    int lineOf(const QTextBlock& block);

    /// The first block of a line, and how many lines there are.
    QTextBlock blockOf(int line);
    int lines();

    /// How many lines before a block end in a lone CR.
    int loneReturnsBefore(const QTextBlock& block);

    /// To be told of every change, with the first position that it touches.
    void changedFrom(int position);

private:
    /// What there is before a block.
    struct Counts {
        int seams = 0;
        int loneReturns = 0;
    };
    Counts countsBefore(const QTextBlock& block);

    const QTextDocument& m_document;
    const SourceDocument& m_source;
    /// The counts for each block, as far as they are known; the first one's always are.
    std::vector<Counts> m_before{Counts()};
};

} // namespace kestrel
