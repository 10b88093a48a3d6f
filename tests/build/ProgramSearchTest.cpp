// SPDX-License-Identifier: MIT
#include "build/ProgramSearch.h"

#include "support/ApplicationFolders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kestrel {
namespace {

class ProgramSearch : public ::testing::Test {
protected:
    ~ProgramSearch() override { qputenv("PATH", formerPath); }

    QString text(const std::string& below) const {
        return QString::fromStdString((folders.path() / below).string());
    }

    test::ApplicationFolders folders;
    const QByteArray formerPath = qgetenv("PATH");
};

TEST_F(ProgramSearch, LooksInPathFirstAndThenWhereGamesAre) {
    const QString game = QString::fromStdString(folders.program("game").string());
    qputenv("PATH", "/nowhere");
    EXPECT_EQ(findProgram(QStringLiteral("game"), {}), QString());
    EXPECT_EQ(findProgram(QStringLiteral("game"), {text("none"), text("programs")}), game);
    EXPECT_EQ(findProgram(QStringLiteral("other"), {text("programs")}), QString());
    const auto inPath = folders.write("path/game", "");
    std::filesystem::permissions(inPath, std::filesystem::perms::owner_all);
    qputenv("PATH", text("path").toUtf8());
    EXPECT_EQ(findProgram(QStringLiteral("game"), {text("programs")}).toStdString(), inPath);
}

TEST_F(ProgramSearch, APathIsTakenAsItIsAndMustBeExecutable) {
    const QString game = QString::fromStdString(folders.program("game").string());
    EXPECT_EQ(findProgram(game, {}), game);
    std::filesystem::permissions(folders.path() / "programs/game",
                                 std::filesystem::perms::owner_read);
    EXPECT_EQ(findProgram(game, {}), QString());
    EXPECT_EQ(findProgram(QString()), QString());
}

TEST_F(ProgramSearch, GamesNeedNotBeInPath) {
    EXPECT_THAT(gameFolders(), ::testing::Contains(QStringLiteral("/usr/games")));
    // The emulator that the tests of the examples use is installed there.
    qputenv("PATH", "/nowhere");
    EXPECT_EQ(findProgram(QStringLiteral("fceux")), QStringLiteral("/usr/games/fceux"));
}

} // namespace
} // namespace kestrel
