// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"
#include "chrcanvas/data/TileDocument.h"
#include "chrcanvas/views/TileCollectionDelegate.h"
#include "chrcanvas/views/TilePainter.h"
#include "chrcanvas/views/ViewAccessibility.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// Shows all tiles of a file, 16 a row, and lets the user select one of them or a rectangle.
///
/// Tile numbers count from 0. Only what is visible is ever drawn, so the time does not grow with
/// the number of tiles.
class TileCollection : public QAbstractScrollArea,
                       public ViewAccessibility,
                       public TileDocumentObserver {
    Q_OBJECT

public:
    explicit TileCollection(QWidget* parent = nullptr);
    ~TileCollection() override;

    /// The document whose tiles are shown and selected: one of its own at first. Another one is
    /// drawn by reloadTiles().
    TileDocument& document() const { return *m_document; }
    void setDocument(std::shared_ptr<TileDocument> document);

    /// The receiver of selections; not owned. One that is destroyed first sets null before.
    TileCollectionDelegate* delegate() const { return m_delegate; }
    virtual void setDelegate(TileCollectionDelegate* delegate);

    /// The tiles shown, shared with whoever gave them; null for none. Drawn by reloadTiles().
    const std::shared_ptr<TileData>& tileData() const { return m_document->tileData(); }
    virtual void setTileData(std::shared_ptr<TileData> tiles);

    /// The colours of the pixels' values 0 to 3.
    using QAbstractScrollArea::setPalette;
    void setPalette(const PaletteProtocol& palette);

    /// Shows faint lines between the tiles, or hides them.
    void setGridShown(bool shown);

    /// Draws all tiles again, and selects the tile that waits since selectTile() if it is there.
    virtual void reloadTiles();

    /// Draws these tiles again.
    virtual void updateTiles(const std::vector<int>& tileNumbers);

    /// Selects one tile as if it had been clicked, the delegate is told. A number that no tile has
    /// waits, unreported, for the next reloadTiles(); what is selected stays till then.
    virtual void selectTile(int number);
    /// Drops a number that waits: the tiles that it was meant for do not come.
    void forgetWaitingTile() { m_waiting.reset(); }

    /// Selects all tiles without scrolling; the delegate is told.
    void selectAll();

    /// Where a tile is drawn in the viewport, and which one is drawn at a position.
    QRect tileRect(int number) const;
    std::optional<int> tileAt(const QPointF& position) const;

    /// The width of a tile's pixel in device pixels.
    int zoom() const { return m_zoom; }

    /// The tile under the pointer; -1 for none.
    int hoveredTile() const { return m_hovered; }

    void scrollToTile(int number);

    void tilesChanged(const std::vector<int>& tileNumbers,
                      const std::optional<GridRect>& area) override;
    void selectionChanged(const TileSelection& former) override;

    QAccessible::Role accessibleRole() const override { return QAccessible::Canvas; }
    QString accessibleValue() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The pointer is over another tile; -1 when it is over none.
    void tileHovered(int number);
    void tilesSelected();
    void focusChanged();

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int tileCount() const;
    int rowCount() const;
    int tileSize() const { return m_zoom * TileSide; }
    QRect cellsOnScreen(const QRect& cells) const;
    int cellNearest(const QPointF& position) const;
    void layOut();
    int cellAfterKey(int key, bool extend) const;
    void setHovered(int number);
    void repaintCells(const QRect& cells);
    void repaintTiles(const std::vector<int>& tileNumbers);
    void drawTiles(QPainter& painter, const QRect& screen);
    void drawMark(QPainter& painter) const;
    QSize sizeFor(int zoom, int rows) const;

    TileCollectionDelegate* m_delegate = nullptr;
    std::shared_ptr<TileDocument> m_document;
    TilePainter m_painter;
    std::optional<int> m_waiting;
    int m_hovered = TileSelection::None;
    int m_zoom = 1;
    bool m_dragging = false;
    bool m_grid = true;
};

} // namespace kestrel
