// SPDX-License-Identifier: MIT
#include "graphics/GraphicsEditorController.h"

#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/TileCollection.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/ChildProcess.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QPushButton>
#include <QTest>

#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

std::string text(const std::vector<int>& numbers) {
    std::string text = "[";
    for (const int number : numbers) {
        text += (text.size() == 1 ? "" : " ") + std::to_string(number);
    }
    return text + "]";
}

/// A tile viewer that notes what is asked of it, and does it.
class RecordingViewer : public TileCollection {
public:
    explicit RecordingViewer(Calls& calls)
        : m_calls(&calls) {}

    void setDelegate(TileCollectionDelegate* delegate) override {
        m_calls->push_back("viewer delegate");
        TileCollection::setDelegate(delegate);
    }
    void setTileData(std::shared_ptr<TileData> tiles) override {
        m_calls->push_back("viewer tiles");
        TileCollection::setTileData(std::move(tiles));
    }
    void reloadTiles() override {
        m_calls->push_back("viewer reload");
        TileCollection::reloadTiles();
    }
    void updateTiles(const std::vector<int>& tileNumbers) override {
        m_calls->push_back("viewer update " + text(tileNumbers));
        TileCollection::updateTiles(tileNumbers);
    }
    void selectTile(int number) override {
        m_calls->push_back("viewer select " + std::to_string(number));
        TileCollection::selectTile(number);
    }

private:
    Calls* m_calls;
};

/// The same of a pixel editor.
class RecordingEditor : public ChrCanvas {
public:
    explicit RecordingEditor(Calls& calls)
        : m_calls(&calls) {}

    void setDelegate(ChrCanvasProtocol* delegate) override {
        m_calls->push_back("editor delegate");
        ChrCanvas::setDelegate(delegate);
    }
    void setPalette(std::shared_ptr<PaletteProtocol> palette) override {
        m_calls->push_back("editor palette");
        ChrCanvas::setPalette(std::move(palette));
    }
    void setTileData(std::shared_ptr<TileData> tiles) override {
        m_calls->push_back("editor tiles");
        ChrCanvas::setTileData(std::move(tiles));
    }
    void setSelectedTiles(std::vector<int> tileNumbers) override {
        m_calls->push_back("editor selected " + text(tileNumbers));
        ChrCanvas::setSelectedTiles(std::move(tileNumbers));
    }
    void setCurrentColorBox(int colorBox) override {
        m_calls->push_back("editor colour " + std::to_string(colorBox));
        ChrCanvas::setCurrentColorBox(colorBox);
    }
    void redraw() override {
        m_calls->push_back("editor redraw");
        ChrCanvas::redraw();
    }

private:
    Calls* m_calls;
};

