// SPDX-License-Identifier: MIT
#include "navigation/container/ContainerFixture.h"
#include "navigation/tree/NodeRoot.h"

#include <algorithm>
#include <random>

namespace kestrel::test {
namespace {

/// Long runs of commands as a hasty user gives them, with everything that must hold looked at after
/// each one.
class ContainerSequences : public ContainerTest {
protected:
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    }

    QModelIndex anyVisibleRow() {
        std::vector<QModelIndex> rows;
        for (QModelIndex at = tree().model()->index(0, 0); at.isValid();
             at = view().indexBelow(at)) {
            rows.push_back(at);
        }
        return rows.empty() ? QModelIndex() : rows[below(rows.size())];
    }

    void selectAnyRow() {
        if (const QModelIndex row = anyVisibleRow(); row.isValid()) {
            view().scrollTo(row);
            QTest::mouseClick(view().viewport(), Qt::LeftButton, Qt::NoModifier,
                              view().visualRect(row).center());
        }
    }

    void toggleAnyRow() {
        if (const QModelIndex row = anyVisibleRow(); row.isValid()) {
            view().setExpanded(row, !view().isExpanded(row));
        }
    }

    void makeAnyFile() {
        const std::string name = "new" + std::to_string(below(6));
        command(Option::newFile);
        if (container->newFileController() != nullptr && sheet() != nullptr) {
            finishWizard(container->newFileController(), static_cast<int>(below(3)), name.c_str());
        }
    }

    void step() {
        switch (below(10)) {
        case 0:
            return makeAnyFile();
        case 1:
            answer = foreign;
            return command(Option::importFile);
        case 2:
        case 3:
            return command(Option::newGroup);
        case 4:
        case 5:
            if (tree().selectedItem() && (tree().selectedItem()->parent() || below(4) == 0)) {
                command(Option::delete_);
            }
            return;
        case 6:
            return container->undoDelete();
        case 7:
            return toggleAnyRow();
        default:
            return selectAnyRow();
        }
    }

    void expectRowsAreTheNodes(const QModelIndex& index, const ProjectItems& items) const {
        ASSERT_EQ(tree().model()->rowCount(index), static_cast<int>(items.size()));
        for (std::size_t i = 0; i < items.size(); ++i) {
            const QModelIndex row = tree().model()->index(static_cast<int>(i), 0, index);
            ASSERT_EQ(tree().model()->item(row), items[i]);
            expectRowsAreTheNodes(row, items[i]->subItems());
        }
    }

    static void expectRootIs(const Node& root, const Node& node) {
        ASSERT_EQ(findParentFromItem(node), root) << node->itemName();
        for (const Node& child : node->subItems()) {
            expectRootIs(root, child);
        }
    }

    void expectAllIsInOrder() const {
        expectRowsAreTheNodes({}, tree().allItems());
        std::vector<std::string> listed = registered();
        std::vector<std::string> roots = names(tree().allItems());
        std::sort(listed.begin(), listed.end());
        std::sort(roots.begin(), roots.end());
        ASSERT_EQ(listed, roots);
        for (const Node& root : tree().allItems()) {
            expectRootIs(root, root);
            const auto stored = fetchStructure(*root);
            ASSERT_TRUE(stored && *stored == root->toDictionary()) << root->itemName();
        }
        if (const Node selected = tree().selectedItem()) {
            ASSERT_EQ(tree().currentlySelectedItem(), selected);
            ASSERT_EQ(tree().currentlySelectedProject(), findParentFromItem(selected));
        }
        ASSERT_FALSE(exists("elsewhere/.project"));
    }

    std::vector<std::string> allStructures() const {
        std::vector<std::string> structures;
        for (const Node& root : tree().allItems()) {
            structures.push_back(savedStructure(root));
        }
        std::sort(structures.begin(), structures.end());
        return structures;
    }

