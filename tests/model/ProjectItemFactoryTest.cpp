// SPDX-License-Identifier: MIT
#include "model/ProjectItemFactory.h"

#include "model/ModelFixtures.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

namespace kestrel {
namespace {

using namespace test;
using Lines = std::vector<std::string>;

std::shared_ptr<ProjectItem> processed(const std::string& text) {
    const auto dictionary = parseJson(text);
    EXPECT_TRUE(dictionary) << text;
    return dictionary ? ProjectItemFactory::process(*dictionary, nullptr) : nullptr;
}

Lines childNames(const ProjectItem& node) {
    Lines names;
    for (const auto& child : node.subItems()) {
        names.push_back(child->itemName());
    }
    return names;
}

std::ptrdiff_t failures(const LogCapture& log) {
    const Lines lines = log.lines();
    return std::count(lines.begin(), lines.end(), "FAILLLEED");
}

TEST(ProjectItemFactory, AnEmptyDictionaryYieldsNoNodeAndOneLogLine) {
    const LogCapture log;
    EXPECT_EQ(processed("{}"), nullptr);
    EXPECT_EQ(log.lines(),
              (Lines{"FAILLLEED", "A stored node without a name: its member \"name\" is missing"}));
}

TEST(ProjectItemFactory, WhatIsNoDictionaryYieldsNoNode) {
    const LogCapture log;
    EXPECT_EQ(processed("[]"), nullptr);
    EXPECT_EQ(processed("\"name\""), nullptr);
    EXPECT_EQ(processed("null"), nullptr);
    EXPECT_EQ(failures(log), 3);
    EXPECT_EQ(log.lines().back(), "A stored node without a name: it is no object");
}

TEST(ProjectItemFactory, AWrongKindTextYieldsNoNodeAndNotUnknown) {
    const LogCapture log;
    EXPECT_EQ(processed(storedNode("a", "Text")), nullptr);
    EXPECT_EQ(processed(storedNode("a", "asm")), nullptr);
    EXPECT_EQ(
        log.lines(),
        (Lines{
            "FAILLLEED",
            "The stored node \"a\": its member \"type\" is \"Text\", which is none of the known",
            "FAILLLEED",
            "The stored node \"a\": its member \"type\" is \"asm\", which is none of the known"}));
}

TEST(ProjectItemFactory, EachRequiredMemberMissingOrOfAWrongTypeYieldsNoNode) {
    const Dictionary good = *parseJson(storedNode("a", "text"));
    for (const std::string key : {"name", "path", "path_type", "type"}) {
        const LogCapture log;
        Dictionary missing = good;
        missing.erase(key);
        EXPECT_EQ(ProjectItemFactory::process(missing, nullptr), nullptr) << key;
        for (const Dictionary& wrong :
             {Dictionary(7), Dictionary(nullptr), Dictionary::array({"text"})}) {
            Dictionary changed = good;
            changed[key] = wrong;
            EXPECT_EQ(ProjectItemFactory::process(changed, nullptr), nullptr) << key;
        }
        const std::string member = "its member \"" + key + "\" is ";
        const std::string node =
            key == "name" ? "A stored node without a name: " : "The stored node \"a\": ";
        EXPECT_EQ(log.lines(), (Lines{"FAILLLEED", node + member + "missing", "FAILLLEED",
                                      node + member + "no text but number", "FAILLLEED",
                                      node + member + "no text but null", "FAILLLEED",
                                      node + member + "no text but array"}));
    }
}

TEST(ProjectItemFactory, AnUnknownPathKindYieldsNoNode) {
    const LogCapture log;
    EXPECT_EQ(processed(R"({"name":"a","path":"","path_type":"absolute","type":"text"})"), nullptr);
    EXPECT_EQ(log.lines(), (Lines{"FAILLLEED", "The stored node \"a\": its member \"path_type\" is "
                                               "\"absolute\", which is none of the known"}));
}

TEST(ProjectItemFactory, ANodeWithoutChildrenOrWithAnEmptyListIsALeaf) {
    const LogCapture log;
    const auto without = processed(R"({"name":"a","path":"","path_type":"no_path","type":"text"})");
    const auto empty = processed(storedNode("a", "text"));
    ASSERT_TRUE(without);
    ASSERT_TRUE(empty);
    EXPECT_TRUE(without->subItems().empty());
    EXPECT_TRUE(empty->subItems().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST(ProjectItemFactory, OneBadElementDropsTheWholeListWithoutALogLine) {
    const LogCapture log;
    for (const std::string& list :
         {"[" + storedNode("a", "text") + ",7]", "[[]," + storedNode("a", "text") + "]",
          std::string("[null]"), std::string("{}"), std::string("\"x\""), std::string("null")}) {
        const auto node = processed(storedNode("p", "project", "\"sub_items\":" + list));
        ASSERT_TRUE(node) << list;
        EXPECT_TRUE(node->subItems().empty()) << list;
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST(ProjectItemFactory, AChildThatCannotBeReadIsDroppedAndItsSiblingsLoadInOrder) {
    const LogCapture log;
    const auto node =
        processed(storedNode("p", "project",
                             R"("sub_items":[)" + storedNode("before", "text") +
                                 R"(,{"name":"bad","path_type":"no_path","type":"group",)" +
                                 R"("sub_items":[{},{}]},)" + storedNode("after", "text") + "]"));
    ASSERT_TRUE(node);
    EXPECT_EQ(childNames(*node), (Lines{"before", "after"}));
    EXPECT_EQ(log.lines(),
              (Lines{"FAILLLEED", "The stored node \"bad\": its member \"path\" is missing"}));
}

TEST(ProjectItemFactory, EachRejectedNodeLogsOnce) {
    const LogCapture log;
    const std::string inner = storedNode("g", "group", R"("sub_items":[{},{}])");
    ASSERT_TRUE(processed(storedNode("p", "project", R"("sub_items":[{},)" + inner + ",{}]")));
    EXPECT_EQ(failures(log), 4);
}

TEST(ProjectItemFactory, AnyProjectTypeLoadsAsNes) {
    for (const std::string type : {R"("project_type":"snes",)", R"("project_type":7,)", ""}) {
        const auto node =
            processed("{" + type + R"("name":"a","path":"","path_type":"no_path","type":"text"})");
        ASSERT_TRUE(node) << type;
        EXPECT_EQ(node->projectType(), ProjectType::nes);
        EXPECT_EQ(stringMember(node->toDictionary(), "project_type"), "nes");
    }
}

TEST(ProjectItemFactory, AGroupWithAPathIsReadBackTheSame) {
    const auto group = ProjectItemFactory::process(makeGroup("g")->toDictionary(), nullptr);
    ASSERT_TRUE(group);
    EXPECT_EQ(group->itemPath(), "groups");
    EXPECT_EQ(group->itemPathType(), FilePathType::noPath);
    EXPECT_EQ(group->itemFileType(), FileType::group);
}

TEST(ProjectItemFactory, TheRootGetsTheGivenParent) {
    const auto parent = makeProject("p", "/p");
    const auto node = ProjectItemFactory::process(makeGroup("g")->toDictionary(), parent);
    ASSERT_TRUE(node);
    EXPECT_EQ(node->parent(), parent);
    EXPECT_TRUE(parent->subItems().empty());
}

TEST(ProjectItemFactory, ATreeOfDepthThreeSurvivesWritingAndReading) {
    const auto project = makeProject("demo", "/home/x/demo");
    const auto group = addChild(project, makeGroup("sources"));
    addChild(group, makeText("main.asm", "/home/x/demo/src"));
    addChild(group, makeNode("b.pal", "data", FileType::palette, FilePathType::relative));
    addChild(project, makeNode("c.chr", "", FileType::graphics, FilePathType::relative));
    addChild(project, makeNode("d", "/y", FileType::unknown, FilePathType::absolute));
    addChild(project, makeNode("e", "/z", FileType::empty, FilePathType::noPath));
    const auto text = serialiseJson(project->toDictionary());
    ASSERT_TRUE(text);

    const auto read = processed(*text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->toDictionary(), project->toDictionary());
    EXPECT_EQ(read->parent(), nullptr);
    EXPECT_EQ(childNames(*read), (Lines{"sources", "c.chr", "d", "e"}));
    for (const auto& child : read->subItems()) {
        EXPECT_EQ(child->parent(), read);
    }
    const auto& sources = read->subItems().front();
    ASSERT_EQ(childNames(*sources), (Lines{"main.asm", "b.pal"}));
    EXPECT_EQ(sources->subItems()[0]->parent(), sources);
    EXPECT_EQ(sources->subItems()[1]->parent(), sources);
    EXPECT_EQ(sources->subItems()[1]->itemPathType(), FilePathType::relative);
    EXPECT_EQ(sources->subItems()[1]->itemPath(), "data");
    EXPECT_EQ(sources->subItems()[1]->itemFileType(), FileType::palette);
}

TEST(ProjectItemFactory, ATreeOfAThousandLevelsSurvivesWritingAndReading) {
    const auto tree = processed(storedTree(1000));
    ASSERT_TRUE(tree);
    EXPECT_EQ(depthOf(tree), 1000);
    const auto text = serialiseJson(tree->toDictionary());
    ASSERT_TRUE(text);
    EXPECT_EQ(depthOf(processed(*text)), 1000);
    EXPECT_FALSE(parseJson(storedTree(1001)));
}

TEST(ProjectItemFactory, ListsGiveTheNodesThatCanBeRead) {
    const LogCapture log;
    const auto items = ProjectItemFactory::processList(
        *parseJson("[" + storedNode("a", "text") + ",{}," + storedNode("b", "palette") + "]"));
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0]->itemName(), "a");
    EXPECT_EQ(items[1]->itemName(), "b");
    EXPECT_EQ(failures(log), 1);
    EXPECT_TRUE(
        ProjectItemFactory::processList(*parseJson("[" + storedNode("a", "text") + ",1]")).empty());
    EXPECT_TRUE(ProjectItemFactory::processList(Dictionary("a")).empty());
}

TEST(ProjectItemFactory, OnlyWhatIsKnownAndWellTypedIsUnderstoodWhole) {
    const LogCapture log;
    const auto understood = [](const std::string& text) {
        return ProjectItemFactory::understandsWhole(*parseJson(text));
    };
    const std::string leaf = storedNode("a", "text");
    EXPECT_TRUE(understood(leaf));
    EXPECT_TRUE(understood(storedTree(1000)));
    EXPECT_TRUE(understood(storedNode("p", "project", "\"sub_items\":[" + leaf + "]")));
    EXPECT_TRUE(understood(R"({"name":"a","path":"","path_type":"no_path","type":"text"})"));
    EXPECT_FALSE(understood("{}"));
    EXPECT_FALSE(understood("[]"));
    EXPECT_FALSE(understood(storedNode("a", "asm")));
    EXPECT_FALSE(understood(storedNode("a", "text", R"("colour":"red")")));
    EXPECT_FALSE(understood(storedNode("a", "text", R"("sub_items":7)")));
    EXPECT_FALSE(understood(storedNode("p", "project", "\"sub_items\":[" + leaf + ",7]")));
    EXPECT_FALSE(understood(storedNode("p", "project", "\"sub_items\":[" + leaf + ",{}]")));
    EXPECT_FALSE(understood(
        R"({"name":"a","path":"","path_type":"no_path","type":"text","project_type":"snes"})"));
    EXPECT_TRUE(log.lines().empty());
}

} // namespace
} // namespace kestrel
