// SPDX-License-Identifier: MIT
#include "newitem/WizardFixture.h"
#include "support/LogCapture.h"

#include <QSpinBox>

#include <filesystem>
#include <string_view>
#include <sys/stat.h>

namespace kestrel {
namespace {

using test::LogCapture;
using test::WizardFixture;

class NewItemNamePage : public WizardFixture {
protected:
    void toNames() {
        askForFile();
        clickNext();
    }

    const ProjectItem& node() const { return *namePage()->newItem(); }
};

TEST_F(NewItemNamePage, BeginsWithAnEmptyNameAndTheFolder) {
    toNames();
    EXPECT_TRUE(name()->text().isEmpty());
    EXPECT_FALSE(name()->placeholderText().contains(QStringLiteral("InsertNameHere")));
    EXPECT_EQ(location()->text().toStdString(), pathOf(""));
    EXPECT_TRUE(location()->isReadOnly());
    EXPECT_EQ(node().itemName(), "InsertNameHere.asm");
    EXPECT_TRUE(note().isEmpty());
}

TEST_F(NewItemNamePage, AFilesNodeTakesTheNameAndKeepsTheFolder) {
    toNames();
    type("gäme 1.asm");
    EXPECT_EQ(node().itemName(), "gäme 1.asm");
    EXPECT_EQ(node().itemPathType(), FilePathType::absolute);
    EXPECT_EQ(node().itemPath(), folder.path());
    EXPECT_EQ(location()->text().toStdString(), pathOf("gäme 1.asm"));
}

TEST_F(NewItemNamePage, AProjectsLocationFollowsEveryKeystroke) {
    askForProject();
    clickNext();
    EXPECT_EQ(location()->text().toStdString(), pathOf("Kestrel"));
    std::string typed;
    for (const char* letter : {"d", "e", "m", "o"}) {
        type(letter);
        typed += letter;
        EXPECT_EQ(node().itemName(), typed);
        EXPECT_EQ(pathText(node().itemPath()), pathOf("Kestrel/" + typed));
        EXPECT_EQ(location()->text().toStdString(), pathOf("Kestrel/" + typed));
        EXPECT_EQ(node().itemPathType(), FilePathType::absolute);
    }
    press(Qt::Key_Backspace);
    EXPECT_EQ(pathText(node().itemPath()), pathOf("Kestrel/dem"));
    press(Qt::Key_Return);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemFileType(), FileType::project);
    EXPECT_EQ(given->itemName(), "dem");
}

TEST_F(NewItemNamePage, APastedTextCountsLikeATypedOne) {
    toNames();
    name()->setText(QStringLiteral("pasted.asm"));
    EXPECT_EQ(node().itemName(), "pasted.asm");
    EXPECT_TRUE(wizard()->nextButton()->isEnabled());
}

TEST_F(NewItemNamePage, AnyTextWithACharacterIsAccepted) {
    for (const char* text : {" ", ".", "..", "/", "sub/file.asm", "/etc/passwd", "a\\b", "*?"}) {
        toNames();
        type(text);
        EXPECT_TRUE(wizard()->nextButton()->isEnabled()) << text;
        clickNext();
        ASSERT_NE(given, nullptr) << text;
        EXPECT_EQ(given->itemName(), text);
        EXPECT_EQ(given->itemPath(), folder.path());
    }
    EXPECT_EQ(calls, 8);
}

TEST_F(NewItemNamePage, ANameThatBeginsWithASeparatorIsShownBelowTheFolder) {
    toNames();
    type("/deep.asm");
    EXPECT_EQ(location()->text().toStdString(), pathOf("deep.asm"));
}

TEST_F(NewItemNamePage, AChangeOfTheLocationFieldOfAFileChangesNothing) {
    toNames();
    type("a.asm");
    location()->setText(QStringLiteral("other"));
    EXPECT_EQ(node().itemName(), "a.asm");
    EXPECT_EQ(node().itemPath(), folder.path());
}

TEST_F(NewItemNamePage, AChangeOfTheLocationFieldOfAProjectNamesIt) {
    askForProject();
    clickNext();
    location()->setText(QStringLiteral("other"));
    EXPECT_EQ(node().itemName(), "other");
    EXPECT_EQ(pathText(node().itemPath()), pathOf("Kestrel/other"));
    EXPECT_EQ(location()->text().toStdString(), pathOf("Kestrel/other"));
}

TEST_F(NewItemNamePage, ASenderThatIsNoTextFieldIsLoggedAndChangesNothing) {
    toNames();
    const LogCapture log;
    QSpinBox other;
    namePage()->controlTextDidChange(&other);
    namePage()->controlTextDidChange(nullptr);
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"Errrrr", "Errrrr"}));
    EXPECT_EQ(node().itemName(), "InsertNameHere.asm");
    EXPECT_EQ(node().itemPathType(), FilePathType::relative);
}

