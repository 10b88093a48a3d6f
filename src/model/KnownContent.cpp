// SPDX-License-Identifier: MIT
#include "model/KnownContent.h"

#include "model/FileReader.h"
#include "model/FileWriter.h"
#include "model/Paths.h"

#include <algorithm>
#include <functional>
#include <system_error>

namespace kestrel {

KnownContent::Mark KnownContent::markOf(std::string_view content) {
    return {content.size(), std::hash<std::string_view>()(content)};
}

void KnownContent::note(std::string_view content) {
    m_known = markOf(content);
}

std::optional<std::filesystem::path>
KnownContent::keepBeforeSaving(const std::filesystem::path& path, std::string_view next, Keep keep,
                               std::string* reason) const {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return std::filesystem::path(); // which no save replaces
    }
    // A larger file is another one anyway.
    const std::size_t limit = std::max(next.size(), m_known ? m_known->size : 0);
    const auto present = readFile(path, limit);
    const bool isNext = present && *present == next;
    const bool isKnown = present && keep == Keep::other && m_known == markOf(*present);
    return isNext || isKnown ? std::filesystem::path() : keepBackup(path, reason);
}

} // namespace kestrel
