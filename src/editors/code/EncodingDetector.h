// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

/// An encoding in which a text may have been written.
struct EncodingCandidate {
    std::string name; ///< in Qt's spelling; "UTF-8" for UTF-8 with bytes that are none
    QString title;    ///< for people
};

/// The encodings in which a text that is not valid UTF-8 and has no byte-order mark may have been
/// written, the likeliest first. Empty for bytes that do not look like text.
std::vector<EncodingCandidate> encodingCandidates(std::string_view bytes);

} // namespace kestrel
