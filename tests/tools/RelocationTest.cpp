// SPDX-License-Identifier: MIT
#include "tools/Relocation.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

Relocation moved(const fs::path& from, const fs::path& to) {
    auto relocation = Relocation::between(from, to);
    EXPECT_TRUE(relocation.has_value());
    return relocation.value();
}

TEST(Relocation, TheSameFolderIsNoMoveHoweverItIsSpelled) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "game" / "src");
    fs::create_directory_symlink(folder.path() / "game", folder.path() / "link");
    const fs::path game = folder.path() / "game";
    EXPECT_FALSE(Relocation::between(game, game));
    EXPECT_FALSE(Relocation::between(game.string() + "/", game));
    EXPECT_FALSE(Relocation::between(game / ".", game));
    EXPECT_FALSE(Relocation::between(game / "src" / "..", game));
    EXPECT_FALSE(Relocation::between(folder.path() / "link", game));
    EXPECT_FALSE(Relocation::between(game, folder.path() / "link"));
}

TEST(Relocation, AFolderThatIsGoneIsTheSameWhenItIsWrittenTheSame) {
    EXPECT_FALSE(Relocation::between("/gone/game/", "/gone/game"));
    EXPECT_TRUE(Relocation::between("/gone/game", "/gone/gam"));
}

TEST(Relocation, PathsAtAndBelowTheFormerFolderMove) {
    const Relocation relocation = moved("/gone/a/b", "/new/place");
    EXPECT_EQ(relocation.mapped("/gone/a/b"), "/new/place");
    EXPECT_EQ(relocation.mapped("/gone/a/b/"), "/new/place");
    EXPECT_EQ(relocation.mapped("/gone/a/b/src"), "/new/place/src");
    EXPECT_EQ(relocation.mapped("/gone//a/./b/src/deep/"), "/new/place/src/deep");
}

TEST(Relocation, BelowGoesByWholeComponents) {
    const Relocation relocation = moved("/gone/a/b", "/new");
    EXPECT_EQ(relocation.mapped("/gone/a/bc"), "/gone/a/bc");
    EXPECT_EQ(relocation.mapped("/gone/a"), "/gone/a");
    EXPECT_EQ(relocation.mapped("/gone/a/b c"), "/gone/a/b c");
}

TEST(Relocation, OtherPathsStayAsTheyAreWritten) {
    const Relocation relocation = moved("/gone/a/b", "/new");
    for (const char* path : {"", "src", "./src/", "/usr/./games/", "/", "/gone/a/b/../c"}) {
        EXPECT_EQ(relocation.mapped(path).string(), path);
    }
}

TEST(Relocation, AParentStepThatStaysInsideMoves) {
    EXPECT_EQ(moved("/gone/a/b", "/new").mapped("/gone/a/b/x/../output"), "/new/output");
    EXPECT_EQ(moved("/gone/a/b", "/new").mapped("/gone/a/b/../b/output"), "/new/output");
    EXPECT_EQ(moved("/gone/a/x/../b", "/new").mapped("/gone/a/b/output"), "/new/output");
}

TEST(Relocation, AParentStepBehindALinkIsTakenWhereItLeads) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "old");
    fs::create_directories(folder.path() / "far" / "deep");
    fs::create_directory_symlink(folder.path() / "far" / "deep", folder.path() / "old" / "link");
    const Relocation relocation = moved(folder.path() / "old", folder.path() / "new");
    const fs::path path = folder.path() / "old" / "link" / ".." / "x";
    EXPECT_EQ(relocation.mapped(path), path);
    EXPECT_EQ(relocation.mapped(folder.path() / "old" / "link"), folder.path() / "new" / "link");
}

TEST(Relocation, APathThatLeadsBelowTheFormerFolderThroughALinkMoves) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "old" / "output");
    fs::create_directory_symlink(folder.path() / "old", folder.path() / "alias");
    const Relocation relocation = moved(folder.path() / "old", folder.path() / "new");
    EXPECT_EQ(relocation.mapped(folder.path() / "alias" / "output"),
              folder.path() / "new" / "output");
}

TEST(Relocation, TheRootFolderCanBeTheFormerFolder) {
    EXPECT_EQ(moved("/", "/gone/new").mapped("/src"), "/gone/new/src");
}

TEST(Relocation, InACopyInsideTheOriginalThePathsOfTheCopyStay) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "copy");
    const Relocation relocation = moved(folder.path(), folder.path() / "copy");
    EXPECT_EQ(relocation.mapped(folder.path() / "copy" / "src"), folder.path() / "copy" / "src");
    EXPECT_EQ(relocation.mapped(folder.path() / "src"), folder.path() / "copy" / "src");
    EXPECT_FALSE(relocation.leadsBack(folder.path() / "copy" / "output"));
    EXPECT_TRUE(relocation.leadsBack(folder.path() / "output"));
}

TEST(Relocation, AMoveUpwardsOutOfAFolderMovesItsPaths) {
    const Relocation relocation = moved("/gone/a/b", "/gone/a");
    EXPECT_EQ(relocation.mapped("/gone/a/b/src"), "/gone/a/src");
    EXPECT_EQ(relocation.mapped("/gone/a/src"), "/gone/a/src");
}

