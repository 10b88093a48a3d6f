// SPDX-License-Identifier: MIT
// The graphics pane as it is used: by mouse and keys, through its menus, with the clipboard.
#include "chrcanvas/views/ChrCanvas.h"
#include "chrcanvas/views/ColorSelector.h"
#include "chrcanvas/views/TileCollection.h"
#include "graphics/GraphicsEditorController.h"
#include "model/ProjectNavigationSettingItem.h"
#include "support/Announced.h"
#include "support/TemporaryFolder.h"
#include "widgets/ThinFrame.h"

#include <gtest/gtest.h>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <cmath>
#include <random>

namespace kestrel::test {
namespace {

class GraphicsPaneUse : public testing::Test {
protected:
    GraphicsPaneUse() {
        std::mt19937 random(11);
        m_bytes.resize(8192);
        for (char& byte : m_bytes) {
            byte = static_cast<char>(random());
        }
        m_pane.setStatusBoard(&m_board);
        load("a.chr", m_bytes);
        m_pane.resize(900, 600);
        m_pane.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_pane));
        QCoreApplication::processEvents();
    }

    void load(const std::string& name, const std::string& bytes) {
        m_folder.write(name, bytes);
        const auto item = std::make_shared<ProjectNavigationSettingItem>(
            name, m_folder.path(), FileType::graphics, ProjectType::nes);
        item->setItemPathType(FilePathType::absolute);
        m_pane.loadFile(item, nullptr,
                        [](const std::optional<ErrorValue>&) { ADD_FAILURE() << "not loaded"; });
    }

    std::string bytes() { return m_pane.tileData()->toData().value(); }

    QAction* action(const char* name) {
        const QString wanted = QString::fromLatin1(name);
        for (QAction* each : m_pane.editActions() + m_pane.viewActions()) {
            if (each->objectName() == wanted) {
                return each;
            }
        }
        ADD_FAILURE() << "no action " << name;
        return nullptr;
    }

    QString message() {
        return m_pane.findChild<QLabel*>(QStringLiteral("graphicsMessage"))->text();
    }

    void paint(int x, int y) {
        QTest::mouseClick(m_pane.pixelEditor->viewport(), Qt::LeftButton, {},
                          m_pane.pixelEditor->pixelRect(QPoint(x, y)).center());
    }

    TemporaryFolder m_folder;
    std::string m_bytes;
    QString pointedAt() const { return m_board.text(StatusField::tile); }

    void leave(QWidget* viewport) {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(viewport, &event);
    }

    StatusBoard m_board;
    GraphicsEditorController m_pane;
};

TEST_F(GraphicsPaneUse, PaintingBySelectorPixelEditorAndSaveButtonReachesTheFile) {
    m_pane.tileViewer->selectTile(300);
    QTest::keyClick(m_pane.pixelEditor, Qt::Key_0);
    paint(7, 2);
    const auto black = m_pane.colorSelector->boxRect(PaletteBox{0, 3});
    QTest::mouseClick(m_pane.colorSelector, Qt::LeftButton, {}, black.center());
    EXPECT_EQ(m_pane.pixelEditor->currentColorBox(), 3);
    paint(0, 5);
    QTest::mouseClick(m_pane.saveButton, Qt::LeftButton);
    std::string expected = m_bytes;
    const auto change = [&expected](std::size_t at, unsigned clear, unsigned set) {
        expected[at] = static_cast<char>((static_cast<unsigned char>(expected[at]) & ~clear) | set);
    };
    change(4800 + 2, 1, 0);
    change(4800 + 10, 1, 0);
    change(4800 + 5, 0, 0x80);
    change(4800 + 13, 0, 0x80);
    EXPECT_EQ(contentOf(m_folder.path() / "a.chr"), expected);
}

TEST_F(GraphicsPaneUse, KeysAndPickingMoveTheSelectorsMark) {
    QTest::keyClick(m_pane.pixelEditor, Qt::Key_2);
    EXPECT_EQ(m_pane.colorSelector->selectedBox(), 2);
    m_pane.tileData()->setPixel(0, 3, 3, 1);
    QTest::mouseClick(m_pane.pixelEditor->viewport(), Qt::RightButton, {},
                      m_pane.pixelEditor->pixelRect(QPoint(3, 3)).center());
    EXPECT_EQ(m_pane.colorSelector->selectedBox(), 1);
    EXPECT_EQ(m_pane.pixelEditor->currentColorBox(), 1);
}

