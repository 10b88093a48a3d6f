// SPDX-License-Identifier: MIT
#include "editors/code/ColumnCount.h"

#include "editors/code/LinePieces.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace kestrel {

qsizetype unitsAt(QStringView text, qsizetype index) {
    const bool isPair = text[index].isHighSurrogate() && index + 1 < text.size() &&
                        text[index + 1].isLowSurrogate();
    return isPair ? 2 : 1;
}

int charactersIn(QStringView text) {
    int count = 0;
    for (qsizetype units = 0; units < text.size(); units += unitsAt(text, units)) {
        ++count;
    }
    return count;
}

int ColumnCount::before(const QTextBlock& piece) {
    if (!continuesLine(piece)) {
        return 0;
    }
    const QTextBlock first = firstPiece(piece);
    if (m_pieces.empty() || m_pieces.front().position != first.position()) {
        m_pieces = {{first.position(), 0}};
    }
    QTextBlock known = piece.document()->findBlock(m_pieces.back().position);
    while (m_pieces.back().position < piece.position()) {
        const int characters = m_pieces.back().before + charactersIn(known.text());
        known = known.next();
        m_pieces.push_back({known.position(), characters});
    }
    const auto found = std::ranges::lower_bound(m_pieces, piece.position(), {}, &Piece::position);
    return found->before;
}

void ColumnCount::changedFrom(int position) {
    // What is before the position is what it was, so the counts of pieces that begin there hold.
    const auto after = std::ranges::upper_bound(m_pieces, position, {}, &Piece::position);
    m_pieces.erase(after, m_pieces.end());
}

} // namespace kestrel
