// SPDX-License-Identifier: MIT
#include "icons/Icons.h"
#include "newitem/types/NewItemObjectTypes.h"
#include "newitem/WizardFixture.h"

#include <QPointer>

namespace kestrel {
namespace {

using test::WizardFixture;

std::vector<std::pair<FileType, QString>> kinds(const NewItemController& request) {
    std::vector<std::pair<FileType, QString>> found;
    for (const NewItemType& type : request.newItems()) {
        EXPECT_FALSE(type.icon.isNull()) << type.text.toStdString();
        found.emplace_back(type.fileType, type.text);
    }
    return found;
}

using Kinds = std::vector<std::pair<FileType, QString>>;

TEST(CreateNewFileController, ShowsTheIconOfEachKind) {
    const auto picture = [](const QIcon& icon) { return icon.pixmap(32, 32).toImage(); };
    const CreateNewFileController files("/somewhere");
    const CreateNewProjectController projects("/somewhere");
    const std::vector<QStringView> names{u"createNewASMFileIcon", u"createNewPaletteIcon",
                                         u"createNewGraphicsIcon"};
    ASSERT_EQ(files.newItems().size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(picture(files.newItems()[i].icon), picture(iconNamed(names[i]))) << i;
    }
    ASSERT_EQ(projects.newItems().size(), 1U);
    EXPECT_EQ(picture(projects.newItems()[0].icon), picture(iconNamed(u"consoleNES")));
}

TEST(CreateNewFileController, OffersAssemblyPaletteAndGraphicsInThisOrder) {
    const CreateNewFileController request("/somewhere");
    EXPECT_EQ(request.path(), "/somewhere");
    EXPECT_EQ(kinds(request), (Kinds{{FileType::text, QStringLiteral("NES Text Assembly")},
                                     {FileType::palette, QStringLiteral("Palette Data")},
                                     {FileType::graphics, QStringLiteral("Graphics Data")}}));
}

TEST(CreateNewProjectController, OffersExactlyOneKind) {
    const CreateNewProjectController request("/somewhere/");
    EXPECT_EQ(request.path(), "/somewhere/");
    EXPECT_EQ(kinds(request), (Kinds{{FileType::project, QStringLiteral("NES")}}));
}

TEST(NewItemObjectTypes, CanBeMade) {
    EXPECT_TRUE(std::is_default_constructible_v<NewItemObjectTypes>);
}

class NewItemRequest : public WizardFixture {};

TEST_F(NewItemRequest, ShowsTheWizardAsASheetOnTheWindow) {
    askForFile();
    EXPECT_EQ(request->parentWindow(), window.get());
    EXPECT_EQ(sheet()->parentWidget(), window.get());
    EXPECT_EQ(sheet()->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(sheet()->isVisible());
    EXPECT_EQ(sheet()->objectName(), QStringLiteral("NewItemWindow"));
    EXPECT_TRUE(sheet()->isAncestorOf(wizard()));
    EXPECT_EQ(wizard()->path(), folder.path().string());
    EXPECT_EQ(wizard()->newItems().size(), 3U);
    EXPECT_EQ(calls, 0);
}

TEST_F(NewItemRequest, CancellingCallsTheHandlerOnceWithoutANode) {
    askForFile();
    const QPointer<Sheet> shown = sheet();
    int response = -1;
    QObject::connect(shown, &QDialog::finished, shown, [&](int code) { response = code; });
    clickCancel();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
    EXPECT_EQ(response, Sheet::EndResponse);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(shown.isNull());
    EXPECT_EQ(calls, 1);
}

TEST_F(NewItemRequest, CancellingOnTheSecondPageGivesNoNodeEither) {
    askForFile();
    clickNext();
    type("typed.asm");
    clickCancel();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_F(NewItemRequest, FinishingCallsTheHandlerOnceWithTheNode) {
    askForFile();
    int response = -1;
    QObject::connect(sheet(), &QDialog::finished, window.get(), [&](int code) { response = code; });
    clickNext();
    type("game.asm");
    clickNext();
    ASSERT_EQ(calls, 1);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemName(), "game.asm");
    EXPECT_EQ(response, Sheet::EndResponse);
    EXPECT_EQ(request->newItemController(), nullptr);
    EXPECT_EQ(request->windowController(), nullptr);
}

TEST_F(NewItemRequest, EscapeCallsTheHandlerOnceWithoutANode) {
    askForFile();
    press(Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_F(NewItemRequest, EscapeOnTheSecondPageGivesNoNodeEither) {
    askForProject();
    press(Qt::Key_Return);
    type("game");
    press(Qt::Key_Escape);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_F(NewItemRequest, TheWindowsCloseButtonCallsTheHandlerOnceWithoutANode) {
    askForFile();
    EXPECT_TRUE(sheet()->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_F(NewItemRequest, QuittingCallsTheHandlerOnceWithoutANode) {
    askForFile();
    clickNext();
    type("game.asm");
    QApplication::closeAllWindows();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
}

TEST_F(NewItemRequest, TheParentWindowsDestructionCallsTheHandlerOnceWithoutANode) {
    askForFile();
    clickNext();
    type("game.asm");
    window.reset();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
    request.reset();
    EXPECT_EQ(calls, 1);
}

TEST_F(NewItemRequest, ItsOwnDestructionEndsTheSheetAndCallsTheHandlerOnce) {
    askForFile();
    const QPointer<Sheet> shown = sheet();
    request.reset();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(given, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(shown.isNull());
}

TEST_F(NewItemRequest, TheHandlerMayLetGoOfTheRequest) {
    request = std::make_unique<CreateNewFileController>(folder.path().string());
    request->prompt(window.get(), [this](const auto& item, const auto&) {
        ++calls;
        given = item;
        request.reset();
    });
    clickNext();
    type("a");
    clickNext();
    EXPECT_EQ(calls, 1);
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(given->itemName(), "a");
    EXPECT_EQ(request, nullptr);
}

TEST_F(NewItemRequest, TheHandlerMayAskAgain) {
    request = std::make_unique<CreateNewFileController>(folder.path().string());
    request->prompt(window.get(), [this](const auto&, const auto&) {
        ++calls;
        request->prompt(window.get(), handler());
    });
    clickCancel();
    EXPECT_EQ(calls, 1);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_TRUE(sheet()->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_NE(sheet(), nullptr);
    clickCancel();
    EXPECT_EQ(calls, 2);
}

TEST_F(NewItemRequest, EveryPromptShowsAFreshWizard) {
    askForFile();
    clickCell(2);
    clickNext();
    type("old.chr");
    const AddNewItemController* first = wizard();
    clickCancel();
    request->prompt(window.get(), handler());
    EXPECT_NE(wizard(), first);
    EXPECT_EQ(page(), 0);
    EXPECT_EQ(checkedCells(), std::vector<int>{0});
    clickNext();
    EXPECT_TRUE(name()->text().isEmpty());
}

TEST_F(NewItemRequest, WhileASheetIsOpenASecondIsNotShown) {
    askForFile();
    const Sheet* first = sheet();
    CreateNewProjectController second(folder.path().string());
    int secondCalls = 0;
    const auto count = [&](const std::shared_ptr<ProjectItem>& item, const auto&) {
        ++secondCalls;
        EXPECT_EQ(item, nullptr);
    };
    second.prompt(window.get(), count);
    EXPECT_EQ(secondCalls, 1);
    EXPECT_EQ(second.windowController(), nullptr);
    request->prompt(window.get(), count);
    EXPECT_EQ(secondCalls, 2);
    EXPECT_EQ(sheet(), first);
    EXPECT_EQ(calls, 0);
    clickCancel();
    EXPECT_EQ(calls, 1);
}

TEST_F(NewItemRequest, WithoutAWindowNothingIsShownAndNothingReported) {
    request = std::make_unique<CreateNewFileController>(folder.path().string());
    request->prompt(nullptr, handler());
    ASSERT_NE(sheet(), nullptr);
    EXPECT_FALSE(sheet()->isVisible());
    ASSERT_NE(wizard(), nullptr);
    request->didFinish();
    request->didCancel();
    EXPECT_FALSE(sheet()->isVisible());
    request.reset();
    EXPECT_EQ(calls, 0);
}

TEST_F(NewItemRequest, EndingTwiceReportsOnce) {
    askForFile();
    request->didCancel();
    request->didFinish();
    request->didCancel();
    EXPECT_EQ(calls, 1);
}

TEST_F(NewItemRequest, WritesNothingToTheDisk) {
    askForFile();
    clickNext();
    type("game.asm");
    clickNext();
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

} // namespace
} // namespace kestrel
