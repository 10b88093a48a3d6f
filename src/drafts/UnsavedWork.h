// SPDX-License-Identifier: MIT
#pragma once

#include "drafts/DraftKeeper.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kestrel {

/// What a pane holds that is not on the disk: has it kept while it is edited and when another file
/// takes its place, and offers what was kept when the file is shown again. Without a keeper it does
/// nothing at all.
class UnsavedWork : public QObject {
    Q_OBJECT

public:
    /// What of an edit is lost at most when the program is killed right after it, but for the time
    /// that writing takes.
    static constexpr int DelayMilliseconds = 2000;

    /// What the pane does for it.
    struct Pane {
        /// Gives the present content, as saving would write it, as quickly as the pane can: what
        /// takes longer is left for the function that it returns, which another thread calls.
        std::function<DraftKeeper::Content()> content;
        /// Puts a content in place of the present one, as one edit that can be undone.
        std::function<void(const std::string&)> replaceContent;
    };

    UnsavedWork(DraftKind kind, Pane pane, QObject* parent);

    /// To be given before the first file is shown; shared by all panes.
    void setKeeper(std::shared_ptr<DraftKeeper> keeper);

    void setDelay(int milliseconds) { m_timer.setInterval(milliseconds); }

    /// The content is about to be replaced by another file's, or by the same file's anew, or to go:
    /// keeps what is not saved. To be called while the content is still there.
    void leave();

    /// A file is shown as it is on the disk, whose bytes are `disk` if they could be read. Saving
    /// it unedited would write `unedited`; those very bytes when that is left out.
    void shown(const std::filesystem::path& file, std::optional<std::string> disk,
               DraftKeeper::Content unedited = {});

    /// The content was edited, or may have been. Costs nothing but a timer's start.
    void edited();

    /// The file was saved with this content. What was kept before and is still on offer stays.
    void saved(std::string content);

    /// Keeps what is not kept yet, without waiting for the timer.
    void keep();

    /// Whether saving would change what the file held when it was shown or last saved. Puts the
    /// content together, unless nothing was edited since then.
    bool hasChanges() const;

    /// The file that is shown; empty when there is none.
    const std::filesystem::path& file() const { return m_file; }

    /// What was kept of the file that is shown, and is neither taken back nor dropped.
    struct Offer {
        std::int64_t time = 0; ///< milliseconds since 1970
        bool fileChanged = false;
    };
    std::optional<Offer> offer() const;

    /// Whether Undo brings back what was kept: nothing was done since the file was shown.
    bool undoBringsBack() const { return m_offered && !m_touched; }

    /// Puts what was kept in place of the content. Undone, it is offered again.
    void bringBack();

    /// Removes what was kept. What was kept before that is offered next.
    void drop();

Q_SIGNALS:
    void offerChanged();
    /// The content was saved, or left for another file's: there may be no changes any more.
    void settled();

private:
    using Found = DraftKeeper::FoundDraft;

    void look();
    void setOffered(Found found);
    void wasKept(const DraftKeeper::Kept& kept);

    DraftKind m_kind;
    Pane m_pane;
    std::shared_ptr<DraftKeeper> m_keeper;
    std::shared_ptr<DraftKeeper::Session> m_session; ///< null when no file is shown
    QTimer m_timer;
    Found m_offered;
    Found m_broughtBack;  ///< what the present content goes on from
    unsigned m_looks = 0; ///< tells the answer to the latest look from older ones
    std::filesystem::path m_file;
    DraftKeeper::Content m_unchanged; ///< gives what the file held when it was shown or saved
    bool m_edited = false;
    bool m_touched = false;
    bool m_mayDiffer = false; ///< the content was edited since then
};

} // namespace kestrel
