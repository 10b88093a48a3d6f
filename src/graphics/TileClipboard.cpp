// SPDX-License-Identifier: MIT
#include "graphics/TileClipboard.h"

#include <QCoreApplication>
#include <QMimeData>

#include <algorithm>
#include <cstddef>

namespace kestrel {

namespace {

constexpr char TilesFormat[] = "application/x-kestrel-tiles";
constexpr int OpaqueEnough = 128;

int distance(QRgb one, QRgb other) {
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

int nearestValue(QRgb pixel, const TileRenderer::Colors& colors) {
    if (qAlpha(pixel) < OpaqueEnough) {
        return 0;
    }
    const auto nearest =
        std::min_element(colors.begin(), colors.end(), [pixel](QRgb one, QRgb other) {
            return distance(pixel, one) < distance(pixel, other);
        });
    return static_cast<int>(nearest - colors.begin());
}

/// The tiles of an image whose width and height are multiples of 8.
TileClip tilesIn(const QImage& image, const TileRenderer::Colors& colors) {
    TileClip clip{std::min(image.width() / TileSide, TilesPerRow), image.height() / TileSide, {}};
    const QImage pixels = image.copy(0, 0, clip.columns * TileSide, clip.rows * TileSide)
                              .convertToFormat(QImage::Format_ARGB32);
    if (pixels.isNull()) {
        return {}; // no memory for it
    }
    TileData tiles(static_cast<std::size_t>(clip.columns) * static_cast<std::size_t>(clip.rows));
    for (int y = 0; y < clip.rows * TileSide; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        for (int x = 0; x < clip.columns * TileSide; ++x) {
            const auto row = static_cast<std::size_t>(y / TileSide);
            const auto column = static_cast<std::size_t>(x / TileSide);
            tiles.setPixel(row * static_cast<std::size_t>(clip.columns) + column, x % TileSide,
                           y % TileSide, nearestValue(line[x], colors));
        }
    }
    clip.tiles.reserve(tiles.tileCount());
    for (std::size_t number = 0; number < tiles.tileCount(); ++number) {
        clip.tiles.push_back(tiles.tile(number));
    }
    return clip;
}

PastedTiles noTiles() {
    return {std::nullopt, QCoreApplication::translate(
                              "TileClipboard", "The clipboard holds neither tiles nor an image.")};
}

} // namespace

std::unique_ptr<QMimeData> clipboardContent(const TileClip& clip,
                                            const TileRenderer::Colors& colors) {
    auto content = std::make_unique<QMimeData>();
    content->setData(QString::fromLatin1(TilesFormat), QByteArray::fromStdString(clip.toBytes()));
    content->setImageData(imageOf(clip, colors));
    return content;
}

bool mayHoldTiles(const QMimeData* content) {
    return content != nullptr &&
           (content->hasFormat(QString::fromLatin1(TilesFormat)) || content->hasImage());
}

PastedTiles tilesOf(const QMimeData* content, const TileRenderer::Colors& colors) {
    if (content == nullptr) {
        return noTiles();
    }
    const QByteArray data = content->data(QString::fromLatin1(TilesFormat));
    if (std::optional<TileClip> clip = TileClip::fromBytes(data.toStdString())) {
        return {std::move(clip), {}};
    }
    const auto image = content->hasImage() ? content->imageData().value<QImage>() : QImage();
    if (image.isNull()) {
        return noTiles();
    }
    if (image.width() % TileSide != 0 || image.height() % TileSide != 0) {
        return {std::nullopt,
                QCoreApplication::translate(
                    "TileClipboard",
                    "The image is %1 x %2 pixels. Only an image whose width and height are "
                    "multiples of 8 can be pasted as tiles.")
                    .arg(image.width())
                    .arg(image.height())};
    }
    return {tilesIn(image, colors), {}};
}

QImage imageOf(const TileClip& clip, const TileRenderer::Colors& colors) {
    QImage image(clip.columns * TileSide, clip.rows * TileSide, QImage::Format_RGB32);
    if (image.isNull()) {
        return image;
    }
    const TileRenderer renderer(colors);
    auto tiles = clip.tiles.begin();
    for (int row = 0; row < clip.rows; ++row, tiles += clip.columns) {
        for (int y = 0; y < TileSide; ++y) {
            auto* line = reinterpret_cast<std::uint32_t*>(image.scanLine(row * TileSide + y));
            for (int column = 0; column < clip.columns; ++column, line += TileSide) {
                renderer.drawRow(tiles[column], y, line);
            }
        }
    }
    return image;
}

} // namespace kestrel
