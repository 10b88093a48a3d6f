// SPDX-License-Identifier: MIT
#include "build/OutputText.h"

#include "build/QtText.h"

#include <new>
#include <utility>

namespace kestrel {

namespace {

/// The number of bytes, 0 to 3, of an incomplete character at the end of `bytes`.
qsizetype incompleteTail(QByteArrayView bytes) {
    const qsizetype most = qMin(qsizetype{3}, bytes.size());
    for (qsizetype back = 1; back <= most; ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if ((byte & 0xC0U) == 0x80U) {
            continue; // the middle of a character
        }
        const qsizetype length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return length > back ? back : 0;
    }
    return 0;
}

} // namespace

void OutputText::append(QByteArrayView bytes) {
    if (!m_valid) {
        return; // no part of it will be shown
    }
    try {
        if (m_tail.isEmpty()) {
            const qsizetype rest = incompleteTail(bytes);
            decode(bytes.first(bytes.size() - rest));
            m_tail = bytes.last(rest).toByteArray();
        } else {
            const QByteArray joined = std::exchange(m_tail, {}) + bytes.toByteArray();
            append(joined);
        }
    } catch (const std::bad_alloc&) {
        drop();
    }
}

std::optional<QString> OutputText::take() {
    if (!m_valid || !m_tail.isEmpty()) {
        return std::nullopt;
    }
    return std::exchange(m_text, {});
}

void OutputText::decode(QByteArrayView complete) {
    if (const auto text = textFromUtf8(complete)) {
        m_text += *text;
    } else {
        drop();
    }
}

void OutputText::drop() {
    m_valid = false;
    m_text = QString();
    m_tail = QByteArray();
}

} // namespace kestrel
