// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace kestrel {

/// Decodes the output of a child process piece by piece, so that a large output is not held twice.
/// Not thread-safe.
class OutputText {
public:
    /// Appends the next bytes. A character may be split between two pieces.
    void append(QByteArrayView bytes);

    /// The whole text, to be taken once; nothing when it was not valid UTF-8 or memory ran out.
    std::optional<QString> take();

private:
    void decode(QByteArrayView complete);
    void drop();

    QString m_text;
    QByteArray m_tail; ///< the bytes of an incomplete character
    bool m_valid = true;
};

} // namespace kestrel
