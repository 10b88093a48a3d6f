// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"

#include <algorithm>
#include <any>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeleteRow : public WindowTest {
protected:
    /// Starts with one project, its file selected and the project collapsed over it.
    void startWithRowOutOfSight() {
        registerProject("Game");
        start();
        OutlineView& view = *tree().outlineView();
        ASSERT_TRUE(tree().select(tree().allItems()[0]->subItems()[0]));
        view.collapse(view.indexAtRow(0));
        ASSERT_EQ(view.selectedRow(), -1);
        ASSERT_EQ(tree().selectedItem()->itemName(), "main.asm");
    }

    QAction* menuBarEntry() const {
        const QList<QAction*> entries = menu("fileMenu")->actions();
        const auto entry = std::find_if(entries.begin(), entries.end(), [](const QAction* each) {
            return each->text() == QStringLiteral("&Delete");
        });
        return entry == entries.end() ? nullptr : *entry;
    }

    ProjectItems files() const { return tree().allItems()[0]->subItems(); }
};

TEST_F(DeleteRow, TheMenuBarFirstShowsARowThatIsOutOfSight) {
    startWithRowOutOfSight();
    ASSERT_NE(menuBarEntry(), nullptr);
    menuBarEntry()->trigger();
    EXPECT_THAT(names(files()), ElementsAre("main.asm"));
    EXPECT_EQ(tree().outlineView()->selectedRow(), 1);
    menuBarEntry()->trigger();
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(DeleteRow, WhatTheContextMenuPostsDeletesARowThatIsOutOfSightAtOnce) {
    startWithRowOutOfSight();
    centre.post(ProjectNavigationMenuClicked,
                std::any(ProjectNavigationMenuClickedOptions::delete_));
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(DeleteRow, TheMenuBarsEntryIsGreyWithoutASelectedRow) {
    registerProject("Game");
    start();
    ASSERT_NE(menuBarEntry(), nullptr);
    EXPECT_TRUE(menuBarEntry()->isEnabled());
    menuBarEntry()->trigger();
    EXPECT_THAT(projects(), IsEmpty());
    EXPECT_FALSE(menuBarEntry()->isEnabled());
}

} // namespace
} // namespace kestrel