TEST_F(NewItemNamePage, AMissingLocationFieldIsLoggedAndChangesNothing) {
    toNames();
    const LogCapture log;
    std::unique_ptr<QLineEdit> gone(location());
    gone->setParent(nullptr);
    gone.reset();
    type("a");
    EXPECT_EQ(log.lines(), std::vector<std::string>{"Errrrr"});
    EXPECT_EQ(node().itemName(), "InsertNameHere.asm");
}

TEST(CreateNewItemAtPathController, TextBeforeThereIsALocationIsLogged) {
    const LogCapture log;
    CreateNewItemAtPathController page;
    QTest::keyClicks(page.fileNameTextField(), QStringLiteral("a"));
    EXPECT_EQ(log.lines(), std::vector<std::string>{"Errrrr"});
    page.viewDidAppear();
    EXPECT_FALSE(page.rootPath().has_value());
}

TEST_F(NewItemNamePage, OwnWritesAreNoChanges) {
    const LogCapture log;
    askForProject();
    clickNext();
    type("a");
    clickBack();
    clickNext();
    EXPECT_EQ(node().itemName(), "InsertNameHere.kst");
    EXPECT_EQ(node().itemPathType(), FilePathType::relative);
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(NewItemNamePage, ANameThatExistsIsAcceptedAndSaidToBeReplaced) {
    folder.write("old.asm", "precious");
    toNames();
    type("old.as");
    EXPECT_TRUE(note().isEmpty());
    type("m");
    EXPECT_TRUE(note().contains(QStringLiteral("contents will be replaced")));
    EXPECT_TRUE(note().contains(QStringLiteral("\"~\"")));
    EXPECT_EQ(name()->accessibleDescription(), note());
    EXPECT_TRUE(wizard()->nextButton()->isEnabled());
    type("x");
    EXPECT_TRUE(note().isEmpty());
    press(Qt::Key_Backspace);
    clickNext();
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(test::contentOf(folder.path() / "old.asm"), "precious");
}

TEST_F(NewItemNamePage, AFoldersNameIsSaidToBeNoPlaceForAFile) {
    std::filesystem::create_directory(folder.path() / "sub");
    toNames();
    type("sub");
    EXPECT_TRUE(note().contains(QStringLiteral("cannot be made")));
    EXPECT_TRUE(wizard()->nextButton()->isEnabled());
}

TEST_F(NewItemNamePage, AProjectsExistingFolderIsSaidToBeTaken) {
    std::filesystem::create_directories(folder.path() / "Kestrel" / "demo");
    folder.write("Kestrel/file", "");
    askForProject();
    clickNext();
    type("demo");
    EXPECT_TRUE(note().contains(QStringLiteral("is kept")));
    name()->clear();
    EXPECT_TRUE(note().isEmpty());
    type("file");
    EXPECT_TRUE(note().contains(QStringLiteral("cannot be made")));
}

TEST_F(NewItemNamePage, ANameThatIsTooLongForAFileIsSaidToBeSo) {
    toNames();
    name()->setText(QString(255, QLatin1Char('n')));
    EXPECT_TRUE(note().isEmpty());
    name()->setText(QString(256, QLatin1Char('n')));
    EXPECT_TRUE(note().contains(QStringLiteral("too long")));
    EXPECT_EQ(name()->accessibleDescription(), note());
    EXPECT_TRUE(wizard()->nextButton()->isEnabled()) << "any name is accepted";
    name()->setText(QString(128, QChar(0xE9))); // of two bytes each
    EXPECT_TRUE(note().contains(QStringLiteral("too long")));
    name()->setText(QString(200, QLatin1Char('n')) + QLatin1Char('/') +
                    QString(200, QLatin1Char('n')));
    EXPECT_TRUE(note().isEmpty());
    name()->setText(QStringLiteral("n/").repeated(2100));
    EXPECT_TRUE(note().contains(QStringLiteral("too long")));
}

TEST_F(NewItemNamePage, AProjectsNameLeavesRoomForTheEndingsOfItsFiles) {
    askForProject();
    clickNext();
    const int longest = 255 - static_cast<int>(std::string_view("-ProjectStructure.cfg").size());
    name()->setText(QString(longest, QLatin1Char('n')));
    EXPECT_TRUE(note().isEmpty());
    name()->setText(QString(longest + 1, QLatin1Char('n')));
    EXPECT_TRUE(note().contains(QStringLiteral("too long")));
    EXPECT_TRUE(wizard()->nextButton()->isEnabled()) << "any name is accepted";
}

TEST_F(NewItemNamePage, AProjectsNameWithASeparatorIsSaidToBeNoneThatIsFoundAgain) {
    askForProject();
    clickNext();
    type("a/b");
    EXPECT_TRUE(note().contains(QStringLiteral("will not be found again")));
    EXPECT_TRUE(wizard()->nextButton()->isEnabled());
    for (const char* const name : {"/demo", "../up", "../Kestrel/../up", "./here"}) {
        this->name()->setText(QString::fromUtf8(name));
        EXPECT_TRUE(note().contains(QStringLiteral("but not be built"))) << name;
    }
    for (const char* const name : {"demo/", "../Kestrel/x", "x/../y"}) {
        this->name()->setText(QString::fromUtf8(name));
        EXPECT_TRUE(note().contains(QStringLiteral("will not be found again"))) << name;
    }
}

TEST_F(NewItemNamePage, AFileWhoseCopyCouldNotBeNamedIsNotSaidToBeReplaced) {
    const std::string longest(255, 'n');
    folder.write(longest, "precious");
    toNames();
    name()->setText(QString::fromStdString(longest));
    EXPECT_TRUE(note().contains(QStringLiteral("no room")));
    EXPECT_TRUE(note().contains(QStringLiteral("cannot be made")));
}

TEST_F(NewItemNamePage, WhatIsNeitherFileNorFolderIsSaidToBeNoPlaceForAFile) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    toNames();
    type("pipe");
    EXPECT_TRUE(note().contains(QStringLiteral("cannot be made")));
}

