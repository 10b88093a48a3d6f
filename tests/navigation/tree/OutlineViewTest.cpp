// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

#include <QHeaderView>

#include <random>

namespace kestrel::test {
namespace {

using testing::ElementsAre;

/// Counts how often it was laid out, and gives up when that does not end.
class CountingOutline : public OutlineView {
public:
    static constexpr int Endless = 500;
    int passes = 0;

protected:
    void updateGeometries() override {
        if (++passes < Endless) {
            OutlineView::updateGeometries();
        }
    }
};

class NavigationOutline : public NavigationTest {
protected:
    static int from(int low, int high, std::mt19937& random) {
        return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
    }

    /// A project of up to 80 files and groups, most with short names and a few with long ones.
    static ProjectItems randomTree(std::mt19937& random) {
        const Node root = project("Game");
        std::vector<Node> containers{root};
        for (int i = from(0, 80, random); i > 0; --i) {
            const bool isLong = from(0, 9, random) == 0;
            const std::string name(static_cast<std::size_t>(from(1, isLong ? 60 : 12, random)),
                                   'm');
            const bool isGroup = from(0, 12, random) == 0;
            const Node node = isGroup ? group(name) : text(name);
            const Node container = containers[random() % containers.size()];
            node->setParent(container);
            container->subItems().push_back(node);
            if (isGroup) {
                containers.push_back(node);
            }
        }
        return {root};
    }

    /// What somebody does with the tree or its window.
    void change(std::mt19937& random) const {
        QScrollBar* bar = view().verticalScrollBar();
        const QModelIndex index = view().indexAtRow(from(0, 40, random));
        switch (from(0, 5, random)) {
        case 0:
            view().expandAll();
            break;
        case 1:
            bar->setValue(from(0, bar->maximum(), random));
            break;
        case 2:
            bar->setValue(bar->maximum());
            break;
        case 3:
            tree->resize(from(120, 400, random), from(60, 700, random));
            break;
        case 4:
            view().setExpanded(index, !view().isExpanded(index));
            break;
        default:
            view().selectIndex(index);
            break;
        }
    }

    /// Lets the view react until nothing is left to do, which must be soon.
    static void settle(CountingOutline& outline) {
        constexpr int Rounds = 40; // each gives Qt's timers a turn
        constexpr int MostPasses = 16;
        outline.passes = 0;
        int last = 0;
        for (int round = 1; round <= Rounds; ++round) {
            const int before = outline.passes;
            QApplication::processEvents();
            last = outline.passes > before ? round : last;
        }
        EXPECT_LE(outline.passes, MostPasses);
        EXPECT_LT(last, Rounds / 2) << "still laid out anew";
    }

    /// Whether something is painted where the row's triangle belongs.
    bool hasTriangle(const Node& node) const {
        const QImage image = view().grab().toImage();
        const QPoint middle = view().viewport()->mapTo(&view(), triangle(node));
        const QRect place(middle - QPoint(6, 6), QSize(13, 13));
        const QRgb ground = image.pixel(place.topLeft());
        for (int x = place.left(); x <= place.right(); ++x) {
            for (int y = place.top(); y <= place.bottom(); ++y) {
                if (image.pixel(x, y) != ground) {
                    return true;
                }
            }
        }
        return false;
    }

    /// Groups nested this deep, each in the one before; gives the innermost.
    static Node nested(const Node& top, int depth) {
        Node at = top;
        for (int i = 0; i < depth; ++i) {
            const Node next = group("level " + std::to_string(i));
            next->setParent(at);
            at->subItems().push_back(next);
            at = next;
        }
        return at;
    }

    Node within = text("within.asm");
    Node file = makeNode("main.asm", FileType::text, {within});
    Node plain = text("plain.asm");
    Node empty = group("Empty");
    Node game = project("Game", {file, plain, empty});
};

TEST_F(NavigationOutline, AFileWithSubItemsShowsATriangle) {
    show({project("Other"), game});
    expand(game);
    EXPECT_TRUE(hasTriangle(file));
    EXPECT_FALSE(hasTriangle(plain));
}

TEST_F(NavigationOutline, AFileWithSubItemsDoesNotExpandByAnyMeans) {
    show({game});
    expand(game);
    const std::vector<std::string> rows = {"Game", "  main.asm", "  plain.asm", "  Empty"};
    click(triangle(file));
    EXPECT_EQ(shown(), rows);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, centre(file));
    EXPECT_EQ(shown(), rows);
    click(file);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Plus, Qt::Key_Asterisk, Qt::Key_Return}) {
        QTest::keyClick(&view(), key);
        EXPECT_EQ(shown(), rows) << key;
        EXPECT_FALSE(view().isExpanded(index(file))) << key;
    }
    view().expand(index(file));
    view().setExpanded(index(file), true);
    EXPECT_FALSE(view().isExpanded(index(file)));
    view().expandRecursively(index(game));
    EXPECT_FALSE(view().isExpanded(index(file)));
    EXPECT_FALSE(view().isExpanded(index(plain)));
    view().expandToDepth(5);
    EXPECT_FALSE(view().isExpanded(index(file)));
    view().expandAll();
    EXPECT_FALSE(view().isExpanded(index(file)));
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(shown(), rows);
    EXPECT_TRUE(hasTriangle(file));
}

