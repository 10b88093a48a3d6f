// SPDX-License-Identifier: MIT
#include "facts/ProgramKnowledge.h"

#include <gtest/gtest.h>

namespace kestrel {

TEST(ProgramKnowledge, KeepsTheFactsOfTheBuildBefore) {
    ProgramKnowledge knowledge;
    int changes = 0;
    QObject::connect(&knowledge, &ProgramKnowledge::changed, [&] { ++changes; });
    const auto first = std::make_shared<const ProgramFacts>();
    const auto second = std::make_shared<const ProgramFacts>();
    knowledge.set("/p/a.nes", first);
    EXPECT_EQ(knowledge.facts(), first);
    EXPECT_EQ(knowledge.before(), nullptr);
    knowledge.set("/p/a.nes", second);
    EXPECT_EQ(knowledge.facts(), second);
    EXPECT_EQ(knowledge.before(), first);
    EXPECT_EQ(changes, 2);
}

TEST(ProgramKnowledge, ComparesNoTwoPrograms) {
    ProgramKnowledge knowledge;
    const auto facts = std::make_shared<const ProgramFacts>();
    knowledge.set("/p/a.nes", facts);
    knowledge.set("/p/b.nes", facts);
    EXPECT_EQ(knowledge.before(), nullptr);
    EXPECT_EQ(knowledge.image(), "/p/b.nes");
}

TEST(ProgramKnowledge, ForgetsEverything) {
    ProgramKnowledge knowledge;
    const auto facts = std::make_shared<const ProgramFacts>();
    knowledge.set("/p/a.nes", facts);
    int changes = 0;
    QObject::connect(&knowledge, &ProgramKnowledge::changed, [&] { ++changes; });
    knowledge.clear();
    knowledge.clear();
    EXPECT_EQ(knowledge.facts(), nullptr);
    EXPECT_TRUE(knowledge.image().empty());
    EXPECT_EQ(changes, 1);
    knowledge.set("/p/a.nes", facts);
    EXPECT_EQ(knowledge.before(), nullptr);
}

} // namespace kestrel
