// SPDX-License-Identifier: MIT
#include "chrcanvas/data/MasterColors.h"
#include "graphics/PaletteEditorController.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTest>

#include <csignal>
#include <numeric>
#include <random>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace kestrel::test {
namespace {

using Lines = std::vector<std::string>;

std::string countingFile() {
    std::string data(32, '\0');
    std::iota(data.begin(), data.end(), '\0');
    return data;
}

/// As long as it lives no file may grow, as on a full disk.
class FullDisk {
public:
    FullDisk()
        : m_formerHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit none{0, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }

private:
    rlimit m_former{};
    void (*m_formerHandler)(int);
};

/// The real pane in a window, worked with mouse and keys.
class PaletteEditor : public ::testing::Test {
protected:
    void show(const std::string& content) {
        path = folder.write("game.pal", content);
        pane.setFilePathForPalette(path);
        pane.resize(900, 520);
        pane.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&pane));
    }

    static void click(BoxSelectorView* view, PaletteBox box) {
        ASSERT_FALSE(view->boxRect(box).isEmpty());
        QTest::mouseClick(view, Qt::LeftButton, {}, view->boxRect(box).center());
    }
    void clickPalette(int number, int box = 0) { click(pane.paletteSelector, {number, box}); }
    void clickColor(int box) { click(pane.colorSelector, {0, box}); }
    void clickMaster(int index) { click(pane.generalSelectableColors, {0, index}); }
    void save() { QTest::mouseClick(pane.saveButton, Qt::LeftButton); }
    std::string onDisk() const { return contentOf(path); }
    QString fileName() const {
        return pane.findChild<QLabel*>(QStringLiteral("paletteFileName"))->text();
    }
    QString description() const {
        return pane.findChild<QLabel*>(QStringLiteral("colorDescription"))->text();
    }

    TemporaryFolder folder;
    LogCapture log;
    std::filesystem::path path;
    PaletteEditorController pane;
};

TEST_F(PaletteEditor, HoldsEightPalettesOfIndexZeroAtFirst) {
    ASSERT_EQ(pane.palettes.size(), 8U);
    for (const auto& palette : pane.palettes) {
        EXPECT_EQ(palette->entry(3).key, 0);
    }
    EXPECT_EQ(pane.previouslySetSelectablePalette, 0);
    EXPECT_FALSE(pane.initializedGeneralColors);
    EXPECT_FALSE(pane.filePathForPalette().has_value());
}

TEST_F(PaletteEditor, AFileOfThirtyTwoZerosShowsEightPalettesOfIndexZero) {
    show(std::string(32, '\0'));
    ASSERT_EQ(pane.paletteSelector->palettes().size(), 8U);
    for (const auto& palette : pane.paletteSelector->palettes()) {
        for (std::size_t index = 0; index < 4; ++index) {
            EXPECT_EQ(palette->entry(index).key, 0);
        }
    }
    EXPECT_EQ(pane.colorSelector->palettes().size(), 1U);
    EXPECT_EQ(fileName(), QStringLiteral("game.pal"));
    EXPECT_TRUE(log.lines().empty());

    const RgbColor grey = masterColor(0).color;
    const QImage image = pane.paletteSelector->grab().toImage();
    for (int number = 0; number < 8; ++number) {
        for (int box = 0; box < 4; ++box) {
            const QRect rect = pane.paletteSelector->boxRect({number, box});
            ASSERT_FALSE(rect.isEmpty());
            const QPointF inside = rect.bottomLeft() + QPoint(4, -4);
            EXPECT_EQ(image.pixelColor((inside * image.devicePixelRatio()).toPoint()),
                      QColor(grey.red, grey.green, grey.blue))
                << number << ", " << box;
            EXPECT_TRUE(pane.paletteSelector->boxDescription({number, box})
                            .contains(QStringLiteral("index $00")));
        }
    }
}

TEST_F(PaletteEditor, PaletteThreeBoxTwoAndAMasterColourChangeByteFourteen) {
    show(countingFile());
    clickMaster(0x01);
    save();
    EXPECT_EQ(onDisk(), countingFile());

    clickPalette(3);
    clickColor(2);
    clickMaster(0x2A);
    save();
    std::string expected = countingFile();
    expected[14] = '\x2A';
    EXPECT_EQ(onDisk(), expected);
}

