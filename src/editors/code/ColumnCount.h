// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QTextBlock;

namespace kestrel {

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
