// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// What an editor knows of its file: the content that it read or saved last. Before it saves again
/// it asks for anything else that lies there, which another program wrote, to be kept.
class KnownContent {
public:
    /// Which content is kept: what another program wrote, or the known one, too.
    enum class Keep { other, any };

    /// The file now holds `content`, as far as the editor knows.
    void note(std::string_view content);

    /// Nothing is known of what the file holds.
    void forget() { m_known.reset(); }

    bool isNoted() const { return m_known.has_value(); }

    /// To be called before the file at `path` is replaced by `next`. Makes a backup (see
    /// keepBackup) of a file that holds neither that nor, unless it is to be kept, too, the known
    /// content. The path of the backup, an empty one when none is needed; nothing when it could not
    /// be made, for `*reason`, and then the file must not be replaced.
    std::optional<std::filesystem::path> keepBeforeSaving(const std::filesystem::path& path,
                                                          std::string_view next,
                                                          Keep keep = Keep::other,
                                                          std::string* reason = nullptr) const;

private:
    struct Mark {
        std::size_t size = 0;
        std::size_t hash = 0;
        bool operator==(const Mark&) const = default;
    };
    static Mark markOf(std::string_view content);

    std::optional<Mark> m_known;
};

} // namespace kestrel
