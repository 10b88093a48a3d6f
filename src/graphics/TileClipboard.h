// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/TileClip.h"
#include "chrcanvas/data/TileRenderer.h"

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

// Tiles on the system's clipboard: as they are for Kestrel, and as an image of one pixel a pixel
// for other programs.

/// The clipboard content for tiles in these colours.
std::unique_ptr<QMimeData> clipboardContent(const TileClip& clip,
                                            const TileRenderer::Colors& colors);

/// Whether content may be tiles, by its formats alone: the data is not read.
bool mayHoldTiles(const QMimeData* content);

/// The tiles in a clipboard's content. An image's pixels get the value of the nearest of `colors`,
/// transparent ones the value 0; no more than 16 tiles of its width are taken.
PastedTiles tilesOf(const QMimeData* content, const TileRenderer::Colors& colors);

/// A clip as an image, one pixel a pixel.
QImage imageOf(const TileClip& clip, const TileRenderer::Colors& colors);

} // namespace kestrel