TEST_F(PaletteEditor, TheSameWithTheKeyboardAlone) {
    show(countingFile());
    pane.generalSelectableColors->setFocus();
    QTest::keyClick(pane.generalSelectableColors, Qt::Key_Space);
    pane.paletteSelector->setFocus();
    for (int down = 0; down < 3; ++down) {
        QTest::keyClick(pane.paletteSelector, Qt::Key_Down);
    }
    QTest::keyClick(pane.paletteSelector, Qt::Key_Return);
    pane.colorSelector->setFocus();
    QTest::keyClick(pane.colorSelector, Qt::Key_End);
    QTest::keyClick(pane.colorSelector, Qt::Key_Left);
    QTest::keyClick(pane.colorSelector, Qt::Key_Space);
    pane.generalSelectableColors->setFocus();
    QTest::keyClick(pane.generalSelectableColors, Qt::Key_Down);
    QTest::keyClick(pane.generalSelectableColors, Qt::Key_Right);
    QTest::keyClick(pane.generalSelectableColors, Qt::Key_Space);
    pane.saveButton->setFocus();
    QTest::keyClick(pane.saveButton, Qt::Key_Space);
    std::string expected = countingFile();
    expected[14] = '\x11';
    EXPECT_EQ(onDisk(), expected);
}

TEST_F(PaletteEditor, ThePaletteInTheColourSelectorIsTheOneInTheList) {
    show(countingFile());
    clickMaster(0);
    clickPalette(5);
    clickColor(1);
    clickMaster(0x30);
    EXPECT_EQ(pane.colorSelector->paletteSelected(), pane.paletteSelector->palettes()[5]);
    EXPECT_EQ(pane.palettes[5]->entry(1).key, 0x30);
}

TEST_F(PaletteEditor, TheMarksInListAndSelectorStandOnTheSameColour) {
    show(countingFile());
    clickColor(2);
    clickPalette(4, 3);
    EXPECT_EQ(pane.paletteSelector->selectedPaletteNumber(), 4);
    EXPECT_EQ(pane.paletteSelector->selectedBox(), 2);
    EXPECT_EQ(pane.colorSelector->selectedBox(), 2);
}

TEST_F(PaletteEditor, BytesAboveTheLastIndexAreKeptUntilTheyAreChanged) {
    std::string content = countingFile();
    content[1] = '\x56';
    content[31] = '\xFF';
    show(content);
    save();
    EXPECT_EQ(onDisk(), content);
    clickMaster(0);
    clickColor(1);
    clickMaster(0x16);
    save();
    content[1] = '\x16';
    EXPECT_EQ(onDisk(), content);
}

TEST_F(PaletteEditor, AFileThatIsNoPaletteFileLeavesThePalettesAsTheyWere) {
    show(countingFile());
    const auto former = pane.palettes;
    for (const std::string& content :
         {std::string(), std::string(31, '\x01'), std::string(33, '\x01'), std::string(192, '\x01'),
          std::string(1U << 20U, '\x01')}) {
        pane.setFilePathForPalette(folder.write("bad.pal", content));
        pane.update();
        EXPECT_EQ(pane.palettes, former) << content.size();
    }
    for (const auto& other : {folder.path() / "missing.pal", folder.path()}) {
        pane.setFilePathForPalette(other);
        pane.update();
        EXPECT_EQ(pane.palettes, former);
    }
    EXPECT_EQ(pane.paletteSelector->paletteSelected(), former[0]);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(PaletteEditor, WhatASaveReplacesUnreadIsKeptAsABackup) {
    show(countingFile());
    const auto bad = folder.write("bad.pal", "no palette");
    pane.setFilePathForPalette(bad);
    pane.update();
    EXPECT_EQ(fileName(), QStringLiteral("bad.pal – not saved"));
    save();
    EXPECT_EQ(contentOf(bad), countingFile());
    EXPECT_EQ(contentOf(folder.path() / "bad.pal.bak"), "no palette");
    EXPECT_EQ(fileName(), QStringLiteral("bad.pal"));

    pane.palettes[0]->setEntry(0, pane.palettes[7]->entry(3));
    save();
    EXPECT_EQ(contentOf(bad)[0], 31);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "bad.pal.bak1"));
}

