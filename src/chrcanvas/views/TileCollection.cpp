// SPDX-License-Identifier: MIT
#include "chrcanvas/views/TileCollection.h"

#include "chrcanvas/data/PaletteColors.h"
#include "chrcanvas/views/RectOf.h"
#include "widgets/ScreenPixels.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestrel {

namespace {

constexpr TileRenderer::Colors Greys = {0xFFFFFFFF, 0xFFB8B8B8, 0xFF626262, 0xFF000000};
constexpr int PreferredZoom = 3;
constexpr int PreferredRows = 20;
constexpr int SmallestRows = 8;
/// Grey enough to be seen on each of the colours, faint enough to leave them what they are.
constexpr QColor GridColor(0x80, 0x80, 0x80, 0x48);

} // namespace

TileCollection::TileCollection(QWidget* parent)
    : QAbstractScrollArea(parent)
    , m_document(std::make_shared<TileDocument>())
    , m_painter(Greys) {
    install();
    m_document->addObserver(*this);
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

TileCollection::~TileCollection() {
    m_document->removeObserver(*this);
}

void TileCollection::setDocument(std::shared_ptr<TileDocument> document) {
    m_document->removeObserver(*this);
    m_document = std::move(document);
    m_document->addObserver(*this);
}

void TileCollection::setDelegate(TileCollectionDelegate* delegate) {
    m_delegate = delegate;
}

void TileCollection::setTileData(std::shared_ptr<TileData> tiles) {
    m_document->setTileData(std::move(tiles));
}

void TileCollection::setPalette(const PaletteProtocol& palette) {
    m_painter.setColors(paletteColors(palette));
    viewport()->update();
}

void TileCollection::setGridShown(bool shown) {
    m_grid = shown;
    viewport()->update();
}

int TileCollection::tileCount() const {
    return static_cast<int>(m_document->tileCount());
}

int TileCollection::rowCount() const {
    return (tileCount() + TilesPerRow - 1) / TilesPerRow;
}

void TileCollection::reloadTiles() {
    layOut();
    viewport()->update();
    if (const std::optional<int> waiting = std::exchange(m_waiting, std::nullopt);
        waiting && *waiting < tileCount()) {
        selectTile(*waiting);
    }
    setHovered(TileSelection::None);
    tellValueChanged(*this);
    Q_EMIT tilesSelected(); // of other tiles, if not of other numbers
}

void TileCollection::updateTiles(const std::vector<int>& tileNumbers) {
    repaintTiles(tileNumbers);
}

void TileCollection::repaintTiles(const std::vector<int>& tileNumbers) {
    for (const int number : tileNumbers) {
        if (number >= 0 && number < tileCount()) {
            repaintCells(QRect(number % TilesPerRow, number / TilesPerRow, 1, 1));
        }
    }
}

void TileCollection::selectTile(int number) {
    if (number < 0) {
        return;
    }
    if (number >= tileCount()) {
        m_waiting = number;
        return;
    }
    m_waiting.reset();
    m_document->selectBlock(number, number);
}

void TileCollection::selectAll() {
    const int place = verticalScrollBar()->value();
    m_document->selectAll();
    verticalScrollBar()->setValue(place);
}

void TileCollection::tilesChanged(const std::vector<int>& tileNumbers,
                                  const std::optional<GridRect>& /*area*/) {
    repaintTiles(tileNumbers);
}

void TileCollection::selectionChanged(const TileSelection& former) {
    const TileSelection& selection = m_document->selection();
    if (!(selection == former)) {
        repaintCells(rectOf(former.cells()));
        repaintCells(rectOf(selection.cells()));
    }
    if (!selection.isEmpty()) {
        scrollToTile(selection.current());
    }
    tellValueChanged(*this);
    Q_EMIT tilesSelected();
    if (m_delegate != nullptr) {
        m_delegate->selected(m_document->selectedRows());
    }
}

QString TileCollection::accessibleValue() const {
    const auto rows = m_document->selectedRows();
    if (rows.empty()) {
        return tr("No tile of %1").arg(tileCount());
    }
    const QString first = tr("Tile %1 of %2").arg(rows.front().front()).arg(tileCount());
    const std::size_t columns = rows.front().size();
    return rows.size() * columns == 1
               ? first
               : tr("%1, %2 columns and %3 rows").arg(first).arg(columns).arg(rows.size());
}

QSize TileCollection::sizeFor(int zoom, int rows) const {
    const int around = 2 * frameWidth();
    return {TilesPerRow * TileSide * zoom + verticalScrollBar()->sizeHint().width() + around,
            rows * TileSide * zoom + around};
}

QSize TileCollection::sizeHint() const {
    return sizeFor(PreferredZoom, PreferredRows);
}

QSize TileCollection::minimumSizeHint() const {
    return sizeFor(1, SmallestRows);
}

QRect TileCollection::cellsOnScreen(const QRect& cells) const {
    return {cells.left() * tileSize(), cells.top() * tileSize() - verticalScrollBar()->value(),
            cells.width() * tileSize(), cells.height() * tileSize()};
}

QRect TileCollection::tileRect(int number) const {
    const QRect cell(number % TilesPerRow, number / TilesPerRow, 1, 1);
    return widgetRect(*viewport(), cellsOnScreen(cell));
}

std::optional<int> TileCollection::tileAt(const QPointF& position) const {
    const QPoint pixel = screenPosition(*viewport(), position);
    const int column = pixel.x() / tileSize();
    const int row = (pixel.y() + verticalScrollBar()->value()) / tileSize();
    const int number = row * TilesPerRow + column;
    const bool inside = pixel.x() >= 0 && pixel.y() >= 0 && column < TilesPerRow &&
                        row < rowCount() && number < tileCount();
    return inside ? std::optional(number) : std::nullopt;
}

int TileCollection::cellNearest(const QPointF& position) const {
    const QPoint pixel = screenPosition(*viewport(), position);
    const int column = std::clamp(pixel.x() / tileSize(), 0, TilesPerRow - 1);
    const int y = std::max(0, pixel.y() + verticalScrollBar()->value());
    return std::min(y / tileSize(), rowCount() - 1) * TilesPerRow + column;
}

void TileCollection::layOut() {
    const QSize visible = screenSize(*viewport(), viewport()->size());
    const int row = verticalScrollBar()->value() / std::max(1, tileSize());
    const int zoom = std::max(1, visible.width() / (TilesPerRow * TileSide));
    const bool zoomed = zoom != m_zoom;
    m_zoom = zoom;
    verticalScrollBar()->setPageStep(visible.height());
    verticalScrollBar()->setSingleStep(tileSize());
    verticalScrollBar()->setRange(0, std::max(0, rowCount() * tileSize() - visible.height()));
    if (zoomed) {
        verticalScrollBar()->setValue(row * tileSize());
        viewport()->update();
    }
}

void TileCollection::scrollToTile(int number) {
    const int top = number / TilesPerRow * tileSize();
    const int height = verticalScrollBar()->pageStep();
    const int value = verticalScrollBar()->value();
    if (top < value) {
        verticalScrollBar()->setValue(top);
    } else if (top + tileSize() > value + height) {
        verticalScrollBar()->setValue(top + tileSize() - height);
    }
}

void TileCollection::repaintCells(const QRect& cells) {
    if (!cells.isEmpty()) {
        const QRect changed = widgetRect(*viewport(), cellsOnScreen(cells));
        if (changed.intersects(viewport()->rect())) {
            viewport()->update(changed);
        }
    }
}

bool TileCollection::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        setHovered(TileSelection::None);
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void TileCollection::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    countInScreenPixels(painter);
    for (const QRect& rect : event->region()) {
        drawTiles(painter, screenRect(*viewport(), rect));
    }
    drawMark(painter);
}

