// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QTextBlock;
class QTextDocument;

namespace kestrel {

class SourceDocument;

/// Counts the lines that end in a lone CR, which starts no line in the numbering of what follows.
/// Keeps its counts from one question to the next.
class LoneReturnCount {
public:
    /// Both must outlive this.
    LoneReturnCount(const QTextDocument& document, const SourceDocument& source);

    /// How many lines before `line` end in a lone CR.
    int before(const QTextBlock& line);

    /// To be told of every change, with the first position that it touches.
    void changedFrom(int position);

private:
    const QTextDocument& m_document;
    const SourceDocument& m_source;
    /// The count before each line, as far as it is known; the first line's always is.
    std::vector<int> m_before{0};
};

} // namespace kestrel
