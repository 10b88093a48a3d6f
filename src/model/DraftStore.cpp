// SPDX-License-Identifier: MIT
#include "model/DraftStore.h"

#include "model/FileReader.h"
#include "model/Paths.h"
#include "model/StateFolder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kestrel {

namespace {

constexpr std::string_view Ending = ".draft";
/// What a writer that was killed leaves of a file that it had not finished.
constexpr std::string_view UnfinishedStart = ".k";
constexpr std::int64_t UnfinishedAge = 3'600'000; // an hour in milliseconds
/// No pane shows a larger file.
constexpr std::uintmax_t LargestDraft = 256ULL * 1024 * 1024;

/// What the names of all drafts of a file begin with.
std::string prefixOf(const std::filesystem::path& file, DraftKind kind) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%016llx%u-",
                  static_cast<unsigned long long>(fingerprintOf(file.native()).hash),
                  static_cast<unsigned>(kind));
    return text.data();
}

std::int64_t milliseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

bool isNewer(const auto& one, const auto& other) {
    return one.time > other.time;
}

} // namespace

DraftStore::DraftStore(std::filesystem::path folder, ProcessIdentity writer, DraftLimits limits)
    : m_folder(std::move(folder))
    , m_writer(std::move(writer))
    , m_limits(limits) {}

std::string DraftStore::newName(const std::filesystem::path& file, DraftKind kind) {
    const std::string start = prefixOf(file, kind) + std::to_string(m_writer.number) + '-' +
                              std::to_string(m_writer.start) + '-';
    while (true) {
        std::string name = start + std::to_string(m_names++) + std::string(Ending);
        if (!existsAt(joined(m_folder, name))) {
            return name;
        }
    }
}

bool DraftStore::write(const std::string& name, Draft draft) {
    const bool written = writeFile(name, draft);
    if (written) {
        m_unwritten.erase(name);
        std::erase_if(m_unwritten, [this](const auto& waiting) {
            return writeFile(waiting.first, waiting.second);
        });
    } else {
        m_unwritten.insert_or_assign(name, std::move(draft));
    }
    removeOldFiles(name);
    forgetOldest(name);
    return written;
}

bool DraftStore::writeFile(const std::string& name, const Draft& draft) const {
    return !m_folder.empty() && makePrivateFolder(m_folder) &&
           replacePrivateFile(joined(m_folder, name), draftFileBytes(draft, m_writer));
}

/// All regular files of the user's own in the folder.
std::vector<DraftStore::Entry> DraftStore::entries() const {
    std::vector<Entry> found;
    std::error_code error;
    std::filesystem::directory_iterator place(m_folder, error);
    for (; !error && place != std::filesystem::directory_iterator(); place.increment(error)) {
        struct stat status {};
        if (::lstat(place->path().c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
            status.st_uid == ::geteuid()) {
            found.push_back({place->path().filename().native(), milliseconds(status.st_mtim),
                             static_cast<std::uintmax_t>(status.st_size)});
        }
    }
    return found;
}

std::vector<DraftStore::Entry> DraftStore::entriesOf(const std::string& prefix) const {
    std::vector<Entry> found = entries();
    std::erase_if(found, [&prefix](const Entry& entry) {
        return !entry.name.starts_with(prefix) || !entry.name.ends_with(Ending);
    });
    return found;
}

/// The draft in a file; nothing when it is unreadable, of another file, or another process's own.
std::optional<Draft> DraftStore::read(const std::string& name, const std::filesystem::path& file,
                                      DraftKind kind) const {
    const auto bytes = readFile(joined(m_folder, name), LargestDraft);
    auto written = bytes ? readDraftFile(*bytes) : std::nullopt;
    if (!written || written->draft.file != file || written->draft.kind != kind ||
        (written->writer != m_writer && written->writer.isRunning())) {
        return std::nullopt;
    }
    return std::move(written->draft);
}

std::vector<DraftStore::Found> DraftStore::unwritten(const std::string& prefix) const {
    std::vector<Found> found;
    for (const auto& [name, draft] : m_unwritten) {
        if (name.starts_with(prefix)) {
            found.push_back({name, draft});
        }
    }
    return found;
}

std::optional<DraftStore::Found> DraftStore::newest(const std::filesystem::path& file,
                                                    DraftKind kind,
                                                    const std::set<std::string>& without,
                                                    const std::optional<Fingerprint>& present) {
    std::vector<Found> candidates = unwritten(prefixOf(file, kind));
    for (const Entry& entry : entriesOf(prefixOf(file, kind))) {
        // What waits in memory is newer than what the disk has of the same name.
        auto draft = without.contains(entry.name) || m_unwritten.contains(entry.name)
                         ? std::nullopt
                         : read(entry.name, file, kind);
        if (draft) {
            candidates.push_back({entry.name, *std::move(draft)});
        }
    }
    std::optional<Found> newest;
    for (Found& candidate : candidates) {
        if (without.contains(candidate.name)) {
            continue;
        }
        if (present == fingerprintOf(candidate.draft.content)) {
            remove(candidate.name);
        } else if (!newest || isNewer(candidate.draft, newest->draft)) {
            newest = std::move(candidate);
        }
    }
    return newest;
}

void DraftStore::remove(const std::string& name) {
    m_unwritten.erase(name);
    if (!m_folder.empty()) {
        ::unlink(joined(m_folder, name).c_str());
    }
}

void DraftStore::removeOldFiles(const std::string& but) const {
    std::vector<Entry> present = entries();
    std::sort(present.begin(), present.end(), isNewer<Entry, Entry>);
    const std::int64_t now = presentTime();
    std::uintmax_t bytes = 0;
    for (const Entry& entry : present) {
        const bool isDraft = entry.name.ends_with(Ending);
        bytes += isDraft ? entry.size : 0;
        const bool isOld =
            isDraft ? bytes > m_limits.bytes || now - entry.time > m_limits.milliseconds
                    : entry.name.starts_with(UnfinishedStart) && now - entry.time > UnfinishedAge;
        if (isOld && entry.name != but) {
            ::unlink(joined(m_folder, entry.name).c_str());
        }
    }
}

void DraftStore::forgetOldest(const std::string& but) {
    std::uintmax_t bytes = 0;
    for (const auto& [name, draft] : m_unwritten) {
        bytes += draft.content.size();
    }
    while (bytes > m_limits.bytes && m_unwritten.size() > 1) {
        auto oldest = m_unwritten.end();
        for (auto place = m_unwritten.begin(); place != m_unwritten.end(); ++place) {
            if (place->first != but &&
                (oldest == m_unwritten.end() || isNewer(oldest->second, place->second))) {
                oldest = place;
            }
        }
        if (oldest == m_unwritten.end()) {
            return;
        }
        bytes -= oldest->second.content.size();
        m_unwritten.erase(oldest);
    }
}

} // namespace kestrel
