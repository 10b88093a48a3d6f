// SPDX-License-Identifier: MIT
#include "editors/code/CharacterPosition.h"

#include <algorithm>

namespace kestrel {

CharacterPosition characterRowAndLineAt(const QStringList& lines, int position) {
    qsizetype start = 0;
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString& line = lines[index];
        const qsizetype column = position - start;
        if (column >= 0 && column <= line.size()) {
            const auto* const firstOther =
                std::ranges::find_if_not(line, [](QChar c) { return c == u'\t'; });
            return {column < line.size() ? QString(line[column]) : QStringLiteral("\n"),
                    static_cast<int>(index), static_cast<int>(column),
                    static_cast<int>(firstOther - line.begin())};
        }
        start += line.size() + 1;
    }
    return {};
}

} // namespace kestrel
