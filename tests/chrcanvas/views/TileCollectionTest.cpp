// SPDX-License-Identifier: MIT
#include "chrcanvas/views/TileCollection.h"

#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/data/PaletteColors.h"
#include "chrcanvas/views/PaintRecorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>
#include <random>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = std::vector<std::vector<int>>;

class Delegate : public TileCollectionDelegate {
public:
    void selected(const Rows& tileNumbers) override { told.push_back(tileNumbers); }

    std::vector<Rows> told;
};

std::shared_ptr<TileData> randomTiles(std::size_t count) {
    std::mt19937 random(static_cast<unsigned>(count));
    auto tiles = std::make_shared<TileData>(count);
    for (std::size_t number = 0; number < count; ++number) {
        TileBytes bytes;
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(random());
        }
        tiles->setTile(number, bytes);
    }
    return tiles;
}

class TileCollectionTest : public testing::Test {
protected:
    TileCollectionTest() {
        m_view.setDelegate(&m_delegate);
        m_view.setGridShown(false);
        m_view.resize(300, 200);
        show(512);
    }

    void show(std::size_t tileCount) {
        m_view.setTileData(randomTiles(tileCount));
        m_view.reloadTiles();
        m_view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        QCoreApplication::processEvents();
    }

    QRegion visible(int number) { return m_view.tileRect(number) & m_view.viewport()->rect(); }

    QPoint middle(int number) { return m_view.tileRect(number).center(); }

    void click(int number, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(m_view.viewport(), Qt::LeftButton, modifiers, middle(number));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&m_view, key, modifiers);
    }

    int selectedTile() {
        const Rows rows = m_view.document().selectedRows();
        return rows.size() == 1 && rows[0].size() == 1 ? rows[0][0] : -1;
    }

    Delegate m_delegate;
    TileCollection m_view;
};

TEST_F(TileCollectionTest, AClickSelectsOneTile) {
    click(37);
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows{{37}}));
    EXPECT_EQ(selectedTile(), 37);
}

TEST_F(TileCollectionTest, ASecondPressSoonAfterTheFirstSelectsToo) {
    click(5);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(middle(6)),
                       QPointF(m_view.viewport()->mapToGlobal(middle(6))), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_view.viewport(), &second);
    EXPECT_EQ(selectedTile(), 6);
}

TEST_F(TileCollectionTest, ADragEndsWhenTheViewerIsHidden) {
    QTest::mousePress(m_view.viewport(), Qt::LeftButton, {}, middle(5));
    m_view.hide();
    m_view.show();
    QTest::mouseMove(m_view.viewport(), middle(22));
    QTest::mouseMove(m_view.viewport(), middle(23));
    EXPECT_EQ(selectedTile(), 5);
}

TEST_F(TileCollectionTest, NewTilesAreAnnouncedThoughTheSameNumberIsSelected) {
    click(5);
    const QSignalSpy changes(&m_view, &TileCollection::tilesSelected);
    m_view.setTileData(randomTiles(16));
    m_view.reloadTiles();
    EXPECT_GE(changes.size(), 1);
}

TEST_F(TileCollectionTest, ADragSelectsARectangleReportedByRows) {
    QTest::mousePress(m_view.viewport(), Qt::LeftButton, {}, middle(22));
    QTest::mouseMove(m_view.viewport(), middle(6));
    QTest::mouseMove(m_view.viewport(), middle(5));
    QTest::mouseRelease(m_view.viewport(), Qt::LeftButton, {}, middle(5));
    QTest::mouseMove(m_view.viewport(), middle(40));
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows{{22}}, Rows{{6}, {22}}, Rows{{5, 6}, {21, 22}}));
}

TEST_F(TileCollectionTest, ShiftExtendsTheSelectionByMouseAndArrows) {
    click(5);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(m_delegate.told.back(), (Rows{{5, 6}, {21, 22}}));
    click(3, Qt::ShiftModifier);
    EXPECT_EQ(m_delegate.told.back(), (Rows{{3, 4, 5}}));
    click(15);
    const std::size_t told = m_delegate.told.size();
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(m_delegate.told.size(), told) << "no rectangle goes on in the next row";
}

