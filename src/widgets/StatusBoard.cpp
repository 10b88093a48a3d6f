// SPDX-License-Identifier: MIT
#include "widgets/StatusBoard.h"

#include <QtGlobal>

#include <algorithm>

namespace kestrel {

namespace {

constexpr std::array Rows = {
    StatusRow{StatusField::build, StatusSide::left, "buildStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Result of the build")},
    StatusRow{StatusField::saving, StatusSide::left, "savingStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Saving")},
    StatusRow{StatusField::jump, StatusSide::left, "jumpStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Place gone to")},
    StatusRow{StatusField::place, StatusSide::right, "placeStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Place in the text")},
    StatusRow{StatusField::encoding, StatusSide::right, "encodingStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Encoding and line ends")},
    StatusRow{StatusField::address, StatusSide::right, "addressStatus",
              QT_TRANSLATE_NOOP("kestrel::StatusBoard", "Address, bytes and cycles")},
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

void StatusBoard::setText(StatusField field, const QString& text) {
    QString& present = m_texts.at(static_cast<std::size_t>(field));
    if (present != text) {
        present = text;
        Q_EMIT changed(field);
    }
}

void StatusBoard::clear(StatusField field) {
    setText(field, QString());
}

const QString& StatusBoard::text(StatusField field) const {
    return m_texts.at(static_cast<std::size_t>(field));
}

} // namespace kestrel
