// SPDX-License-Identifier: MIT
#include "editors/code/LoneReturnCount.h"

#include "editors/code/SourceDocument.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace kestrel {

LoneReturnCount::LoneReturnCount(const QTextDocument& document, const SourceDocument& source)
    : m_document(document)
    , m_source(source) {}

int LoneReturnCount::before(const QTextBlock& line) {
    if (!m_source.mayHaveLoneReturns()) {
        return 0;
    }
    const auto wanted = static_cast<std::size_t>(line.blockNumber());
    if (wanted >= m_before.size()) {
        QTextBlock known = m_document.findBlockByNumber(static_cast<int>(m_before.size()) - 1);
        while (m_before.size() <= wanted) {
            m_before.push_back(m_before.back() + (m_source.lineEnd(known) == LineEnd::cr ? 1 : 0));
            known = known.next();
        }
    }
    return m_before[wanted];
}

void LoneReturnCount::changedFrom(int position) {
    // Line ends before the position are what they were, so the count before its line still holds.
    const auto line =
        static_cast<std::size_t>(std::max(0, m_document.findBlock(position).blockNumber()));
    m_before.resize(std::min(m_before.size(), line + 1));
}

} // namespace kestrel
