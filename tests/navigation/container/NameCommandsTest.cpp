// SPDX-License-Identifier: MIT
#include "navigation/container/NameCommands.h"

#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"
#include "navigation/container/SourcesFixture.h"

#include <QSignalSpy>

namespace kestrel::test {
namespace {

constexpr const char* MainText = "start: lda #$FF ; count\n"
                                 " ldx count\n"
                                 ".loop: dex\n"
                                 " bne .loop\n"
                                 "other:\n"
                                 ".loop: dey\n"
                                 " bne .loop\n"
                                 " jmp start";

class NameCommandsTest : public SourcesTest {
protected:
    void startWith(const Sources& sources) {
        projectOf("Game", sources);
        begin();
    }

    void begin() {
        start();
        jump = std::make_unique<PlaceJump>(*container);
        names = std::make_unique<NameCommands>(*container, knowledge, *jump, places);
        QObject::connect(jump.get(), &PlaceJump::arrived, window.get(), [this] { ++arrivals; });
        QObject::connect(names.get(), &NameCommands::usesFound, window.get(),
                         [this](const QString& name) { usesOf = name; });
    }

    void TearDown() override { names.reset(); }

    /// Where the definition of the name at the caret is: "main.asm:1:1", or what the status bar
    /// tells.
    std::string definition() {
        arrivals = 0;
        names->goToDefinition();
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return arrivals > 0 || !status(StatusField::notice).empty(); }));
        const QTextCursor caret = text().textCursor();
        return arrivals == 0 ? status(StatusField::notice)
                             : typing->path()->filename().string() + ":" +
                                   std::to_string(caret.blockNumber() + 1) + ":" +
                                   std::to_string(caret.positionInBlock() + 1);
    }

    /// The lines and columns of the uses of the name at the caret, or what the status bar tells.
    std::string uses() {
        usesOf.clear();
        names->findUses();
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return !usesOf.isEmpty() || !status(StatusField::notice).empty(); }));
        if (usesOf.isEmpty()) {
            return status(StatusField::notice);
        }
        std::string told = usesOf.toStdString();
        for (const Place& place : places.places()) {
            EXPECT_EQ(place.kind, Place::Kind::use);
            told += " " + place.file.toStdString() + ":" + std::to_string(place.line) + ":" +
                    std::to_string(place.column);
        }
        return told;
    }

    /// Lets a build of Game have known these symbols of main.asm.
    void know(std::vector<SymbolFacts> symbols, const std::string& project = "Game") {
        ProgramFacts facts = factsOf(project, {{"main.asm", MainText}});
        facts.symbols = std::move(symbols);
        knowledge.set(at("Game/output/Game.nes"),
                      std::make_shared<const ProgramFacts>(std::move(facts)));
    }

    static SymbolFacts symbol(const char* name, const char* scope, std::vector<FactPlace> defined,
                              std::vector<FactPlace> used = {}) {
        return {name, scope, SymbolFacts::Kind::label, 0,
                0,    0,     std::move(defined),       std::move(used)};
    }

    ProgramKnowledge knowledge;
    PlaceList places;
    std::unique_ptr<PlaceJump> jump;
    std::unique_ptr<NameCommands> names;
    int arrivals = 0;
    QString usesOf;
};

TEST_F(NameCommandsTest, WithoutABuildTheSourcesAreSearched) {
    startWith({{"main.asm", MainText}, {"ram.asm", "; count\r\n\tcount .rs 1\r\n"}});
    click("main.asm");
    putCaretAt(QStringLiteral("count\n .loop").left(5), 0); // in a comment a name is one, too
    EXPECT_EQ(uses(), "count main.asm:2:6");
    EXPECT_EQ(definition(), "ram.asm:2:2");
    EXPECT_EQ(tree().selectedItem(), find("ram.asm"));
}

TEST_F(NameCommandsTest, TheCaretMayStandAtBothEndsOfTheName) {
    startWith({{"main.asm", MainText}});
    click("main.asm");
    for (const int after : {0, 2, 5}) {
        putCaretAt(QStringLiteral("jmp start"), 4 + after);
        EXPECT_EQ(definition(), "main.asm:1:1") << after;
    }
    // At the beginning and the end of the text.
    text().moveCursor(QTextCursor::Start);
    EXPECT_EQ(uses(), "start main.asm:8:6");
    text().moveCursor(QTextCursor::End);
    EXPECT_EQ(uses(), "start main.asm:8:6");
}

TEST_F(NameCommandsTest, NumbersAndBlanksAreNoNamesAndInstructionsHaveNoDefinition) {
    startWith({{"main.asm", "FF = 1\n lda #$FF\n ldx #12\n\n lda  , FF\n"}});
    click("main.asm");
    for (const auto& [where, after] :
         {std::pair("$FF", 1), std::pair("$FF", 3), std::pair("#12", 2), std::pair("\n\n", 1),
          std::pair("  , ", 1)}) {
        putCaretAt(QString::fromLatin1(where), after);
        EXPECT_EQ(definition(), "There is no name at the caret") << where << after;
        EXPECT_EQ(uses(), "There is no name at the caret") << where << after;
    }
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(status(StatusField::notice), ""); // a caret that moves takes it away
    EXPECT_EQ(definition(), "No definition of “lda” was found");
    putCaretAt(QStringLiteral("FF"));
    EXPECT_EQ(uses(), "FF main.asm:5:9");
}