std::string countingBytes(std::size_t size) {
    std::string bytes(size, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

class GraphicsEditor : public testing::Test {
protected:
    /// A file node with an absolute path below the test's folder.
    std::shared_ptr<ProjectItem> node(const std::string& name, const std::string& folder = {}) {
        auto item = std::make_shared<ProjectNavigationSettingItem>(
            name, m_folder.path() / folder, FileType::graphics, ProjectType::nes);
        item->setItemPathType(FilePathType::absolute);
        return item;
    }

    std::shared_ptr<ProjectItem> file(const std::string& name, std::size_t tiles) {
        m_folder.write(name, countingBytes(tiles * 16));
        return node(name);
    }

    GraphicsEditorController::CompletionHandler handler() {
        return
            [this](const std::optional<ErrorValue>& error) { m_errors.push_back(error.value()); };
    }

    void load(const std::shared_ptr<ProjectItem>& file) {
        m_pane.loadFile(file, nullptr, handler());
    }

    std::string content(const std::string& name) { return contentOf(m_folder.path() / name); }

    TemporaryFolder m_folder;
    LogCapture m_log;
    GraphicsEditorController m_pane;
    std::vector<ErrorValue> m_errors;
};

/// The pane with recording views in place of its own.
class GraphicsEditorCalls : public GraphicsEditor {
protected:
    GraphicsEditorCalls()
        : m_viewer(m_calls)
        , m_editor(m_calls) {
        m_pane.tileViewer = &m_viewer;
        m_pane.pixelEditor = &m_editor;
        m_pane.viewDidLoad();
        m_calls.clear();
    }

    Calls m_calls;
    RecordingViewer m_viewer;
    RecordingEditor m_editor;
};

TEST_F(GraphicsEditorCalls, LoadingGivesTheViewsTheirTilesInOrder) {
    load(file("a.chr", 512));
    EXPECT_THAT(m_calls,
                ElementsAre("viewer delegate", "viewer tiles", "viewer reload", "editor delegate",
                            "editor palette", "editor tiles", "editor redraw"));
    EXPECT_THAT(m_errors, IsEmpty());
    EXPECT_EQ(m_pane.rememberedTile("a.chr"), 0);
    EXPECT_EQ(m_viewer.tileData(), m_editor.tileData());
    EXPECT_EQ(m_pane.tileData(), m_editor.tileData());
}

TEST_F(GraphicsEditorCalls, ReopeningAFileSelectsItsTileAmongTheOldTilesFirst) {
    const auto a = file("a.chr", 512);
    const auto b = file("b.chr", 512);
    load(a);
    m_viewer.selectTile(40);
    load(b);
    m_viewer.selectTile(7);
    m_calls.clear();
    load(a);
    EXPECT_THAT(m_calls,
                ElementsAre("viewer select 40", "editor selected [40]", "editor redraw",
                            "viewer delegate", "viewer tiles", "viewer reload", "editor delegate",
                            "editor palette", "editor tiles", "editor redraw"));
    EXPECT_THAT(m_viewer.document().selectedRows(), ElementsAre(ElementsAre(40)));
    // The selection happened while b was still the file, so b's record followed.
    EXPECT_EQ(m_pane.rememberedTile("b.chr"), 40);
    EXPECT_EQ(m_pane.rememberedTile("a.chr"), 40);
}

TEST_F(GraphicsEditorCalls, ATileThatTheOldFileDoesNotHaveIsSelectedWhenTheNewOneIsShown) {
    const auto large = file("large.chr", 512);
    const auto small = file("small.chr", 16);
    load(large);
    m_viewer.selectTile(500);
    load(small);
    m_viewer.selectTile(3);
    m_calls.clear();
    load(large);
    EXPECT_THAT(m_calls,
                ElementsAre("viewer select 500", "viewer delegate", "viewer tiles", "viewer reload",
                            "viewer select 500", "editor selected [500]", "editor redraw",
                            "editor delegate", "editor palette", "editor tiles", "editor redraw"));
    EXPECT_EQ(m_pane.rememberedTile("small.chr"), 3);
    EXPECT_EQ(m_pane.rememberedTile("large.chr"), 500);
}

TEST_F(GraphicsEditorCalls, TwoFilesOfOneNameShareTheRememberedTile) {
    m_folder.write("one/same.chr", countingBytes(1024));
    m_folder.write("two/same.chr", countingBytes(1024));
    load(node("same.chr", "one"));
    m_viewer.selectTile(21);
    m_calls.clear();
    load(node("same.chr", "two"));
    EXPECT_EQ(m_calls.front(), "viewer select 21");
    EXPECT_THAT(m_viewer.document().selectedRows(), ElementsAre(ElementsAre(21)));
}

TEST_F(GraphicsEditorCalls, ABlockOfTilesIsShownRowByRowAndItsFirstIsRemembered) {
    load(file("a.chr", 512));
    m_calls.clear();
    m_pane.selected({{5, 6}, {21, 22}});
    EXPECT_THAT(m_calls, ElementsAre("editor selected [5 6 21 22]", "editor redraw"));
    EXPECT_EQ(m_pane.rememberedTile("a.chr"), 5);
}

TEST_F(GraphicsEditorCalls, AnEmptySelectionChangesNoRecordAndShowsNothing) {
    load(file("a.chr", 512));
    m_pane.selected({{9}});
    m_calls.clear();
    m_pane.selected(std::vector<std::vector<int>>());
    m_pane.selected({{}, {30}});
    EXPECT_THAT(m_calls, ElementsAre("editor selected []", "editor redraw", "editor selected [30]",
                                     "editor redraw"));
    EXPECT_EQ(m_pane.rememberedTile("a.chr"), 9);
}

TEST_F(GraphicsEditorCalls, ASelectionWithoutAFileDoesNothing) {
    m_pane.selected({{5}});
    EXPECT_THAT(m_calls, IsEmpty());
}

TEST_F(GraphicsEditorCalls, ChangedPixelsAreDrawnAgainInTheViewer) {
    load(file("a.chr", 512));
    m_calls.clear();
    m_pane.pixelDataChanged({3, 4});
    EXPECT_THAT(m_calls, ElementsAre("viewer update [3 4]"));
}

TEST_F(GraphicsEditorCalls, AChosenColourGoesToThePixelEditorByItsBoxAlone) {
    m_pane.selected(*m_pane.colorSelector, PaletteBox{6, 2}, BoxPosition{9, 9});
    EXPECT_THAT(m_calls, ElementsAre("editor colour 2"));
    EXPECT_EQ(m_editor.currentColorBox(), 2);
}

TEST_F(GraphicsEditorCalls, BytesThatAreNoTilesGiveTheErrorAndLeaveTheOldTilesShown) {
    load(file("a.chr", 512));
    const auto shown = m_pane.tileData();
    m_calls.clear();
    m_folder.write("b.chr", "not tiles");
    load(node("b.chr"));
    ASSERT_EQ(m_errors.size(), 1U);
    EXPECT_EQ(m_errors[0],
              (ErrorValue{"", 0, "Data type is incorrect or file is corrupt at path"}));
    EXPECT_THAT(m_calls, IsEmpty());
    EXPECT_EQ(m_pane.tileData(), shown);
    EXPECT_EQ(m_pane.filePath(), m_folder.path() / "b.chr");
}

TEST_F(GraphicsEditor, WhatCannotBeReadGivesTheSameError) {
    m_folder.write("empty.chr", "");
    m_folder.write("huge.chr", std::string(4 * 1024 * 1024 + 16, 'x'));
    std::filesystem::create_directory(m_folder.path() / "folder.chr");
    const auto relative = node("a.chr");
    relative->setItemPathType(FilePathType::relative);
    for (const auto& item : {node("empty.chr"), node("huge.chr"), node("folder.chr"),
                             node("missing.chr"), relative, std::shared_ptr<ProjectItem>()}) {
        m_errors.clear();
        load(item);
        ASSERT_EQ(m_errors.size(), 1U);
        EXPECT_EQ(m_errors[0].localizedDescription(),
                  "Data type is incorrect or file is corrupt at path");
    }
    EXPECT_EQ(m_pane.tileData(), nullptr);
    m_pane.loadFile(node("missing.chr"), nullptr, nullptr);
}

TEST_F(GraphicsEditor, FindsAFileByItsPathBelowTheProject) {
    m_folder.write("project/gfx/a.chr", countingBytes(32));
    const auto project = std::make_shared<ProjectNavigationSettingItem>(
        "project", m_folder.path() / "project", FileType::project, ProjectType::nes);
    const auto item = std::make_shared<ProjectNavigationSettingItem>(
        "a.chr", "gfx", FileType::graphics, ProjectType::nes);
    item->setItemPathType(FilePathType::relative);
    EXPECT_EQ(m_pane.filePath(), std::nullopt);
    m_pane.loadFile(item, project, handler());
    EXPECT_THAT(m_errors, IsEmpty());
    EXPECT_EQ(m_pane.filePath(), m_folder.path() / "project/gfx/a.chr");
}

TEST_F(GraphicsEditor, DrawsWithWhiteLightGreyDarkGreyAndBlack) {
    ASSERT_NE(m_pane.colors(), nullptr);
    std::vector<int> keys;
    for (std::size_t i = 0; i < 4; ++i) {
        keys.push_back(m_pane.colors()->entry(i).key);
    }
    EXPECT_THAT(keys, ElementsAre(0x30, 0x3D, 0x00, 0x0D));
    ASSERT_EQ(m_pane.colorSelector->palettes().size(), 1U);
    EXPECT_EQ(m_pane.colorSelector->palettes()[0], m_pane.colors());
    EXPECT_EQ(m_pane.colorSelector->delegate(), &m_pane);
}

TEST_F(GraphicsEditor, SavesExactlyTheTilesAndNothingElse) {
    load(file("a.chr", 3));
    m_pane.tileData()->setPixel(1, 0, 0, 3);
    std::string expected = countingBytes(48);
    expected[16] = static_cast<char>(expected[16] | 0x80);
    expected[24] = static_cast<char>(expected[24] | 0x80);
    m_pane.saveFile();
    EXPECT_EQ(content("a.chr"), expected);
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(GraphicsEditor, SavingWithoutAFileDoesNothing) {
    m_pane.show();
    m_pane.savePane();
    m_pane.saveFile();
    EXPECT_THAT(m_log.lines(), IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path()));
}

TEST_F(GraphicsEditor, TheSaveButtonAndTheCommonActionSaveButOnlyWhileThePaneIsVisible) {
    load(file("a.chr", 2));
    m_pane.tileData()->setTile(0, TileBytes{});
    m_pane.savePane();
    EXPECT_EQ(content("a.chr"), countingBytes(32));
    m_pane.show();
    m_pane.savePane();
    EXPECT_EQ(content("a.chr").substr(0, 16), std::string(16, '\0'));
    m_pane.tileData()->setTile(1, TileBytes{});
    QTest::mouseClick(m_pane.saveButton, Qt::LeftButton);
    EXPECT_EQ(content("a.chr"), std::string(32, '\0'));
}

TEST_F(GraphicsEditor, AFailedSaveIsLoggedAndLosesNothing) {
    load(file("a.chr", 2));
    m_pane.tileData()->setTile(0, TileBytes{});
    std::filesystem::remove(m_folder.path() / "a.chr");
    std::filesystem::create_directories(m_folder.path() / "a.chr/in the way");
    m_pane.saveFile();
    EXPECT_THAT(m_log.lines(),
                ElementsAre("Could not save file",
                            (m_folder.path() / "a.chr").string() + ": a folder has its name"));
    EXPECT_EQ(m_pane.tileData()->toData(), std::string(16, '\0') + countingBytes(32).substr(16));
}

TEST_F(GraphicsEditor, WhatAnotherProgramWroteMeanwhileIsKept) {
    StatusBoard status;
    m_pane.setStatusBoard(&status);
    load(file("a.chr", 2));
    m_pane.tileData()->setTile(0, TileBytes{});
    const std::string other(48, '\x55');
    m_folder.write("a.chr", other);
    m_pane.saveFile();
    EXPECT_EQ(content("a.chr"), std::string(16, '\0') + countingBytes(32).substr(16));
    EXPECT_EQ(content("a.chr.bak"), other);
    EXPECT_EQ(status.text(StatusField::saving),
              QStringLiteral("What another program had written was kept as a.chr.bak"));
    m_pane.saveFile();
    EXPECT_EQ(status.text(StatusField::saving), QString());
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "a.chr.bak1"));
}

