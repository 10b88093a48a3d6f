// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace kestrel {

/// What characterRowAndLineAt() finds at a place in a text.
struct CharacterPosition {
    /// The character there; a line break at a line's end, nothing outside the text.
    QString character;
    /// The line's index, from 0.
    int line = 0;
    /// UTF-16 units from the start of the line.
    int column = 0;
    /// How many tabs the line begins with.
    int tabs = 0;

    bool operator==(const CharacterPosition&) const = default;
};

/// Looks up `position`, in UTF-16 units from the start of the text that `lines` make up with one
/// line break between each two. A place outside the text gives nothing and zeros.
CharacterPosition characterRowAndLineAt(const QStringList& lines, int position);

} // namespace kestrel
