// SPDX-License-Identifier: MIT
#include "app/TextQueue.h"

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

/// Where a slice of `text` that starts at `start` and may reach to `limit` units ends.
qsizetype sliceEnd(const QString& text, qsizetype start, qsizetype limit) {
    if (text.size() - start <= limit) {
        return text.size();
    }
    qsizetype end = start + limit;
    const qsizetype lineBreak = text.lastIndexOf(QLatin1Char('\n'), end - 1);
    if (lineBreak >= start) {
        return lineBreak + 1;
    }
    const QChar before = text.at(end - 1);
    const QChar after = text.at(end);
    const bool splitsPair = before.isHighSurrogate() && after.isLowSurrogate();
    const bool splitsLineEnd = before == QLatin1Char('\r') && after == QLatin1Char('\n');
    if (splitsPair || splitsLineEnd) {
        end += end - 1 > start ? -1 : 1;
    }
    return end;
}

} // namespace

void TextQueue::add(QString text) {
    if (!text.isEmpty()) {
        m_texts.push_back(std::move(text));
    }
}

void TextQueue::clear() {
    m_texts.clear();
    m_offset = 0;
}

bool TextQueue::isEmpty() const {
    return m_texts.empty();
}

QString TextQueue::takeSlice(qsizetype limit) {
    if (m_texts.empty()) {
        return {};
    }
    const QString& text = m_texts.front();
    const qsizetype end = sliceEnd(text, m_offset, std::max<qsizetype>(limit, 1));
    QString slice = text.mid(m_offset, end - m_offset);
    m_offset = end;
    if (m_offset == text.size()) {
        m_texts.pop_front();
        m_offset = 0;
    }
    return slice;
}

} // namespace kestrel
