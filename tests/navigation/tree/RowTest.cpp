// SPDX-License-Identifier: MIT
#include "icons/Icons.h"
#include "navigation/tree/NamePainter.h"
#include "navigation/tree/NavigationFixture.h"
#include "navigation/tree/ProjectNavigationItem.h"
#include "navigation/tree/ProjectNavigationRowPainter.h"
#include "widgets/Contrast.h"

#include <QAccessible>
#include <QTextDocument>

#include <cstdlib>
#include <map>

namespace kestrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using TextColour = ProjectNavigationItem::TextColour;

class RowView : public testing::Test {
protected:
    RowView() {
        row.outletIconImageView = image;
        row.outletTextField = field;
    }

    std::filesystem::path askedFor(const Node& node, const Node& owner) {
        row.projectItem = node;
        row.currentProjectItem = owner;
        asked.clear();
        EXPECT_EQ(row.checkFile(), std::optional(false));
        EXPECT_EQ(asked.size(), 1U);
        return asked.at(0);
    }

    std::vector<std::filesystem::path> asked;
    std::shared_ptr<ProjectNavigationItem::ImageView> image =
        std::make_shared<ProjectNavigationItem::ImageView>();
    std::shared_ptr<ProjectNavigationItem::TextField> field =
        std::make_shared<ProjectNavigationItem::TextField>();
    ProjectNavigationItem row{[this](const std::filesystem::path& path) {
        asked.push_back(path);
        return false;
    }};
};

TEST_F(RowView, NoNameShowsNil) {
    row.setNameForItem(QStringLiteral("main.asm"));
    EXPECT_EQ(row.nameForItem(), QStringLiteral("main.asm"));
    row.setNameForItem(std::nullopt);
    EXPECT_EQ(row.nameForItem(), QStringLiteral("Nil"));
}

TEST_F(RowView, TheImageIsThatOfTheImageView) {
    EXPECT_FALSE(row.imageForItem().has_value());
    row.setImageForItem(QIcon());
    EXPECT_TRUE(row.imageForItem().has_value());
    row.setImageForItem(std::nullopt);
    EXPECT_FALSE(image->image.has_value());
}

TEST_F(RowView, AFoundFileIsBlackAMissingOneRed) {
    row.fileNotFound(false);
    EXPECT_EQ(field->textColour, TextColour::red);
    row.fileNotFound(true);
    EXPECT_EQ(field->textColour, TextColour::black);
}

TEST_F(RowView, ARowBehindTheDiskIsFadedAndGrey) {
    row.isItemUpToDateWithHardDrive(false);
    EXPECT_EQ(field->textColour, TextColour::darkGrey);
    EXPECT_EQ(image->opacity, 0.5);
    row.isItemUpToDateWithHardDrive(true);
    EXPECT_EQ(field->textColour, TextColour::black);
    EXPECT_EQ(image->opacity, 1.0);
}

TEST_F(RowView, WithoutItsPartsEveryOperationDoesNothing) {
    image.reset();
    field.reset();
    row.setNameForItem(QStringLiteral("x"));
    row.setImageForItem(QIcon());
    row.fileNotFound(false);
    row.isItemUpToDateWithHardDrive(false);
    EXPECT_EQ(row.nameForItem(), std::nullopt);
    EXPECT_FALSE(row.imageForItem().has_value());
}

TEST_F(RowView, WithoutNodeOrProjectNoFileIsLookedFor) {
    row.fileNotFound(true);
    EXPECT_EQ(row.checkFile(), std::nullopt);
    row.projectItem = text("a");
    EXPECT_EQ(row.checkFile(), std::nullopt);
    row.projectItem = nullptr;
    row.currentProjectItem = project("Game");
    EXPECT_EQ(row.checkFile(), std::nullopt);
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(field->textColour, TextColour::black);
}

TEST_F(RowView, AnAbsoluteFileIsLookedForInItsFolder) {
    const Node game = makeNode("Game", FileType::project, {}, "/home/game");
    EXPECT_EQ(askedFor(makeNode("a.asm", FileType::text, {}, "/else"), game), "/else/a.asm");
    EXPECT_EQ(field->textColour, TextColour::red);
}