TEST_F(GraphicsEditor, AFileThatCouldNotBeReadIsKeptBeforeItIsReplaced) {
    StatusBoard status;
    m_pane.setStatusBoard(&status);
    load(file("a.chr", 2));
    const auto bad = file("b.chr", 1);
    m_folder.write("b.chr", "no tiles");
    load(bad);
    m_pane.saveFile();
    EXPECT_EQ(content("b.chr"), countingBytes(32));
    EXPECT_EQ(content("b.chr.bak"), "no tiles");
    EXPECT_EQ(status.text(StatusField::saving),
              QStringLiteral("The file that could not be read was kept as b.chr.bak"));
}

TEST_F(GraphicsEditor, AFullDiskLosesNeitherTheFileNorTheEdits) {
    load(file("a.chr", 512));
    m_pane.tileData()->setTile(0, TileBytes{});
    EXPECT_TRUE(holdsWithFileSizeLimit(4096, [this] {
        m_pane.saveFile();
        return m_log.lines() ==
               std::vector<std::string>{"Could not save file",
                                        (m_folder.path() / "a.chr").string() + ": File too large"};
    }));
    EXPECT_EQ(content("a.chr"), countingBytes(8192));
    m_pane.saveFile();
    EXPECT_EQ(content("a.chr").substr(0, 16), std::string(16, '\0'));
}

