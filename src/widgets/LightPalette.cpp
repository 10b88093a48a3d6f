// SPDX-License-Identifier: MIT
#include "widgets/LightPalette.h"

#include <QColor>
#include <QWidget>

namespace kestrel {

QPalette lightPalette() {
    const QColor text(0x1c, 0x1c, 0x1c);
    const QColor muted(0x70, 0x70, 0x70);
    QPalette palette(text, QColor(0xef, 0xef, 0xef), Qt::white, QColor(0xa0, 0xa0, 0xa0),
                     QColor(0xc8, 0xc8, 0xc8), text, Qt::white, Qt::white, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf6, 0xf6));
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xff, 0xdc));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, muted);
    palette.setColor(QPalette::Link, QColor(0x1a, 0x5f, 0xb4));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, muted);
    }
    return palette;
}

void makeWhite(QWidget& pane) {
    pane.setPalette(lightPalette());
    pane.setAutoFillBackground(true);
}

} // namespace kestrel
