// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"

#include <QStringView>

#include <optional>

namespace kestrel {

/// So much of a line is looked at for a place at its beginning; the longest path is shorter.
inline constexpr qsizetype LongestPlaceText = qsizetype{16} * 1024;

/// A place that a line of the assembler's output names, and where in the line it is named.
struct PlaceText {
    Place place;
    qsizetype begin = 0;
    qsizetype length = 0;
};

/// The place of a line that begins "file:line:column: error:", "warning:" or "note:"; the place's
/// text is what follows. The file's name may hold anything; what stands first counts.
std::optional<PlaceText> problemIn(QStringView line);

/// The place of a line that goes on below a message: "  included at file:line" and what an
/// expanded macro and a repetition have. It is a note.
std::optional<PlaceText> originIn(QStringView line);

} // namespace kestrel