TEST_F(RowView, ARelativeFileIsLookedForBelowTheProjectsFolder) {
    const Node game = makeNode("Game", FileType::project, {}, "/home/game");
    for (const std::filesystem::path path : {"sub", "/sub", "sub/"}) {
        const Node file = makeNode("a.asm", FileType::text, {}, path);
        file->setItemPathType(FilePathType::relative);
        EXPECT_EQ(askedFor(file, game), "/home/game/sub/a.asm");
    }
}

TEST_F(RowView, AProjectIsLookedForByItsProjectFile) {
    const Node game = makeNode("Game", FileType::project, {}, "/home/game");
    EXPECT_EQ(askedFor(game, game), "/home/game/Game.kst");
}

/// The rows as the real tree paints them.
class NavigationRows : public NavigationTest {
protected:
    NavigationRows() {
        tree->setFileExistence([this](const std::filesystem::path& path) {
            ++asked[path.string()];
            return !path.filename().string().starts_with("missing");
        });
    }

    void paint() const { view().grab(); }

    /// The strongest colour in which the row's name is painted.
    QColor nameColour(const Node& node) const {
        const QImage image = view().grab().toImage();
        QRect place =
            view().visualRect(index(node)).translated(view().viewport()->mapTo(&view(), QPoint()));
        place.setLeft(place.left() + view().iconSize().width() + 24);
        const QColor ground = image.pixelColor(place.right() - 2, place.center().y());
        QColor strongest = ground;
        int distance = 0;
        for (int x = place.left(); x < place.left() + 60; ++x) {
            for (int y = place.top(); y <= place.bottom(); ++y) {
                const QColor at = image.pixelColor(x, y);
                const int here = std::abs(at.red() - ground.red()) +
                                 std::abs(at.green() - ground.green()) +
                                 std::abs(at.blue() - ground.blue());
                if (here > distance) {
                    distance = here;
                    strongest = at;
                }
            }
        }
        return strongest;
    }

    /// The same colour but for what smoothing the letters' edges takes away.
    static bool near(const QColor& one, const QColor& other) {
        return std::abs(one.red() - other.red()) < 24 &&
               std::abs(one.green() - other.green()) < 24 &&
               std::abs(one.blue() - other.blue()) < 24;
    }

    /// The red of missing files on the rows' background.
    QColor red() const { return readableRed(view().palette().color(QPalette::Base)); }

    /// Whether a line runs through the whole of what is painted in about this colour.
    static bool isStruckOut(const QImage& image, const QColor& colour) {
        int longest = 0;
        for (int y = 0; y < image.height(); ++y) {
            int run = 0;
            for (int x = 0; x < image.width(); ++x) {
                run = near(image.pixelColor(x, y), colour) ? run + 1 : 0;
                longest = std::max(longest, run);
            }
        }
        return longest > 40;
    }

    QImage rowImage(const Node& node) const {
        return view().viewport()->grab(view().visualRect(index(node))).toImage();
    }

    void setColours(const QColor& base, const QColor& text, const QColor& highlight) const {
        QPalette colours;
        colours.setColor(QPalette::Base, base);
        colours.setColor(QPalette::Text, text);
        colours.setColor(QPalette::Highlight, highlight);
        tree->setPalette(colours);
    }

    ProjectNavigationRowPainter& painter() const {
        return *qobject_cast<ProjectNavigationRowPainter*>(view().itemDelegate());
    }

    std::map<std::string, int> asked;
};

TEST_F(NavigationRows, GroupsAreNotLookedForEmptyKindNodesAre) {
    const Node folder = group("Group");
    const Node nothing = makeNode("nothing", FileType::empty);
    const Node game = project("Game", {folder, nothing});
    show({game});
    expand(game);
    paint();
    EXPECT_THAT(asked, ElementsAre(testing::Pair("/nowhere/Game.kst", 1),
                                   testing::Pair("/nowhere/nothing", 1)));
    const auto icon = [&](const Node& node) {
        return painter().viewForItem(index(node))->imageForItem()->cacheKey();
    };
    EXPECT_NE(icon(folder), icon(nothing));
    EXPECT_NE(icon(folder), icon(game));
    const Node file = text("file");
    game->subItems().push_back(file);
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(icon(nothing), icon(file));
}

