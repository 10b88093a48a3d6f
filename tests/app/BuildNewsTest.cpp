// SPDX-License-Identifier: MIT
#include "app/BuildNews.h"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

using State = BuildResult::State;
using Launch = EmulatorLaunch::State;

BuildResult made() {
    BuildResult result;
    result.state = State::made;
    result.image = "/home/Game/output/Game.nes";
    result.bytes = 24592;
    result.duration = std::chrono::milliseconds(40);
    return result;
}

BuildResult notMade() {
    BuildResult result;
    result.state = State::notMade;
    result.hasOutput = true;
    result.errors = 2;
    result.warnings = 1;
    return result;
}

EmulatorLaunch launch(Launch state, bool hasImage = true) {
    return {state, "FCEUX", state == Launch::failed ? "Permission denied" : "", hasImage};
}

constexpr const char* MadeText = "Game.nes built in 0.04 s: 24,592 bytes, no warnings";

TEST(BuildNews, OfABuildAreItsSentence) {
    const BuildNews good = newsOf({made(), {}, {}, {}});
    EXPECT_EQ(good, (BuildNews{BuildMarkKind::made, QLatin1String(MadeText), {}, {}}));
    const BuildNews bad = newsOf({notMade(), {}, {}, {}});
    EXPECT_EQ(bad,
              (BuildNews{
                  BuildMarkKind::failed, QStringLiteral("2 errors, 1 warning: no image"), {}, {}}));
}

TEST(BuildNews, OfABuildThatWasStoppedHaveAMarkOfTheirOwn) {
    BuildResult result;
    result.state = State::stopped;
    EXPECT_EQ(newsOf({result, {}, {}, {}}).mark, BuildMarkKind::stopped);
    result.state = State::crashed;
    EXPECT_EQ(newsOf({result, {}, {}, {}}).mark, BuildMarkKind::failed);
}

TEST(BuildNews, OfAnImageThatIsNotOfTheFilesAsTheyAreAreNoPlainSuccess) {
    BuildResult result = made();
    result.notCopied = {{"main.asm", "Read-only file system", true}};
    result.hints = {"One."};
    const BuildNews news = newsOf({result, {}, {}, {}});
    EXPECT_EQ(news.mark, BuildMarkKind::failed);
    EXPECT_EQ(news.text,
              QLatin1String(MadeText) + QStringLiteral(", but not of your files as they are"));
    EXPECT_EQ(news.hint, QStringLiteral("One."));
}

TEST(BuildNews, HoldEveryHint) {
    BuildResult result;
    result.error = BuildError{"", 100, "Could not"};
    result.hints = {"One.", "Two."};
    const BuildNews news = newsOf({result, {}, {}, {}});
    EXPECT_EQ(news.text, QStringLiteral("Could not"));
    EXPECT_EQ(news.hint, QStringLiteral("One.\nTwo."));
    EXPECT_EQ(news.mark, BuildMarkKind::failed);
}

TEST(BuildNews, NameTheFileThatIsNotSavedAndOfferToSaveIt) {
    const BuildNews news = newsOf({made(), {}, {}, QStringLiteral("player.asm")});
    EXPECT_TRUE(news.again == BuildNews::Again::build);
    EXPECT_TRUE(news.hint.contains(QStringLiteral("with unsaved changes in player.asm")));
    EXPECT_EQ(news.text, QLatin1String(MadeText));
}

TEST(BuildNews, OfARunNameTheEmulatorThatWasStarted) {
    const BuildNews news = newsOf({made(), made(), launch(Launch::started), {}});
    EXPECT_EQ(news.text, QLatin1String(MadeText) + QStringLiteral("; started in FCEUX"));
    EXPECT_EQ(news.mark, BuildMarkKind::made);
    EXPECT_EQ(news.hint, QString());
}

TEST(BuildNews, OfARunWithoutAnImageOfItsOwnSayWhoseImageIsShown) {
    const BuildNews old = newsOf({notMade(), notMade(), launch(Launch::started), {}});
    EXPECT_EQ(old.text, QStringLiteral("2 errors, 1 warning: no image"));
    EXPECT_EQ(old.hint, QStringLiteral("FCEUX was started with the image of an earlier build; this "
                                       "build made none."));
    EXPECT_EQ(old.mark, BuildMarkKind::failed);
    const BuildNews none = newsOf({notMade(), notMade(), launch(Launch::started, false), {}});
    EXPECT_EQ(none.hint, QStringLiteral("FCEUX was started, but there is no image for it."));
}

TEST(BuildNews, OfARunWhoseEmulatorDoesNotStartSayWhy) {
    const BuildNews news = newsOf({made(), made(), launch(Launch::failed), {}});
    EXPECT_EQ(news.mark, BuildMarkKind::failed);
    EXPECT_EQ(news.text, QLatin1String(MadeText) + QStringLiteral("; FCEUX could not be started"));
    EXPECT_EQ(news.hint, QStringLiteral("Permission denied."));
}

