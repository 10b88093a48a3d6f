// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

namespace kestrel {

/// The font that a label of a limited width is drawn in.
struct LabelFont {
    QFont font;
    /// The label's width in that font.
    qreal width = 0;

    /// `font` itself where `label` fits into `available`, else a narrower and, for much wider
    /// labels, also smaller form of it.
    static LabelFont fitting(const QString& label, const QFont& font, qreal available);
};

} // namespace kestrel
