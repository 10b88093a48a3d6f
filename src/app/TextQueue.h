// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <deque>

namespace kestrel {

/// Text that waits to be shown, taken out again in slices in the order in which it came in. Each
/// text is kept as it was handed over, never joined with another or copied whole.
class TextQueue {
public:
    void add(QString text);
    void clear();
    bool isEmpty() const;

    /// The next slice: at most `limit` UTF-16 units and at least one character. It ends after a
    /// line break where there is one in reach, and never between a carriage return and its line
    /// feed or within a surrogate pair of one text. Empty when nothing waits.
    QString takeSlice(qsizetype limit);

private:
    std::deque<QString> m_texts;
    qsizetype m_offset = 0; // into the first text
};

} // namespace kestrel
