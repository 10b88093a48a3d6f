// SPDX-License-Identifier: MIT
#pragma once

#include "chrcanvas/views/BoxGrid.h"
#include "chrcanvas/views/BoxSelectorProtocol.h"

#include <QAccessible>
#include <QWidget>

#include <optional>
#include <vector>

class QPainter;

namespace kestrel {

class BoxPainter;

/// The base of all selectors: boxes in a grid, a mark on the picked one, mouse and keyboard.
///
/// Arrow keys, Home and End move the keyboard's frame, Space or Return chooses the box in it.
class BoxSelectorView : public QWidget, public BoxSelectorProtocol {
    Q_OBJECT

public:
    /// How many boxes a row of the grid holds.
    int boxesPerRow() const { return m_boxesPerRow; }

    /// The box that is marked when palettes are set; 0 at first. One that the first palette does
    /// not have counts as 0.
    int startingBox() const { return m_startingBox; }
    void setStartingBox(int box);

    BoxSelectorDelegate* delegate() const override { return m_delegate; }
    void setDelegate(BoxSelectorDelegate* delegate) override;
    const Palettes& palettes() const override { return m_palettes; }
    void setPalettes(Palettes palettes) override;
    bool setPalette(int number, std::shared_ptr<PaletteProtocol> palette) override;
    void redraw() override;
    bool selectPaletteNumber(int paletteNumber) override;
    bool selectBoxNumber(int boxNumber) override;
    using QWidget::update;
    bool update(int paletteNumber, std::shared_ptr<PaletteProtocol> withPalette) override;
    std::shared_ptr<PaletteProtocol> paletteSelected() const override;
    int selectedPaletteNumber() const override { return m_picked.number; }
    int selectedBox() const override { return m_picked.box; }
    BoxSelectorView* owner() override { return this; }

    /// The layout of the boxes, in the view's coordinates.
    const BoxGrid& grid() const { return m_grid; }
    /// Where a box is, in the view's coordinates; empty for one that is not there.
    QRect boxRect(PaletteBox box) const;
    /// The box that the keyboard is at.
    PaletteBox cursorBox() const { return m_cursor; }
    /// A box in words: its place, its index and what else is to be known of its colour, as
    /// "Colour 2 of 4, index $16". Empty for one that is not there.
    QString boxDescription(PaletteBox box) const;

    /// Does what a click on the box does; nothing for one that is not there.
    void choose(PaletteBox box);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    BoxSelectorView(int boxesPerRow, int largestBox, QWidget* parent);

    /// The mark's new place when the user chooses `box`.
    virtual PaletteBox markFor(PaletteBox box) const { return box; }
    /// The text before a palette's boxes; none at first.
    virtual QString paletteLabel(int paletteNumber) const;
    /// The text on a box.
    virtual QString boxText(PaletteBox box, const ColorEntry& entry) const;
    /// Whether the text on a box is crossed out: colours that are to be avoided are.
    virtual bool isCrossedOut(const ColorEntry& entry) const;
    /// A box's place and index in words: "Colour 2 of 4, index $16".
    virtual QString placeAndIndex(PaletteBox box, const QString& index) const;

    /// Sends an event to assistive technology, if any is active.
    virtual void report(QAccessibleEvent& event);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

Q_SIGNALS:
    /// The pointer, or the keyboard, came to a box with this boxDescription(), or left the boxes
    /// (empty).
    void pointedAt(const QString& description);

private:
    /// The room before a palette's label, for the arrow of the picked one.
    static constexpr int LabelStart = 16;

    BoxGrid gridFor(int width) const;
    ColorEntry shownEntry(PaletteBox box) const;
    void layOut();
    int labelWidth() const;
    /// Copies what the palettes hold now to m_shown and repaints the boxes that differ.
    void refresh();
    bool holds(PaletteBox box) const;
    void movePicked(PaletteBox box);
    void moveCursor(PaletteBox box);
    void setHovered(std::optional<PaletteBox> box);
    std::optional<PaletteBox> cursorAfter(int key) const;
    /// Tells assistive technology what happened to a box, or to the picked one's description.
    void tellAssistants(QAccessible::Event type, PaletteBox box);
    void tellValue();
    void paintBoxes(BoxPainter& boxes, const QRegion& region);
    void paintLabel(QPainter& painter, int paletteNumber);
    void repaintBox(PaletteBox box);
    void repaintPalette(int paletteNumber);

    int m_boxesPerRow;
    int m_largestBox;
    int m_startingBox = 0;
    BoxSelectorDelegate* m_delegate = nullptr;
    Palettes m_palettes;
    /// What is drawn; differs from what the palettes hold until the next redraw().
    std::vector<std::vector<ColorEntry>> m_shown;
    BoxGrid m_grid;
    PaletteBox m_picked;
    PaletteBox m_cursor;
    std::optional<PaletteBox> m_hovered;
};

} // namespace kestrel