    std::filesystem::path foreign = home.write("elsewhere/foreign.asm", "text");
    std::mt19937 random{20240607}; // the same on every run
};

TEST_F(ContainerSequences, AfterAnyCommandsRowsNodesAndFilesAgreeAndARestartShowsTheSame) {
    makeProject("One", {fileOf("One", "a.asm", FileType::text), group("Parts")});
    makeProject("Two",
                {group("Parts", {group("Deep"), fileOf("Two", "b.chr", FileType::graphics)})});
    for (int run = 0; run < 4; ++run) {
        start();
        for (int i = 0; i < 40; ++i) {
            step();
            ASSERT_NO_FATAL_FAILURE(expectAllIsInOrder()) << "run " << run << " step " << i;
        }
        const auto before = allStructures();
        start();
        EXPECT_EQ(allStructures(), before);
        ASSERT_NO_FATAL_FAILURE(expectAllIsInOrder());
        while (tree().allItems().size() < 2) {
            makeProject("More" + std::to_string(run) + std::to_string(tree().allItems().size()));
            start();
        }
    }
}

TEST_F(ContainerSequences, RapidDeletesAndAsManyUndosLeaveEverythingAsItWas) {
    ProjectItems files;
    for (int i = 0; i < 6; ++i) {
        files.push_back(fileOf("One", "f" + std::to_string(i) + ".asm", FileType::text));
    }
    files.insert(files.begin() + 2, group("Group", {group("Group"), group("Inner")}));
    files.insert(files.begin() + 4, group("Group"));
    const Node one = makeProject("One", files);
    for (const Node& file : files) {
        NESBuildSettings(one).addNewFile(file);
    }
    makeProject("Two");
    start();
    const auto structures = allStructures();
    const auto settings = content("Kestrel/One/.project/One-BuildSettings.cfg");
    click("f5.asm");
    for (int i = 0; i < 12; ++i) {
        QTest::keyClick(view().viewport(), Qt::Key_Delete);
        ASSERT_NO_FATAL_FAILURE(expectAllIsInOrder()) << i;
    }
    EXPECT_TRUE(tree().allItems().empty());
    while (container->canUndoDelete()) {
        container->undoDelete();
        ASSERT_NO_FATAL_FAILURE(expectAllIsInOrder());
    }
    EXPECT_EQ(allStructures(), structures);
    EXPECT_EQ(content("Kestrel/One/.project/One-BuildSettings.cfg"), settings);
    EXPECT_EQ(names(tree().allItems()), (std::vector<std::string>{"One", "Two"}));
}

/// A stored node in as few words as can be.
std::string stored(const std::string& name, const std::string& type, const std::string& path,
                   const std::string& pathType, const std::string& children = "") {
    return R"({"name":")" + name + R"(","type":")" + type + R"(","path":")" + path +
           R"(","path_type":")" + pathType + R"(","project_type":"nes","sub_items":[)" + children +
           "]}";
}

TEST_F(ContainerSequences, OddStructureFilesAreShownAndNoCommandLeavesTheProjectsFolder) {
    const std::string folder = (home.path() / "Kestrel/Game").string();
    const std::string text = "text";
    const std::string absolute = "absolute_path";
    const std::string leaf = stored("leaf", text, folder, absolute);
    std::string deep = leaf;
    for (int level = 0; level < 500; ++level) {
        deep = stored("g", "group", "", "no_path", deep);
    }
    const std::vector<std::string> roots = {
        stored("Game", "project", folder, absolute,
               stored("Game", "project", folder, absolute, leaf)),
        stored("Game", "project", folder, absolute, stored("in", "project", "", "no_path", leaf)),
        stored("Game", "project", folder, absolute, stored("file", text, folder, absolute, leaf)),
        stored("Game", "project", folder, absolute,
               stored("", "group", "", "no_path", leaf) + "," + leaf),
        stored("Game", "project", folder, absolute, stored("a\\u0000b", text, "\\u0000", absolute)),
        stored("Game", "project", folder, absolute,
               stored("a\\nb", text, "../..", "relative_path_from_project")),
        stored("Game", "project", folder, absolute, deep),
        stored("Game", "group", folder, absolute, leaf),
        stored("Game", text, folder, absolute, leaf),
        stored("Game", "empty", folder, absolute),
    };
    for (const std::string& structure : roots) {
        SCOPED_TRACE(structure.substr(0, 300));
        std::filesystem::remove(home.path() / ".Kestrel/AllProjects.cfg");
        makeProject("Game");
        home.write("Kestrel/Game/leaf", "text");
        home.write("Kestrel/Game/.project/Game-ProjectStructure.cfg", structure);
        start();
        ASSERT_EQ(tree().allItems().size(), 1U);
        view().expandWhole({});
        for (int row = 0; row < 5; ++row) {
            for (const Option option : {Option::newGroup, Option::importFile, Option::delete_}) {
                const QModelIndex index = view().indexAtRow(row);
                if (!index.isValid()) {
                    continue;
                }
                view().selectIndex(index);
                answer = foreign;
                window->grab();
                command(option);
                window->grab();
            }
            container->undoDelete();
        }
        while (container->canUndoDelete()) {
            container->undoDelete();
        }
        window->grab();
        start();
    }
    EXPECT_FALSE(exists("elsewhere/.project"));
    EXPECT_EQ(content("Kestrel/Game/leaf"), "text");
}

} // namespace
} // namespace kestrel::test
