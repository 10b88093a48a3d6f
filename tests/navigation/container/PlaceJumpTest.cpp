// SPDX-License-Identifier: MIT
#include "navigation/container/PlaceJump.h"

#include "editors/code/CodeEditorTextView.h"
#include "navigation/container/ContainerFixture.h"

#include <QSignalSpy>
#include <QTextBlock>

namespace kestrel::test {
namespace {

class PlaceJumpTest : public ContainerTest {
protected:
    /// A file node with this content in a folder below the project's own.
    Node source(const std::string& folder, const std::string& name,
                const std::string& content) const {
        home.write("Kestrel/Game/" + folder + name, content);
        return makeNode(name, FileType::text, {}, home.path() / "Kestrel/Game" / folder);
    }

    void startWith(const ProjectItems& children) {
        project = makeProject("Game", children);
        list(project, children);
        start();
        project = root();
        jump = std::make_unique<PlaceJump>(*container);
        QObject::connect(jump.get(), &PlaceJump::notice, window.get(),
                         [this](const QString& text) { notices << text; });
    }

    /// Enters the files among these nodes in the project's build settings.
    static void list(const Node& project, const ProjectItems& nodes) {
        NESBuildSettings settings(project);
        for (const Node& node : nodes) {
            const bool isGroup = node->itemFileType() == FileType::group;
            for (const Node& file : isGroup ? node->subItems() : ProjectItems{node}) {
                settings.assemblyFiles().push_back(file);
            }
        }
        ASSERT_TRUE(settings.saveBuildSettings());
    }

    bool goTo(const char* file, int line, int column) const {
        return jump->goTo(project, {QString::fromUtf8(file), line, column, Place::Kind::error, {}});
    }

    CodeEditorTextView& text() const { return *typing->codeEditor; }
    std::string shownFile() const { return typing->path().value_or("").string(); }

    /// What follows the caret in its line.
    std::string atCaret() const {
        const QTextCursor caret = text().textCursor();
        return caret.block().text().mid(caret.positionInBlock()).toStdString();
    }