TEST_F(NewItemNamePage, TheNoteOnAnExistingNameDoesNotOutliveTheKind) {
    folder.write("old", "");
    toNames();
    type("old");
    ASSERT_FALSE(note().isEmpty());
    clickBack();
    clickNext();
    EXPECT_TRUE(note().isEmpty());
}

TEST_F(NewItemNamePage, AVeryLongNameAndPathLeaveTheLayoutAlone) {
    std::filesystem::path deep = folder.path();
    for (int level = 0; level < 12; ++level) {
        deep /= std::string(200, 'd');
    }
    std::filesystem::create_directories(deep);
    ask(std::make_unique<CreateNewFileController>(deep.string()));
    const QSize before = sheet()->size();
    clickNext();
    const QRect field = location()->geometry();
    name()->setText(QString(4000, QLatin1Char('n')));
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet()->size(), before);
    EXPECT_EQ(location()->geometry(), field);
    EXPECT_LE(sheet()->minimumSizeHint().width(), before.width());
    EXPECT_EQ(location()->cursorPosition(), location()->text().size());
}

TEST_F(NewItemNamePage, TheNoteFitsWithoutMovingAnything) {
    folder.write("old", "");
    toNames();
    const QSize before = sheet()->size();
    const QRect field = location()->geometry();
    type("old");
    QCoreApplication::processEvents();
    EXPECT_EQ(sheet()->size(), before);
    EXPECT_EQ(location()->geometry(), field);
    const QLabel* label = namePage()->existingItemLabel();
    EXPECT_LE(label->heightForWidth(label->width()), label->height());
    EXPECT_TRUE(namePage()->rect().contains(label->geometry()));
    const std::string longest(255, 'n');
    folder.write(longest, "");
    name()->setText(QString::fromStdString(longest));
    EXPECT_LE(label->heightForWidth(label->width()), label->height());
}

} // namespace
} // namespace kestrel