TEST_F(NavigationRows, TheIconsAreThoseOfTheProgram) {
    const Node folder = group("Group");
    const Node file = text("file");
    const Node game = project("Game", {folder, file});
    const Node empty = makeNode("empty", FileType::empty);
    show({game, empty});
    const auto picture = [](const QIcon& icon) { return icon.pixmap(16, 16).toImage(); };
    const std::vector<std::pair<Node, QStringView>> expected{{folder, u"navigationGroup"},
                                                             {game, u"navigationProject"},
                                                             {file, u"navigationFile"},
                                                             {empty, u"navigationFile"}};
    for (const auto& [node, name] : expected) {
        const auto shown = painter().viewForItem(index(node))->imageForItem();
        ASSERT_FALSE(shown->isNull());
        EXPECT_EQ(picture(*shown), picture(iconNamed(name))) << node->itemName();
    }
    EXPECT_EQ(painter().viewForItem({}), nullptr);
}

TEST_F(NavigationRows, AProjectWithoutItsProjectFileIsRed) {
    const Node missing = project("missing game");
    const Node there = project("HHHHHHHH");
    show({project("Selected"), missing, there});
    EXPECT_TRUE(near(nameColour(missing), red()));
    EXPECT_TRUE(near(nameColour(there), Qt::black));
}

TEST_F(NavigationRows, TheRealFileSystemIsAskedWhenNothingElseIsSet) {
    const TemporaryFolder disk;
    disk.write("Game.kst", "{}");
    const Node game = makeNode("Game", FileType::project, {}, disk.path());
    tree->setFileExistence({});
    show({project("Selected"), game});
    EXPECT_TRUE(near(nameColour(game), Qt::black));
    std::filesystem::remove(disk.path() / "Game.kst");
    EXPECT_TRUE(near(nameColour(game), Qt::black)) << "asked again without a reload";
    tree->reloadFileStatusForNavigationContent();
    EXPECT_TRUE(near(nameColour(game), red()));
}

TEST_F(NavigationRows, OnADarkThemeNamesHaveTheThemesColourAndAReadableRed) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(220, 220, 220));
    tree->setPalette(dark);
    const Node missing = project("missing game");
    const Node there = project("HHHHHHHH");
    show({project("Selected"), missing, there});
    EXPECT_TRUE(near(nameColour(there), QColor(220, 220, 220)));
    const QColor red = nameColour(missing);
    EXPECT_GT(red.red(), red.green() + 100);
    EXPECT_GT(red.green(), 80) << "plain red is hard to read on black";
}

TEST_F(NavigationRows, TheSelectedRowOfAMissingFileIsReadOnTheBackgroundOfTheOthers) {
    const Node missing = project("missing game");
    show({missing, project("Other")});
    ASSERT_EQ(tree->selectedItem(), missing);
    const QRect row = view().visualRect(index(missing));
    const QImage image = view().viewport()->grab().toImage();
    const QColor base = view().palette().color(QPalette::Base);
    int plain = 0;
    int inRed = 0;
    for (int x = row.left(); x <= row.right(); ++x) {
        for (int y = row.top(); y <= row.bottom(); ++y) {
            plain += image.pixelColor(x, y) == base ? 1 : 0;
            inRed += near(image.pixelColor(x, y), red()) ? 1 : 0;
        }
    }
    EXPECT_GT(plain, 300);
    EXPECT_GT(inRed, 50);
    // The rest of the row shows that it is selected.
    EXPECT_TRUE(near(image.pixelColor(row.right() - 2, row.center().y()),
                     view().palette().color(QPalette::Highlight)));
}

