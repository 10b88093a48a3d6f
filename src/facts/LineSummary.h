// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <QCoreApplication>
#include <QString>

namespace kestrel {

/// What the status bar tells of lines of source.
class LineSummary {
    Q_DECLARE_TR_FUNCTIONS(kestrel::LineSummary)

public:
    /// Of one line, such as "$C012, 3 bytes, 4 cycles". `label` is the name at the line's
    /// beginning, if there is one: of a line that made no bytes its address is told, or its place
    /// in memory. Empty where there is nothing to tell.
    static QString ofLine(const ProgramFacts& facts, const FileFacts& file, std::uint32_t number,
                          std::string_view label);

    /// Of the lines from `first` to `last` together: "4 lines: 9 bytes, 11 to 14 cycles". Empty
    /// when none of them has a statement. Takes time in proportion to them.
    static QString ofLines(const FileFacts& file, std::uint32_t first, std::uint32_t last);
};

} // namespace kestrel