TEST_F(PaletteEditor, WhatAnotherProgramWroteMeanwhileIsKept) {
    StatusBoard status;
    pane.setStatusBoard(&status);
    show(countingFile());
    const std::string other(32, '\x0f');
    folder.write("game.pal", other);
    save();
    EXPECT_EQ(onDisk(), countingFile());
    EXPECT_EQ(contentOf(folder.path() / "game.pal.bak"), other);
    EXPECT_EQ(status.text(StatusField::saving),
              QStringLiteral("What another program had written was kept as game.pal.bak"));
    save();
    EXPECT_EQ(status.text(StatusField::saving), QString());
}

TEST_F(PaletteEditor, AFileThatWasReadIsSavedWithoutABackup) {
    show(countingFile());
    clickMaster(0);
    clickMaster(9);
    save();
    EXPECT_EQ(onDisk()[0], 9);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "game.pal.bak"));
}

TEST_F(PaletteEditor, SavingWritesExactlyThirtyTwoBytes) {
    show(countingFile());
    std::filesystem::remove(path);
    pane.savePane();
    EXPECT_EQ(onDisk(), countingFile());
    std::filesystem::remove(path);
    save();
    EXPECT_EQ(std::filesystem::file_size(path), 32U);
    EXPECT_EQ(onDisk(), countingFile());
}

TEST_F(PaletteEditor, AClickOnThePaletteThatIsInTheColourSelectorDoesNotCopyItAgain) {
    show(countingFile());
    // Another palette in its place would go if it were copied.
    const auto other = std::make_shared<NESPalette>();
    for (const int number : {0, 5}) {
        clickPalette(number);
        ASSERT_EQ(pane.colorSelector->paletteSelected(),
                  pane.palettes[static_cast<std::size_t>(number)]);
        pane.colorSelector->setPalette(0, other);
        clickPalette(number);
        clickPalette(number, 3);
        EXPECT_EQ(pane.colorSelector->paletteSelected(), other) << number;
    }
    clickPalette(6);
    EXPECT_EQ(pane.colorSelector->paletteSelected(), pane.palettes[6]);
}

TEST_F(PaletteEditor, APaneThatGoesTakesItsSelectorsBack) {
    ColorSelector colors;
    PaletteSelector list;
    GeneralColorSelector grid;
    PaletteEditorController another;
    {
        PaletteEditorController passing;
        passing.colorSelector = &colors;
        passing.paletteSelector = &list;
        passing.generalSelectableColors = &grid;
        passing.viewDidLoad();
        EXPECT_EQ(colors.delegate(), &passing);
        grid.setDelegate(&another);
    }
    EXPECT_EQ(colors.delegate(), nullptr);
    EXPECT_EQ(list.delegate(), nullptr);
    EXPECT_EQ(grid.delegate(), &another) << "what others took over is theirs";
}