TEST_F(NavigationRows, AMissingFileIsSaidInToolTipAndAccessibleDescription) {
    const Node missing = makeNode("missing<b>.asm", FileType::text, {}, "/home/game");
    const Node there = text("there.asm");
    const Node folder = group("missing group");
    const Node game = project("missing game", {missing, there, folder});
    show({game});
    expand(game);
    paint();
    const auto says = [&](const Node& node, int role) {
        return index(node).data(role).toString().toStdString();
    };
    EXPECT_EQ(says(missing, Qt::ToolTipRole), "File is missing:\n/home/game/missing<b>.asm");
    EXPECT_FALSE(Qt::mightBeRichText(index(missing).data(Qt::ToolTipRole).toString()));
    EXPECT_EQ(says(game, Qt::ToolTipRole), "File is missing:\n/nowhere/missing game.kst");
    EXPECT_EQ(says(missing, Qt::AccessibleDescriptionRole),
              "Assembly file, file is missing: /home/game/missing<b>.asm");
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view());
    ASSERT_NE(table, nullptr);
    ASSERT_NE(table->tableInterface(), nullptr);
    EXPECT_EQ(table->tableInterface()->cellAt(1, 0)->text(QAccessible::Description).toStdString(),
              "Assembly file, file is missing: /home/game/missing<b>.asm");
    for (const Node& node : {there, folder}) {
        EXPECT_FALSE(index(node).data(Qt::ToolTipRole).isValid());
        EXPECT_THAT(says(node, Qt::AccessibleDescriptionRole),
                    testing::Not(testing::HasSubstr("is missing")));
    }
}

TEST_F(NavigationRows, AMissingFilesNameIsReadOnEveryBackgroundSelectedOrNot) {
    const Node selected = project("missing selected");
    const Node other = project("missing other");
    show({selected, other});
    ASSERT_EQ(tree->selectedItem(), selected);
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    const QColor grey(0x80, 0x80, 0x80);
    for (const auto& [base, text] : {std::pair(white, black),
                                     {QColor(30, 30, 30), white},
                                     {grey, black},
                                     {QColor(0x20, 0x40, 0x60), white}}) {
        for (const QColor& highlight :
             {QColor(0x30, 0x8c, 0xc6), QColor(0xd0, 0x30, 0x30), grey, QColor(0xf0, 0xe0, 0x60)}) {
            setColours(base, text, highlight);
            for (const Node& node : {selected, other}) {
                const QImage image = rowImage(node);
                EXPECT_TRUE(isStruckOut(image, readableRed(base)))
                    << base.name().toStdString() << ' ' << highlight.name().toStdString() << ' '
                    << node->itemName();
            }
        }
    }
}

TEST_F(NavigationRows, OnlyAMissingFilesNameIsStruckOut) {
    const Node missing = project("missing game");
    const Node there = project("a game that is there");
    show({project("Selected"), missing, there});
    EXPECT_TRUE(isStruckOut(rowImage(missing), red()));
    EXPECT_FALSE(isStruckOut(rowImage(there), Qt::black));
}

TEST_F(NavigationRows, TheShadesFollowTheBackground) {
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    EXPECT_EQ(shade(TextColour::black, highlight, Qt::white), QColor(Qt::white));
    EXPECT_EQ(shade(TextColour::darkGrey, Qt::black, Qt::white), QColor(Qt::lightGray));
    EXPECT_GE(contrast(shade(TextColour::darkGrey, Qt::white, Qt::black), Qt::white), 4.5);
}

TEST_F(NavigationRows, OnlyVisibleRowsAreLookedForAndOnceAReload) {
    ProjectItems files;
    for (int i = 0; i < 5000; ++i) {
        files.push_back(text("file" + std::to_string(i)));
    }
    const Node game = project("Game", files);
    show({game});
    expand(game);
    asked.clear();
    tree->reloadFileStatusForNavigationContent();
    for (int i = 0; i < 3; ++i) {
        paint();
        QTest::mouseMove(view().viewport(), QPoint(50, 20 + i * 20));
    }
    EXPECT_GT(asked.size(), 5U);
    EXPECT_LT(asked.size(), 60U);
    for (const auto& [path, times] : asked) {
        EXPECT_EQ(times, 1) << path;
    }
    const std::size_t before = asked.size();
    view().verticalScrollBar()->setValue(2000);
    paint();
    EXPECT_GT(asked.size(), before);
    EXPECT_TRUE(asked.contains("/nowhere/file2005"));
    EXPECT_FALSE(asked.contains("/nowhere/file1000"));
}

} // namespace
} // namespace kestrel::test