TEST_F(NameCommandsTest, ALocalNameBelongsToTheLabelAboveTheCaret) {
    startWith({{"main.asm", MainText}});
    click("main.asm");
    putCaretAt(QStringLiteral("bne .loop"), 5);
    EXPECT_EQ(definition(), "main.asm:3:1");
    putCaretAt(QStringLiteral("dey\n bne .loop"), 10);
    EXPECT_EQ(definition(), "main.asm:6:1");
    EXPECT_EQ(uses(), ".loop main.asm:7:6");
}

TEST_F(NameCommandsTest, WhatABuildKnowsComesFirst) {
    startWith({{"main.asm", MainText}});
    click("main.asm");
    know({symbol(".loop", "other", {{0, 7, 2}}), symbol(".loop", "start", {{0, 8, 2}}),
          symbol("start", "", {{0, 2, 2}}, {{0, 3, 1}, {0, 99, 1}, {0, 4, 2}})});
    putCaretAt(QStringLiteral("jmp start"), 4);
    EXPECT_EQ(uses(), "start main.asm:3:1 main.asm:4:2"); // there is no line 99 any more
    EXPECT_EQ(definition(), "main.asm:2:2");
    putCaretAt(QStringLiteral("dey\n bne .loop"), 10);
    EXPECT_EQ(uses(), "No use of “.loop” was found");
    EXPECT_EQ(definition(), "main.asm:7:2");
    putCaretAt(QStringLiteral("bne .loop"), 5);
    EXPECT_EQ(definition(), "main.asm:8:2");
    putCaretAt(QStringLiteral("other"));
    EXPECT_EQ(definition(), "main.asm:5:1"); // the build did not have it
}

TEST_F(NameCommandsTest, LinesThatAreNoLabelsLeaveTheScope) {
    startWith({{"main.asm", "  start:\nA = 1\nRTS\nB .rs 1\nLDA #1\n.loop: bne .loop"}});
    click("main.asm");
    know({symbol(".loop", "start", {{0, 5, 1}})});
    text().moveCursor(QTextCursor::End);
    EXPECT_EQ(definition(), "main.asm:5:1");
}

TEST_F(NameCommandsTest, ALabelFarAboveTheCaretIsFoundInTheFileOnTheDisk) {
    const std::string far(3000, '\n');
    startWith(
        {{"main.asm", "one:\n.loop: nop\ntwo: nop\n.loop: nop" + far + " bne .loop\nthree:"}});
    click("main.asm");
    putCaretAt(QStringLiteral("bne .loop"), 5);
    EXPECT_EQ(definition(), "main.asm:4:1");
    putCaretAt(QStringLiteral("bne .loop"), 5);
    know({symbol(".loop", "two", {{0, 2, 1}})});
    EXPECT_EQ(definition(), "main.asm:2:1");
}

TEST_F(NameCommandsTest, FactsBelongToTheBuiltProjectOnly) {
    projectOf("Game", {{"main.asm", MainText}});
    projectOf("Other", {{"main.asm", std::string("\n\n") + MainText}});
    begin();
    know({symbol("start", "", {{0, 2, 2}}, {{0, 3, 1}})});
    click(find("Other")->subItems().at(0));
    putCaretAt(QStringLiteral("jmp start"), 4);
    EXPECT_EQ(uses(), "start main.asm:10:6");
    EXPECT_EQ(definition(), "main.asm:3:1");
    EXPECT_EQ(tree().currentlySelectedProject(), find("Other"));
    click(find("Game")->subItems().at(0));
    putCaretAt(QStringLiteral("jmp start"), 4);
    EXPECT_EQ(definition(), "main.asm:2:2");
}

TEST_F(NameCommandsTest, AFileThatIsNotListedKnowsOnlyTheListedOnes) {
    const Node project =
        projectOf("Game", {{"main.asm", MainText}, {"free.asm", " jmp start\nhere:"}});
    NESBuildSettings settings(project);
    std::erase_if(settings.assemblyFiles(),
                  [](const Node& node) { return node->itemName() == "free.asm"; });
    ASSERT_TRUE(settings.saveBuildSettings());
    begin();
    know({});
    click("free.asm");
    putCaretAt(QStringLiteral("here"));
    EXPECT_EQ(definition(), "No definition of “here” was found");
    putCaretAt(QStringLiteral("start"));
    EXPECT_EQ(definition(), "main.asm:1:1");
}

TEST_F(NameCommandsTest, OnlyTheLatestRequestCounts) {
    startWith({{"main.asm", MainText}});
    click("main.asm");
    putCaretAt(QStringLiteral("bne .loop"), 5);
    names->goToDefinition();
    putCaretAt(QStringLiteral("jmp start"), 4);
    EXPECT_EQ(definition(), "main.asm:1:1");
    QTest::qWait(50);
    EXPECT_EQ(arrivals, 1);
    // What was asked for by something that is gone is dropped.
    names->goToDefinition();
    names.reset();
    QTest::qWait(50);
    EXPECT_EQ(arrivals, 1);
}

TEST_F(NameCommandsTest, WithoutAShownFileNothingHappens) {
    startWith({{"main.asm", ""}});
    names->goToDefinition();
    names->findUses();
    EXPECT_EQ(status(StatusField::notice), "");
    click("main.asm");
    EXPECT_EQ(definition(), "There is no name at the caret"); // of an empty text
}

} // namespace
} // namespace kestrel::test
