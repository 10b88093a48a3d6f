// SPDX-License-Identifier: MIT
#include "drafts/DraftKeeper.h"

#include "model/Log.h"

#include <QMetaObject>

#include <algorithm>
#include <system_error>
#include <utility>

namespace kestrel {

struct DraftKeeper::Session {
    std::filesystem::path file;
    DraftKind kind = DraftKind::text;
    std::optional<Fingerprint> disk;
    std::optional<Fingerprint> unedited;
    std::string name; ///< of its draft
};

namespace {

/// One path for all ways to a file.
std::filesystem::path identityOf(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::path real = std::filesystem::canonical(file, error);
    if (!error) {
        return real;
    }
    const std::filesystem::path absolute = std::filesystem::absolute(file, error);
    return (error ? file : absolute).lexically_normal();
}

} // namespace

DraftKeeper::DraftKeeper(DraftStore store, QObject* parent)
    : QObject(parent)
    , m_store(std::move(store)) {}

DraftKeeper::~DraftKeeper() = default;

void DraftKeeper::answer(std::function<void()> toDeliver) {
    {
        const std::lock_guard lock(m_mutex);
        m_answers.push_back(std::move(toDeliver));
    }
    QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection);
}

void DraftKeeper::deliver() {
    std::vector<std::function<void()>> answers;
    {
        const std::lock_guard lock(m_mutex);
        answers.swap(m_answers);
    }
    for (const auto& deliverOne : answers) {
        deliverOne();
    }
}

std::shared_ptr<DraftKeeper::Session> DraftKeeper::begin(const std::filesystem::path& file,
                                                         DraftKind kind,
                                                         std::optional<std::string> disk,
                                                         Content unedited) {
    auto session = std::make_shared<Session>();
    m_queue.add(
        [this, session, file, kind, disk = std::move(disk), unedited = std::move(unedited)] {
            session->file = identityOf(file);
            session->kind = kind;
            session->name = m_store.newName(session->file, kind);
            if (disk) {
                session->disk = fingerprintOf(*disk);
            }
            if (unedited) {
                session->unedited = fingerprintOf(unedited());
            }
        });
    return session;
}

void DraftKeeper::write(const std::string& name, Draft draft) {
    const bool written = m_store.write(name, std::move(draft));
    if (!written && !m_failureLogged) {
        writeLog("Unsaved changes cannot be written to the state folder; they are kept in memory.");
    }
    m_failureLogged = !written;
}

void DraftKeeper::keep(const std::shared_ptr<Session>& session, Content content, FoundDraft origin,
                       std::function<void(const Kept&)> answerTo) {
    m_queue.add(
        [this, session, content = std::move(content), origin = std::move(origin),
         answerTo = std::move(answerTo)] {
            std::string bytes = content();
            Kept kept{true, fingerprintOf(bytes)};
            kept.differs = session->unedited != kept.content;
            // At each moment one of the two is there.
            if (kept.differs) {
                m_latest = std::max(presentTime(), m_latest + 1);
                write(session->name,
                      {session->file, session->kind, session->disk, m_latest, std::move(bytes)});
            } else if (origin) {
                write(origin->name, origin->draft);
            }
            if (!kept.differs) {
                m_store.remove(session->name);
            } else if (origin) {
                m_store.remove(origin->name);
            }
            answer([answerTo, kept] { answerTo(kept); });
        },
        session.get());
}

void DraftKeeper::look(const std::shared_ptr<Session>& session,
                       std::function<void(const FoundDraft&)> answerTo) {
    m_queue.add([this, session, answerTo = std::move(answerTo)] {
        auto newest =
            m_store.newest(session->file, session->kind, {session->name}, session->unedited);
        FoundDraft found;
        if (newest) {
            Draft& draft = newest->draft;
            const bool changed = draft.base && session->disk && draft.base != session->disk;
            const Fingerprint fingerprint = fingerprintOf(draft.content);
            found = std::make_shared<const Found>(
                Found{newest->name, std::move(draft), changed, fingerprint});
        }
        answer([answerTo, found] { answerTo(found); });
    });
}

void DraftKeeper::remove(const std::string& name) {
    m_queue.add([this, name] { m_store.remove(name); });
}

void DraftKeeper::saved(const std::shared_ptr<Session>& session, std::string content,
                        FoundDraft origin) {
    m_queue.add([this, session, content = std::move(content), origin = std::move(origin)] {
        session->disk = fingerprintOf(content);
        session->unedited = session->disk;
        m_store.remove(session->name);
        if (origin) {
            m_store.remove(origin->name);
        }
    });
}

} // namespace kestrel