TEST_F(TileCollectionTest, KeysMoveTheSelectionAndKeepItVisible) {
    press(Qt::Key_Right);
    EXPECT_EQ(selectedTile(), 1);
    press(Qt::Key_Down);
    EXPECT_EQ(selectedTile(), 17);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(selectedTile(), 15);
    press(Qt::Key_End);
    EXPECT_EQ(selectedTile(), 511);
    EXPECT_TRUE(m_view.viewport()->rect().contains(middle(511)));
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(selectedTile(), 511);
    press(Qt::Key_PageUp);
    EXPECT_LT(selectedTile(), 511);
    EXPECT_EQ(selectedTile() % 16, 15);
    press(Qt::Key_Home);
    EXPECT_EQ(selectedTile(), 0);
    EXPECT_EQ(m_view.verticalScrollBar()->value(), 0);
    press(Qt::Key_Up);
    press(Qt::Key_Left);
    EXPECT_EQ(selectedTile(), 0);
    press(Qt::Key_PageDown);
    EXPECT_GT(selectedTile(), 15);
}

TEST_F(TileCollectionTest, OtherKeysAreLeftToTheWindow) {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Escape, Qt::Key_Tab}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&m_view, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
    EXPECT_THAT(m_delegate.told, IsEmpty());
}

TEST_F(TileCollectionTest, AClickBesideTheTilesSelectsNothing) {
    show(18);
    const QRect last = m_view.tileRect(17);
    QTest::mouseClick(m_view.viewport(), Qt::LeftButton, {},
                      last.center() + QPoint(last.width(), 0));
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows()));
    press(Qt::Key_Down);
    EXPECT_EQ(selectedTile(), 0);
}

TEST_F(TileCollectionTest, AShortLastRowIsReportedAsSuch) {
    show(18);
    click(1);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(m_delegate.told.back(), (Rows{{1, 2}, {17}}));
    m_view.selectAll();
    ASSERT_EQ(m_delegate.told.back().size(), 2U);
    EXPECT_EQ(m_delegate.told.back()[0].size(), 16U);
    EXPECT_EQ(m_delegate.told.back()[1].size(), 2U);
}

TEST_F(TileCollectionTest, SelectingATileActsAsAClick) {
    m_view.selectTile(300);
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows{{300}}));
    EXPECT_TRUE(m_view.viewport()->rect().contains(middle(300)));
    m_view.selectTile(300);
    EXPECT_EQ(m_delegate.told.size(), 2U);
}

TEST_F(TileCollectionTest, ANumberWithoutATileWaitsUnreportedForTheNextTiles) {
    m_view.selectTile(7);
    m_delegate.told.clear();
    m_view.selectTile(600);
    m_view.selectTile(-1);
    EXPECT_THAT(m_delegate.told, IsEmpty());
    EXPECT_EQ(selectedTile(), 7);
    m_view.setTileData(randomTiles(1024));
    EXPECT_THAT(m_delegate.told, IsEmpty());
    m_view.reloadTiles();
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows{{600}}));
    m_view.selectTile(2000);
    m_view.reloadTiles();
    m_view.setTileData(randomTiles(4096));
    m_view.reloadTiles();
    EXPECT_EQ(m_delegate.told.size(), 1U) << "it waits for one reload only";
}

TEST_F(TileCollectionTest, AnotherSelectionForgetsTheNumberThatWaits) {
    m_view.selectTile(600);
    click(4);
    m_view.selectTile(5);
    m_view.setTileData(randomTiles(1024));
    m_view.reloadTiles();
    EXPECT_EQ(selectedTile(), 5);
}

TEST_F(TileCollectionTest, FewerTilesHideASelectionWithoutReport) {
    m_view.selectTile(500);
    m_delegate.told.clear();
    show(16);
    EXPECT_THAT(m_view.document().selectedRows(), IsEmpty());
    EXPECT_THAT(m_delegate.told, IsEmpty());
    press(Qt::Key_Left);
    EXPECT_EQ(selectedTile(), 14);
}