void TileCollection::drawTiles(QPainter& painter, const QRect& screen) {
    TileArea area;
    area.origin = QPoint(0, -verticalScrollBar()->value());
    area.columns = TilesPerRow;
    area.rows = rowCount();
    area.zoom = m_zoom;
    area.tileAt = [this](int column, int row) -> const TileBytes* {
        const int number = row * TilesPerRow + column;
        return number < tileCount() ? &tileData()->tile(static_cast<std::size_t>(number)) : nullptr;
    };
    area.lineWidth = m_grid && m_zoom > 1 ? thinLine(*viewport()) : 0;
    area.lineColor = GridColor;
    m_painter.draw(painter, area, screen, viewport()->palette().color(QPalette::Button));
}

void TileCollection::drawMark(QPainter& painter) const {
    const int width = thinLine(*viewport());
    const QColor color = viewport()->palette().color(
        QPalette::Active, hasFocus() ? QPalette::Highlight : QPalette::Text);
    if (m_hovered >= 0) {
        drawOutline(painter,
                    cellsOnScreen({m_hovered % TilesPerRow, m_hovered / TilesPerRow, 1, 1}), width,
                    color);
    }
    const QRect marked =
        rectOf(m_document->selection().cells()) & QRect(0, 0, TilesPerRow, rowCount());
    if (!marked.isEmpty()) {
        const QRect rect = cellsOnScreen(marked);
        drawOutline(painter, rect, 2 * width, color);
        drawOutline(painter, rect.adjusted(2 * width, 2 * width, -2 * width, -2 * width), width,
                    Qt::white);
    }
}

