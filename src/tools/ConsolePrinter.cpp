// SPDX-License-Identifier: MIT
#include "tools/ConsolePrinter.h"

#include "tools/Messages.h"

#include <QByteArray>

#include <algorithm>
#include <string_view>

namespace kestrel {

void ConsolePrinter::console(const QString& output) {
    // In pieces, so that a large text is not held twice.
    constexpr qsizetype PieceSize = qsizetype{1} << 20;
    QStringView rest(output);
    while (!rest.isEmpty() && !m_hasFailed) {
        qsizetype size = std::min(PieceSize, rest.size());
        if (size < rest.size() && rest[size - 1].isHighSurrogate()) {
            ++size; // the low surrogate
        }
        const QByteArray bytes = rest.first(size).toUtf8();
        m_hasPrinted = true;
        m_hasFailed =
            !printText(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
        rest = rest.sliced(size);
    }
}

} // namespace kestrel
