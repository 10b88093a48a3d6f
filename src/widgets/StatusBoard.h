// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <array>
#include <cstddef>
#include <span>

namespace kestrel {

/// What the status bar can tell, the most important first. A new field needs a row in statusRows(),
/// too.
enum class StatusField {
    build,    ///< how the latest build stands
    saving,   ///< what became of a file at the last save, if that is worth telling
    notice,   ///< what is said of the place gone to, or why a command led nowhere
    place,    ///< the caret's line and column in the code editor
    encoding, ///< the shown file's encoding and line ends
    tile,     ///< the tile, and the pixel, under the pointer or the keyboard's cursor
    address,  ///< what the caret's line came to in the last build
};

inline constexpr std::size_t StatusFieldCount = 7;

/// What just happened stands on the left; what is so, at the right edge, where it does not move
/// when a message comes.
enum class StatusSide { left, right };

/// Whether a text is about the present or only about what was.
enum class StatusTone { present, past };

/// A field as the status bar shows it.
struct StatusRow {
    StatusField field;
    StatusSide side;
    const char* objectName;
    const char* name; ///< for assistive technology
    bool isAnnounced; ///< is to be heard when it comes, wherever the focus is
    bool isUrgent;    ///< tells of work that may be lost, so it is elided only after the others
};

/// All fields, in the order of StatusField.
std::span<const StatusRow, StatusFieldCount> statusRows();

/// The texts of the status bar. Whoever has something to tell sets its field, and clears it when it
/// no longer holds; a pane clears its fields when it is hidden.
class StatusBoard : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// A text that is announced is announced again when it comes again.
    void setText(StatusField field, const QString& text, StatusTone tone = StatusTone::present);
    void clear(StatusField field);

    /// Empty for a field with nothing to tell.
    const QString& text(StatusField field) const;
    StatusTone tone(StatusField field) const;

Q_SIGNALS:
    void changed(StatusField field);

private:
    std::array<QString, StatusFieldCount> m_texts;
    std::array<StatusTone, StatusFieldCount> m_tones{};
};

} // namespace kestrel