TEST_F(GraphicsEditor, SwitchingFilesLosesUnsavedEditsAndTheirHistory) {
    const auto a = file("a.chr", 16);
    load(a);
    m_pane.pixelEditor->document().transform(TileTransformation::clear);
    EXPECT_TRUE(m_pane.canPerform(EditCommand::undo));
    load(file("b.chr", 16));
    EXPECT_FALSE(m_pane.canPerform(EditCommand::undo));
    load(a);
    EXPECT_EQ(m_pane.tileData()->toData(), countingBytes(256));
    EXPECT_FALSE(m_pane.canPerform(EditCommand::undo));
}

TEST_F(GraphicsEditor, WithoutViewsItLoadsAndSavesAllTheSame) {
    m_pane.tileViewer.clear();
    m_pane.pixelEditor.clear();
    m_pane.colorSelector.clear();
    m_pane.saveButton.clear();
    m_pane.viewDidLoad();
    const auto a = file("a.chr", 2);
    load(a);
    load(a);
    m_pane.selected({{1}});
    m_pane.pixelDataChanged({1});
    EXPECT_EQ(m_pane.rememberedTile("a.chr"), 1);
    EXPECT_FALSE(m_pane.canPerform(EditCommand::copy));
    m_pane.saveFile();
    EXPECT_EQ(content("a.chr"), countingBytes(32));
}

TEST_F(GraphicsEditor, TheLogSaysWhyAFileCannotBeShown) {
    load(file("odd.chr", 0));
    const std::string before = "The file " + (m_folder.path() / "odd.chr").string();
    std::filesystem::remove(m_folder.path() / "odd.chr");
    load(node("odd.chr"));
    EXPECT_THAT(m_log.lines(),
                ElementsAre(before + " could not be read: its bytes are no tiles",
                            before + " could not be read: No such file or directory"));
}

} // namespace
} // namespace kestrel::test
