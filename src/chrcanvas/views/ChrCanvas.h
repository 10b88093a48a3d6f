// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/data/PaletteProtocol.h"
#include "chrcanvas/data/TileDocument.h"
#include "chrcanvas/views/ChrCanvasProtocol.h"
#include "chrcanvas/views/TilePainter.h"
#include "chrcanvas/views/ViewAccessibility.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// What the left button and the space bar do in the pixel editor.
enum class DrawingTool { pencil, fill };

/// Shows the selected tiles enlarged, in the shape of the selection, and lets the user paint.
///
/// Pixels are counted over the whole shape, from its top left corner.
class ChrCanvas : public QAbstractScrollArea,
                  public ViewAccessibility,
                  public TileDocumentObserver {
    Q_OBJECT

public:
    explicit ChrCanvas(QWidget* parent = nullptr);
    ~ChrCanvas() override;

    /// The document whose selected tiles are shown and edited: one of its own at first. Another
    /// one is drawn by redraw().
    TileDocument& document() const { return *m_document; }
    void setDocument(std::shared_ptr<TileDocument> document);

    /// The receiver of edits; not owned. One that is destroyed first sets null before.
    ChrCanvasProtocol* delegate() const { return m_delegate; }
    virtual void setDelegate(ChrCanvasProtocol* delegate);

    /// The colours of the pixels' values 0 to 3; null keeps the present ones. Drawn by redraw().
    using QAbstractScrollArea::setPalette;
    virtual void setPalette(std::shared_ptr<PaletteProtocol> palette);

    /// The tiles to edit in place, shared with whoever shows them; null for none. What could be
    /// undone or redone is forgotten. Drawn by redraw().
    const std::shared_ptr<TileData>& tileData() const { return m_document->tileData(); }
    virtual void setTileData(std::shared_ptr<TileData> tiles);

    /// The numbers of the tiles shown; those that no tile has are passed over. Drawn by redraw().
    const std::vector<int>& selectedTiles() const { return m_document->selectedTiles(); }
    virtual void setSelectedTiles(std::vector<int> tileNumbers);

    /// The value, 0 to 3, that the next stroke paints; setting any other does nothing.
    int currentColorBox() const { return m_colorBox; }
    virtual void setCurrentColorBox(int colorBox);

    /// Draws again from tiles, selection and palette.
    virtual void redraw();

    DrawingTool tool() const { return m_tool; }
    void setTool(DrawingTool tool);
    void setPixelGridShown(bool shown);
    void setTileGridShown(bool shown);

    /// The width of a pixel in device pixels.
    int zoom() const { return m_zoom; }
    /// Enlarges or reduces by one step.
    void zoomIn();
    void zoomOut();
    /// Enlarges as much as shows all selected tiles; kept up until the next zoomIn() or zoomOut().
    void zoomToFit();

    /// Where a pixel is drawn in the viewport, and which one is drawn at a position. Positions
    /// beside the tiles give pixels outside the shape.
    QRect pixelRect(const QPoint& pixel) const;
    QPoint pixelAt(const QPointF& position) const;

    /// The pixel of the keyboard's cursor, which the pointer moves, too.
    const QPoint& cursorPixel() const { return m_cursor; }
    /// Whether the cursor is drawn: the pointer is over the view, or it has the focus.
    bool isCursorShown() const { return m_pointerInside || hasFocus(); }

    void tilesChanged(const std::vector<int>& tileNumbers,
                      const std::optional<GridRect>& area) override;
    /// Other tiles are drawn by redraw() only.
    void selectionChanged(const TileSelection& /*former*/) override {}

    QAccessible::Role accessibleRole() const override { return QAccessible::Canvas; }
    QString accessibleValue() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user chose a colour here, by key or from a pixel; currentColorBox is it already.
    void colorPicked(int colorBox);
    /// The pixel under pointer or keyboard is another one, or is no longer under either.
    void cursorMoved();
    /// Which tiles are shown, or whether they can be transformed, changed.
    void shapeChanged();

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QSize pictureSize() const;
    QPoint origin() const;
    QRect pixelsOnScreen(const QRect& pixels) const;
    int frameMargin() const;
    int fittingZoom() const;
    void setZoom(int zoom);
    void layOut();
    void useTool(const QPoint& pixel);
    void pickColor(const QPoint& pixel);
    void moveCursor(const QPoint& pixel);
    bool moveCursorByKey(int key, bool painting);
    void setPointerInside(bool inside);
    void scrollToCursor();
    void repaintPixels(const QRect& pixels);
    void drawTiles(QPainter& painter, const QRect& screen);
    void drawGrids(QPainter& painter, const QRect& screen) const;
    void drawCursor(QPainter& painter) const;

    ChrCanvasProtocol* m_delegate = nullptr;
    std::shared_ptr<PaletteProtocol> m_palette;
    std::shared_ptr<TileDocument> m_document;
    TilePainter m_painter;
    QPoint m_cursor;
    int m_colorBox = 0;
    int m_zoom = 1;
    bool m_fits = true;
    bool m_pointerInside = false;
    bool m_picking = false;
    bool m_pixelGrid = true;
    bool m_tileGrid = true;
    DrawingTool m_tool = DrawingTool::pencil;
};

} // namespace kestrel
