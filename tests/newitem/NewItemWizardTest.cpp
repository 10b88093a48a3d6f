// SPDX-License-Identifier: MIT
#include "newitem/AddNewItemControllerDelegate.h"
#include "newitem/WizardFixture.h"

namespace kestrel {
namespace {

using test::WizardFixture;

class NewItemWizard : public WizardFixture {
protected:
    bool backEnabled() const { return wizard()->backButton()->isEnabled(); }
    bool nextEnabled() const { return wizard()->nextButton()->isEnabled(); }
};

TEST_F(NewItemWizard, BeginsOnTheKindsWithNextEnabledAndBackDisabled) {
    askForFile();
    EXPECT_EQ(page(), 0);
    EXPECT_TRUE(nextEnabled());
    EXPECT_FALSE(backEnabled());
    EXPECT_EQ(pages()->arrangedObjects(), (QStringList{QStringLiteral("CreateNewItemController"),
                                                       QStringLiteral("NewFileNameController")}));
}

TEST_F(NewItemWizard, TheSecondPageIsMadeOnDemand) {
    askForFile();
    EXPECT_EQ(namePage(), nullptr);
    clickNext();
    EXPECT_NE(namePage(), nullptr);
    EXPECT_EQ(
        pages()->pageControllerViewControllerForIdentifier(QStringLiteral("NewFileNameController")),
        namePage());
    EXPECT_EQ(pages()->pageControllerViewControllerForIdentifier(QStringLiteral("Other")), nullptr);
}

TEST_F(NewItemWizard, TheSecondPageHasBackEnabledAndNextOnlyWithAName) {
    askForFile();
    clickNext();
    EXPECT_EQ(page(), 1);
    EXPECT_TRUE(backEnabled());
    EXPECT_FALSE(nextEnabled());
    type("a");
    EXPECT_TRUE(nextEnabled());
    EXPECT_EQ(wizard()->nextButton()->accessibleName(), QStringLiteral("Create"));
    press(Qt::Key_Backspace);
    EXPECT_FALSE(nextEnabled());
}

TEST_F(NewItemWizard, FinishingWithoutANameIsImpossible) {
    askForFile();
    clickNext();
    clickNext();
    ASSERT_EQ(calls, 0);
    press(Qt::Key_Return);
    ASSERT_EQ(calls, 0);
    press(Qt::Key_Enter);
    ASSERT_EQ(calls, 0);
    EXPECT_EQ(page(), 1);
    EXPECT_TRUE(sheet()->isVisible());
}

TEST_F(NewItemWizard, BackReturnsToTheKindsAndSetsTheButtons) {
    askForFile();
    clickCell(1);
    clickNext();
    clickBack();
    EXPECT_EQ(page(), 0);
    EXPECT_TRUE(nextEnabled());
    EXPECT_FALSE(backEnabled());
    EXPECT_EQ(checkedCells(), std::vector<int>{1});
    EXPECT_EQ(wizard()->nextButton()->accessibleName(), QStringLiteral("Next"));
    wizard()->backTrackToPreviousAction();
    EXPECT_EQ(page(), 0);
    EXPECT_FALSE(backEnabled());
}

TEST_F(NewItemWizard, GoingBackAndForwardRebuildsTheNodeWithTheNewKind) {
    askForFile();
    clickNext();
    type("first.asm");
    const std::shared_ptr<ProjectItem> first = namePage()->newItem();
    EXPECT_EQ(first->itemName(), "first.asm");
    clickBack();
    clickCell(1);
    clickNext();
    const std::shared_ptr<ProjectItem> second = namePage()->newItem();
    EXPECT_NE(second, first);
    EXPECT_EQ(second->itemName(), "InsertNameHere.pal");
    EXPECT_EQ(second->itemFileType(), FileType::palette);
    EXPECT_EQ(second->itemPathType(), FilePathType::relative);
    EXPECT_TRUE(name()->text().isEmpty());
    EXPECT_FALSE(nextEnabled());
}

TEST_F(NewItemWizard, TheNodeOfEachKindBeginsWithItsDefaultName) {
    askForFile();
    const std::vector<std::pair<FileType, std::string>> expected = {
        {FileType::text, "InsertNameHere.asm"},
        {FileType::palette, "InsertNameHere.pal"},
        {FileType::graphics, "InsertNameHere.chr"}};
    for (int row = 0; row < 3; ++row) {
        clickCell(row);
        clickNext();
        const ProjectItem& node = *namePage()->newItem();
        EXPECT_EQ(node.itemFileType(), expected[static_cast<std::size_t>(row)].first);
        EXPECT_EQ(node.itemName(), expected[static_cast<std::size_t>(row)].second);
        EXPECT_EQ(node.itemPath(), folder.path());
        EXPECT_EQ(node.parent(), nullptr);
        EXPECT_TRUE(node.subItems().empty());
        clickBack();
    }
}

TEST_F(NewItemWizard, AProjectsNodeBeginsWithItsDefaultName) {
    askForProject();
    clickNext();
    EXPECT_EQ(namePage()->newItem()->itemName(), "InsertNameHere.kst");
    EXPECT_EQ(namePage()->newItem()->itemFileType(), FileType::project);
}

class Hearer : public AddNewItemControllerDelegate {
public:
    void didFinish() override { ++finished; }
    void didCancel() override { ++cancelled; }
    int finished = 0;
    int cancelled = 0;
};

TEST(AddNewItemController, AnyOtherKindBecomesUnknownWithoutAnExtension) {
    for (const FileType kind : {FileType::group, FileType::empty, FileType::unknown}) {
        AddNewItemController wizard;
        wizard.setPath("/somewhere");
        wizard.setNewItems({{kind, QStringLiteral("Other"), {}}});
        wizard.viewWillAppear();
        QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
        const auto node = wizard.pageController()->createNewItemPathController()->newItem();
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->itemName(), "InsertNameHere.");
        EXPECT_EQ(node->itemFileType(), FileType::unknown);
    }
}

TEST(AddNewItemController, HoldsItsResultOnlyOnceFinished) {
    const auto hearer = std::make_shared<Hearer>();
    AddNewItemController wizard;
    wizard.setAddNewItemControllerDelegate(hearer);
    wizard.setPath("/somewhere");
    wizard.setNewItems({{FileType::text, QStringLiteral("Text"), {}}});
    wizard.viewWillAppear();
    QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
    QTest::keyClicks(wizard.pageController()->createNewItemPathController()->fileNameTextField(),
                     QStringLiteral("a"));
    EXPECT_EQ(wizard.newItem(), nullptr);
    QTest::mouseClick(wizard.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(hearer->cancelled, 1);
    EXPECT_EQ(wizard.newItem(), nullptr);
    QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
    EXPECT_EQ(hearer->finished, 1);
    ASSERT_NE(wizard.newItem(), nullptr);
    EXPECT_EQ(wizard.newItem()->itemName(), "a");
}

TEST(AddNewItemController, ADelegateThatIsGoneIsNotTold) {
    AddNewItemController wizard;
    wizard.setAddNewItemControllerDelegate(std::make_shared<Hearer>());
    wizard.setNewItems({{FileType::text, QStringLiteral("Text"), {}}});
    wizard.viewWillAppear();
    QTest::mouseClick(wizard.cancelButton(), Qt::LeftButton);
    EXPECT_EQ(wizard.newItem(), nullptr);
}

TEST(AddNewItemController, WithoutKindsThereIsNoNodeAndNoCrash) {
    AddNewItemController wizard;
    wizard.viewWillAppear();
    QTest::mouseClick(wizard.nextButton(), Qt::LeftButton);
    EXPECT_EQ(wizard.pageController()->createNewItemPathController()->newItem(), nullptr);
    EXPECT_FALSE(wizard.nextButton()->isEnabled());
}

TEST(AddNewItemController, BeforeItAppearsNextDoesNothing) {
    AddNewItemController wizard;
    EXPECT_FALSE(wizard.backButton()->isEnabled());
    wizard.proceedToNextAction();
    wizard.backTrackToPreviousAction();
    EXPECT_EQ(wizard.pageController()->selectedIndex(), -1);
}

TEST_F(NewItemWizard, CanBeWorkedWithTheKeyboardAlone) {
    askForFile();
    EXPECT_EQ(sheet()->focusWidget(), grid());
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    ASSERT_EQ(page(), 1);
    EXPECT_EQ(sheet()->focusWidget(), name());
    type("colours.pal");
    press(Qt::Key_Return);
    ASSERT_EQ(calls, 1);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemName(), "colours.pal");
    EXPECT_EQ(given->itemFileType(), FileType::palette);
}

TEST_F(NewItemWizard, TheTabKeyGoesThroughTheControlsInReadingOrder) {
    askForFile();
    const auto visited = [this](int steps) {
        QStringList names;
        for (int i = 0; i < steps; ++i) {
            names << sheet()->focusWidget()->objectName();
            press(Qt::Key_Tab);
        }
        return names;
    };
    EXPECT_EQ(visited(4),
              (QStringList{QStringLiteral("collectionView"), QStringLiteral("cancelButton"),
                           QStringLiteral("nextButton"), QStringLiteral("collectionView")}));
    clickNext();
    type("a");
    EXPECT_EQ(visited(6),
              (QStringList{QStringLiteral("fileNameTextField"), QStringLiteral("filePathTextField"),
                           QStringLiteral("cancelButton"), QStringLiteral("backButton"),
                           QStringLiteral("nextButton"), QStringLiteral("fileNameTextField")}));
}

/// The wizard worked by one of the two keys that press a button.
class NewItemWizardByKeys
    : public NewItemWizard,
      public ::testing::WithParamInterface<std::pair<Qt::Key, Qt::KeyboardModifier>> {
protected:
    void pressIt() { press(GetParam().first, GetParam().second); }

    void tabTo(const QWidget* widget) {
        for (int i = 0; i < 10 && sheet()->focusWidget() != widget; ++i) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(sheet()->focusWidget(), widget);
    }

    void goToNames() {
        askForFile();
        pressIt();
        ASSERT_EQ(page(), 1);
    }
};

INSTANTIATE_TEST_SUITE_P(Keys, NewItemWizardByKeys,
                         ::testing::Values(std::pair{Qt::Key_Return, Qt::NoModifier},
                                           std::pair{Qt::Key_Enter, Qt::KeypadModifier}),
                         [](const auto& parameter) {
                             return parameter.param.first == Qt::Key_Return ? "Return" : "Enter";
                         });

TEST_P(NewItemWizardByKeys, CancelAmongTheKindsGivesNothing) {
    askForFile();
    tabTo(wizard()->cancelButton());
    pressIt();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_P(NewItemWizardByKeys, NextAmongTheKindsGoesOn) {
    askForFile();
    tabTo(wizard()->nextButton());
    pressIt();
    EXPECT_EQ(page(), 1);
    EXPECT_EQ(calls, 0);
}

TEST_P(NewItemWizardByKeys, CancelBesideANameGivesNothing) {
    folder.write("there.asm", "old");
    goToNames();
    type("there.asm");
    tabTo(wizard()->cancelButton());
    pressIt();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_P(NewItemWizardByKeys, BackBesideANameReturnsToTheKinds) {
    goToNames();
    type("a.asm");
    tabTo(wizard()->backButton());
    pressIt();
    ASSERT_EQ(calls, 0);
    EXPECT_EQ(page(), 0);
    EXPECT_EQ(sheet()->focusWidget(), grid());
    pressIt();
    EXPECT_EQ(page(), 1) << "Next is the default button again";
}

TEST_P(NewItemWizardByKeys, CreateBesideANameFinishes) {
    goToNames();
    type("a.asm");
    tabTo(wizard()->nextButton());
    pressIt();
    EXPECT_EQ(calls, 1);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemName(), "a.asm");
}

TEST_P(NewItemWizardByKeys, InAFieldTheKeyPressesTheDefaultButtonAgainAfterAButtonHadTheFocus) {
    goToNames();
    type("a.asm");
    tabTo(wizard()->cancelButton());
    EXPECT_TRUE(wizard()->cancelButton()->isDefault()) << "it is not shown what the key would do";
    EXPECT_FALSE(wizard()->nextButton()->isDefault());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(sheet()->focusWidget(), location());
    EXPECT_TRUE(wizard()->nextButton()->isDefault());
    pressIt();
    EXPECT_EQ(calls, 1);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemName(), "a.asm");
}

TEST_F(NewItemWizard, EveryControlHasAnObjectNameAndAnAccessibleName) {
    askForFile();
    clickNext();
    const QList<QWidget*> controls = sheet()->findChildren<QWidget*>();
    int seen = 0;
    for (const QWidget* control : controls) {
        if (control->focusPolicy() == Qt::NoFocus ||
            control->objectName().startsWith(QStringLiteral("qt_"))) {
            continue;
        }
        ++seen;
        EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
        EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    }
    EXPECT_EQ(seen, 6);
    for (const QLabel* label : sheet()->findChildren<QLabel*>()) {
        EXPECT_TRUE(label == namePage()->existingItemLabel() || label->buddy() != nullptr);
    }
}

} // namespace
} // namespace kestrel