    Node project;
    std::unique_ptr<PlaceJump> jump;
    QStringList notices;
};

TEST_F(PlaceJumpTest, SelectsTheRowShowsTheFileAndPutsTheCaretAtThePlace) {
    const Node group =
        makeNode("Group", FileType::group, {source("", "inc.asm", "first\nlda #1\nthird")});
    startWith({source("", "main.asm", "main"), group});
    click("main.asm");
    view().collapse(tree().model()->indexOf(find("Group")));
    const QSignalSpy arrived(jump.get(), &PlaceJump::arrived);
    EXPECT_TRUE(goTo("code/inc", 2, 5));
    EXPECT_EQ(arrived.size(), 1);
    EXPECT_EQ(tree().selectedItem(), find("inc.asm"));
    EXPECT_TRUE(view().isExpanded(tree().model()->indexOf(find("Group"))));
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(shownFile(), home.path() / "Kestrel/Game/inc.asm");
    EXPECT_EQ(atCaret(), "#1");
    EXPECT_TRUE(text().hasFocus());
    EXPECT_TRUE(notices.isEmpty());
}

TEST_F(PlaceJumpTest, TheShownFileIsNotReadAgainAndKeepsItsUnsavedText) {
    startWith({source("", "main.asm", "one\ntwo\n")});
    click("main.asm");
    const int loads = typing->loads;
    text().insertPlainText(QStringLiteral("typed "));
    EXPECT_TRUE(goTo("main.asm", 2, 1));
    EXPECT_EQ(typing->loads, loads);
    EXPECT_EQ(text().toPlainText(), u"typed one\ntwo\n");
    EXPECT_EQ(atCaret(), "two");
}

TEST_F(PlaceJumpTest, AFileThatTwoRowsHaveIsNotReadAgainForTheOtherRow) {
    startWith({source("", "main.asm", "one\ntwo\n"), source("", "main.asm", "one\ntwo\n")});
    const Node other = makeProject("Other", {source("", "main.asm", "one\ntwo\n")});
    start();
    jump = std::make_unique<PlaceJump>(*container);
    const Node game = find("Game");
    click(find("Other")->subItems().at(0));
    const int loads = typing->loads;
    text().insertPlainText(QStringLiteral("typed "));
    EXPECT_TRUE(jump->goTo(game, {QStringLiteral("main.asm"), 2, 1, Place::Kind::error, {}}));
    EXPECT_EQ(tree().selectedItem(), game->subItems().at(0));
    EXPECT_EQ(tree().currentlySelectedProject(), game);
    EXPECT_EQ(typing->loads, loads);
    EXPECT_EQ(text().toPlainText(), u"typed one\ntwo\n");
    // Chosen by a click afterwards, both rows behave as ever.
    click(find("Other")->subItems().at(0));
    EXPECT_EQ(typing->loads, loads + 1);
}

TEST_F(PlaceJumpTest, OfTwoFilesOfOneNameTheLaterOneInGatheringOrderIsMeant) {
    startWith({source("a/", "same.asm", "in a"), source("b/", "same.asm", "in b")});
    EXPECT_TRUE(goTo("same.asm", 1, 1));
    EXPECT_EQ(atCaret(), "in b");
    NESBuildSettings settings(project);
    std::swap(settings.assemblyFiles().at(0), settings.assemblyFiles().at(1));
    ASSERT_TRUE(settings.saveBuildSettings());
    EXPECT_TRUE(goTo("same.asm", 1, 1));
    EXPECT_EQ(atCaret(), "in a");
}

TEST_F(PlaceJumpTest, AFileInNoTreeIsNamed) {
    startWith({source("", "main.asm", "main")});
    click("main.asm");
    EXPECT_FALSE(goTo("lib/other.asm", 1, 1));
    EXPECT_FALSE(goTo("/opt/main.asm", 1, 1));
    EXPECT_EQ(notices,
              QStringList({QStringLiteral("“lib/other.asm” is in no project of the tree"),
                           QStringLiteral("“/opt/main.asm” is in no project of the tree")}));
    EXPECT_EQ(shownFile(), home.path() / "Kestrel/Game/main.asm");
}

TEST_F(PlaceJumpTest, AnAbsoluteNameIsThatFileWhicheverProjectHasIt) {
    startWith({source("", "main.asm", "main")});
    const auto path = home.path() / "Kestrel/Game/main.asm";
    EXPECT_TRUE(jump->goTo(nullptr, path, 1, 2));
    EXPECT_EQ(atCaret(), "ain");
    EXPECT_TRUE(goTo(path.c_str(), 1, 3));
    EXPECT_EQ(atCaret(), "in");
}

TEST_F(PlaceJumpTest, AMissingFileIsSaid) {
    startWith({source("", "main.asm", "main"), source("", "gone.asm", "")});
    std::filesystem::remove(home.path() / "Kestrel/Game/gone.asm");
    click("main.asm");
    EXPECT_FALSE(goTo("gone.asm", 1, 1));
    EXPECT_EQ(notices, QStringList(QStringLiteral("“gone.asm” could not be shown")));
    EXPECT_EQ(message(), "File does not exist at path");
}

TEST_F(PlaceJumpTest, AMessageThatHidesTheFileGoesAndItsTextStays) {
    startWith({source("", "main.asm", "one\ntwo\n")});
    click("main.asm");
    text().insertPlainText(QStringLiteral("typed "));
    panes()->displayError(QStringLiteral("other"));
    EXPECT_TRUE(goTo("main.asm", 2, 1));
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(text().toPlainText(), u"typed one\ntwo\n");
}

TEST_F(PlaceJumpTest, AFileOfAnotherKindIsShownInTheCodeEditorAllTheSame) {
    home.write("Kestrel/Game/x.asm", "one\ntwo");
    startWith({makeNode("x.asm", FileType::unknown, {}, home.path() / "Kestrel/Game")});
    EXPECT_TRUE(jump->goTo(project, home.path() / "Kestrel/Game/x.asm", 2, 1));
    EXPECT_EQ(shown(), typing);
    EXPECT_EQ(atCaret(), "two");
}

TEST_F(PlaceJumpTest, ThePlaceIsInSightInTheMiddleOfTheView) {
    startWith({source("", "main.asm", std::string(500, '\n') + "here" + std::string(500, '\n'))});
    EXPECT_TRUE(goTo("main.asm", 501, 1));
    const QRect caret = text().cursorRect();
    const int middle = text().viewport()->height() / 2;
    EXPECT_NEAR(caret.center().y(), middle, 3 * caret.height());
}

TEST_F(PlaceJumpTest, NothingIsShownBelowAnOpenSheet) {
    startWith({source("", "main.asm", "main"), source("", "inc.asm", "inc")});
    click("main.asm");
    command(Option::newProject);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_FALSE(goTo("inc.asm", 1, 1));
    EXPECT_EQ(tree().selectedItem(), find("main.asm"));
}

} // namespace
} // namespace kestrel::test