TEST(BuildNews, OfARunWithoutAnEmulatorSayWhereToChooseOne) {
    const BuildNews news = newsOf({made(), made(), launch(Launch::noEmulator), {}});
    EXPECT_EQ(news.text, QLatin1String(MadeText) + QStringLiteral("; no emulator is set"));
    EXPECT_EQ(news.hint,
              QStringLiteral("Select the project in the tree and choose one at “Emulator”."));
}

TEST(BuildNews, OfARunTellTheSecondBuildOnlyWhenItCameToSomethingElse) {
    BuildResult slower = made();
    slower.duration = std::chrono::seconds(9);
    EXPECT_TRUE(newsOf({made(), slower, launch(Launch::started), {}})
                    .text.startsWith(QLatin1String(MadeText)));
    const BuildNews lost = newsOf({made(), notMade(), launch(Launch::started), {}});
    EXPECT_EQ(lost.mark, BuildMarkKind::failed);
    EXPECT_EQ(lost.text, QStringLiteral("2 errors, 1 warning: no image"));
    EXPECT_TRUE(lost.hint.contains(QStringLiteral("The first one made an image.")));
    const BuildNews found = newsOf({notMade(), made(), launch(Launch::started), {}});
    EXPECT_EQ(found.mark, BuildMarkKind::made);
    EXPECT_TRUE(found.hint.contains(QStringLiteral("whose output is below, made no image.")));
}

TEST(BuildNews, OfARunTellOfFilesThatOnlyTheSecondBuildCouldNotCopy) {
    BuildResult old = made();
    old.notCopied = {{"main.asm", "No space left on device", true}};
    old.hints = {"One."};
    const BuildNews late = newsOf({made(), old, launch(Launch::started), {}});
    EXPECT_EQ(late.mark, BuildMarkKind::failed);
    EXPECT_TRUE(late.text.contains(QStringLiteral("but not of your files as they are")));
    EXPECT_EQ(late.hint, QStringLiteral("One.\nThat was the second build of this run, whose output "
                                        "is not shown. For the first one other files could be "
                                        "copied."));
    const BuildNews early = newsOf({old, made(), launch(Launch::started), {}});
    EXPECT_EQ(early.mark, BuildMarkKind::made) << "the emulator gets the second image";
    EXPECT_TRUE(early.hint.startsWith(QStringLiteral("That was the second build")));
    const BuildNews both = newsOf({old, old, launch(Launch::started), {}});
    EXPECT_EQ(both.hint, QStringLiteral("One."));
}

TEST(BuildNews, OfABuildWithWarningsAloneHaveAMarkOfTheirOwn) {
    BuildResult result = made();
    result.warnings = 1;
    EXPECT_EQ(newsOf({result, {}, {}, {}}).mark, BuildMarkKind::warned);
    result.errors = 1;
    EXPECT_EQ(newsOf({result, {}, {}, {}}).mark, BuildMarkKind::failed);
    result.errors = 0;
    result.notCopied = {{"main.asm", "Read-only file system", true}};
    EXPECT_EQ(newsOf({result, {}, {}, {}}).mark, BuildMarkKind::failed);
}

TEST(BuildNews, OfARunOfferToRunAgain) {
    BuildStory story{made(), made(), launch(Launch::started), QStringLiteral("player.asm")};
    story.isRun = true;
    EXPECT_EQ(newsOf(story).again, BuildNews::Again::run);
}

TEST(BuildNews, KeepNamesFromTurningTheSentence) {
    EXPECT_EQ(isolated(QStringLiteral("Game")), QStringLiteral("Game"));
    const QString hebrew = QStringLiteral("\u05de\u05e9\u05d7\u05e7");
    EXPECT_EQ(isolated(hebrew), QStringLiteral("\u2068%1\u2069").arg(hebrew));
    EXPECT_EQ(isolated(QStringLiteral("a\u202eb")), QStringLiteral("\u2068a\u202eb\u2069"));
    EXPECT_EQ(isolated(QStringLiteral("a\u2069\u202eb")), QStringLiteral("\u2068a\u202eb\u2069"));
    BuildResult result = made();
    result.image = "/home/" + (hebrew + QStringLiteral(".nes")).toStdString();
    EXPECT_TRUE(newsOf({result, {}, {}, {}})
                    .text.startsWith(QStringLiteral("\u2068%1.nes\u2069 built in").arg(hebrew)));
}

TEST(BuildNews, TellTimeWithOnePlace) {
    EXPECT_EQ(secondsText(300), QStringLiteral("0.3 s"));
    EXPECT_EQ(secondsText(61'240), QStringLiteral("61.2 s"));
}

} // namespace
} // namespace kestrel
