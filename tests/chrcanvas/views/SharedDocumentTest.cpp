// SPDX-License-Identifier: MIT
// A tile viewer and a pixel editor that share a document.
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/PaintRecorder.h"
#include "chrcanvas/views/TileCollection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QTest>

#include <memory>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using Rows = std::vector<std::vector<int>>;

/// Hears of edits and selections, and gives selected tiles to no one.
class Delegate : public ChrCanvasProtocol, public TileCollectionDelegate {
public:
    void pixelDataChanged(const std::vector<int>& tileNumbers) override {
        changed.push_back(tileNumbers);
    }
    void selected(const Rows& tileNumbers) override { selections.push_back(tileNumbers); }

    std::vector<std::vector<int>> changed;
    std::vector<Rows> selections;
};

class SharedDocument : public testing::Test {
protected:
    SharedDocument() {
        m_document->setTileData(std::make_shared<TileData>(std::size_t{512}));
        m_document->selectBlock(5, 22);
        for (QWidget* view : {static_cast<QWidget*>(&m_viewer), static_cast<QWidget*>(&m_editor)}) {
            view->resize(400, 400);
        }
        m_viewer.setDocument(m_document);
        m_viewer.setDelegate(&m_delegate);
        m_viewer.reloadTiles();
        m_editor.setDocument(m_document);
        m_editor.setDelegate(&m_delegate);
        m_editor.setCurrentColorBox(3);
        m_editor.redraw();
        m_viewer.show();
        m_editor.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_editor));
        QCoreApplication::processEvents();
    }

    QPoint pixel(int x, int y) { return m_editor.pixelRect(QPoint(x, y)).center(); }
    QRegion visible(int number) { return m_viewer.tileRect(number) & m_viewer.viewport()->rect(); }
    int value(int x, int y) { return m_document->valueAt(x, y).value(); }

    Delegate m_delegate;
    std::shared_ptr<TileDocument> m_document = std::make_shared<TileDocument>();
    TileCollection m_viewer;
    ChrCanvas m_editor;
};

TEST_F(SharedDocument, TheViewerFollowsEachSampleOfAStrokeInTheEditor) {
    PaintRecorder painted(*m_viewer.viewport());
    QTest::mousePress(m_editor.viewport(), Qt::LeftButton, {}, pixel(3, 3));
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), visible(5));
    QTest::mouseMove(m_editor.viewport(), pixel(9, 3));
    QCoreApplication::processEvents();
    EXPECT_EQ(painted.takePainted(), visible(5) + visible(6));
    QTest::mouseRelease(m_editor.viewport(), Qt::LeftButton, {}, pixel(9, 3));
    EXPECT_THAT(m_delegate.changed, ElementsAre(ElementsAre(5), ElementsAre(5, 6)));
}

TEST_F(SharedDocument, ALineByShiftAndAnArrowKeyIsToldOnceAndIsOneStep) {
    m_editor.setFocus();
    for (int steps = 0; steps < 7; ++steps) {
        QTest::keyClick(&m_editor, Qt::Key_Right);
    }
    QTest::keyClick(&m_editor, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_THAT(m_delegate.changed, ElementsAre(ElementsAre(5, 6)));
    EXPECT_EQ(value(7, 0), 3);
    EXPECT_EQ(value(8, 0), 3);
    m_document->undo();
    EXPECT_EQ(value(7, 0), 0);
    EXPECT_EQ(value(8, 0), 0);
    EXPECT_FALSE(m_document->canUndo());
}

TEST_F(SharedDocument, TheEditorDrawsTilesThatTheViewerSelectsWhenItIsAskedTo) {
    QTest::mouseClick(m_viewer.viewport(), Qt::LeftButton, {}, m_viewer.tileRect(37).center());
    EXPECT_THAT(m_delegate.selections, ElementsAre(Rows{{37}}));
    EXPECT_THAT(m_editor.selectedTiles(), ElementsAre(37));
    const int former = m_editor.zoom();
    m_editor.redraw();
    EXPECT_GT(m_editor.zoom(), former);
}

TEST_F(SharedDocument, ASelectionInTheViewerEndsAStrokeInTheEditor) {
    QTest::mousePress(m_editor.viewport(), Qt::LeftButton, {}, pixel(3, 3));
    m_viewer.selectTile(40);
    EXPECT_FALSE(m_document->isDrawing());
    EXPECT_TRUE(m_document->canUndo());
    m_document->undo();
    EXPECT_THAT(m_delegate.changed, ElementsAre(ElementsAre(5), ElementsAre(5)));
    EXPECT_THAT(m_delegate.selections, ElementsAre(Rows{{40}}, Rows{{5}}));
}

TEST_F(SharedDocument, ViewsThatAreGoneOrHaveAnotherDocumentHearNothing) {
    Delegate others;
    {
        TileCollection viewer;
        viewer.setDocument(m_document);
        viewer.setDelegate(&others);
        ChrCanvas editor;
        editor.setDocument(m_document);
        editor.setDelegate(&others);
        m_document->fill(0, 0, 1);
        m_document->selectBlock(5, 5);
        EXPECT_EQ(others.changed.size(), 1U);
        EXPECT_EQ(others.selections.size(), 1U);
    }
    m_viewer.setDocument(std::make_shared<TileDocument>());
    m_editor.setDocument(std::make_shared<TileDocument>());
    m_document->fill(0, 0, 2);
    m_document->selectBlock(6, 6);
    EXPECT_EQ(others.changed.size(), 1U);
    EXPECT_EQ(others.selections.size(), 1U);
    EXPECT_EQ(m_delegate.changed.size(), 1U);
    EXPECT_EQ(m_delegate.selections.size(), 1U);
}

} // namespace
} // namespace kestrel::test
