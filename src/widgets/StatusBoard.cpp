// SPDX-License-Identifier: MIT
#include "widgets/StatusBoard.h"

#include <QtGlobal>

#include <algorithm>

namespace kestrel {

namespace {

constexpr std::array Rows = {
    StatusRow{StatusField::build, StatusSide::left, "buildStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Result of the build"), false, false},
    StatusRow{StatusField::saving, StatusSide::left, "savingStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Saving"), true, true},
    StatusRow{StatusField::notice, StatusSide::left, "noticeStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Notice"), true, false},
    StatusRow{StatusField::place, StatusSide::right, "placeStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Place in the text"), false, false},
    StatusRow{StatusField::encoding, StatusSide::right, "encodingStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Encoding and line ends"), false, false},
    StatusRow{StatusField::tile, StatusSide::right, "tileStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Tile"), false, false},
    StatusRow{StatusField::address, StatusSide::right, "addressStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Address, bytes and cycles"), false, false},
};

constexpr bool areInOrder() {
    std::size_t index = 0;
    return std::ranges::all_of(Rows, [&index](const StatusRow& row) {
        return static_cast<std::size_t>(row.field) == index++;
    });
}

static_assert(Rows.size() == StatusFieldCount && areInOrder());

} // namespace

std::span<const StatusRow, StatusFieldCount> statusRows() {
    return Rows;
}

void StatusBoard::setText(StatusField field, const QString& text, StatusTone tone) {
    QString& present = m_texts.at(static_cast<std::size_t>(field));
    const bool isSaidAgain =
        Rows.at(static_cast<std::size_t>(field)).isAnnounced && !text.isEmpty();
    StatusTone& presentTone = m_tones.at(static_cast<std::size_t>(field));
    if (present != text || presentTone != tone || isSaidAgain) {
        present = text;
        presentTone = tone;
        Q_EMIT changed(field);
    }
}

void StatusBoard::clear(StatusField field) {
    setText(field, QString());
}

const QString& StatusBoard::text(StatusField field) const {
    return m_texts.at(static_cast<std::size_t>(field));
}

StatusTone StatusBoard::tone(StatusField field) const {
    return m_tones.at(static_cast<std::size_t>(field));
}

} // namespace kestrel
