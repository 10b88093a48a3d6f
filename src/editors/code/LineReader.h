// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/LineEnd.h"

#include <QStringView>

#include <optional>

namespace kestrel {

/// Walks through the lines of a text. Text that ends with a line end has an empty last line.
class LineReader {
public:
    explicit LineReader(QStringView text);

    /// One line without its end; the last one has no end.
    struct Line {
        QStringView text;
        std::optional<LineEnd> end;
        bool operator==(const Line&) const = default;
    };

    /// The next line; nothing after the last. An empty text has one line.
    std::optional<Line> next();

private:
    QStringView m_rest;
    bool m_done = false;
};

} // namespace kestrel
