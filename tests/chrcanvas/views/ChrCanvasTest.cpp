// SPDX-License-Identifier: MIT
#include "chrcanvas/views/ChrCanvas.h"

#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/data/PaletteColors.h"
#include "chrcanvas/views/PaintRecorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QImage>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Delegate : public ChrCanvasProtocol {
public:
    void pixelDataChanged(const std::vector<int>& tileNumbers) override {
        told.push_back(tileNumbers);
    }

    std::vector<std::vector<int>> told;
};

class ChrCanvasTest : public testing::Test {
protected:
    ChrCanvasTest() {
        m_view.setDelegate(&m_delegate);
        m_view.setPalette(m_palette);
        m_view.setTileData(m_tiles);
        m_view.setSelectedTiles({5, 6, 21, 22});
        m_view.setCurrentColorBox(3);
        m_view.resize(400, 400);
        m_view.redraw();
        m_view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        QCoreApplication::processEvents();
    }

    QPoint at(int x, int y) { return m_view.pixelRect(QPoint(x, y)).center(); }

    void press(int x, int y, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(m_view.viewport(), button, modifiers, at(x, y));
    }
    void move(int x, int y) { QTest::mouseMove(m_view.viewport(), at(x, y)); }
    void release(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(m_view.viewport(), button, {}, at(x, y));
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&m_view, static_cast<Qt::Key>(key), modifiers);
    }

    /// The shown picture as text: a row of digits for each row of pixels.
    std::vector<std::string> picture() {
        std::vector<std::string> rows;
        const TileShape& shape = m_view.document().shape();
        for (int y = 0; y < shape.rows() * 8; ++y) {
            std::string row;
            for (int x = 0; x < shape.columns() * 8; ++x) {
                const auto value = m_view.document().valueAt(x, y);
                row += value ? static_cast<char>('0' + *value) : ' ';
            }
            rows.push_back(row);
        }
        return rows;
    }

    /// The colour in the middle of a pixel as it is on the screen.
    QRgb shownColor(const QImage& screen, int x, int y) {
        const QRect rect = m_view.pixelRect(QPoint(x, y));
        const QPointF middle = QRectF(rect).center() * screen.devicePixelRatio();
        return screen.pixel(middle.toPoint());
    }

    Delegate m_delegate;
    std::shared_ptr<TileData> m_tiles = std::make_shared<TileData>(std::size_t{512});
    std::shared_ptr<NESPalette> m_palette = NESPalette::fromData("\x11\x22\x16\x2A");
    ChrCanvas m_view;
};

TEST_F(ChrCanvasTest, TheLeftButtonPaintsAPixelAndTellsItsTile) {
    press(3, 4);
    release(3, 4);
    press(9, 12);
    release(9, 12);
    EXPECT_THAT(m_delegate.told, ElementsAre(ElementsAre(5), ElementsAre(22)));
    EXPECT_EQ(m_tiles->pixel(5, 3, 4), 3);
    EXPECT_EQ(m_tiles->pixel(22, 1, 4), 3);
}

TEST_F(ChrCanvasTest, ADragPaintsALineWithoutGapsAndIsOneStep) {
    m_view.setSelectedTiles({5});
    m_view.redraw();
    press(0, 0);
    move(3, 6);
    move(7, 6);
    release(7, 6);
    const std::vector<std::string> drawn = {"30000000", "30000000", "03000000", "03000000",
                                            "00300000", "00300000", "00033333", "00000000"};
    EXPECT_EQ(picture(), drawn);
    int painted = 0;
    for (const std::string& row : picture()) {
        painted += static_cast<int>(std::count(row.begin(), row.end(), '3'));
    }
    EXPECT_EQ(painted, 11);
    m_view.document().undo();
    EXPECT_EQ(m_tiles->tile(5), TileBytes{});
    EXPECT_FALSE(m_view.document().canUndo());
    m_view.document().redo();
    EXPECT_EQ(m_tiles->pixel(5, 7, 6), 3);
}

TEST_F(ChrCanvasTest, ASecondPressSoonAfterTheFirstPaintsToo) {
    QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, at(1, 1));
    m_view.document().undo();
    // What arrives of a second press elsewhere, as long as it is near enough.
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(at(2, 1)),
                       QPointF(m_view.viewport()->mapToGlobal(at(2, 1))), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_view.viewport(), &second);
    move(4, 1);
    release(4, 1);
    EXPECT_EQ(m_tiles->pixel(5, 2, 1), 3);
    EXPECT_EQ(m_tiles->pixel(5, 4, 1), 3);
}

