// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/LineEnd.h"

#include <QString>

#include <optional>
#include <random>
#include <vector>

namespace kestrel::test {

/// The plainest idea of a source text: a list of lines, each with its end. What the editor does is
/// compared with it.
class LineModel {
public:
    explicit LineModel(const QString& text);

    QString text() const;

    /// UTF-16 units, one for each line end.
    int length() const;

    int lineCount() const { return static_cast<int>(m_lines.size()); }

    /// Puts `text` in place of a range. Each new line takes the end of the line that is split: its
    /// own, or for a last line that of the line before, or for an only line the most frequent one
    /// of the text that the model was made of (LF in a tie and without any).
    void replace(int from, int to, const QString& text);

    /// The range that the Backspace key deletes at `position`.
    int startOfCharacterBefore(int position) const;

    /// A place that is not inside a surrogate pair.
    int randomPosition(std::mt19937& random) const;

private:
    struct Line {
        QString text;
        std::optional<LineEnd> end;
    };
    struct Place {
        std::size_t line;
        qsizetype column;
    };
    Place placeOf(int position) const;
    bool insidePair(int position) const;
    LineEnd mostFrequentEnd() const;

    std::vector<Line> m_lines;
    LineEnd m_usual;
};

/// A random mixture of what source files may hold: all line ends, NUL, no-break spaces, separators
/// of other systems, noncharacters, unpaired combining marks, characters beyond U+FFFF.
QString randomText(std::mt19937& random, int pieces);

} // namespace kestrel::test
