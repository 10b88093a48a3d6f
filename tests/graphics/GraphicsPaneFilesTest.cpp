// SPDX-License-Identifier: MIT
// The graphics pane in a window, worked with mouse and keys: what opening, reopening and saving
// files do to tiles, selection and marks.
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/TileCollection.h"
#include "graphics/GraphicsEditorController.h"
#include "graphics/RecordingSelector.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QAction>
#include <QImage>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <random>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rows = std::vector<std::vector<int>>;

std::string randomBytes(std::size_t tiles, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(tiles * TileData::BytesPerTile, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

class GraphicsPaneFiles : public testing::Test {
protected:
    GraphicsPaneFiles() {
        // As the main window has it: one action saves the pane that is shown.
        auto* save = new QAction(&m_window);
        save->setShortcut(QKeySequence::Save);
        m_window.addAction(save);
        m_window.setCentralWidget(m_pane);
        QObject::connect(save, &QAction::triggered, &m_window, [this] { m_pane->savePane(); });
        m_window.resize(900, 640);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    std::shared_ptr<ProjectItem> file(const std::string& name, const std::string& bytes) {
        m_folder.write(name, bytes);
        auto item = std::make_shared<ProjectNavigationSettingItem>(
            name, m_folder.path(), FileType::graphics, ProjectType::nes);
        item->setItemPathType(FilePathType::absolute);
        return item;
    }

    /// Shows a file; the errors are collected.
    void load(const std::shared_ptr<ProjectItem>& item) {
        m_pane->loadFile(item, nullptr, [this](const std::optional<ErrorValue>& error) {
            m_errors.push_back(error.value());
        });
        QCoreApplication::processEvents();
    }

    QWidget* tiles() { return m_pane->tileViewer->viewport(); }

    QPoint middle(int tile) {
        m_pane->tileViewer->scrollToTile(tile);
        return m_pane->tileViewer->tileRect(tile).center();
    }

    void click(int tile) { QTest::mouseClick(tiles(), Qt::LeftButton, {}, middle(tile)); }

    void drag(int from, int to) {
        QTest::mousePress(tiles(), Qt::LeftButton, {}, middle(from));
        QTest::mouseMove(tiles(), middle(to));
        QTest::mouseRelease(tiles(), Qt::LeftButton, {}, middle(to));
    }

    void paint(int x, int y) {
        QTest::mouseClick(m_pane->pixelEditor->viewport(), Qt::LeftButton, {},
                          m_pane->pixelEditor->pixelRect(QPoint(x, y)).center());
    }

    void pressSave() { QTest::keyClick(&m_window, Qt::Key_S, Qt::ControlModifier); }

    QImage picture(QAbstractScrollArea* view) {
        QTest::mouseMove(m_pane->saveButton, QPoint(2, 2)); // marks no tile or pixel
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(view->viewport(), &leave);
        return view->viewport()->grab().toImage();
    }

    /// Whether a tile in the viewer wears the frame of a selected one.
    bool isMarked(int tile) {
        TileCollection* viewer = m_pane->tileViewer;
        viewer->scrollToTile(tile);
        m_pane->pixelEditor->setFocus();
        const QImage shown = picture(viewer);
        const int size = viewer->zoom() * TileSide; // in device pixels, like the image
        const QRect rect(tile % 16 * size, tile / 16 * size - viewer->verticalScrollBar()->value(),
                         size, size);
        const QColor mark = tiles()->palette().color(QPalette::Active, QPalette::Text);
        for (int x = rect.left(); x <= rect.right(); ++x) {
            for (const int y : {rect.top(), rect.top() + 1, rect.bottom()}) {
                if (shown.pixelColor(x, y) != mark) {
                    return false;
                }
            }
        }
        return true;
    }

    TemporaryFolder m_folder;
    LogCapture m_log;
    std::vector<ErrorValue> m_errors;
    QMainWindow m_window;
    GraphicsEditorController* m_pane = new GraphicsEditorController;
};

TEST_F(GraphicsPaneFiles, ABlockDraggedInTheViewerIsEditedRowByRowAndItsFirstTileRemembered) {
    load(file("a.chr", randomBytes(512, 1)));
    drag(5, 22);
    EXPECT_THAT(m_pane->pixelEditor->selectedTiles(), ElementsAre(5, 6, 21, 22));
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 5);
    // From the other corner it is the same block.
    click(300);
    drag(22, 5);
    EXPECT_THAT(m_pane->pixelEditor->selectedTiles(), ElementsAre(5, 6, 21, 22));
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 5);
}

TEST_F(GraphicsPaneFiles, ABlockMadeWithShiftAndArrowsIsEditedRowByRow) {
    load(file("a.chr", randomBytes(512, 1)));
    click(5);
    QTest::keyClick(m_pane->tileViewer, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(m_pane->tileViewer, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(m_pane->pixelEditor->selectedTiles(), ElementsAre(5, 6, 21, 22));
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 5);
}

TEST_F(GraphicsPaneFiles, AClickBesideTheTilesShowsNoneAndTheLastOneStaysRemembered) {
    load(file("a.chr", randomBytes(18, 2)));
    click(9);
    const QRect last = m_pane->tileViewer->tileRect(17);
    QTest::mouseClick(tiles(), Qt::LeftButton, {}, last.center() + QPoint(3 * last.width(), 0));
    EXPECT_THAT(m_pane->pixelEditor->selectedTiles(), IsEmpty());
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 9);
    const QImage empty = picture(m_pane->pixelEditor);
    EXPECT_EQ(empty.pixelColor(empty.rect().center()),
              m_pane->pixelEditor->viewport()->palette().color(QPalette::Button));
}

TEST_F(GraphicsPaneFiles, ReopeningAFilePutsTheMarkOnItsTile) {
    const auto a = file("a.chr", randomBytes(512, 1));
    const auto b = file("b.chr", randomBytes(512, 2));
    load(a);
    click(40);
    load(b);
    click(7);
    ASSERT_TRUE(isMarked(7));
    ASSERT_FALSE(isMarked(40));
    load(a);
    EXPECT_TRUE(isMarked(40));
    EXPECT_FALSE(isMarked(7));
    EXPECT_THAT(m_pane->pixelEditor->selectedTiles(), ElementsAre(40));
    EXPECT_EQ(m_pane->tileData()->toData(), randomBytes(512, 1));
    EXPECT_THAT(m_errors, IsEmpty());
}

TEST_F(GraphicsPaneFiles, ARefusedFileGivesTheErrorAndLeavesTheOldPicture) {
    load(file("a.chr", randomBytes(512, 1)));
    drag(5, 22);
    const QImage allTiles = picture(m_pane->tileViewer);
    const QImage enlarged = picture(m_pane->pixelEditor);
    int number = 0;
    for (const std::string& bytes : {std::string("not tiles"), std::string(17, 'x'), std::string(),
                                     std::string(4 * 1024 * 1024 + 16, 'x')}) {
        m_errors.clear();
        load(file("refused" + std::to_string(++number) + ".chr", bytes));
        EXPECT_THAT(m_errors, ElementsAre(ErrorValue{
                                  "", 0, "Data type is incorrect or file is corrupt at path"}));
        EXPECT_EQ(picture(m_pane->tileViewer), allTiles) << bytes.size();
        EXPECT_EQ(picture(m_pane->pixelEditor), enlarged) << bytes.size();
    }
}

TEST_F(GraphicsPaneFiles, AFileThatFailsTheFirstTimeIsRememberedWithItsFirstTile) {
    load(file("a.chr", randomBytes(512, 1)));
    click(33);
    load(file("b.chr", "not tiles"));
    EXPECT_EQ(m_pane->rememberedTile("b.chr"), 0);
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 33);
    EXPECT_EQ(m_errors.size(), 1U);
}

