// SPDX-License-Identifier: MIT
#pragma once

#include "model/Fingerprint.h"
#include "model/ProcessIdentity.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// What a draft's content is, which says who can take it back.
enum class DraftKind { text, tiles, palettes };

/// Unsaved content of a file.
struct Draft {
    std::filesystem::path file;
    DraftKind kind = DraftKind::text;
    /// What the file held on the disk when its editing began; nothing when that could not be read.
    std::optional<Fingerprint> base;
    std::int64_t time = 0; ///< milliseconds since 1970
    std::string content;   ///< the bytes that saving would have written
};

/// A draft as it lies on the disk, with the process that wrote it.
struct WrittenDraft {
    Draft draft;
    ProcessIdentity writer;
};

/// The bytes of a draft's file: one line of JSON that describes it, then the content as it is.
std::string draftFileBytes(const Draft& draft, const ProcessIdentity& writer);

/// The draft in such a file; nothing when that is damaged, cut off, or of a newer format.
std::optional<WrittenDraft> readDraftFile(std::string_view bytes);

/// Milliseconds since 1970, now.
std::int64_t presentTime();

} // namespace kestrel