TEST_F(ChrCanvasTest, AnArrowKeyDuringAStrokeLeavesItWhereItIs) {
    press(1, 1);
    key(Qt::Key_Down);
    move(4, 1);
    release(4, 1);
    EXPECT_EQ(m_tiles->pixel(5, 1, 2), 0);
    EXPECT_EQ(m_tiles->pixel(5, 4, 1), 3);
}

TEST_F(ChrCanvasTest, APixelThatHasTheColourAlreadyIsNotTold) {
    press(1, 1);
    move(2, 1);
    move(1, 1);
    release(1, 1);
    press(2, 1);
    release(2, 1);
    EXPECT_EQ(m_delegate.told.size(), 2U);
}

TEST_F(ChrCanvasTest, TheRightButtonAndCtrlClickPickTheColourUnderThePointer) {
    QSignalSpy picked(&m_view, &ChrCanvas::colorPicked);
    m_tiles->setPixel(5, 2, 2, 1);
    m_tiles->setPixel(5, 4, 4, 2);
    press(2, 2, Qt::RightButton);
    EXPECT_EQ(m_view.currentColorBox(), 1);
    move(4, 4);
    EXPECT_EQ(m_view.currentColorBox(), 2);
    release(4, 4, Qt::RightButton);
    press(2, 2, Qt::LeftButton, Qt::ControlModifier);
    release(2, 2);
    EXPECT_EQ(m_view.currentColorBox(), 1);
    ASSERT_EQ(picked.size(), 3);
    EXPECT_EQ(picked[2][0].toInt(), 1);
    EXPECT_THAT(m_delegate.told, IsEmpty());
    move(7, 7);
    EXPECT_THAT(m_delegate.told, IsEmpty());
}

TEST_F(ChrCanvasTest, DigitKeysChooseTheColour) {
    QSignalSpy picked(&m_view, &ChrCanvas::colorPicked);
    for (int value = 0; value < 4; ++value) {
        key(Qt::Key_0 + value);
        EXPECT_EQ(m_view.currentColorBox(), value);
        EXPECT_EQ(picked.last()[0].toInt(), value);
    }
    key(Qt::Key_4);
    EXPECT_EQ(m_view.currentColorBox(), 3);
    m_view.setCurrentColorBox(9);
    m_view.setCurrentColorBox(-1);
    EXPECT_EQ(m_view.currentColorBox(), 3);
}

TEST_F(ChrCanvasTest, AKeyboardCursorPaintsPicksAndDrawsLines) {
    m_view.setFocus();
    for (const Qt::Key step : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down}) {
        key(step);
    }
    EXPECT_EQ(m_view.cursorPixel(), QPoint(2, 1));
    key(Qt::Key_Space);
    EXPECT_EQ(m_tiles->pixel(5, 2, 1), 3);
    key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(m_tiles->pixel(5, 3, 1), 3);
    key(Qt::Key_0);
    key(Qt::Key_P);
    EXPECT_EQ(m_view.currentColorBox(), 3);
    key(Qt::Key_End);
    EXPECT_EQ(m_view.cursorPixel(), QPoint(15, 1));
    key(Qt::Key_Right);
    EXPECT_EQ(m_view.cursorPixel(), QPoint(15, 1));
    key(Qt::Key_Return);
    EXPECT_EQ(m_tiles->pixel(6, 7, 1), 3);
    key(Qt::Key_Home);
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(m_view.cursorPixel(), QPoint(0, 0));
    EXPECT_THAT(m_delegate.told, ElementsAre(ElementsAre(5), ElementsAre(5), ElementsAre(6)));
}

TEST_F(ChrCanvasTest, TheFillToolFillsAnAreaByMouseAndKeyboard) {
    m_view.setTool(DrawingTool::fill);
    press(0, 0);
    release(0, 0);
    EXPECT_THAT(m_delegate.told, ElementsAre(ElementsAre(5, 6, 21, 22)));
    m_view.setCurrentColorBox(1);
    key(Qt::Key_Space);
    EXPECT_EQ(m_tiles->pixel(22, 7, 7), 1);
    m_view.document().undo();
    m_view.document().undo();
    EXPECT_EQ(m_tiles->tile(22), TileBytes{});
    EXPECT_FALSE(m_view.document().canUndo());
}

