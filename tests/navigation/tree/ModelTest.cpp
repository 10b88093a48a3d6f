// SPDX-License-Identifier: MIT
#include "navigation/tree/NavigationFixture.h"

#include <QSignalSpy>

#include <random>

namespace kestrel::test {
namespace {

using testing::ElementsAre;

class NavigationModel : public testing::Test {
protected:
    /// The mirror must hold exactly what the nodes hold; gives the number of rows.
    int expectMirror(const ProjectItems& nodes, const QModelIndex& parent = {}) {
        EXPECT_EQ(model.rowCount(parent), static_cast<int>(nodes.size()));
        int count = 0;
        for (int i = 0; i < model.rowCount(parent); ++i) {
            const QModelIndex index = model.index(i, 0, parent);
            const Node node = model.item(index);
            EXPECT_EQ(node, nodes[static_cast<std::size_t>(i)]);
            EXPECT_EQ(index.row(), i);
            EXPECT_EQ(model.parent(index), parent);
            EXPECT_EQ(index.data().toString().toStdString(), node->itemName());
            const bool opens = ProjectNavigationModel::shouldExpandItem(node);
            count += 1 + expectMirror(opens ? node->subItems() : ProjectItems{}, index);
        }
        return count;
    }

    ProjectNavigationModel model;
    std::unique_ptr<QAbstractItemModelTester> tester = std::make_unique<QAbstractItemModelTester>(
        &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy inserts{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removes{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changes{&model, &QAbstractItemModel::dataChanged};
};

std::vector<int> range(const QList<QVariant>& arguments) {
    return {arguments.at(1).toInt(), arguments.at(2).toInt()};
}

TEST_F(NavigationModel, AReloadWithoutChangesTellsNothing) {
    const ProjectItems roots = {project("Game", {group("Group", {text("a")}), text("b")})};
    model.reload(roots);
    inserts.clear();
    model.reload(roots);
    EXPECT_EQ(inserts.count() + removes.count() + changes.count() + resets.count(), 0);
}

TEST_F(NavigationModel, AnInsertedNodeIsOneInsertedRow) {
    const Node game = project("Game", {text("a"), text("b")});
    model.reload({game});
    inserts.clear();
    game->subItems().insert(game->subItems().begin() + 1, group("new", {text("within")}));
    model.reload({game});
    ASSERT_EQ(inserts.count(), 1);
    EXPECT_THAT(range(inserts[0]), ElementsAre(1, 1));
    EXPECT_EQ(removes.count(), 0);
    expectMirror({game});
}

TEST_F(NavigationModel, NeighboursThatGoAreOneRemoval) {
    const Node game = project("Game", {text("a"), text("b"), text("c"), text("d"), text("e")});
    model.reload({game});
    auto& items = game->subItems();
    items.erase(items.begin() + 1, items.begin() + 3);
    items.pop_back();
    model.reload({game});
    ASSERT_EQ(removes.count(), 2);
    EXPECT_THAT(range(removes[0]), ElementsAre(4, 4));
    EXPECT_THAT(range(removes[1]), ElementsAre(1, 2));
    expectMirror({game});
}

TEST_F(NavigationModel, ARenamedNodeIsOneChange) {
    const Node file = text("a");
    const Node game = project("Game", {file, text("b")});
    model.reload({game});
    file->setItemName("renamed");
    model.reload({game});
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0].at(0).toModelIndex(), model.indexOf(file));
    EXPECT_EQ(model.indexOf(file).data().toString(), QStringLiteral("renamed"));
}

TEST_F(NavigationModel, ASwappedNodeOfTheSameNameIsAnotherRow) {
    const Node game = project("Game", {text("a")});
    model.reload({game});
    game->subItems()[0] = text("a");
    inserts.clear();
    model.reload({game});
    EXPECT_EQ(inserts.count(), 1);
    EXPECT_EQ(removes.count(), 1);
    expectMirror({game});
}

TEST_F(NavigationModel, AFileThatBecomesAGroupGetsItsRows) {
    const Node file = makeNode("a", FileType::unknown, {text("within")});
    model.reload({project("Game", {file})});
    EXPECT_EQ(model.rowCount(model.indexOf(file)), 0);
    EXPECT_TRUE(model.hasChildren(model.indexOf(file)));
    const Node game = model.item(model.index(0, 0));
    file->setItemFileType(FileType::group);
    model.reload({game});
    EXPECT_EQ(model.rowCount(model.indexOf(file)), 1);
    file->setItemFileType(FileType::text);
    model.reload({game});
    EXPECT_EQ(model.rowCount(model.indexOf(file)), 0);
}

TEST_F(NavigationModel, WhatIsExpandable) {
    using Model = ProjectNavigationModel;
    EXPECT_TRUE(Model::isItemExpandable(group("empty")));
    EXPECT_FALSE(Model::isItemExpandable(project("empty")));
    EXPECT_TRUE(Model::isItemExpandable(project("full", {text("a")})));
    EXPECT_FALSE(Model::isItemExpandable(text("file")));
    EXPECT_TRUE(Model::isItemExpandable(makeNode("file", FileType::text, {text("a")})));
    EXPECT_FALSE(Model::isItemExpandable(nullptr));
    EXPECT_TRUE(Model::shouldExpandItem(group("empty")));
    EXPECT_TRUE(Model::shouldExpandItem(project("empty")));
    for (const FileType type : {FileType::empty, FileType::unknown, FileType::text,
                                FileType::palette, FileType::graphics}) {
        EXPECT_FALSE(Model::shouldExpandItem(makeNode("file", type, {text("a")})));
    }
    EXPECT_FALSE(Model::shouldExpandItem(nullptr));
}

TEST_F(NavigationModel, EditingARowIsAcceptedAndIgnored) {
    const Node game = project("Game");
    model.reload({game});
    const QModelIndex index = model.index(0, 0);
    EXPECT_TRUE(model.setData(index, QStringLiteral("Other"), Qt::EditRole));
    EXPECT_EQ(game->itemName(), "Game");
    EXPECT_EQ(index.data().toString(), QStringLiteral("Game"));
    EXPECT_FALSE(index.flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(NavigationModel, ARowWithoutANodeShowsNothing) {
    const Node game = project("Game", {nullptr, text("a"), nullptr});
    model.reload({game});
    const QModelIndex index = model.index(0, 0, model.index(0, 0));
    EXPECT_FALSE(index.data().isValid());
    EXPECT_EQ(model.item(index), nullptr);
    EXPECT_FALSE(model.hasChildren(index));
    game->subItems().erase(game->subItems().begin());
    model.reload({game});
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 2);
}

/// One random edit somewhere in the tree: insert, remove, move, rename, or another kind.
void edit(ProjectItems& roots, std::mt19937& random, int number) {
    ProjectItems* list = &roots;
    while (!list->empty() && random() % 3 != 0) {
        const Node& node = (*list)[random() % list->size()];
        if (!ProjectNavigationModel::shouldExpandItem(node)) {
            break;
        }
        list = &node->subItems();
    }
    const auto place = [&](std::size_t size) {
        return list->begin() + static_cast<std::ptrdiff_t>(size == 0 ? 0 : random() % size);
    };
    const unsigned kind = random() % 8;
    const std::string name = "node" + std::to_string(number);
    if (list->empty() || kind < 3) {
        list->insert(place(list->size() + 1), kind == 0 ? text(name) : group(name));
    } else if (kind < 5) {
        list->erase(place(list->size()));
    } else if (kind == 5) {
        std::swap(*place(list->size()), *place(list->size()));
    } else if (kind == 6) {
        (*place(list->size()))->setItemName(name);
    } else {
        const Node node = *place(list->size());
        if (node->subItems().empty()) {
            list->insert(place(list->size() + 1), node); // the same node twice
        }
    }
}

TEST_F(NavigationModel, AfterAnyEditsTheMirrorIsExactWithoutEverAReset) {
    std::mt19937 random(20240607);
    ProjectItems roots = {project("Game"), project("Other")};
    for (int round = 0; round < 300; ++round) {
        const int edits = static_cast<int>(random() % 5);
        for (int i = 0; i < edits; ++i) {
            edit(roots, random, round * 10 + i);
        }
        model.reload(roots);
        expectMirror(roots);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_EQ(resets.count(), 0);
    EXPECT_GT(inserts.count(), 100);
    EXPECT_GT(removes.count(), 50);
}

TEST_F(NavigationModel, AHundredThousandNodesAreMirroredAndFollowed) {
    tester.reset(); // it walks all rows after each signal
    ProjectItems groups;
    for (int i = 0; i < 1000; ++i) {
        ProjectItems files;
        for (int j = 0; j < 99; ++j) {
            files.push_back(text("file" + std::to_string(j)));
        }
        groups.push_back(group("Group", files));
    }
    const Node game = project("Game", groups);
    model.reload({game});
    EXPECT_EQ(expectMirror({game}), 100001);
    inserts.clear();
    game->subItems()[500]->subItems().insert(game->subItems()[500]->subItems().begin() + 50,
                                             text("new"));
    game->subItems().erase(game->subItems().begin() + 100);
    model.reload({game});
    EXPECT_EQ(inserts.count(), 1);
    EXPECT_EQ(removes.count(), 1);
    EXPECT_EQ(expectMirror({game}), 100001 - 100 + 1);
}

} // namespace
} // namespace kestrel::test