TEST_F(GraphicsPaneFiles, AKnownFileThatFailsSelectsItsTileAmongTheOldOnesBeforeTheError) {
    const auto a = file("a.chr", randomBytes(512, 1));
    const auto b = file("b.chr", randomBytes(512, 2));
    load(b);
    click(77);
    load(a);
    click(12);
    m_folder.write("b.chr", "not tiles any more");
    std::vector<int> selectedAtError;
    m_pane->loadFile(b, nullptr, [&](const std::optional<ErrorValue>& error) {
        ASSERT_TRUE(error.has_value());
        selectedAtError = m_pane->pixelEditor->selectedTiles();
    });
    EXPECT_THAT(selectedAtError, ElementsAre(77));
    EXPECT_TRUE(isMarked(77));
    EXPECT_EQ(m_pane->tileData()->toData(), randomBytes(512, 1)) << "the tiles of the file before";
    EXPECT_EQ(m_pane->rememberedTile("a.chr"), 77) << "it was still the file that is shown";
}

TEST_F(GraphicsPaneFiles, ATileThatWaitsForAFileThatFailsDoesNotReachTheNextFile) {
    const auto large = file("large.chr", randomBytes(512, 1));
    const auto small = file("small.chr", randomBytes(16, 2));
    load(large);
    click(500);
    load(small);
    click(3);
    m_folder.write("large.chr", "not tiles any more");
    load(large);
    ASSERT_EQ(m_errors.size(), 1U);
    load(file("third.chr", randomBytes(512, 3)));
    EXPECT_EQ(m_pane->tileViewer->document().selectedRows(), (Rows{{3}}));
    EXPECT_EQ(m_pane->rememberedTile("third.chr"), 0);
    // It is not forgotten for good.
    m_folder.write("large.chr", randomBytes(512, 1));
    load(small);
    load(large);
    EXPECT_EQ(m_pane->tileViewer->document().selectedRows(), (Rows{{500}}));
}

