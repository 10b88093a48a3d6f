// SPDX-License-Identifier: MIT
#pragma once

#include "model/Draft.h"
#include "model/ProcessIdentity.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kestrel {

/// How long drafts are kept, and how much room they may take.
struct DraftLimits {
    std::int64_t milliseconds = std::int64_t{30} * 24 * 60 * 60 * 1000;
    std::uintmax_t bytes = 100'000'000;
};

/// The drafts of unsaved work, each in a file of its own in one folder. Those of a process that
/// still runs are its own; those of one that is gone belong to whoever comes next. What cannot be
/// written stays in memory. For one thread at a time.
class DraftStore {
public:
    /// The folder is made with the first draft; an empty path keeps all drafts in memory.
    explicit DraftStore(std::filesystem::path folder,
                        ProcessIdentity writer = ProcessIdentity::current(),
                        DraftLimits limits = {});

    /// A draft and the name that it has in the store.
    struct Found {
        std::string name;
        Draft draft;
    };

    /// A name for a new draft of this file, which nothing has yet.
    std::string newName(const std::filesystem::path& file, DraftKind kind);

    /// Keeps a draft under a name of newName(), in place of what had that name. Then lets the
    /// oldest drafts of all go as far as the limits ask for it, but never this one. False when it
    /// could not be written and is in memory only; the next write() tries it again.
    bool write(const std::string& name, Draft draft);

    /// The newest draft of a file but for those of the names in `without`. Nothing of those that
    /// hold just what `present` tells of: they are removed.
    std::optional<Found> newest(const std::filesystem::path& file, DraftKind kind,
                                const std::set<std::string>& without,
                                const std::optional<Fingerprint>& present);

    void remove(const std::string& name);

private:
    /// What a listing of the folder tells of a file there.
    struct Entry {
        std::string name;
        std::int64_t time = 0; ///< when it was last written, milliseconds since 1970
        std::uintmax_t size = 0;
    };

    bool writeFile(const std::string& name, const Draft& draft) const;
    std::vector<Entry> entries() const;
    std::vector<Entry> entriesOf(const std::string& prefix) const;
    std::optional<Draft> read(const std::string& name, const std::filesystem::path& file,
                              DraftKind kind) const;
    std::vector<Found> unwritten(const std::string& prefix) const;
    void removeOldFiles(const std::string& but) const;
    void forgetOldest(const std::string& but);

    std::filesystem::path m_folder;
    ProcessIdentity m_writer;
    DraftLimits m_limits;
    std::map<std::string, Draft> m_unwritten;
    unsigned m_names = 0;
};

} // namespace kestrel
