// SPDX-License-Identifier: MIT
#pragma once

#include "drafts/WorkQueue.h"
#include "model/Draft.h"
#include "model/DraftStore.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace kestrel {

/// Keeps the drafts of all panes on a thread of its own, in the order in which it is asked to. Its
/// operations and its answers belong to the thread that made it. The destructor waits until all is
/// written.
class DraftKeeper : public QObject {
    Q_OBJECT

public:
    explicit DraftKeeper(DraftStore store, QObject* parent = nullptr);
    ~DraftKeeper() override;

    /// A content that is put together when it is needed, on the keeper's thread.
    using Content = std::function<std::string()>;

    /// One showing of a file, which has at most one draft. Only the keeper looks inside.
    struct Session;

    /// Begins the showing of a file. `disk` is what it holds on the disk, if that could be read,
    /// and `unedited` what saving would write before any edit.
    std::shared_ptr<Session> begin(const std::filesystem::path& file, DraftKind kind,
                                   std::optional<std::string> disk, Content unedited);

    struct Kept {
        bool differs = false; ///< from the file: else there is nothing to keep, and no draft
        Fingerprint content;
    };

    /// A draft that was found.
    struct Found {
        std::string name;
        Draft draft;
        bool fileChanged = false; ///< whether the file is another one than the draft began with
        Fingerprint fingerprint;
    };
    using FoundDraft = std::shared_ptr<const Found>;

    /// Keeps a content as the session's draft. It takes the place of the draft `origin`, if that is
    /// not null, as long as it differs from the file. A content that came before and is not written
    /// yet is passed over, and so is its answer.
    void keep(const std::shared_ptr<Session>& session, Content content, FoundDraft origin,
              std::function<void(const Kept&)> answer);

    /// Looks for the newest draft of the session's file that is not the session's own; the answer
    /// is null when there is none.
    void look(const std::shared_ptr<Session>& session,
              std::function<void(const FoundDraft&)> answer);

    void remove(const std::string& name);

    /// The session's file was saved with this content: its draft is not needed any more, and
    /// neither is its origin, if that is not null.
    void saved(const std::shared_ptr<Session>& session, std::string content, FoundDraft origin);

private:
    Q_INVOKABLE void deliver();
    void answer(std::function<void()> toDeliver);
    void write(const std::string& name, Draft draft);

    std::mutex m_mutex;
    std::vector<std::function<void()>> m_answers;
    // On the keeper's thread alone:
    DraftStore m_store;
    bool m_failureLogged = false;
    std::int64_t m_latest = 0; ///< time of the latest draft; no two have the same
    WorkQueue m_queue;         ///< declared last: ends before what its tasks use
};

} // namespace kestrel
