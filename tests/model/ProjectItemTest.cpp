// SPDX-License-Identifier: MIT
#include "model/ModelFixtures.h"
#include "model/ProjectNavigationSettingItem.h"

#include <gtest/gtest.h>

#include <functional>

namespace kestrel {
namespace {

using namespace test;

TEST(ProjectItem, ANewNodeHasNoParentNoChildrenAndNoPathKind) {
    const ProjectNavigationSettingItem node("a.asm", "/files", FileType::text, ProjectType::nes);
    EXPECT_EQ(node.parent(), nullptr);
    EXPECT_TRUE(node.subItems().empty());
    EXPECT_EQ(node.itemPathType(), FilePathType::noPath);
    EXPECT_EQ(node.itemName(), "a.asm");
    EXPECT_EQ(node.itemPath(), "/files");
    EXPECT_EQ(node.itemFileType(), FileType::text);
    EXPECT_EQ(node.projectType(), ProjectType::nes);
}

TEST(ProjectItem, EveryHolderSeesAChangeAtOnce) {
    const auto node = makeGroup("old");
    const auto other = node; // NOLINT(performance-unnecessary-copy-initialization)
    node->setItemName("new");
    node->setItemFileType(FileType::palette);
    node->setItemPathType(FilePathType::relative);
    node->setItemPath("elsewhere");
    node->setProjectType(ProjectType::nes);
    EXPECT_EQ(other->itemName(), "new");
    EXPECT_EQ(other->itemFileType(), FileType::palette);
    EXPECT_EQ(other->itemPathType(), FilePathType::relative);
    EXPECT_EQ(other->itemPath(), "elsewhere");
}

TEST(ProjectItem, ChildrenAreEditedInPlace) {
    const auto project = makeProject("p", "/p");
    const auto first = addChild(project, makeGroup("first"));
    const auto second = addChild(project, makeGroup("second"));
    project->subItems().erase(project->subItems().begin());
    project->subItems().push_back(first);
    EXPECT_EQ(project->subItems(), (ProjectItems{second, first}));
}

TEST(ProjectItem, AParentIsNotKeptAliveByItsChildren) {
    auto project = makeProject("p", "/p");
    const auto child = addChild(project, makeGroup("g"));
    EXPECT_EQ(child->parent(), project);
    const std::weak_ptr<ProjectItem> watched = project;
    project.reset();
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(child->parent(), nullptr);
}

TEST(ProjectItem, ChildrenThatSomebodyHoldsOutliveTheTreeWithTheirOwnChildren) {
    auto project = makeProject("p", "/p");
    const auto held = addChild(addChild(project, makeGroup("outer")), makeGroup("held"));
    addChild(held, makeText("a.asm", "/p"));
    const std::weak_ptr<ProjectItem> dropped = project->subItems().front();
    project.reset();
    EXPECT_TRUE(dropped.expired());
    ASSERT_EQ(held->subItems().size(), 1U);
    EXPECT_EQ(held->subItems().front()->itemName(), "a.asm");
}

TEST(ProjectItem, TheIdentityIsTheHashOfTheNamePlusTheNumberOfTheKind) {
    const auto base = static_cast<std::uint64_t>(std::hash<std::string>()("name"));
    for (const FileType type :
         {FileType::project, FileType::group, FileType::empty, FileType::unknown, FileType::text,
          FileType::palette, FileType::graphics}) {
        const auto node = makeNode("name", "/x", type, FilePathType::noPath);
        EXPECT_EQ(static_cast<std::uint64_t>(node->uniqueID()),
                  base + static_cast<std::uint64_t>(type));
    }
}

TEST(ProjectItem, TwoFilesOfOneNameInDifferentGroupsHaveTheSameIdentity) {
    const auto project = makeProject("p", "/p");
    const auto one = addChild(addChild(project, makeGroup("g1")), makeText("a.asm", "/p/1"));
    const auto two = addChild(addChild(project, makeGroup("g2")), makeText("a.asm", "/p/2"));
    EXPECT_EQ(one->uniqueID(), two->uniqueID());
    two->setItemFileType(FileType::palette);
    EXPECT_NE(one->uniqueID(), two->uniqueID());
    two->setItemFileType(FileType::text);
    two->setItemName("b.asm");
    EXPECT_NE(one->uniqueID(), two->uniqueID());
}

TEST(ProjectItem, TheStoredFormHasAllMembersInTheirOrder) {
    const auto project = makeProject("demo", "/home/x/demo/");
    addChild(project, makeText("a.asm", "/src"));
    EXPECT_EQ(project->toDictionary().dump(),
              R"({"name":"demo","path":"/home/x/demo","path_type":"absolute_path",)"
              R"("type":"project","project_type":"nes","sub_items":[)"
              R"({"name":"a.asm","path":"/src","path_type":"absolute_path","type":"text",)"
              R"("project_type":"nes","sub_items":[]}]})");
    EXPECT_EQ(ProjectItem::processValues(*project), project->toDictionary());
}

TEST(ProjectItem, AGroupIsStoredWithItsPathAlthoughItHasNone) {
    const Dictionary stored = makeGroup("g")->toDictionary();
    EXPECT_EQ(stringMember(stored, "path"), "groups");
    EXPECT_EQ(stringMember(stored, "path_type"), "no_path");
}

TEST(ProjectItem, ATreeThatWasBuiltVeryDeepIsWalkedAndDestroyed) {
    auto root = makeGroup("root");
    auto node = root;
    for (int i = 0; i < 50'000; ++i) {
        node = addChild(node, makeGroup("n"));
    }
    const std::weak_ptr<ProjectItem> deepest = node;
    node.reset();
    EXPECT_FALSE(serialiseJson(root->toDictionary()));
    root.reset();
    EXPECT_TRUE(deepest.expired());
}

} // namespace
} // namespace kestrel