TEST_F(GraphicsPaneUse, NumberKeysChooseTheColourWhereverTheFocusIs) {
    QTest::keyClick(m_pane.tileViewer, Qt::Key_3);
    EXPECT_EQ(m_pane.colorSelector->selectedBox(), 3);
    EXPECT_EQ(m_pane.pixelEditor->currentColorBox(), 3);
    QTest::keyClick(m_pane.colorSelector, Qt::Key_1, Qt::KeypadModifier);
    EXPECT_EQ(m_pane.colorSelector->selectedBox(), 1);
    EXPECT_EQ(m_pane.pixelEditor->currentColorBox(), 1);
    QTest::keyClick(m_pane.tileViewer, Qt::Key_4);
    QTest::keyClick(m_pane.tileViewer, Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(m_pane.colorSelector->selectedBox(), 1);
    EXPECT_EQ(m_pane.pixelEditor->currentColorBox(), 1);
}

TEST_F(GraphicsPaneUse, EachTransformationIsOneStepOfTheUndoHistory) {
    m_pane.tileViewer->document().selectBlock(5, 22);
    for (QAction* each : m_pane.editActions()) {
        if (each->isSeparator() || each->isCheckable()) {
            continue;
        }
        EXPECT_TRUE(each->isEnabled()) << each->objectName().toStdString();
        each->trigger();
        EXPECT_NE(bytes(), m_bytes) << each->objectName().toStdString();
        ASSERT_TRUE(m_pane.canPerform(EditCommand::undo));
        m_pane.perform(EditCommand::undo);
        EXPECT_EQ(bytes(), m_bytes) << each->objectName().toStdString();
        EXPECT_FALSE(m_pane.canPerform(EditCommand::undo));
    }
}

TEST_F(GraphicsPaneUse, OnlySquaresCanBeRotated) {
    m_pane.tileViewer->document().selectBlock(5, 6);
    EXPECT_FALSE(action("rotateAction")->isEnabled());
    EXPECT_TRUE(action("flipHorizontallyAction")->isEnabled());
    m_pane.tileViewer->document().selectBlock(5, 22);
    EXPECT_TRUE(action("rotateAction")->isEnabled());
}

TEST_F(GraphicsPaneUse, RandomEditsUndoneGiveTheFirstBytesAndRedoneTheLast) {
    std::mt19937 random(3);
    const QList<QAction*> actions = m_pane.editActions();
    for (int i = 0; i < 60; ++i) {
        const int first = static_cast<int>(random() % 14);
        m_pane.tileViewer->document().selectBlock(first, first + 17);
        m_pane.pixelEditor->setCurrentColorBox(static_cast<int>(random() % 4));
        QAction* chosen =
            actions[static_cast<qsizetype>(random() % static_cast<unsigned>(actions.size()))];
        if (!chosen->isSeparator()) {
            chosen->trigger();
        }
        paint(static_cast<int>(random() % 16), static_cast<int>(random() % 16));
    }
    const std::string last = bytes();
    EXPECT_NE(last, m_bytes);
    while (m_pane.canPerform(EditCommand::undo)) {
        m_pane.perform(EditCommand::undo);
    }
    EXPECT_EQ(bytes(), m_bytes);
    while (m_pane.canPerform(EditCommand::redo)) {
        m_pane.perform(EditCommand::redo);
    }
    EXPECT_EQ(bytes(), last);
}

TEST_F(GraphicsPaneUse, WhatIsUndoneOutOfSightIsSelected) {
    m_pane.tileViewer->document().selectBlock(5, 22);
    action("clearTilesAction")->trigger();
    m_pane.tileViewer->selectTile(400);
    m_pane.perform(EditCommand::undo);
    EXPECT_EQ(m_pane.tileViewer->document().selectedRows(),
              (std::vector<std::vector<int>>{{5, 6}, {21, 22}}));
}

TEST_F(GraphicsPaneUse, CopiesAndPastesTilesAndSelectsThem) {
    m_pane.tileViewer->document().selectBlock(5, 22);
    m_pane.perform(EditCommand::copy);
    m_pane.tileViewer->selectTile(100);
    ASSERT_TRUE(m_pane.canPerform(EditCommand::paste));
    m_pane.perform(EditCommand::paste);
    EXPECT_EQ(bytes().substr(100 * 16, 32), m_bytes.substr(5 * 16, 32));
    EXPECT_EQ(bytes().substr(116 * 16, 32), m_bytes.substr(21 * 16, 32));
    EXPECT_EQ(m_pane.tileViewer->document().selectedRows(),
              (std::vector<std::vector<int>>{{100, 101}, {116, 117}}));
    m_pane.perform(EditCommand::undo);
    EXPECT_EQ(bytes(), m_bytes);
}

TEST_F(GraphicsPaneUse, CuttingCopiesAndClearsInOneStep) {
    m_pane.tileViewer->selectTile(9);
    m_pane.perform(EditCommand::cut);
    EXPECT_EQ(bytes().substr(9 * 16, 16), std::string(16, '\0'));
    m_pane.perform(EditCommand::undo);
    EXPECT_EQ(bytes(), m_bytes);
    m_pane.tileViewer->selectTile(511);
    m_pane.perform(EditCommand::paste);
    EXPECT_EQ(bytes().substr(511 * 16), m_bytes.substr(9 * 16, 16));
}

TEST_F(GraphicsPaneUse, PastesImagesAndRefusesThoseOfOddSizesWithASentence) {
    Announced announced(m_pane);
    m_pane.tileViewer->selectTile(40);
    QImage image(12, 8, QImage::Format_RGB32);
    image.fill(Qt::black);
    QGuiApplication::clipboard()->setImage(image);
    m_pane.perform(EditCommand::paste);
    EXPECT_EQ(bytes(), m_bytes);
    EXPECT_TRUE(message().contains(QStringLiteral("12"))) << message().toStdString();
    EXPECT_EQ(announced.take(), std::vector{message()});
    image = QImage(16, 8, QImage::Format_RGB32);
    image.fill(Qt::black);
    QGuiApplication::clipboard()->setImage(image);
    m_pane.perform(EditCommand::paste);
    EXPECT_EQ(bytes().substr(40 * 16, 32), std::string(32, '\xFF'));
    EXPECT_TRUE(message().isEmpty());
}

TEST_F(GraphicsPaneUse, OffersOnlyWhatCanAct) {
    QGuiApplication::clipboard()->setText(QStringLiteral("text"));
    EXPECT_FALSE(m_pane.canPerform(EditCommand::paste));
    EXPECT_FALSE(m_pane.canPerform(EditCommand::redo));
    EXPECT_TRUE(m_pane.canPerform(EditCommand::copy));
    EXPECT_TRUE(m_pane.canPerform(EditCommand::selectAll));
    m_pane.perform(EditCommand::selectAll);
    EXPECT_EQ(m_pane.pixelEditor->selectedTiles().size(), 512U);
    GraphicsEditorController empty;
    for (const EditCommand command :
         {EditCommand::undo, EditCommand::redo, EditCommand::cut, EditCommand::copy,
          EditCommand::paste, EditCommand::selectAll}) {
        EXPECT_FALSE(empty.canPerform(command));
        empty.perform(command);
    }
}

TEST_F(GraphicsPaneUse, EveryCommandHasAnIconATooltipAndAShortcutOfItsOwn) {
    QList<QKeySequence> shortcuts;
    for (const QAction* each : m_pane.editActions() + m_pane.viewActions()) {
        if (each->isSeparator()) {
            continue;
        }
        const std::string name = each->objectName().toStdString();
        EXPECT_FALSE(each->icon().pixmap(16, 16).isNull()) << name;
        EXPECT_TRUE(each->toolTip().contains(QLatin1Char('('))) << name;
        EXPECT_FALSE(each->shortcut().isEmpty()) << name;
        EXPECT_FALSE(shortcuts.contains(each->shortcut())) << name;
        shortcuts.append(each->shortcut());
        const auto* button =
            m_pane.findChild<QToolButton*>(each->objectName() + QStringLiteral("Button"));
        ASSERT_NE(button, nullptr) << name;
        EXPECT_FALSE(button->accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(m_pane.editActions(), m_pane.editActions());
}

TEST_F(GraphicsPaneUse, EveryControlHasANameForPeopleWhoCannotSeeIt) {
    for (const QWidget* each :
         {static_cast<QWidget*>(m_pane.tileViewer), static_cast<QWidget*>(m_pane.pixelEditor),
          static_cast<QWidget*>(m_pane.colorSelector), static_cast<QWidget*>(m_pane.saveButton)}) {
        EXPECT_FALSE(each->objectName().isEmpty());
        EXPECT_FALSE(each->accessibleName().isEmpty()) << each->objectName().toStdString();
    }
}

TEST_F(GraphicsPaneUse, IsWhiteOnADarkThemeToo) {
    const QPalette former = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    const QImage screen = m_pane.grab().toImage();
    EXPECT_EQ(screen.pixelColor(2, 2), QColor(Qt::white));
    const auto* label = m_pane.findChild<QLabel*>(QStringLiteral("graphicsFileName"));
    EXPECT_LT(label->palette().color(QPalette::WindowText).lightness(), 100);
    QApplication::setPalette(former);
}

TEST_F(GraphicsPaneUse, TheFramesAroundBothViewsAreWholeAtEverySize) {
    const double scale = m_pane.devicePixelRatioF();
    const int thickness = scale < 2 ? 1 : 2;
    for (int more = 0; more < 6; ++more) {
        m_pane.resize(900 + more, 600 + more);
        QCoreApplication::processEvents();
        const QImage screen = m_pane.grab().toImage();
        const auto frames = m_pane.findChildren<ThinFrame*>();
        ASSERT_EQ(frames.size(), 2);
        for (const ThinFrame* frame : frames) {
            const QPointF corner = QPointF(frame->mapTo(&m_pane, QPoint())) * scale;
            const QRect outside(QPoint(static_cast<int>(std::round(corner.x())),
                                       static_cast<int>(std::round(corner.y()))),
                                QSize(static_cast<int>(frame->width() * scale),
                                      static_cast<int>(frame->height() * scale)));
            const QRect inside = outside.adjusted(thickness, thickness, -thickness, -thickness);
            const QColor color = frame->palette().color(QPalette::Mid);
            int missing = 0;
            for (int y = outside.top(); y <= outside.bottom(); ++y) {
                for (int x = outside.left(); x <= outside.right(); ++x) {
                    missing += !inside.contains(x, y) && screen.pixelColor(x, y) != color ? 1 : 0;
                }
            }
            EXPECT_EQ(missing, 0) << more;
        }
    }
}

TEST_F(GraphicsPaneUse, LongTextsDoNotWidenThePane) {
    const int former = m_pane.minimumSizeHint().width();
    load(std::string(200, 'w') + ".chr", m_bytes);
    QTest::mouseMove(m_pane.tileViewer->viewport(), m_pane.tileViewer->tileRect(101).center());
    EXPECT_EQ(m_pane.minimumSizeHint().width(), former);
    EXPECT_LT(former, 460);
}

TEST_F(GraphicsPaneUse, TellsTileAndOffsetUnderThePointer) {
    QTest::mouseMove(m_pane.tileViewer->viewport(), m_pane.tileViewer->tileRect(37).center());
    const auto* info = m_pane.findChild<QLabel*>(QStringLiteral("tileInfo"));
    EXPECT_EQ(info->text(), QStringLiteral("Tile 37 ($25), offset $0250"));
}

/// Moves the pointer there; QTest would move it only within the screen, which is small at 2x.
void point(QWidget* widget, QPointF position) {
    QMouseEvent event(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

TEST_F(GraphicsPaneUse, TheStatusBarTellsTileAndPixelUnderThePointer) {
    m_pane.tileViewer->selectTile(37);
    m_pane.colorSelector->setFocus();
    QWidget* tiles = m_pane.tileViewer->viewport();
    point(tiles, m_pane.tileViewer->tileRect(300).center());
    EXPECT_EQ(pointedAt(), QStringLiteral("Tile 300 ($12C), offset $12C0"));
    leave(tiles);
    EXPECT_EQ(pointedAt(), QString());
    QWidget* pixels = m_pane.pixelEditor->viewport();
    m_pane.tileData()->setPixel(37, 3, 5, 2);
    point(pixels, m_pane.pixelEditor->pixelRect(QPoint(3, 5)).center());
    EXPECT_EQ(pointedAt(), QStringLiteral("Tile 37 ($25), pixel 3, 5: colour 2"));
    QTest::keyClick(m_pane.pixelEditor, Qt::Key_1);
    paint(3, 5);
    EXPECT_EQ(pointedAt(), QStringLiteral("Tile 37 ($25), pixel 3, 5: colour 1"));
    m_pane.hide();
    EXPECT_EQ(pointedAt(), QString());
    m_pane.show();
    m_pane.colorSelector->setFocus();
    EXPECT_EQ(pointedAt(), QString()) << "nobody has seen the pointer come back";
}

TEST_F(GraphicsPaneUse, TheStatusBarTellsWhatTheKeyboardIsAt) {
    m_pane.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_pane));
    m_pane.tileViewer->setFocus();
    m_pane.tileViewer->selectTile(36);
    QTest::keyClick(m_pane.tileViewer, Qt::Key_Right);
    EXPECT_EQ(pointedAt(), QStringLiteral("Tile 37 ($25), offset $0250"));
    m_pane.tileData()->setPixel(37, 1, 0, 3);
    m_pane.pixelEditor->setFocus();
    QTest::keyClick(m_pane.pixelEditor, Qt::Key_Right);
    EXPECT_EQ(pointedAt(), QStringLiteral("Tile 37 ($25), pixel 1, 0: colour 3"));
    m_pane.colorSelector->setFocus();
    EXPECT_EQ(pointedAt(), QString());
}

TEST_F(GraphicsPaneUse, TheNameOfTheFileIsShownAsItIs) {
    load("<b>.chr", m_bytes);
    const auto* label = m_pane.findChild<QLabel*>(QStringLiteral("graphicsFileName"));
    EXPECT_EQ(label->text(), QStringLiteral("<b>.chr"));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

} // namespace
} // namespace kestrel::test
