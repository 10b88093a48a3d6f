// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>
#include <vector>

namespace kestrel {

/// A line on the screen; a wrapped line of the text has one for each of its parts.
struct ScreenLine {
    /// The number of the line whose first part this is; nothing for its further parts.
    std::optional<int> number;
    /// The top edge in the viewport's coordinates.
    qreal top = 0;

    bool operator==(const ScreenLine&) const = default;
};

/// The lines on the screen beside a line-number ruler.
class ScreenLines {
public:
    ScreenLines() = default;
    ScreenLines(const ScreenLines&) = delete;
    ScreenLines& operator=(const ScreenLines&) = delete;
    virtual ~ScreenLines() = default;

    /// What is visible, from top to bottom; nothing else is laid out or looked at.
    virtual std::vector<ScreenLine> visibleScreenLines() const = 0;
};

} // namespace kestrel