TEST_F(NavigationOutline, AnEmptyGroupExpandsAndCollapsesAndKeepsItsTriangle) {
    show({game});
    expand(game);
    EXPECT_TRUE(hasTriangle(empty));
    click(triangle(empty));
    EXPECT_TRUE(view().isExpanded(index(empty)));
    EXPECT_TRUE(hasTriangle(empty));
    tree->reloadFileStatusForNavigationContent();
    view().doItemsLayout();
    EXPECT_TRUE(view().isExpanded(index(empty)));
    EXPECT_TRUE(hasTriangle(empty));
    click(triangle(empty));
    EXPECT_FALSE(view().isExpanded(index(empty)));
}

TEST_F(NavigationOutline, AnExpandedEmptyGroupShowsItsFirstChildAtOnce) {
    show({game});
    expand(game);
    expand(empty);
    click(empty);
    tree->add(text("first.asm"));
    EXPECT_EQ(shown().back(), "    first.asm");
}

TEST_F(NavigationOutline, AFilesTriangleFollowsItsSubItems) {
    show({project("Other"), game});
    expand(game);
    file->subItems().clear();
    plain->subItems().push_back(within);
    tree->reloadFileStatusForNavigationContent();
    EXPECT_FALSE(hasTriangle(file));
    EXPECT_TRUE(hasTriangle(plain));
}

TEST_F(NavigationOutline, RowNumbersCountVisibleRows) {
    const Node folder = group("Group", {text("a"), group("Inner", {text("b")}), text("c")});
    show({project("Above", {text("x")}), project("Mid", {text("y"), folder, text("z")}), game});
    view().expandAll();
    view().collapse(index(folder->subItems()[1]));
    int row = 0;
    for (QModelIndex at = model().index(0, 0); at.isValid(); at = view().indexBelow(at)) {
        EXPECT_EQ(view().rowForIndex(at), row);
        EXPECT_EQ(view().indexAtRow(row), at);
        ++row;
    }
    EXPECT_EQ(row, 13);
    EXPECT_FALSE(view().indexAtRow(row).isValid());
    EXPECT_FALSE(view().indexAtRow(-1).isValid());
    EXPECT_EQ(view().rowForIndex(index(folder->subItems()[1]->subItems()[0])), -1);
    EXPECT_EQ(view().rowForIndex({}), -1);
}

TEST_F(NavigationOutline, TheAsteriskKeyExpandsTheSelectedContainerWhole) {
    const Node folder = group("Group", {group("Inner", {text("b")})});
    const Node other = project("Other", {folder});
    show({other, game});
    click(other);
    QTest::keyClick(&view(), Qt::Key_Asterisk);
    EXPECT_THAT(shown(), ElementsAre("Other", "  Group", "    Inner", "      b", "Game"));
}

TEST_F(NavigationOutline, ATreeOfAThousandLevelsExpandsWholeAndIsPainted) {
    const Node deepest = nested(game, 1000);
    show({game});
    QTest::keyClick(&view(), Qt::Key_Asterisk);
    EXPECT_TRUE(view().isExpanded(index(deepest->parent())));
    EXPECT_EQ(view().rowForIndex(index(deepest)), 1003);
    view().collapseAll();
    view().expandAll();
    EXPECT_EQ(view().rowForIndex(index(deepest)), 1003);
    EXPECT_TRUE(tree->select(deepest));
    EXPECT_TRUE(view().viewport()->rect().intersects(view().visualRect(index(deepest))));
    view().grab();
    tree->reloadFileStatusForNavigationContent();
    EXPECT_EQ(tree->currentlySelectedItem(), deepest);
    EXPECT_EQ(tree->currentlySelectedProject(), game);
    EXPECT_EQ(view().selectedRow(), 1003);
}

TEST_F(NavigationOutline, TheNameOfADeepRowCanBeReached) {
    const Node deepest = nested(game, 200);
    show({game});
    view().expandAll();
    ASSERT_TRUE(tree->select(deepest));
    const QRect row = view().visualRect(index(deepest));
    const int width = view().sizeHintForIndex(index(deepest)).width();
    EXPECT_GE(row.left(), 0);
    EXPECT_LE(row.left() + width, view().viewport()->width());
    EXPECT_GE(row.width(), width);
    // Back at the top the view starts at the left again.
    ASSERT_TRUE(tree->select(game));
    EXPECT_EQ(view().horizontalScrollBar()->value(), 0);
}