TEST_F(PaletteEditor, SavingWithoutAFileDoesNothing) {
    pane.saveFile();
    pane.savePane();
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(PaletteEditor, AFailedSaveIsLoggedAndLosesNothing) {
    show(countingFile());
    clickMaster(0);
    clickMaster(0x2A);
    {
        const FullDisk full;
        save();
    }
    EXPECT_EQ(log.lines(), (Lines{"Could not save file", path.string() + ": File too large"}));
    EXPECT_EQ(onDisk(), countingFile());
    EXPECT_EQ(pane.palettes[0]->entry(0).key, 0x2A);
    EXPECT_EQ(fileName(), QStringLiteral("game.pal – not saved"));
    save();
    EXPECT_EQ(onDisk()[0], 0x2A);
    EXPECT_EQ(fileName(), QStringLiteral("game.pal"));
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST_F(PaletteEditor, AFolderInTheFilesPlaceIsNotReplaced) {
    show(countingFile());
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    save();
    EXPECT_EQ(log.lines(),
              (Lines{"Could not save file", path.string() + ": a folder has its name"}));
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST_F(PaletteEditor, IsReadAtEachShowingAndNotWhenTheWindowComesBack) {
    show(countingFile());
    clickMaster(0);
    clickMaster(0x2A);
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(&pane, &restored);
    EXPECT_EQ(pane.palettes[0]->entry(0).key, 0x2A);

    pane.hide();
    pane.show();
    EXPECT_EQ(pane.palettes[0]->entry(0).key, 0);
    EXPECT_FALSE(pane.canPerform(EditCommand::undo));
}

TEST_F(PaletteEditor, IsReadWhenItsTabIsSelected) {
    QStackedWidget tabs;
    auto* first = new QWidget;
    auto* second = new PaletteEditorController;
    tabs.addWidget(first);
    tabs.addWidget(second);
    second->setFilePathForPalette(folder.write("tab.pal", countingFile()));
    tabs.show();
    EXPECT_TRUE(second->paletteSelector->palettes().empty());
    tabs.setCurrentWidget(second);
    ASSERT_EQ(second->paletteSelector->palettes().size(), 8U);
    EXPECT_EQ(second->palettes[7]->entry(3).key, 31);
}

TEST_F(PaletteEditor, UndoAndRedoPutChosenColoursBackAndForth) {
    show(countingFile());
    EXPECT_FALSE(pane.canPerform(EditCommand::undo));
    clickMaster(0x2A);
    EXPECT_FALSE(pane.canPerform(EditCommand::undo));
    clickMaster(0x2A);
    clickColor(3);
    clickMaster(0x11);
    clickMaster(0x11);
    pane.perform(EditCommand::undo);
    EXPECT_EQ(pane.palettes[0]->entry(3).key, 3);
    EXPECT_EQ(pane.palettes[0]->entry(0).key, 0x2A);
    pane.perform(EditCommand::undo);
    EXPECT_EQ(pane.palettes[0]->entry(0).key, 0);
    EXPECT_FALSE(pane.canPerform(EditCommand::undo));
    EXPECT_EQ(fileName(), QStringLiteral("game.pal"));
    pane.perform(EditCommand::redo);
    pane.perform(EditCommand::redo);
    EXPECT_FALSE(pane.canPerform(EditCommand::redo));
    save();
    std::string expected = countingFile();
    expected[0] = '\x2A';
    expected[3] = '\x11';
    EXPECT_EQ(onDisk(), expected);
}

TEST_F(PaletteEditor, AnyEditsUndoneGiveTheFirstBytesAndRedoneTheLast) {
    show(countingFile());
    std::mt19937 random(3);
    const auto number = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    for (int step = 0; step < 120; ++step) {
        clickPalette(number(8), number(4));
        clickColor(number(4));
        clickMaster(number(64));
    }
    save();
    const std::string last = onDisk();
    EXPECT_NE(last, countingFile());
    while (pane.canPerform(EditCommand::undo)) {
        pane.perform(EditCommand::undo);
    }
    save();
    EXPECT_EQ(onDisk(), countingFile());
    while (pane.canPerform(EditCommand::redo)) {
        pane.perform(EditCommand::redo);
    }
    save();
    EXPECT_EQ(onDisk(), last);
}

TEST_F(PaletteEditor, APaletteIsCopiedAndPastedAsTextOfAProgram) {
    show(countingFile());
    clickPalette(2);
    ASSERT_TRUE(pane.canPerform(EditCommand::copy));
    pane.perform(EditCommand::copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("$08,$09,$0A,$0B"));
    clickPalette(7);
    ASSERT_TRUE(pane.canPerform(EditCommand::paste));
    pane.perform(EditCommand::paste);
    save();
    EXPECT_EQ(onDisk(), countingFile().substr(0, 28) + countingFile().substr(8, 4));
    pane.perform(EditCommand::undo);
    save();
    EXPECT_EQ(onDisk(), countingFile());
}

TEST_F(PaletteEditor, OtherTextIsNotPasted) {
    show(countingFile());
    for (const QString& text : {QStringLiteral("a word"), QString(), QString(300, u'$')}) {
        QApplication::clipboard()->setText(text);
        EXPECT_FALSE(pane.canPerform(EditCommand::paste)) << text.toStdString();
        pane.perform(EditCommand::paste);
    }
    EXPECT_FALSE(pane.canPerform(EditCommand::cut));
    EXPECT_FALSE(pane.canPerform(EditCommand::selectAll));
    EXPECT_FALSE(pane.canPerform(EditCommand::undo));
}

TEST_F(PaletteEditor, TheBoxUnderPointerOrKeyboardIsDescribed) {
    show(countingFile());
    // Not by QTest, which moves the pointer: at larger scale factors the screen ends before the
    // box.
    const QPointF box = pane.generalSelectableColors->boxRect({0, 0x0D}).center();
    QMouseEvent move(QEvent::MouseMove, box, pane.generalSelectableColors->mapToGlobal(box),
                     Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(pane.generalSelectableColors, &move);
    EXPECT_EQ(description(), QStringLiteral("Index $0D, row 0, column 13 – below black: avoid"));
    pane.colorSelector->setFocus();
    QTest::keyClick(pane.colorSelector, Qt::Key_Right);
    EXPECT_EQ(description(), QStringLiteral("Colour 1 of 4, index $01"));
}

TEST_F(PaletteEditor, IsWhiteOnADarkTheme) {
    const QPalette former = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, QColor(40, 40, 40), Qt::gray, Qt::black,
                                      Qt::darkGray, Qt::white, Qt::white, Qt::black, Qt::black));
    show(countingFile());
    const QImage image = pane.grab().toImage();
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(image.width() - 3, image.height() - 3), QColor(Qt::white));
    EXPECT_LT(pane.paletteSelector->palette().color(QPalette::WindowText).lightness(), 60);
    QApplication::setPalette(former);
}

TEST_F(PaletteEditor, FitsANarrowWindowAndALongName) {
    const std::string longName = std::string(200, 'w') + ".pal";
    show(countingFile());
    pane.setFilePathForPalette(folder.write(longName, countingFile()));
    pane.update();
    pane.resize(420, 400);
    EXPECT_EQ(pane.width(), 420);
    auto* area = pane.findChild<QScrollArea*>(QStringLiteral("paletteScrollArea"));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return pane.colorSelector->mapTo(&pane, QPoint()).y() >
               pane.paletteSelector->mapTo(&pane, QPoint()).y();
    }));
    EXPECT_GT(area->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(pane.rect().contains(
        QRect(pane.saveButton->mapTo(&pane, QPoint()), pane.saveButton->size())));
    EXPECT_TRUE(fileName().startsWith(QStringLiteral("wwww")));

    pane.resize(900, 520);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return pane.colorSelector->mapTo(&pane, QPoint()).y() ==
               pane.paletteSelector->mapTo(&pane, QPoint()).y();
    }));
}

