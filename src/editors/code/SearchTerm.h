// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

/// What is searched for.
struct SearchTerm {
    QString text;
    bool matchCase = false;
    bool wholeWords = false;

    bool operator==(const SearchTerm&) const = default;
};

} // namespace kestrel
