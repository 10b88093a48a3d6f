// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QKeyEvent;

namespace kestrel {

/// Lets what acts once a press do so however long its key is held, where Qt takes the repeats of
/// the key for presses of their own.
class HeldKeys : public QObject {
    Q_OBJECT

public:
    explicit HeldKeys(QObject* parent = nullptr);

    /// Begins to watch the application's keys, if its platform's time stamps tell repeats: those of
    /// X11 do, where a held key sends a release and a press of one time over and over. (Qt marks
    /// the pair only when both have arrived together.)
    void watchApplication();

    /// For an application whose stamps do: marks repeated presses, and keeps repeated shortcuts
    /// from what is not to be repeated.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isUnmarkedRepeat(const QKeyEvent& press) const;
    bool mark(QObject& window, QKeyEvent& press);

    quint32 m_releasedKey = 0; ///< by its place on the keyboard
    quint64 m_releasedAt = 0;
    bool m_shortcutRepeats = false; ///< the press whose shortcut is being looked for is a repeat
};

} // namespace kestrel