TEST(Relocation, ARootThatNamesNoAbsolutePathMovesItsRelativePaths) {
    for (const char* root : {"", ".", "./"}) {
        const Relocation relocation = moved(root, "/new");
        EXPECT_EQ(relocation.mapped("src"), "/new/src");
        EXPECT_EQ(relocation.mapped("."), "/new");
        EXPECT_EQ(relocation.mapped("../other"), "../other");
        EXPECT_EQ(relocation.mapped("/src"), "/src");
    }
    EXPECT_EQ(moved("game", "/new").mapped("game/src"), "/new/src");
    EXPECT_EQ(moved("game", "/new").mapped("games"), "games");
}

TEST(Relocation, ALinkIntoTheFormerFolderLeadsBack) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "old" / "output");
    fs::create_directories(folder.path() / "new");
    fs::create_directory_symlink(folder.path() / "old" / "output",
                                 folder.path() / "new" / "output");
    const Relocation relocation = moved(folder.path() / "old", folder.path() / "new");
    EXPECT_TRUE(relocation.leadsBack(folder.path() / "new" / "output" / "game.nes"));
    EXPECT_FALSE(relocation.leadsBack(folder.path() / "new" / "other"));
    EXPECT_FALSE(relocation.leadsBack(folder.path() / "older"));
}

TEST(Relocation, ALinkToAFileThatTheFormerFolderDoesNotHaveYetLeadsBack) {
    const TemporaryFolder folder;
    fs::create_directories(folder.path() / "old" / "output");
    fs::create_directories(folder.path() / "new" / "output");
    const Relocation relocation = moved(folder.path() / "old", folder.path() / "new");
    const fs::path image = folder.path() / "new" / "output" / "game.nes";
    fs::create_symlink(folder.path() / "old" / "output" / "game.nes", image);
    EXPECT_TRUE(relocation.leadsBack(image));
    fs::remove(image);
    fs::create_symlink("../../old/output/game.nes", image);
    EXPECT_TRUE(relocation.leadsBack(image));
    fs::remove(image);
    fs::create_symlink("other.nes", image);
    EXPECT_FALSE(relocation.leadsBack(image));
    fs::remove(image);
    fs::create_symlink("game.nes", image); // a ring
    EXPECT_FALSE(relocation.leadsBack(image));
}

Dictionary node(const char* path, const char* pathType, Dictionary children) {
    return {{"name", "n"},     {"path", path}, {"path_type", pathType},
            {"type", "group"}, {"note", 7},    {"sub_items", std::move(children)}};
}

TEST(Relocation, AStoredTreeKeepsAllButThePathsThatMove) {
    const Relocation relocation = moved("/gone", "/new");
    const auto tree = [](const char* root, const char* file, const char* group) {
        return node(root, "absolute_path",
                    Dictionary::array({node(file, "absolute_path", Dictionary::array()),
                                       node(group, "no_path", Dictionary::array()),
                                       node("", "no_path", Dictionary::array()),
                                       node("/gone/x", "relative_path_from_project", "none"),
                                       node("/gone/x", "unheard_of", nullptr), 7,
                                       Dictionary{{"path", 3}}}));
    };
    Dictionary stored = tree("/gone", "/gone/src", "/gone/group/");
    relocation.applyToNode(stored);
    EXPECT_EQ(stored, tree("/new", "/new/src", "/new/group"));
    relocation.applyToNode(stored);
    EXPECT_EQ(stored, tree("/new", "/new/src", "/new/group"));
}

TEST(Relocation, InTheSettingsFoldersProgramsAndListedFilesMove) {
    const auto settings = [](const char* output, const char* emulator, const char* file) {
        return Dictionary{
            {"output_folder", output},
            {"emulator", emulator},
            {"code_assembly_files",
             Dictionary::array({node(file, "absolute_path", Dictionary::array())})},
            {"graphic_files", Dictionary::array({node(file, "no_path", Dictionary::array())})},
            {"palette_files", Dictionary::array({node(file, "absolute_path", nullptr)})},
            {"note", "/gone/stays"}};
    };
    Dictionary stored = settings("/gone/output", "/gone/emulator", "/gone/src");
    moved("/gone", "/new").applyToSettings(stored);
    EXPECT_EQ(stored, settings("/new/output", "/new/emulator", "/new/src"));
    Dictionary none = settings("", "/usr/bin/emulator", "");
    moved("", "/new").applyToSettings(none);
    EXPECT_EQ(stringMember(none, "output_folder"), "") << "no folder stays none";
}

TEST(Relocation, ATreeOfAThousandLevelsMoves) {
    Dictionary stored = node("/gone/deepest", "absolute_path", Dictionary::array());
    for (int level = 1; level < 1000; ++level) {
        Dictionary children = Dictionary::array();
        children.push_back(std::move(stored));
        stored = node("/gone", "absolute_path", std::move(children));
    }
    moved("/gone", "/new").applyToNode(stored);
    const Dictionary* deepest = &stored;
    while (!deepest->at("sub_items").empty()) {
        deepest = &deepest->at("sub_items").front();
    }
    EXPECT_EQ(deepest->at("path"), "/new/deepest");
}

} // namespace
} // namespace kestrel