TEST_F(ChrCanvasTest, ShowsTheSelectionsShapeInThePaletteColours) {
    m_view.setPixelGridShown(false);
    m_view.setTileGridShown(false);
    for (int i = 0; i < 8; ++i) {
        m_tiles->setPixel(5, i, i, 1);
        m_tiles->setPixel(6, 7 - i, i, 2);
        m_tiles->setPixel(21, i, 0, 3);
    }
    m_view.redraw();
    const QImage screen = m_view.viewport()->grab().toImage();
    const TileRenderer::Colors colors = paletteColors(*m_palette);
    const auto rows = picture();
    ASSERT_EQ(rows.size(), 16U);
    ASSERT_EQ(rows[0].size(), 16U);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const auto value = static_cast<std::size_t>(
                rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] - '0');
            ASSERT_EQ(shownColor(screen, x, y), colors[value]) << x << ", " << y;
        }
    }
}

TEST_F(ChrCanvasTest, PixelsAreWholePixelsOfTheScreen) {
    m_view.setPixelGridShown(false);
    m_view.setTileGridShown(false);
    for (int x = 0; x < 8; x += 2) {
        m_tiles->setPixel(5, x, 3, 3);
        m_tiles->setPixel(6, x, 3, 3);
    }
    m_view.redraw();
    m_view.clearFocus();
    const QImage screen = m_view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const TileRenderer::Colors colors = paletteColors(*m_palette);
    const int y = static_cast<int>(QRectF(m_view.pixelRect(QPoint(0, 3))).center().y() *
                                   screen.devicePixelRatio());
    int runs = 0;
    int length = 0;
    for (int x = 0; x < screen.width(); ++x) {
        const bool painted = screen.pixel(x, y) == colors[3];
        if (painted) {
            ++length;
        } else if (length > 0) {
            EXPECT_EQ(length, m_view.zoom());
            length = 0;
            ++runs;
        }
        EXPECT_TRUE(painted || screen.pixel(x, y) == colors[0] ||
                    screen.pixel(x, y) ==
                        m_view.viewport()->palette().color(QPalette::Button).rgb())
            << "a blend at " << x;
    }
    EXPECT_EQ(runs, 8);
}

TEST_F(ChrCanvasTest, GridsCanBeSwitchedOff) {
    const auto differing = [this] {
        const QImage screen = m_view.viewport()->grab().toImage();
        const QRgb ground = paletteColors(*m_palette)[0];
        const QRgb around = m_view.viewport()->palette().color(QPalette::Button).rgb();
        int count = 0;
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                count += screen.pixel(x, y) != ground && screen.pixel(x, y) != around ? 1 : 0;
            }
        }
        return count;
    };
    m_view.clearFocus();
    const int both = differing();
    m_view.setPixelGridShown(false);
    const int tiles = differing();
    m_view.setTileGridShown(false);
    const int none = differing();
    EXPECT_GT(both, tiles);
    EXPECT_GT(tiles, none);
    EXPECT_EQ(none, 0);
}

TEST_F(ChrCanvasTest, RepaintsNothingThatDidNotChange) {
    move(4, 4);
    PaintRecorder painted(*m_view.viewport());
    QCoreApplication::processEvents();
    painted.takePainted();
    press(4, 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), QRegion(m_view.pixelRect(QPoint(4, 4))));
    move(6, 4);
    release(6, 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted().boundingRect(),
              m_view.pixelRect(QPoint(4, 4)) | m_view.pixelRect(QPoint(6, 4)));
    move(6, 4);
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.takePainted().isEmpty());
    m_view.document().carryOut({{6, TileBytes{}, TileBytes{1}}, {300, TileBytes{}, TileBytes{1}}});
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted().boundingRect(),
              m_view.pixelRect(QPoint(8, 0)) | m_view.pixelRect(QPoint(15, 7)));
    EXPECT_EQ(m_delegate.told.back(), (std::vector<int>{6, 300}));
}

TEST_F(ChrCanvasTest, SkipsNumbersWithoutATileAndDrawsAShortLastRowAsSuch) {
    m_view.setTileData(std::make_shared<TileData>(std::size_t{18}));
    m_view.setSelectedTiles({1, 2, 17, 18, 600, -3});
    m_view.redraw();
    EXPECT_EQ(m_view.document().shape().tiles(), (std::vector<int>{1, 2, 17}));
    const QImage screen = m_view.viewport()->grab().toImage();
    EXPECT_EQ(shownColor(screen, 12, 12),
              m_view.viewport()->palette().color(QPalette::Button).rgb());
    press(12, 12);
    release(12, 12);
    EXPECT_THAT(m_delegate.told, IsEmpty());
}

