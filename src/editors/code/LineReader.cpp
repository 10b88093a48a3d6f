// SPDX-License-Identifier: MIT
#include "editors/code/LineReader.h"

namespace kestrel {

LineReader::LineReader(QStringView text)
    : m_rest(text) {}

std::optional<LineReader::Line> LineReader::next() {
    if (m_done) {
        return std::nullopt;
    }
    const qsizetype size = m_rest.size();
    qsizetype length = 0;
    while (length < size && m_rest[length] != u'\n' && m_rest[length] != u'\r') {
        ++length;
    }
    Line line{m_rest.first(length), std::nullopt};
    if (length == size) {
        m_done = true;
        return line;
    }
    qsizetype endLength = 1;
    if (m_rest[length] == u'\n') {
        line.end = LineEnd::lf;
    } else if (length + 1 < size && m_rest[length + 1] == u'\n') {
        line.end = LineEnd::crlf;
        endLength = 2;
    } else {
        line.end = LineEnd::cr;
    }
    m_rest = m_rest.sliced(length + endLength);
    return line;
}

} // namespace kestrel
