// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <vector>

class QTextBlock;

namespace kestrel {

/// How many units of UTF-16 the character at `index` of a text has; a lone surrogate, which stands
/// for a byte that is part of no character, is one.
qsizetype unitsAt(QStringView text, qsizetype index);

/// How many such characters a text has.
int charactersIn(QStringView text);

/// Counts the characters of a long line that are before one of its pieces. Keeps its counts for
/// the line that it was asked about last.
class ColumnCount {
public:
    int before(const QTextBlock& piece);

    /// To be told of every change, with the first position that it touches.
    void changedFrom(int position);

private:
    struct Piece {
        int position;
        int before;
    };
    std::vector<Piece> m_pieces;
};

} // namespace kestrel
