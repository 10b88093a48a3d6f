// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace kestrel {

/// Collects a child's output while it runs and decodes it piece by piece, so that no second copy of
/// a large output is held. Used by one thread at a time.
class OutputText {
public:
    /// Takes over the next bytes; a character may be split between two pieces.
    void append(QByteArrayView bytes);

    /// The whole text, once: nothing when the bytes were not valid UTF-8 or did not fit into
    /// memory.
    std::optional<QString> take();

private:
    void decode(QByteArrayView complete);
    void drop();

    QString m_text;
    QByteArray m_tail; ///< the first bytes of a character whose last bytes are still to come
    bool m_valid = true;
};

} // namespace kestrel