TEST_F(GraphicsPaneFiles, TheSaveKeyWithoutAFileDoesNothing) {
    pressSave();
    EXPECT_THAT(m_log.lines(), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path()));
    // With one it saves, so it was the key that did nothing.
    load(file("a.chr", std::string(16, '\0')));
    QTest::keyClick(m_pane->pixelEditor, Qt::Key_3);
    paint(0, 0);
    EXPECT_EQ(contentOf(m_folder.path() / "a.chr"), std::string(16, '\0'));
    pressSave();
    std::string painted(16, '\0');
    painted[0] = painted[8] = '\x80';
    EXPECT_EQ(contentOf(m_folder.path() / "a.chr"), painted);
}

/// A colour selector that notes who becomes its delegate, too.
class RecordingColorSelector : public RecordingSelector<ColorSelector> {
public:
    explicit RecordingColorSelector(std::vector<std::string>& calls)
        : RecordingSelector("colors", calls)
        , m_calls(calls) {}

    void setDelegate(BoxSelectorDelegate* delegate) override {
        m_calls.emplace_back("colors delegate");
        RecordingSelector::setDelegate(delegate);
    }

private:
    std::vector<std::string>& m_calls;
};

TEST(GraphicsPaneViews, LoadingTheViewSetsUpTheColourSelectorStepByStep) {
    std::vector<std::string> calls;
    RecordingColorSelector colors(calls);
    {
        GraphicsEditorController pane;
        pane.colorSelector = &colors;
        pane.viewDidLoad();
        EXPECT_THAT(calls, ElementsAre("colors delegate", "colors palettes 1", "colors redraw"));
        EXPECT_EQ(colors.delegate(), &pane);
        EXPECT_EQ(colors.palettes()[0], pane.colors());
        EXPECT_EQ(pane.palette().color(QPalette::Window), QColor(Qt::white));
    }
    EXPECT_EQ(colors.delegate(), nullptr) << "a pane that goes takes itself back";
}

} // namespace
} // namespace kestrel::test