TEST_F(NavigationOutline, SelectingALongNameLeavesTheTrianglesInSight) {
    const Node wide = text(std::string(100, 'm'));
    game->subItems().push_back(wide);
    wide->setParent(game);
    show({game});
    expand(game);
    ASSERT_TRUE(tree->select(wide));
    QApplication::processEvents();
    ASSERT_GT(view().horizontalScrollBar()->maximum(), view().indentation());
    EXPECT_EQ(view().horizontalScrollBar()->value(), 0);
    // What somebody scrolled to stays while the row's own triangle is in sight.
    view().horizontalScrollBar()->setValue(view().indentation() / 2);
    ASSERT_TRUE(tree->select(wide));
    EXPECT_EQ(view().horizontalScrollBar()->value(), view().indentation() / 2);
    view().horizontalScrollBar()->setValue(view().horizontalScrollBar()->maximum());
    ASSERT_TRUE(tree->select(wide));
    EXPECT_EQ(view().horizontalScrollBar()->value(), 0);
}

TEST_F(NavigationOutline, ScrollingDownToDeepRowsMakesTheColumnWideEnough) {
    const Node deepest = nested(game, 200);
    show({game});
    view().expandAll();
    QApplication::processEvents();
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
    QApplication::processEvents();
    view().horizontalScrollBar()->setValue(view().horizontalScrollBar()->maximum());
    const QRect row = view().visualRect(index(deepest));
    EXPECT_TRUE(view().viewport()->rect().contains(row.center()));
    EXPECT_GE(row.width(), view().sizeHintForIndex(index(deepest)).width());
}

TEST_F(NavigationOutline, TheLayoutSettlesWhateverRowsAreInSight) {
    for (unsigned seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        auto* counting = new CountingOutline;
        tree->setOutlineView(counting);
        show(randomTree(random));
        settle(*counting);
        for (int step = 0; step < 12; ++step) {
            SCOPED_TRACE(step);
            change(random);
            settle(*counting);
        }
        if (HasFailure()) {
            break; // the rest would only say the same
        }
    }
}

TEST_F(NavigationOutline, AWideRowAtTheLowerEdgeDoesNotMakeTheLayoutGoInCircles) {
    ProjectItems files;
    for (int i = 0; i < 60; ++i) {
        files.push_back(text(i == 41 ? "enemy_behaviour_tables.asm" : "f.asm"));
    }
    game = project("Game", files);
    auto* counting = new CountingOutline;
    tree->setOutlineView(counting);
    show({game});
    expand(game);
    const int width = view().sizeHintForIndex(index(files[41])).width() + 2 * view().indentation();
    const int rowHeight = view().visualRect(index(game)).height();
    for (int height = 400; height < 400 + rowHeight; ++height) {
        tree->resize(width - 20, height);
        for (int row = 0; row <= view().verticalScrollBar()->maximum(); ++row) {
            view().verticalScrollBar()->setValue(row);
            settle(*counting);
        }
        ASSERT_FALSE(HasFailure()) << height;
    }
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
    settle(*counting);
    EXPECT_TRUE(view().viewport()->rect().contains(centre(files.back())));
}

TEST_F(NavigationOutline, TheColumnIsNarrowAgainOnceTheWideRowsAreHidden) {
    const Node deepest = nested(game, 200);
    show({game});
    view().expandAll();
    ASSERT_TRUE(tree->select(deepest));
    ASSERT_GT(view().header()->length(), view().viewport()->width());
    view().collapse(index(game));
    QApplication::processEvents();
    EXPECT_EQ(view().header()->length(), view().viewport()->width());
    view().expandAll();
    ASSERT_TRUE(tree->select(deepest));
    ASSERT_GT(view().header()->length(), view().viewport()->width());
    game->subItems().clear();
    tree->reloadFileStatusForNavigationContent();
    QApplication::processEvents();
    EXPECT_EQ(view().header()->length(), view().viewport()->width());
}

TEST_F(NavigationOutline, WithoutRowsAHintSaysWhatToDoNext) {
    show({});
    view().setEmptyText(QString());
    const QImage blank = view().grab().toImage();
    view().setEmptyText(QStringLiteral("Make one"));
    EXPECT_NE(view().grab().toImage(), blank);
    EXPECT_EQ(view().accessibleDescription(), QStringLiteral("Make one"));
    show({project("A")});
    const QImage withRow = view().grab().toImage();
    view().setEmptyText(QString());
    EXPECT_EQ(view().grab().toImage(), withRow);
}

} // namespace
} // namespace kestrel::test
