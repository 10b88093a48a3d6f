// SPDX-License-Identifier: MIT
// What is kept of unsaved tiles and palettes, and how the panes take it back.
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/TileCollection.h"
#include "drafts/UnsavedWork.h"
#include "graphics/GraphicsEditorController.h"
#include "graphics/PaletteEditorController.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QTest>

namespace kestrel::test {
namespace {

std::shared_ptr<DraftKeeper> keeperIn(const TemporaryFolder& folder) {
    return std::make_shared<DraftKeeper>(DraftStore(folder.path() / "drafts"));
}

bool waitForOffer(UnsavedWork& work) {
    return QTest::qWaitFor([&work] { return work.offer().has_value(); }, 20'000);
}

/// Waits until all that was asked of the keeper is done.
void settle(DraftKeeper& keeper) {
    bool done = false;
    keeper.look(keeper.begin("/nowhere", DraftKind::text, {}, {}),
                [&done](const auto& /*found*/) { done = true; });
    EXPECT_TRUE(QTest::qWaitFor([&done] { return done; }, 20'000));
}

class UnsavedTiles : public testing::Test {
protected:
    UnsavedTiles() { begin(); }

    void begin() {
        m_pane.reset();
        m_pane = std::make_unique<GraphicsEditorController>();
        m_keeper = keeperIn(m_folder);
        m_pane->unsavedWork()->setKeeper(m_keeper);
        m_pane->resize(900, 640);
        m_pane->show();
    }

    std::shared_ptr<ProjectItem> file(const std::string& name, const std::string& bytes) {
        m_folder.write(name, bytes);
        auto item = std::make_shared<ProjectNavigationSettingItem>(
            name, m_folder.path(), FileType::graphics, ProjectType::nes);
        item->setItemPathType(FilePathType::absolute);
        return item;
    }

    void load(const std::shared_ptr<ProjectItem>& item) {
        m_pane->loadFile(item, nullptr, [this](const auto& /*error*/) { ++m_errors; });
    }

    std::string tiles() const { return m_pane->tileData()->toData().value(); }
    std::string onDisk(const std::string& name) const { return contentOf(m_folder.path() / name); }

    /// Paints a stroke across the tile that is selected.
    void paint() {
        QWidget* view = m_pane->pixelEditor->viewport();
        const auto place = [this](int x, int y) {
            return m_pane->pixelEditor->pixelRect(QPoint(x, y)).center();
        };
        m_pane->pixelEditor->setCurrentColorBox(3);
        QTest::mousePress(view, Qt::LeftButton, {}, place(0, 0));
        QTest::mouseMove(view, place(7, 7));
        QTest::mouseRelease(view, Qt::LeftButton, {}, place(7, 7));
    }

    TemporaryFolder m_folder;
    std::shared_ptr<ProjectItem> m_one = file("one.chr", std::string(64 * 16, '\x12'));
    std::shared_ptr<ProjectItem> m_other = file("other.chr", std::string(32 * 16, '\x34'));
    std::shared_ptr<DraftKeeper> m_keeper;
    std::unique_ptr<GraphicsEditorController> m_pane;
    int m_errors = 0;
};

TEST_F(UnsavedTiles, ComeBackAfterASwitchAsOneStep) {
    load(m_one);
    paint();
    m_pane->tileViewer->selectTile(40);
    paint();
    const std::string painted = tiles();
    ASSERT_NE(painted, onDisk("one.chr"));
    load(m_other);
    load(m_one);
    EXPECT_EQ(tiles(), onDisk("one.chr"));
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
    m_pane->perform(EditCommand::undo);
    EXPECT_EQ(tiles(), onDisk("one.chr"));
    EXPECT_FALSE(m_pane->canPerform(EditCommand::undo));
    m_pane->perform(EditCommand::redo);
    EXPECT_EQ(tiles(), painted);
    EXPECT_EQ(onDisk("one.chr"), std::string(64 * 16, '\x12'));
}

TEST_F(UnsavedTiles, UndoTakesBackWhatWasDoneSinceBeforeAll) {
    load(m_one);
    paint();
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->tileViewer->selectTile(7);
    paint();
    m_pane->perform(EditCommand::undo);
    EXPECT_EQ(tiles(), onDisk("one.chr"));
    EXPECT_FALSE(m_pane->canPerform(EditCommand::undo));
    EXPECT_TRUE(m_pane->unsavedWork()->offer());
}

TEST_F(UnsavedTiles, AreKeptWhenAFileCannotBeShownInstead) {
    load(m_one);
    paint();
    const std::string painted = tiles();
    load(file("no tiles", "x"));
    EXPECT_EQ(m_errors, 1);
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
}

TEST_F(UnsavedTiles, AreKeptInTheMiddleOfAStroke) {
    load(m_one);
    m_pane->pixelEditor->setCurrentColorBox(3);
    QTest::mousePress(m_pane->pixelEditor->viewport(), Qt::LeftButton, {},
                      m_pane->pixelEditor->pixelRect(QPoint(2, 2)).center());
    const std::string painted = tiles();
    ASSERT_NE(painted, onDisk("one.chr"));
    load(m_other);
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
}

TEST_F(UnsavedTiles, OutliveThePane) {
    load(m_one);
    paint();
    const std::string painted = tiles();
    begin(); // as if the program was started anew
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
}

TEST_F(UnsavedTiles, EndWithASaveThatReachesTheDisk) {
    load(m_one);
    paint();
    m_pane->saveFile();
    load(m_other);
    load(m_one);
    settle(*m_keeper);
    EXPECT_FALSE(m_pane->unsavedWork()->offer());
    paint();
    m_pane->perform(EditCommand::undo);
    m_pane->tileViewer->selectTile(9);
    paint();
    std::filesystem::remove(m_folder.path() / "one.chr");
    std::filesystem::create_directory(m_folder.path() / "one.chr"); // no save can succeed now
    m_pane->saveFile();
    const std::string painted = tiles();
    load(m_other);
    std::filesystem::remove(m_folder.path() / "one.chr");
    load(file("one.chr", std::string(64 * 16, '\x12')));
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
}

TEST_F(UnsavedTiles, OfAnotherNumberTakeThePlaceOfAll) {
    load(m_one);
    paint();
    const std::string painted = tiles();
    load(m_other);
    load(file("one.chr", std::string(128 * 16, '\x56')));
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    EXPECT_TRUE(m_pane->unsavedWork()->offer()->fileChanged);
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
    load(m_one);
    EXPECT_EQ(tiles().size(), 128U * 16);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork())); // nothing is lost by looking at the file
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(tiles(), painted);
}

class UnsavedPalettes : public testing::Test {
protected:
    UnsavedPalettes() { begin(); }

    void begin() {
        m_pane.reset();
        m_pane = std::make_unique<PaletteEditorController>();
        m_keeper = keeperIn(m_folder);
        m_pane->unsavedWork()->setKeeper(m_keeper);
        m_pane->initializedGeneralColors = true;
        m_pane->resize(900, 640);
    }

    void load(const std::filesystem::path& file) {
        m_pane->setFilePathForPalette(file);
        m_pane->show();
        m_pane->update();
    }

    void choose(int color) {
        QTest::mouseClick(m_pane->generalSelectableColors, Qt::LeftButton, {},
                          m_pane->generalSelectableColors->boxRect({0, color}).center());
    }

    std::string content() const {
        std::string bytes;
        for (const auto& palette : m_pane->palettes) {
            for (std::size_t index = 0; index < palette->count(); ++index) {
                bytes += static_cast<char>(palette->entry(index).key);
            }
        }
        return bytes;
    }

    TemporaryFolder m_folder;
    std::string m_onDisk = std::string(16, '\x01') + std::string(16, '\x02');
    std::filesystem::path m_one = m_folder.write("one.pal", m_onDisk);
    std::filesystem::path m_other = m_folder.write("other.pal", std::string(32, '\x05'));
    std::shared_ptr<DraftKeeper> m_keeper;
    std::unique_ptr<PaletteEditorController> m_pane;
};

TEST_F(UnsavedPalettes, ComeBackAfterASwitchAsOneStep) {
    load(m_one);
    choose(0x16);
    const std::string chosen = content();
    ASSERT_NE(chosen, m_onDisk);
    load(m_other);
    load(m_one);
    EXPECT_EQ(content(), m_onDisk);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(content(), chosen);
    m_pane->perform(EditCommand::undo);
    EXPECT_EQ(content(), m_onDisk);
    m_pane->perform(EditCommand::redo);
    EXPECT_EQ(content(), chosen);
    EXPECT_EQ(contentOf(m_one), m_onDisk);
}

TEST_F(UnsavedPalettes, ComeBackAfterALookAtAnotherPane) {
    load(m_one);
    choose(0x16);
    const std::string chosen = content();
    m_pane->hide();
    m_pane->show();
    EXPECT_EQ(content(), m_onDisk);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    ASSERT_TRUE(m_pane->unsavedWork()->undoBringsBack());
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(content(), chosen);
}

TEST_F(UnsavedPalettes, ThatWereUndoneAreKeptAsTheyAreThen) {
    load(m_one);
    choose(0x16);
    choose(0x27);
    m_pane->unsavedWork()->keep(); // so that undoing is an edit of its own
    m_pane->perform(EditCommand::undo);
    const std::string chosen = content();
    load(m_other);
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(content(), chosen);
}

TEST_F(UnsavedPalettes, TheFirstSwallowedChoiceIsNoEdit) {
    m_pane->initializedGeneralColors = false;
    load(m_one);
    choose(0x16);
    choose(0x16);
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->initializedGeneralColors = false;
    choose(0x20);
    EXPECT_TRUE(m_pane->unsavedWork()->undoBringsBack());
}

TEST_F(UnsavedPalettes, OutliveThePaneAndEndWithASave) {
    load(m_one);
    choose(0x16);
    const std::string chosen = content();
    begin();
    load(m_one);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    m_pane->saveFile();
    EXPECT_EQ(contentOf(m_one), chosen);
    load(m_other);
    load(m_one);
    settle(*m_keeper);
    EXPECT_FALSE(m_pane->unsavedWork()->offer());
}

TEST_F(UnsavedPalettes, ThatNoFileHoldsAreKeptForTheFileTheyAreShownFor) {
    load(m_one);
    const auto damaged = m_folder.write("damaged.pal", "no palettes");
    load(damaged);
    choose(0x16);
    const std::string chosen = content();
    load(m_other);
    m_folder.write("damaged.pal", std::string(32, '\x09'));
    load(damaged);
    ASSERT_TRUE(waitForOffer(*m_pane->unsavedWork()));
    m_pane->unsavedWork()->bringBack();
    EXPECT_EQ(content(), chosen);
}

} // namespace
} // namespace kestrel::test