TEST_F(ChrCanvasTest, WithoutTilesItTakesClicksAndKeysWithoutEffect) {
    m_view.setSelectedTiles({});
    m_view.redraw();
    press(0, 0);
    move(5, 5);
    release(5, 5);
    press(0, 0, Qt::RightButton);
    release(0, 0, Qt::RightButton);
    for (const Qt::Key each : {Qt::Key_Space, Qt::Key_Right, Qt::Key_End, Qt::Key_P}) {
        key(each);
    }
    EXPECT_THAT(m_delegate.told, IsEmpty());
    m_view.setTileData(nullptr);
    m_view.redraw();
    key(Qt::Key_Space);
    EXPECT_THAT(m_delegate.told, IsEmpty());
    m_view.viewport()->grab();
}

TEST_F(ChrCanvasTest, HidingEndsAStroke) {
    press(2, 2);
    EXPECT_TRUE(m_view.document().isDrawing());
    m_view.hide();
    EXPECT_FALSE(m_view.document().isDrawing());
    EXPECT_TRUE(m_view.document().canUndo());
}

TEST_F(ChrCanvasTest, OtherTilesInTheMiddleOfAStrokeEndIt) {
    press(2, 2);
    const auto others = std::make_shared<TileData>(std::size_t{64});
    m_view.setTileData(others);
    m_view.redraw();
    move(9, 9);
    release(9, 9);
    EXPECT_EQ(others->toData(), std::string(1024, '\0'));
    EXPECT_FALSE(m_view.document().canUndo());
}

TEST_F(ChrCanvasTest, ZoomsInWholeStepsAndBackToWhatFits) {
    const int fitting = m_view.zoom();
    const double scale = m_view.devicePixelRatioF();
    EXPECT_LE(16 * fitting, m_view.viewport()->width() * scale);
    m_view.zoomIn();
    EXPECT_GT(m_view.zoom(), fitting);
    EXPECT_GT(m_view.horizontalScrollBar()->maximum(), 0);
    for (int i = 0; i < 40; ++i) {
        m_view.zoomOut();
    }
    EXPECT_EQ(m_view.zoom(), 1);
    m_view.zoomToFit();
    EXPECT_EQ(m_view.zoom(), fitting);
    EXPECT_EQ(m_view.horizontalScrollBar()->maximum(), 0);
    for (int i = 0; i < 40; ++i) {
        m_view.zoomIn();
    }
    EXPECT_EQ(m_view.zoom(), 64);
}

TEST_F(ChrCanvasTest, CtrlAndTheWheelZoomAroundThePointer) {
    m_view.zoomIn();
    const QPointF pointer(200, 200);
    const QPoint before = m_view.pixelAt(pointer);
    const int zoom = m_view.zoom();
    QWheelEvent wheel(pointer, m_view.viewport()->mapToGlobal(pointer), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_view.viewport(), &wheel);
    EXPECT_GT(m_view.zoom(), zoom);
    EXPECT_LE((m_view.pixelAt(pointer) - before).manhattanLength(), 1);
}

TEST_F(ChrCanvasTest, PositionsBesideTheTilesAreNoPixelsOfThem) {
    const QRect first = m_view.pixelRect(QPoint(0, 0));
    const QPoint outside = m_view.pixelAt(QPointF(first.topLeft()) - QPointF(3, 3));
    EXPECT_EQ(outside, QPoint(-1, -1));
    EXPECT_EQ(m_view.pixelAt(QRectF(m_view.pixelRect(QPoint(15, 2))).center()), QPoint(15, 2));
}

TEST_F(ChrCanvasTest, TellsAssistiveTechnologyThePixelAndItsColour) {
    m_view.setAccessibleName(QStringLiteral("Pixel editor"));
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&m_view);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->role(), QAccessible::Canvas);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("Pixel editor"));
    m_tiles->setPixel(22, 1, 4, 2);
    move(9, 12);
    EXPECT_EQ(view->text(QAccessible::Value), QStringLiteral("Tile 22, column 1, row 4, colour 2"));
    m_view.setSelectedTiles({});
    m_view.redraw();
    EXPECT_EQ(view->text(QAccessible::Value), QStringLiteral("No tile"));
}

TEST_F(ChrCanvasTest, AllTilesOfTheLargestFileCanBeShown) {
    m_view.setTileData(std::make_shared<TileData>(std::size_t{130560}));
    std::vector<int> all(130560);
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = static_cast<int>(i);
    }
    m_view.setSelectedTiles(all);
    m_view.redraw();
    EXPECT_EQ(m_view.zoom(), 4);
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->maximum());
    const QPoint last(0, 8160 * 8 - 1);
    EXPECT_EQ(m_view.pixelAt(QRectF(m_view.pixelRect(last)).center()), last);
    EXPECT_FALSE(m_view.viewport()->grab().isNull());
}

} // namespace
} // namespace kestrel::test
