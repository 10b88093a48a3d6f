// SPDX-License-Identifier: MIT
#include "chrcanvas/views/ChrCanvas.h"

#include "chrcanvas/data/PaletteColors.h"
#include "chrcanvas/views/RectOf.h"
#include "widgets/ScreenPixels.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

constexpr TileRenderer::Colors Greys = {0xFFFFFFFF, 0xFFB8B8B8, 0xFF626262, 0xFF000000};
constexpr int SmallestFittingZoom = 4;
constexpr int LargestZoom = 64;
constexpr QSize PreferredSize(360, 360);
constexpr QSize SmallestSize(220, 120);

} // namespace

ChrCanvas::ChrCanvas(QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_document(std::make_shared<TileDocument>())
    , m_painter(Greys) {
    install();
    m_document->addObserver(*this);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::CrossCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

ChrCanvas::~ChrCanvas() {
    m_document->removeObserver(*this);
}

void ChrCanvas::setDocument(std::shared_ptr<TileDocument> document) {
    m_document->removeObserver(*this);
    m_document = std::move(document);
    m_document->addObserver(*this);
}

void ChrCanvas::setDelegate(ChrCanvasProtocol* delegate) {
    m_delegate = delegate;
}

void ChrCanvas::setPalette(std::shared_ptr<PaletteProtocol> palette) {
    if (palette) {
        m_palette = std::move(palette);
    }
}

void ChrCanvas::setTileData(std::shared_ptr<TileData> tiles) {
    m_document->setTileData(std::move(tiles));
}

void ChrCanvas::setSelectedTiles(std::vector<int> tileNumbers) {
    m_document->setSelectedTiles(std::move(tileNumbers));
}

void ChrCanvas::setCurrentColorBox(int colorBox) {
    if (colorBox >= 0 && colorBox < PixelValues) {
        m_colorBox = colorBox;
    }
}

void ChrCanvas::redraw() {
    if (m_palette) {
        m_painter.setColors(paletteColors(*m_palette));
    }
    const QSize size = pictureSize();
    m_cursor = QPoint(std::clamp(m_cursor.x(), 0, std::max(0, size.width() - 1)),
                      std::clamp(m_cursor.y(), 0, std::max(0, size.height() - 1)));
    layOut();
    viewport()->update();
    tellValueChanged(*this);
    Q_EMIT shapeChanged();
}

void ChrCanvas::setTool(DrawingTool tool) {
    m_tool = tool;
}

void ChrCanvas::setPixelGridShown(bool shown) {
    m_pixelGrid = shown;
    viewport()->update();
}

void ChrCanvas::setTileGridShown(bool shown) {
    m_tileGrid = shown;
    viewport()->update();
}

QString ChrCanvas::accessibleValue() const {
    const std::optional<int> value = m_document->valueAt(m_cursor.x(), m_cursor.y());
    if (!value) {
        return tr("No tile");
    }
    return tr("Tile %1, column %2, row %3, colour %4")
        .arg(m_document->tileAt(m_cursor.x(), m_cursor.y()))
        .arg(m_cursor.x() % TileSide)
        .arg(m_cursor.y() % TileSide)
        .arg(*value);
}

QSize ChrCanvas::sizeHint() const {
    return PreferredSize;
}

QSize ChrCanvas::minimumSizeHint() const {
    return SmallestSize;
}

QSize ChrCanvas::pictureSize() const {
    return QSize(m_document->shape().columns(), m_document->shape().rows()) * TileSide;
}

QPoint ChrCanvas::origin() const {
    const QSize visible = screenSize(*viewport(), viewport()->size());
    const QSize picture = pictureSize() * m_zoom;
    const int margin = frameMargin();
    const auto start = [margin](int space, int length, int scrolled) {
        return space >= length + 2 * margin ? (space - length) / 2 : margin - scrolled;
    };
    return {start(visible.width(), picture.width(), horizontalScrollBar()->value()),
            start(visible.height(), picture.height(), verticalScrollBar()->value())};
}

int ChrCanvas::frameMargin() const {
    return 2 * thinLine(*viewport());
}

QRect ChrCanvas::pixelsOnScreen(const QRect& pixels) const {
    return {origin() + pixels.topLeft() * m_zoom, pixels.size() * m_zoom};
}

QRect ChrCanvas::pixelRect(const QPoint& pixel) const {
    return widgetRect(*viewport(), pixelsOnScreen(QRect(pixel, QSize(1, 1))));
}

QPoint ChrCanvas::pixelAt(const QPointF& position) const {
    const QPoint inPicture = screenPosition(*viewport(), position) - origin();
    // Rounds down also beside the left and the upper edge, where a quotient rounds towards 0.
    const auto pixel = [this](int distance) {
        return distance < 0 ? -((-distance + m_zoom - 1) / m_zoom) : distance / m_zoom;
    };
    return {pixel(inPicture.x()), pixel(inPicture.y())};
}

int ChrCanvas::fittingZoom() const {
    const QSize visible = screenSize(*viewport(), maximumViewportSize());
    const QSize picture = pictureSize();
    if (picture.isEmpty()) {
        return SmallestFittingZoom;
    }
    const int space = 2 * frameMargin();
    return std::clamp(std::min((visible.width() - space) / picture.width(),
                               (visible.height() - space) / picture.height()),
                      SmallestFittingZoom, LargestZoom);
}

void ChrCanvas::layOut() {
    if (m_fits) {
        m_zoom = fittingZoom();
    }
    const QSize visible = screenSize(*viewport(), viewport()->size());
    const QSize picture = pictureSize() * m_zoom + QSize(2, 2) * frameMargin();
    const auto set = [this](QScrollBar* bar, int space, int length) {
        bar->setPageStep(space);
        bar->setSingleStep(m_zoom * TileSide / 2);
        bar->setRange(0, std::max(0, length - space));
    };
    set(horizontalScrollBar(), visible.width(), picture.width());
    set(verticalScrollBar(), visible.height(), picture.height());
}

void ChrCanvas::setZoom(int zoom) {
    m_fits = false;
    m_zoom = std::clamp(zoom, 1, LargestZoom);
    layOut();
    viewport()->update();
}

void ChrCanvas::zoomIn() {
    setZoom(m_zoom + std::max(1, m_zoom / 4));
}

void ChrCanvas::zoomOut() {
    setZoom(m_zoom - std::max(1, m_zoom / 5));
}

void ChrCanvas::zoomToFit() {
    m_fits = true;
    layOut();
    viewport()->update();
}

void ChrCanvas::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
    viewport()->update();
}

void ChrCanvas::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

void ChrCanvas::tilesChanged(const std::vector<int>& tileNumbers,
                             const std::optional<GridRect>& area) {
    if (area) {
        repaintPixels(rectOf(*area));
    } else {
        for (const int number : tileNumbers) {
            if (const auto cell = m_document->shape().cellOf(number)) {
                repaintPixels(
                    QRect(QPoint(cell->column, cell->row) * TileSide, QSize(TileSide, TileSide)));
            }
        }
    }
    tellValueChanged(*this);
    if (m_delegate != nullptr) {
        m_delegate->pixelDataChanged(tileNumbers);
    }
}

void ChrCanvas::repaintPixels(const QRect& pixels) {
    viewport()->update(widgetRect(*viewport(), pixelsOnScreen(pixels)));
}

} // namespace kestrel
