// SPDX-License-Identifier: MIT
#include "navigation/container/KnownFile.h"

#include "navigation/container/SourcesFixture.h"

namespace kestrel::test {
namespace {

using KnownFileTest = SourcesTest;

TEST_F(KnownFileTest, AFileIsKnownByItsCopy) {
    const Node game = projectOf("Game", {{"main.asm", ""}, {"code/inc.asm", ""}});
    const ProgramFacts facts = factsOf("Game", {{"inc.asm", ""}, {"main.asm", ""}});
    EXPECT_EQ(knownFile(facts, at("Game/main.asm"), CopiedSources(game)), &facts.files[1]);
    EXPECT_EQ(knownFile(facts, at("Game/code/../code/inc.asm"), CopiedSources(game)),
              facts.files.data());
    EXPECT_EQ(CopiedSources(game).sourceOf(facts.files[0]), at("Game/code/inc.asm"));
}

TEST_F(KnownFileTest, OfTwoFilesOfOneNameTheLaterOneIsKnown) {
    const Node game = projectOf("Game", {{"a/same.asm", ""}, {"b/same.asm", ""}});
    const ProgramFacts facts = factsOf("Game", {{"same.asm", ""}});
    EXPECT_EQ(knownFile(facts, at("Game/a/same.asm"), CopiedSources(game)), nullptr);
    EXPECT_EQ(knownFile(facts, at("Game/b/same.asm"), CopiedSources(game)), facts.files.data());
}

TEST_F(KnownFileTest, NothingIsKnownOfAnotherProjectsFileOfTheSameName) {
    const Node game = projectOf("Game", {{"main.asm", ""}});
    const Node other = projectOf("Other", {{"main.asm", ""}});
    const ProgramFacts facts = factsOf("Game", {{"main.asm", ""}});
    EXPECT_EQ(knownFile(facts, at("Other/main.asm"), CopiedSources(other)), nullptr);
    EXPECT_EQ(knownFile(facts, at("Other/main.asm"), CopiedSources(game)), nullptr);
    EXPECT_EQ(knownFile(facts, at("Game/main.asm"), CopiedSources(other)), nullptr);
    EXPECT_EQ(knownFile(facts, at("Game/main.asm"), CopiedSources(nullptr)), nullptr);
}

TEST_F(KnownFileTest, NothingIsKnownOfAFileThatWasNotGathered) {
    const Node game = projectOf("Game", {{"main.asm", ""}});
    const ProgramFacts facts = factsOf("Game", {{"gone.asm", ""}, {"main.asm", ""}});
    EXPECT_EQ(knownFile(facts, at("Game/gone.asm"), CopiedSources(game)), nullptr);
    EXPECT_EQ(CopiedSources(game).sourceOf(facts.files[0]), "");
    EXPECT_EQ(knownFile(facts, at("Game/new.asm"), CopiedSources(game)), nullptr);
    EXPECT_EQ(knownFile(ProgramFacts{}, at("Game/main.asm"), CopiedSources(game)), nullptr);
    EXPECT_EQ(knownFile(facts, at("Empty/main.asm"), CopiedSources(projectOf("Empty", {}))),
              nullptr);
}

TEST_F(KnownFileTest, AFileThatTheAssemblerReadWhereItLiesIsKnownThere) {
    const Node game = projectOf("Game", {{"main.asm", ""}});
    ProgramFacts facts = factsOf("Game", {{"main.asm", ""}});
    facts.files.push_back({"/lib/./mul.asm", 1, 2, {}});
    EXPECT_EQ(knownFile(facts, "/lib/mul.asm", CopiedSources(game)), &facts.files[1]);
    EXPECT_EQ(knownFile(facts, "/other/mul.asm", CopiedSources(game)), nullptr);
    // Also when another file of that name was gathered.
    facts.files.push_back({"/lib/main.asm", 1, 2, {}});
    EXPECT_EQ(knownFile(facts, "/lib/main.asm", CopiedSources(game)), &facts.files[2]);
    EXPECT_EQ(knownFile(facts, at("Game/main.asm"), CopiedSources(game)), facts.files.data());
}

} // namespace
} // namespace kestrel::test
