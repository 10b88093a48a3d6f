// SPDX-License-Identifier: MIT
#include "chrcanvas/views/ColorWords.h"

#include "chrcanvas/data/MasterColors.h"

#include <QCoreApplication>

namespace kestrel {

namespace {

constexpr std::uint8_t BelowBlack = 0x0D;
constexpr std::uint8_t CanonicalBlack = 0x0F;

QString digits(std::uint8_t value) {
    return QStringLiteral("%1").arg(value, 2, 16, QLatin1Char('0')).toUpper();
}

QString translated(const char* text) {
    return QCoreApplication::translate("ColorWords", text);
}

} // namespace

QString indexDigits(std::uint8_t key) {
    return digits(masterIndex(key));
}

QString indexText(std::uint8_t key) {
    QString index = QLatin1Char('$') + indexDigits(key);
    if (masterIndex(key) == key) {
        return index;
    }
    return translated("%1 (stored as $%2)").arg(index, digits(key));
}

QString colorNote(std::uint8_t key) {
    const std::uint8_t index = masterIndex(key);
    if (index == BelowBlack) {
        return translated("below black: avoid");
    }
    if (index == CanonicalBlack) {
        return translated("the usual black");
    }
    return masterColor(index).color == RgbColor{} ? translated("black, the same as $0F")
                                                  : QString();
}

bool isToBeAvoided(std::uint8_t key) {
    return masterIndex(key) == BelowBlack;
}

} // namespace kestrel