void TileCollection::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
}

void TileCollection::scrollContentsBy(int /*dx*/, int dy) {
    const double scale = viewport()->devicePixelRatioF();
    const auto whole = static_cast<int>(scale);
    if (whole == scale && dy % whole == 0) {
        viewport()->scroll(0, dy / whole);
    } else {
        viewport()->update();
    }
    if (m_hovered != TileSelection::None) {
        const QPointF pointer = viewport()->mapFromGlobal(QCursor::pos());
        setHovered(tileAt(pointer).value_or(TileSelection::None));
    }
}

/// A second press soon after the first is a press like any other.
void TileCollection::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void TileCollection::hideEvent(QHideEvent* event) {
    m_dragging = false; // the release may never come
    setHovered(TileSelection::None);
    QAbstractScrollArea::hideEvent(event);
}

void TileCollection::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const std::optional<int> tile = tileAt(event->position());
    TileSelection selection = m_document->selection();
    if (!tile) {
        selection.clear();
    } else if (event->modifiers().testFlag(Qt::ShiftModifier) && !selection.isEmpty()) {
        selection.extendTo(*tile);
    } else {
        selection.set(*tile);
    }
    m_dragging = tile.has_value();
    m_document->select(selection);
}

void TileCollection::mouseMoveEvent(QMouseEvent* event) {
    setHovered(tileAt(event->position()).value_or(TileSelection::None));
    if (!m_dragging || tileCount() == 0) {
        return;
    }
    TileSelection selection = m_document->selection();
    selection.extendTo(cellNearest(event->position()));
    if (!(selection == m_document->selection())) {
        m_document->select(selection);
    }
}

void TileCollection::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_dragging = false;
    }
}

int TileCollection::cellAfterKey(int key, bool extend) const {
    const int last = tileCount() - 1;
    const int cell = std::clamp(m_document->selection().current(), 0, rowCount() * TilesPerRow - 1);
    const int column = cell % TilesPerRow;
    const int rowsOnPage = std::max(1, verticalScrollBar()->pageStep() / tileSize() - 1);
    const auto rowsAway = [&](int rows) {
        const int row = std::clamp(cell / TilesPerRow + rows, 0, rowCount() - 1);
        return row * TilesPerRow + column;
    };
    switch (key) {
    case Qt::Key_Left:
        return extend && column == 0 ? cell : std::max(0, cell - 1);
    case Qt::Key_Right:
        return extend && column == TilesPerRow - 1 ? cell : cell + 1;
    case Qt::Key_Up:
        return rowsAway(-1);
    case Qt::Key_Down:
        return rowsAway(1);
    case Qt::Key_PageUp:
        return rowsAway(-rowsOnPage);
    case Qt::Key_PageDown:
        return rowsAway(rowsOnPage);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return TileSelection::None;
    }
}

void TileCollection::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool extend = modifiers == Qt::ShiftModifier;
    int cell = TileSelection::None;
    if (tileCount() > 0 && (extend || modifiers == Qt::NoModifier)) {
        cell = cellAfterKey(event->key(), extend);
    }
    if (cell < 0) {
        event->ignore();
        return;
    }
    TileSelection selection = m_document->selection();
    if (selection.isEmpty()) {
        selection.set(0);
    } else if (extend) {
        selection.extendTo(std::min(cell, rowCount() * TilesPerRow - 1));
    } else {
        selection.set(std::min(cell, tileCount() - 1));
    }
    if (!(selection == m_document->selection())) {
        m_document->select(selection);
    }
}

void TileCollection::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    repaintCells(rectOf(m_document->selection().cells()));
    Q_EMIT focusChanged();
}

void TileCollection::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    repaintCells(rectOf(m_document->selection().cells()));
    Q_EMIT focusChanged();
}

void TileCollection::setHovered(int number) {
    if (number == m_hovered) {
        return;
    }
    for (const int tile : {std::exchange(m_hovered, number), number}) {
        if (tile >= 0) {
            repaintCells(QRect(tile % TilesPerRow, tile / TilesPerRow, 1, 1));
        }
    }
    Q_EMIT tileHovered(number);
}

} // namespace kestrel
