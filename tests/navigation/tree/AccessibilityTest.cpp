// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

#include <QAccessible>

namespace kestrel::test {
namespace {

using testing::ElementsAre;

class NavigationAccessibility : public NavigationTest {
protected:
    NavigationAccessibility() {
        tree->setFileExistence([](const std::filesystem::path& path) {
            return !path.filename().string().starts_with("missing");
        });
    }
    QAccessibleInterface* rows() const { return QAccessible::queryAccessibleInterface(&view()); }

    std::vector<std::string> texts(QAccessible::Text kind) const {
        std::vector<std::string> result;
        for (int i = 0; i < rows()->childCount(); ++i) {
            result.push_back(rows()->child(i)->text(kind).toStdString());
        }
        return result;
    }

    Node inner = text("inner.asm");
    Node folder = group("Group", {inner});
    Node game = project("Game", {folder, makeNode("tiles.chr", FileType::graphics),
                                 makeNode("colours.pal", FileType::palette),
                                 makeNode("other.txt", FileType::unknown), text("missing.asm")});
};

TEST_F(NavigationAccessibility, TheHintIsToldOnlyWhileThereIsNoRow) {
    show({});
    EXPECT_TRUE(rows()->text(QAccessible::Description).startsWith(QStringLiteral("No projects")));
    EXPECT_EQ(rows()->childCount(), 0);
    tree->add(game);
    EXPECT_EQ(rows()->text(QAccessible::Description).toStdString(), "");
    tree->delete_();
    EXPECT_TRUE(rows()->text(QAccessible::Description).startsWith(QStringLiteral("No projects")));
    EXPECT_EQ(rows()->text(QAccessible::Name), QStringLiteral("Projects"));
}

TEST_F(NavigationAccessibility, TheChildrenAreTheVisibleRowsAndNoHeader) {
    show({game, project("Other")});
    EXPECT_THAT(texts(QAccessible::Name), ElementsAre("Game", "Other"));
    expand(game);
    EXPECT_THAT(texts(QAccessible::Name), ElementsAre("Game", "Group", "tiles.chr", "colours.pal",
                                                      "other.txt", "missing.asm", "Other"));
    for (int i = 0; i < rows()->childCount(); ++i) {
        EXPECT_EQ(rows()->child(i)->role(), QAccessible::TreeItem);
        EXPECT_EQ(rows()->indexOfChild(rows()->child(i)), i);
        EXPECT_EQ(rows()->child(i)->parent(), rows());
    }
    EXPECT_EQ(rows()->child(7), nullptr);
    EXPECT_EQ(rows()->child(-1), nullptr);
}

TEST_F(NavigationAccessibility, EachRowTellsItsKindAndAMissingFileItsPath) {
    show({game});
    expand(game);
    EXPECT_THAT(texts(QAccessible::Description),
                ElementsAre("Project", "Group", "Tile file", "Palette file", "File without a kind",
                            "Assembly file, file is missing: /nowhere/missing.asm"));
}

TEST_F(NavigationAccessibility, AMissingFileIsToldBeforeItsRowIsPainted) {
    ProjectItems files;
    for (int i = 0; i < 500; ++i) {
        files.push_back(text("file" + std::to_string(i)));
    }
    files.push_back(text("missing.asm"));
    const Node large = project("Large", files);
    show({large});
    expand(large);
    EXPECT_EQ(rows()->child(501)->text(QAccessible::Description).toStdString(),
              "Assembly file, file is missing: /nowhere/missing.asm");
    EXPECT_TRUE(rows()->child(501)->state().invisible);
    EXPECT_FALSE(rows()->child(1)->state().invisible);
}

TEST_F(NavigationAccessibility, ARowTellsWhetherItIsExpandedSelectedAndFocused) {
    show({game});
    const QAccessible::State closed = rows()->child(0)->state();
    EXPECT_TRUE(closed.expandable && !closed.expanded && closed.collapsed);
    QTest::keyClick(&view(), Qt::Key_Right);
    const QAccessible::State open = rows()->child(0)->state();
    EXPECT_TRUE(open.expandable && open.expanded && !open.collapsed);
    EXPECT_FALSE(rows()->child(2)->state().expandable);
    QTest::keyClick(&view(), Qt::Key_Down);
    ASSERT_NE(rows()->focusChild(), nullptr);
    EXPECT_EQ(rows()->focusChild()->text(QAccessible::Name), QStringLiteral("Group"));
    const QAccessible::State state = rows()->child(1)->state();
    EXPECT_TRUE(state.focused && state.selected && state.focusable && state.selectable);
}

TEST_F(NavigationAccessibility, ARowIsTheSameObjectWhereverItMovesUntilItGoes) {
    show({game});
    expand(game);
    QAccessibleInterface* const tiles = rows()->child(2);
    expand(folder);
    EXPECT_EQ(rows()->child(3), tiles);
    EXPECT_EQ(rows()->indexOfChild(tiles), 3);
    const QAccessible::Id id = QAccessible::uniqueId(tiles);
    view().selectIndex(index(game->subItems().at(1)));
    tree->delete_();
    // Qt sends this where assistive technology can be connected, which it cannot be here.
    QAccessibleTableModelChangeEvent gone(&view(), QAccessibleTableModelChangeEvent::RowsRemoved);
    rows()->tableInterface()->modelChange(&gone);
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_THAT(texts(QAccessible::Name), ElementsAre("Game", "Group", "inner.asm", "colours.pal",
                                                      "other.txt", "missing.asm"));
}

TEST_F(NavigationAccessibility, ARowIsFoundByItsPlaceAndActsOnRequest) {
    show({game, project("Other")});
    QAccessibleInterface* const row = rows()->child(0);
    const QPoint middle = row->rect().center();
    EXPECT_EQ(rows()->childAt(middle.x(), middle.y()), row);
    EXPECT_EQ(middle, view().viewport()->mapToGlobal(centre(game)));
    QAccessibleActionInterface* const actions = row->actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(view().isExpanded(index(game)));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(view().isExpanded(index(game)));
    QAccessibleInterface* const other = rows()->child(1);
    EXPECT_THAT(other->actionInterface()->actionNames(),
                ElementsAre(QAccessibleActionInterface::pressAction()));
    other->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(view().selectedRow(), 1);
}

TEST_F(NavigationAccessibility, TheRowsAreATableOfOneColumn) {
    show({game, project("Other")});
    QAccessibleTableInterface* const table = rows()->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnCount(), 1);
    EXPECT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->cellAt(1, 0), rows()->child(1));
    EXPECT_EQ(table->cellAt(1, 1), nullptr);
    EXPECT_TRUE(table->selectRow(1));
    EXPECT_EQ(table->selectedRows(), QList<int>{1});
    EXPECT_EQ(table->selectedCells(), QList<QAccessibleInterface*>{rows()->child(1)});
    EXPECT_TRUE(rows()->child(1)->tableCellInterface()->isSelected());
    EXPECT_FALSE(table->unselectRow(0));
    EXPECT_TRUE(table->unselectRow(1));
    EXPECT_EQ(table->selectedRowCount(), 0);
}

} // namespace
} // namespace kestrel::test