TEST_F(TileCollectionTest, DrawsEachPixelOfATileAsWholePixelsOfTheScreen) {
    m_view.document().selectBlock(500, 500);
    m_view.verticalScrollBar()->setValue(0);
    const auto palette = NESPalette::fromData("\x11\x22\x16\x2A");
    m_view.setPalette(*palette);
    const TileRenderer::Colors colors = paletteColors(*palette);
    const QImage image = m_view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const int zoom = m_view.zoom();
    EXPECT_EQ(zoom, image.width() / 128);
    int checked = 0;
    for (int y = 0; y < std::min(image.height(), 40); ++y) {
        for (int x = 0; x < 128 * zoom; ++x) {
            const int number = y / (8 * zoom) * 16 + x / (8 * zoom);
            const int value = m_view.tileData()->pixel(static_cast<std::size_t>(number),
                                                       x / zoom % 8, y / zoom % 8);
            ASSERT_EQ(image.pixel(x, y), colors[static_cast<std::size_t>(value)])
                << x << ", " << y << " at zoom " << zoom;
            ++checked;
        }
    }
    EXPECT_GT(checked, 5000);
}

TEST_F(TileCollectionTest, LinesBetweenTheTilesLetTheirColoursShineThrough) {
    show(37);
    m_view.resize(300, 400);
    m_view.selectTile(36);
    QImage expected = m_view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    m_view.setGridShown(true);
    const QImage shown = m_view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const int size = m_view.zoom() * 8;
    const int width = m_view.devicePixelRatioF() < 2 ? 1 : 2;
    expected.setDevicePixelRatio(1);
    QPainter painter(&expected);
    constexpr QColor Grey(0x80, 0x80, 0x80, 0x48);
    const int end = 16 * size; // the mark on tile 36 lies further down
    for (int column = 1; column < 16; ++column) {
        painter.fillRect(column * size - width, 0, width, 2 * size, Grey);
    }
    for (int row = 1; row <= 2; ++row) {
        painter.fillRect(0, row * size - width, end, width, Grey);
    }
    painter.end();
    int lines = 0;
    for (int y = 0; y < 2 * size; ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QRgb is = shown.pixel(x, y);
            const QRgb wanted = expected.pixel(x, y);
            ASSERT_LE(std::abs(qRed(is) - qRed(wanted)), 1) << x << ", " << y;
            ASSERT_LE(std::abs(qGreen(is) - qGreen(wanted)), 1) << x << ", " << y;
            ASSERT_LE(std::abs(qBlue(is) - qBlue(wanted)), 1) << x << ", " << y;
            ASSERT_EQ(qAlpha(is), 255);
            lines += x % size >= size - width && is != 0xFFFFFFFF && is != 0xFF000000 ? 1 : 0;
        }
    }
    EXPECT_GT(lines, 100);
}

TEST_F(TileCollectionTest, AShortLastRowAndEmptyDataAreDrawnWithoutTiles) {
    show(18);
    const QImage image = m_view.viewport()->grab().toImage();
    const double scale = image.devicePixelRatio();
    const QPoint gap = m_view.tileRect(17).center() + QPoint(m_view.tileRect(17).width(), 0);
    EXPECT_EQ(image.pixelColor((QPointF(gap) * scale).toPoint()),
              m_view.viewport()->palette().color(QPalette::Button));
    m_view.setTileData(nullptr);
    m_view.reloadTiles();
    const QImage empty = m_view.viewport()->grab().toImage();
    EXPECT_EQ(empty.pixelColor(5, 5), m_view.viewport()->palette().color(QPalette::Button));
    click(3);
    press(Qt::Key_Down);
    m_view.selectAll();
    EXPECT_THAT(m_view.document().selectedRows(), IsEmpty());
}

TEST_F(TileCollectionTest, RepaintsOnlyTheTilesThatChanged) {
    PaintRecorder painted(*m_view.viewport());
    QCoreApplication::processEvents();
    painted.takePainted();
    m_view.updateTiles({3, 20, 511, 512, -1});
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), visible(3) + visible(20));
    m_view.updateTiles({511});
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.takePainted().isEmpty());
}

