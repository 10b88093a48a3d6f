// SPDX-License-Identifier: MIT
#include "navigation/container/AddressStatus.h"

#include "navigation/container/SourcesFixture.h"

namespace kestrel::test {
namespace {

constexpr const char* MainText = "start:\n lda #1\n sta $20\n; end\nwhere .rs 2";

class AddressStatusTest : public SourcesTest {
protected:
    void begin() {
        start();
        address = std::make_unique<AddressStatus>(*container, knowledge);
    }

    void TearDown() override { address.reset(); }

    /// A build of a project read this text; addresses begin at `base`.
    void know(const std::string& content, std::uint32_t base = 0xC000,
              const std::string& project = "Game") {
        ProgramFacts facts = factsOf(project, {{"main.asm", content}});
        facts.files[0].lines = {{1, base, 0, 1, 0, 0, 0},
                                {2, base, 0, 1, 2, 2, 2},
                                {3, base + 2, 0, 1, 2, 3, 4},
                                {5, 0, LineFacts::NoBank, 1, 0, 0, 0}};
        facts.symbols = {{"start", "", SymbolFacts::Kind::label, 0, 0, 0, {}, {}},
                         {"where", "", SymbolFacts::Kind::variable, 0x20, -1, 2, {}, {}}};
        knowledge.set(at(project + "/output/Game.nes"),
                      std::make_shared<const ProgramFacts>(std::move(facts)));
    }

    std::string told() const { return status(StatusField::address); }

    void select(int from, int to) const {
        QTextCursor caret = text().textCursor();
        caret.setPosition(from);
        caret.setPosition(to, QTextCursor::KeepAnchor);
        text().setTextCursor(caret);
    }

    ProgramKnowledge knowledge;
    std::unique_ptr<AddressStatus> address;
};

TEST_F(AddressStatusTest, TellsOfTheCaretsLineOnceABuildIsKnown) {
    projectOf("Game", {{"main.asm", MainText}});
    begin();
    click("main.asm");
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(told(), "");
    know(MainText);
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
    text().moveCursor(QTextCursor::Start);
    EXPECT_EQ(told(), "$C000");
    putCaretAt(QStringLiteral("; end"));
    EXPECT_EQ(told(), "");
    text().moveCursor(QTextCursor::End); // the last line, without an end of its own
    EXPECT_EQ(told(), "$0020, 2 bytes of memory");
    know(MainText, 0x8000);
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(told(), "$8000, 2 bytes, 2 cycles");
    knowledge.clear();
    EXPECT_EQ(told(), "");
}

TEST_F(AddressStatusTest, TellsAlsoWhenNothingIsSelectedAsFactsCome) {
    projectOf("Game", {{"main.asm", MainText}});
    projectOf("Other", {{"main.asm", MainText}});
    begin();
    click(find("Game")->subItems().at(0));
    putCaretAt(QStringLiteral("lda"));
    container->projectNavigationController()->outlineView()->selectionModel()->clear();
    ASSERT_EQ(container->projectNavigationController()->selectedItem(), nullptr);
    know(MainText, 0x8000, "Other");
    EXPECT_EQ(told(), "") << "of the other project's file";
    know(MainText);
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
}

TEST_F(AddressStatusTest, AddsUpTheSelectedLinesWhicheverWayTheyWereSelected) {
    projectOf("Game", {{"main.asm", MainText}});
    begin();
    click("main.asm");
    know(MainText);
    const auto begins = [&](const char* line) {
        return static_cast<int>(text().toPlainText().indexOf(QString::fromLatin1(line)));
    };
    const std::string both = "2 lines: 4 bytes, 5 to 6 cycles";
    select(begins(" lda"), begins("; end")); // up to the end of the second one
    EXPECT_EQ(told(), both);
    select(begins("; end"), begins(" lda"));
    EXPECT_EQ(told(), both);
    select(begins("#1"), begins("$20"));
    EXPECT_EQ(told(), both);
    select(begins(" lda"), begins(" sta")); // one whole line
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
    text().selectAll();
    EXPECT_EQ(told(), "5 lines: 4 bytes, 5 to 6 cycles");
    select(begins("; end"), begins("; end") + 3);
    EXPECT_EQ(told(), "");
}

TEST_F(AddressStatusTest, MarksWhatIsOlderThanTheText) {
    projectOf("Game", {{"main.asm", MainText}});
    begin();
    click("main.asm");
    know(MainText);
    putCaretAt(QStringLiteral("lda"));
    text().zoomBy(2); // changes how it looks only
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
    text().insertPlainText(QStringLiteral(" "));
    EXPECT_EQ(told(), "Before changes: $C000, 2 bytes, 2 cycles");
    typing->saveFile();
    EXPECT_EQ(told(), "Before changes: $C000, 2 bytes, 2 cycles"); // another file than at the build
    putCaretAt(QStringLiteral("; end"));
    EXPECT_EQ(told(), ""); // nothing to mark
    putCaretAt(QStringLiteral("lda"));
    know(content("Kestrel/Game/main.asm"));
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
    // Typed while the built program was looked at.
    text().insertPlainText(QStringLiteral(" "));
    know(content("Kestrel/Game/main.asm"));
    EXPECT_EQ(told(), "Before changes: $C000, 2 bytes, 2 cycles");
}

TEST_F(AddressStatusTest, LinesEndInCarriageReturnAndLineFeed) {
    const std::string source = "start:\r\n lda #1\r\n sta $20\r\n";
    projectOf("Game", {{"main.asm", source}});
    begin();
    click("main.asm");
    know(source);
    putCaretAt(QStringLiteral("sta $"));
    EXPECT_EQ(told(), "$C002, 2 bytes, 3 to 4 cycles");
}

TEST_F(AddressStatusTest, TellsOfTheBuiltProjectOnly) {
    projectOf("Game", {{"main.asm", MainText}, {"other.asm", MainText}});
    projectOf("Other", {{"main.asm", MainText}});
    begin();
    know(MainText);
    click(find("Other")->subItems().at(0));
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(told(), "");
    click("other.asm");
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(told(), "");
    click(find("Game")->subItems().at(0));
    putCaretAt(QStringLiteral("lda"));
    EXPECT_EQ(told(), "$C000, 2 bytes, 2 cycles");
    click("Other"); // a project has no text
    EXPECT_EQ(told(), "");
}

} // namespace
} // namespace kestrel::test
