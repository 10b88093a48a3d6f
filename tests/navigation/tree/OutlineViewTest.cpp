// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

namespace kestrel::test {
namespace {

using testing::ElementsAre;

class NavigationOutline : public NavigationTest {
protected:
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