TEST_F(TileCollectionTest, RepaintsTheTilesThatAnEditOfTheDocumentChanged) {
    PaintRecorder painted(*m_view.viewport());
    QCoreApplication::processEvents();
    painted.takePainted();
    m_view.document().carryOut({{20, m_view.tileData()->tile(20), TileBytes{1}}});
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), visible(20));
    m_view.document().undo();
    QCoreApplication::processEvents();
    EXPECT_TRUE((visible(20) - painted.takePainted()).isEmpty());
}

TEST_F(TileCollectionTest, FollowsSelectionsOfTheDocumentAndReportsEachOnce) {
    m_view.document().selectBlock(480, 499);
    EXPECT_THAT(m_delegate.told, ElementsAre(Rows{{480, 481, 482, 483}, {496, 497, 498, 499}}));
    EXPECT_TRUE(m_view.viewport()->rect().contains(middle(499)));
    press(Qt::Key_Right);
    EXPECT_EQ(selectedTile(), 500);
}

TEST_F(TileCollectionTest, SelectingAllDoesNotScroll) {
    m_view.verticalScrollBar()->setValue(40);
    m_view.selectAll();
    EXPECT_EQ(m_view.verticalScrollBar()->value(), 40);
    EXPECT_EQ(m_view.document().selectedTiles().size(), 512U);
}

TEST_F(TileCollectionTest, ScrollsByTheWheelAndTellsWhichTileIsUnderThePointer) {
    QSignalSpy hovered(&m_view, &TileCollection::tileHovered);
    QTest::mouseMove(m_view.viewport(), middle(18));
    ASSERT_EQ(hovered.size(), 1);
    EXPECT_EQ(hovered[0][0].toInt(), 18);
    QTest::mouseMove(m_view.viewport(), middle(18) + QPoint(1, 1));
    EXPECT_EQ(hovered.size(), 1);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_view.viewport(), &leave);
    ASSERT_EQ(hovered.size(), 2);
    EXPECT_EQ(hovered[1][0].toInt(), -1);
    EXPECT_GT(m_view.verticalScrollBar()->maximum(), 0);
    m_view.verticalScrollBar()->setValue(8 * m_view.zoom());
    EXPECT_EQ(m_view.tileAt(QPointF(1, 1)), 16);
}

TEST_F(TileCollectionTest, TheZoomIsAWholeNumberThatFitsTheWidth) {
    const double scale = m_view.devicePixelRatioF();
    for (const int width : {60, 150, 300, 431, 700}) {
        m_view.resize(width, 200);
        QCoreApplication::processEvents();
        const int visible = static_cast<int>(m_view.viewport()->width() * scale);
        EXPECT_EQ(m_view.zoom(), std::max(1, visible / 128)) << width;
        EXPECT_FALSE(m_view.tileAt(QPointF(-1, 1)).has_value());
    }
}

TEST_F(TileCollectionTest, TellsAssistiveTechnologyWhatIsSelected) {
    m_view.setAccessibleName(QStringLiteral("All tiles"));
    QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&m_view);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->role(), QAccessible::Canvas);
    EXPECT_EQ(view->text(QAccessible::Name), QStringLiteral("All tiles"));
    m_view.selectTile(37);
    EXPECT_EQ(view->text(QAccessible::Value), QStringLiteral("Tile 37 of 512"));
    m_view.document().selectBlock(5, 38);
    EXPECT_EQ(view->text(QAccessible::Value),
              QStringLiteral("Tile 5 of 512, 2 columns and 3 rows"));
}

TEST_F(TileCollectionTest, TheLargestFileIsSelectedAndScrolledLikeASmallOne) {
    show(130560);
    m_view.selectTile(130559);
    EXPECT_TRUE(m_view.viewport()->rect().contains(middle(130559)));
    EXPECT_EQ(m_view.tileAt(middle(130559)), 130559);
    PaintRecorder painted(*m_view.viewport());
    QCoreApplication::processEvents();
    painted.takePainted();
    m_view.updateTiles({130558});
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), visible(130558));
    m_view.selectAll();
    EXPECT_EQ(m_delegate.told.back().size(), 8160U);
}

} // namespace
} // namespace kestrel::test