TEST_F(PaletteEditor, NeverNeedsToBeScrolledSideways) {
    path = folder.write("game.pal", countingFile());
    for (int width = 400; width < 900; width += 9) {
        for (const int height : {280, 800}) {
            PaletteEditorController fresh;
            fresh.resize(width, height);
            fresh.show(); // so it has its size before it has palettes
            ASSERT_TRUE(QTest::qWaitForWindowExposed(&fresh));
            fresh.setFilePathForPalette(path);
            fresh.update();
            const auto* area = fresh.findChild<QScrollArea*>(QStringLiteral("paletteScrollArea"));
            EXPECT_TRUE(QTest::qWaitFor([&] {
                return fresh.paletteSelector->palettes().size() == 8 &&
                       area->horizontalScrollBar()->maximum() == 0;
            })) << width
                << " x " << height;
        }
    }
}

TEST_F(PaletteEditor, TheTabKeyGoesInReadingOrder) {
    show(countingFile());
    pane.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    pane.saveButton->setFocus();
    for (QWidget* next : std::initializer_list<QWidget*>{pane.paletteSelector, pane.colorSelector,
                                                         pane.generalSelectableColors}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
}

TEST_F(PaletteEditor, EveryControlHasANameAndAnAccessibleName) {
    for (const QWidget* control :
         std::initializer_list<QWidget*>{&pane, pane.colorSelector, pane.paletteSelector,
                                         pane.generalSelectableColors, pane.saveButton}) {
        EXPECT_FALSE(control->objectName().isEmpty());
        EXPECT_FALSE(control->accessibleName().isEmpty());
    }
    int headings = 0;
    for (const QLabel* label : pane.findChildren<QLabel*>()) {
        headings += label->buddy() != nullptr ? 1 : 0;
    }
    EXPECT_EQ(headings, 3);
}

TEST_F(PaletteEditor, TheDescriptionFollowsWhatIsPastedUnderTheCursor) {
    show(countingFile());
    pane.paletteSelector->setFocus();
    const QString before = description();
    ASSERT_FALSE(before.isEmpty());
    QApplication::clipboard()->setText(QStringLiteral("$21,$22,$23,$24"));
    pane.perform(EditCommand::paste);
    EXPECT_NE(description(), before);
    EXPECT_TRUE(description().contains(QStringLiteral("$21"))) << description().toStdString();
    pane.perform(EditCommand::undo);
    EXPECT_EQ(description(), before);
}

} // namespace
} // namespace kestrel::test
