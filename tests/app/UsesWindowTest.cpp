// SPDX-License-Identifier: MIT
#include "app/UsesWindow.h"

#include "app/WindowFixture.h"
#include "editors/code/CodeEditorTextView.h"
#include "editors/CommonEditorControllers.h"
#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"

#include <QListWidget>

namespace kestrel {
namespace {

using namespace test;

/// The window on its own, with a list of places that the test fills.
class UsesWindowTest : public WindowTest {
protected:
    void SetUp() override {
        registerProject("Game");
        home.write("Kestrel/Game/main.asm", "one\ntwo x\nthree x\n");
        start();
        jump = std::make_unique<PlaceJump>(editor());
        uses = std::make_unique<UsesWindow>(places, *jump);
    }

    void TearDown() override {
        uses.reset();
        jump.reset();
    }

    Place use(int line, const char* text) const {
        return {QStringLiteral("main.asm"), line, 5, Place::Kind::use, QString::fromLatin1(text),
                folder("Game") / "main.asm"};
    }

    void find(std::vector<Place> found) {
        places.fill(PlaceList::Content::uses, tree().allItems().at(0), std::move(found));
        uses->showUsesOf(QStringLiteral("x"));
    }

    QListWidget& rows() const { return *uses->findChild<QListWidget*>(); }

    QStringList told() const {
        QStringList texts;
        for (int i = 0; i < rows().count(); ++i) {
            texts += rows().item(i)->text();
        }
        return texts;
    }

    /// The line of the caret in the source that is shown; 0 without one.
    int caretLine() const {
        const TextEditorController& pane = *editor().commonController()->textEditor;
        return pane.path() ? pane.codeEditor->textCursor().blockNumber() + 1 : 0;
    }

    PlaceList places;
    std::unique_ptr<PlaceJump> jump;
    std::unique_ptr<UsesWindow> uses;
};

TEST_F(UsesWindowTest, ShowsAUseInARowAndTellsHowManyThereAre) {
    find({use(2, "two x"), use(3, "three x")});
    EXPECT_TRUE(uses->isVisible());
    EXPECT_EQ(uses->windowTitle(), u"Uses of x (2)");
    EXPECT_EQ(uses->accessibleName(), u"Uses of x (2)");
    EXPECT_EQ(told(), QStringList({QStringLiteral("main.asm:2: two x"),
                                   QStringLiteral("main.asm:3: three x")}));
    EXPECT_EQ(rows().currentRow(), 0);
    find({use(2, "two x")});
    EXPECT_EQ(told(), QStringList({QStringLiteral("main.asm:2: two x")}));
    EXPECT_EQ(uses->windowTitle(), u"Uses of x (1)");
}

TEST_F(UsesWindowTest, AChosenRowIsGoneToAndTheWalkGoesOnFromThere) {
    find({use(2, "two x"), use(3, "three x")});
    Q_EMIT rows().itemActivated(rows().item(1));
    EXPECT_EQ(caretLine(), 3);
    EXPECT_EQ(places.currentIndex(), 1U);
    places.next();
    EXPECT_EQ(rows().currentRow(), 0);
    places.previous();
    EXPECT_EQ(rows().currentRow(), 1);
}

TEST_F(UsesWindowTest, RowsCanStillBeChosenWhenABuildFoundProblems) {
    find({use(2, "two x"), use(3, "three x")});
    Place problem = use(1, "wrong");
    problem.kind = Place::Kind::error;
    places.fill(PlaceList::Content::problems, tree().allItems().at(0), {problem});
    places.next();
    EXPECT_EQ(told().size(), 2);
    EXPECT_EQ(rows().currentRow(), 0);
    Q_EMIT rows().itemActivated(rows().item(1));
    EXPECT_EQ(caretLine(), 3);
    EXPECT_EQ(rows().currentRow(), 1);
    EXPECT_EQ(places.content(), PlaceList::Content::uses);
    places.next();
    EXPECT_EQ(places.current()->line, 2);
}

TEST_F(UsesWindowTest, EscapeClosesIt) {
    find({use(2, "two x")});
    ASSERT_TRUE(QTest::qWaitForWindowActive(uses.get()));
    QTest::keyClick(&rows(), Qt::Key_Escape);
    EXPECT_FALSE(uses->isVisible());
}

} // namespace
} // namespace kestrel
