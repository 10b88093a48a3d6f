// SPDX-License-Identifier: MIT
#include "drafts/UnsavedWork.h"

#include <QPointer>

#include <utility>

namespace kestrel {

UnsavedWork::UnsavedWork(DraftKind kind, Pane pane, QObject* parent)
    : QObject(parent)
    , m_kind(kind)
    , m_pane(std::move(pane)) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(DelayMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &UnsavedWork::keep);
}

void UnsavedWork::setKeeper(std::shared_ptr<DraftKeeper> keeper) {
    m_keeper = std::move(keeper);
}

void UnsavedWork::leave() {
    m_mayDiffer = false;
    m_file.clear();
    m_unchanged = nullptr;
    if (m_session) {
        keep();
        m_session.reset();
        m_broughtBack.reset();
        setOffered(nullptr);
        ++m_looks;
    }
    Q_EMIT settled();
}

void UnsavedWork::shown(const std::filesystem::path& file, std::optional<std::string> disk,
                        DraftKeeper::Content unedited) {
    leave();
    m_edited = false;
    m_touched = false;
    if (!unedited && disk) {
        unedited = [content = *disk] { return content; };
    }
    m_file = file;
    m_unchanged = unedited;
    if (!m_keeper) {
        return;
    }
    m_session = m_keeper->begin(file, m_kind, std::move(disk), std::move(unedited));
    look();
}

void UnsavedWork::edited() {
    m_touched = true;
    m_mayDiffer = true;
    if (!m_session) {
        return;
    }
    m_edited = true;
    if (!m_timer.isActive()) {
        m_timer.start();
    }
}

void UnsavedWork::keep() {
    m_timer.stop();
    if (!m_session || !m_edited) {
        return;
    }
    m_edited = false;
    m_keeper->keep(m_session, m_pane.content(), m_broughtBack,
                   [self = QPointer(this), session = m_session](const DraftKeeper::Kept& kept) {
                       if (self && self->m_session == session) {
                           self->wasKept(kept);
                       }
                   });
}

void UnsavedWork::wasKept(const DraftKeeper::Kept& kept) {
    if (kept.differs && m_offered && kept.content == m_offered->fingerprint) {
        m_broughtBack = m_offered; // by Undo of the view itself
        m_keeper->remove(m_broughtBack->name);
        setOffered(nullptr);
    } else if (!kept.differs && m_broughtBack && !m_offered) {
        setOffered(std::exchange(m_broughtBack, nullptr));
    }
}

void UnsavedWork::saved(std::string content) {
    m_mayDiffer = false;
    m_unchanged = [content] { return content; };
    if (m_session) {
        m_timer.stop();
        m_edited = false;
        m_keeper->saved(m_session, std::move(content), std::exchange(m_broughtBack, nullptr));
        look();
    }
    Q_EMIT settled();
}

bool UnsavedWork::hasChanges() const {
    return m_mayDiffer && !m_file.empty() && (!m_unchanged || m_pane.content()() != m_unchanged());
}

std::optional<UnsavedWork::Offer> UnsavedWork::offer() const {
    return m_offered ? std::optional(Offer{m_offered->draft.time, m_offered->fileChanged})
                     : std::nullopt;
}

void UnsavedWork::bringBack() {
    if (m_offered) {
        m_broughtBack = m_offered;
        setOffered(nullptr);
        m_pane.replaceContent(m_broughtBack->draft.content);
    }
}

void UnsavedWork::drop() {
    if (m_offered) {
        m_keeper->remove(m_offered->name);
        setOffered(nullptr);
        look();
    }
}

void UnsavedWork::look() {
    m_keeper->look(m_session, [self = QPointer(this), number = ++m_looks](const Found& found) {
        if (self && self->m_looks == number) {
            self->setOffered(found);
        }
    });
}

void UnsavedWork::setOffered(Found found) {
    if (found != m_offered) {
        m_offered = std::move(found);
        Q_EMIT offerChanged();
    }
}

} // namespace kestrel
