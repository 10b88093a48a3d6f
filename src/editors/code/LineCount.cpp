// SPDX-License-Identifier: MIT
#include "editors/code/LineCount.h"

#include "editors/code/LinePieces.h"
#include "editors/code/SourceDocument.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace kestrel {

LineCount::LineCount(const QTextDocument& document, const SourceDocument& source)
    : m_document(document)
    , m_source(source) {}

int LineCount::lineOf(const QTextBlock& block) {
    return block.blockNumber() - countsBefore(block).seams;
}

QTextBlock LineCount::blockOf(int line) {
    if (!m_source.mayHavePieces()) {
        return m_document.findBlockByNumber(line);
    }
    countsBefore(m_document.lastBlock());
    int low = 0;
    int high = m_document.blockCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (middle - m_before[static_cast<std::size_t>(middle)].seams < line) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return m_document.findBlockByNumber(low);
}

int LineCount::lines() {
    return lineOf(m_document.lastBlock()) + 1;
}

int LineCount::loneReturnsBefore(const QTextBlock& block) {
    return countsBefore(block).loneReturns;
}

void LineCount::changedFrom(int position) {
    // What is before the position is what it was, so the counts before its block still hold.
    const auto block =
        static_cast<std::size_t>(std::max(0, m_document.findBlock(position).blockNumber()));
    m_before.resize(std::min(m_before.size(), block + 1));
}

LineCount::Counts LineCount::countsBefore(const QTextBlock& block) {
    if (!m_source.mayHaveLoneReturns() && !m_source.mayHavePieces()) {
        return {};
    }
    const auto wanted = static_cast<std::size_t>(block.blockNumber());
    if (wanted >= m_before.size()) {
        QTextBlock known = m_document.findBlockByNumber(static_cast<int>(m_before.size()) - 1);
        while (m_before.size() <= wanted) {
            const QTextBlock next = known.next();
            Counts counts = m_before.back();
            counts.seams += continuesLine(next) ? 1 : 0;
            counts.loneReturns += m_source.lineEnd(known) == LineEnd::cr ? 1 : 0;
            m_before.push_back(counts);
            known = next;
        }
    }
    return m_before[wanted];
}

} // namespace kestrel
