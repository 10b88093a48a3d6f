// SPDX-License-Identifier: MIT
#include "widgets/FixedFont.h"

#include <QFontDatabase>
#include <QFontInfo>

namespace kestrel {

QFont fixedFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::Monospace);
        font.setFixedPitch(true);
    }
    return font;
}

} // namespace kestrel
