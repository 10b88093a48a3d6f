#include "app/WindowFixture.h"
#include "editors/CodeEditorTextView.h"
#include "editors/CommonEditorControllers.h"

#include <string>
#include <utility>

namespace kestrel {
namespace {

using namespace test;
using ::testing::ElementsAre;

/// The window with a project of several files, worked by keys.
class Keyboard : public WindowTest {
protected:
    void SetUp() override {
        ProjectItems files;
        for (const auto& [name, type] :
             {std::pair{"main.asm", FileType::text}, std::pair{"other.asm", FileType::text},
              std::pair{"third.asm", FileType::text}, std::pair{"tiles.chr", FileType::graphics},
              std::pair{"colours.pal", FileType::palette}}) {
            files.push_back(makeNode(name, type, {}, folder("Game")));
        }
        std::filesystem::create_directories(folder("Game"));
        home.write("Kestrel/Game/main.asm", "main\n");
        home.write("Kestrel/Game/other.asm", "other\n");
        home.write("Kestrel/Game/third.asm", "third\n");
        home.write("Kestrel/Game/tiles.chr", std::string(8192, '\0'));
        home.write("Kestrel/Game/colours.pal", std::string(32, '\0'));
        const auto game = makeNode("Game", FileType::project, files, folder("Game"));
        ASSERT_TRUE(FileProcessor::createFilesForNewProject(game));
        for (const std::size_t source : {0U, 1U, 2U}) {
            NESBuildSettings::add(files[source], game);
        }
        ASSERT_TRUE(FileProcessor::saveToRecentlyConfiguredProjects(game));
        start();
    }

    /// Selects a file of the project, so that its pane is shown.
    void open(const std::string& name) const {
        for (const Node& file : tree().allItems().front()->subItems()) {
            if (file->itemName() == name) {
                tree().select(file);
            }
        }
        ASSERT_EQ(tree().selectedItem()->itemName(), name);
    }

    CommonEditorControllers& panes() const { return *editor().commonController(); }
    CodeEditorTextView& code() const { return *panes().textEditor->codeEditor; }

    /// A key for whatever has the focus.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static std::string focused() {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "nothing" : widget->objectName().toStdString();
    }

    /// What has the focus after each of so many keys.
    static std::vector<std::string> visited(int keys, Qt::Key key,
                                            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        std::vector<std::string> names;
        for (int i = 0; i < keys; ++i) {
            press(key, modifiers);
            names.push_back(focused());
        }
        return names;
    }
};

TEST_F(Keyboard, no_tab_leaves_the_code_editor) {
    open("main.asm");
    code().moveCursor(QTextCursor::End);
    for (const auto& [key, modifiers] :
         {std::pair{Qt::Key_Backtab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Backtab, Qt::KeyboardModifiers()},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::MetaModifier},
          std::pair{Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ShiftModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::MetaModifier)},
          std::pair{Qt::Key_Tab, Qt::KeyboardModifiers(Qt::ControlModifier)}}) {
        code().setFocus();
        press(key, modifiers);
        EXPECT_EQ(focused(), "codeEditor") << key << " " << modifiers.toInt();
        press(Qt::Key_O); // in the tree it would select other.asm
        press(Qt::Key_Delete);
        press(Qt::Key_Backspace);
    }
    EXPECT_EQ(code().toPlainText(), QStringLiteral("main\n"));
    EXPECT_EQ(tree().selectedItem()->itemName(), "main.asm");
    EXPECT_EQ(tree().allItems().front()->subItems().size(), 5U);
}

TEST_F(Keyboard, tab_and_shift_tab_move_between_the_fields_of_the_find_bar) {
    open("main.asm");
    code().setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(focused(), "findTerm");
    EXPECT_THAT(visited(5, Qt::Key_Tab),
                ElementsAre("findPreviousButton", "findNextButton", "findMatchCase",
                            "findWholeWords", "findCloseButton"));
    EXPECT_THAT(visited(5, Qt::Key_Backtab, Qt::ShiftModifier),
                ElementsAre("findWholeWords", "findMatchCase", "findNextButton",
                            "findPreviousButton", "findTerm"));
}

TEST_F(Keyboard, f6_leaves_the_text_and_comes_back_to_it) {
    open("main.asm");
    code().setFocus();
    EXPECT_THAT(visited(2, Qt::Key_F6), ElementsAre("outlineView", "codeEditor"));
}

} // namespace
} // namespace kestrel
