// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileClip.h"
#include "chrcanvas/data/TileRenderer.h"

#include <QCoreApplication>
#include <QImage>
#include <QString>

#include <memory>
#include <optional>

class QMimeData;

namespace kestrel {

/// What a clipboard holds for a graphics file: tiles, or a sentence that says why there are none.
struct PastedTiles {
    std::optional<TileClip> clip;
    QString refusal;
};

/// Brings tiles to the system's clipboard and back: as they are for Kestrel, and as an image, one
/// pixel a pixel, for other programs.
class TileClipboard {
    Q_DECLARE_TR_FUNCTIONS(TileClipboard)

public:
    /// The clipboard content for tiles in these colours.
    static std::unique_ptr<QMimeData> content(const TileClip& clip,
                                              const TileRenderer::Colors& colors);

    /// Whether there is anything that could be tiles; a look at the kinds of data, not at the data.
    static bool mayHoldTiles(const QMimeData* content);

    /// The tiles in a clipboard's content. An image's pixels get the value of the nearest of
    /// `colors`, transparent ones the value 0.
    static PastedTiles tiles(const QMimeData* content, const TileRenderer::Colors& colors);

    static QImage image(const TileClip& clip, const TileRenderer::Colors& colors);
    /// The tiles of an image whose width and height are multiples of 8, at most 16 tiles a row.
    static TileClip tiles(const QImage& image, const TileRenderer::Colors& colors);
};

} // namespace kestrel
