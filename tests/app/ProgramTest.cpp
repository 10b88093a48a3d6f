// SPDX-License-Identifier: MIT
#include "app/WindowFixture.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>

#include <fstream>
#include <signal.h>
#include <sys/stat.h>

namespace kestrel {
namespace {

using namespace test;
using ::testing::HasSubstr;

/// The program itself, in a process of its own, on a display that shows nothing.
class Program : public WindowTest {
protected:
    Program() {
        std::filesystem::create_directories(home.path() / "run");
        std::filesystem::permissions(home.path() / "run", std::filesystem::perms::owner_all);
        environment.insert(QStringLiteral("HOME"), QString::fromStdString(home.path().string()));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"),
                           QString::fromStdString((home.path() / "run").string()));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    }
    ~Program() override {
        if (program.state() != QProcess::NotRunning) {
            program.kill();
            program.waitForFinished();
        }
    }

    void launch(const QStringList& arguments, QProcess& process) const {
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(KESTREL_PROGRAM), arguments);
        ASSERT_TRUE(process.waitForStarted());
    }

    /// Runs it to its end and gives the exit status.
    int runs(const QStringList& arguments) {
        launch(arguments, program);
        EXPECT_TRUE(program.waitForFinished(60000));
        output = program.readAllStandardOutput().toStdString();
        errors = program.readAllStandardError().toStdString();
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }

    std::string registry() const {
        const auto file = home.path() / ".Kestrel/AllProjects.cfg";
        return std::filesystem::exists(file) ? contentOf(file) : "";
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess program;
    std::string output;
    std::string errors;
};

TEST_F(Program, TellsItsVersionAndItsUsageWithoutADisplay) {
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    EXPECT_EQ(runs({QStringLiteral("--version")}), 0);
    EXPECT_EQ(output, "Kestrel " KESTREL_VERSION "\n");
    EXPECT_EQ(runs({QStringLiteral("--help")}), 0);
    EXPECT_THAT(output, HasSubstr("usage: Kestrel"));
}

TEST_F(Program, WithoutADisplaySaysSoAndHowToGoOn) {
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    EXPECT_EQ(runs({}), 2);
    EXPECT_THAT(errors, HasSubstr("no display"));
    EXPECT_THAT(errors, HasSubstr("kestrel-build"));
}

TEST_F(Program, RefusesAnOptionThatItDoesNotKnow) {
    EXPECT_EQ(runs({QStringLiteral("--fast")}), 2);
    EXPECT_THAT(errors, HasSubstr("--fast"));
}

TEST_F(Program, ASecondStartHandsItsFilesOverAndEnds) {
    const auto game = layOut("Game");
    const auto other = layOut("Other");
    launch({QString::fromStdString(game.string())}, program);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return registry().find("Game") != std::string::npos; }, 60000));
    QProcess second;
    second.setWorkingDirectory(QString::fromStdString(folder("Other").string()));
    launch({QStringLiteral("Other.kst")}, second);
    ASSERT_TRUE(second.waitForFinished(60000));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return registry().find("Other") != std::string::npos; }, 60000));
    EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(Program, StartsAlthoughItsPredecessorWasKilled) {
    launch({QString::fromStdString(layOut("Game").string())}, program);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return registry().find("Game") != std::string::npos; }, 60000));
    program.kill();
    ASSERT_TRUE(program.waitForFinished());
    launch({QString::fromStdString(layOut("Other").string())}, program);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return registry().find("Other") != std::string::npos; }, 60000));
}

TEST_F(Program, EndsInOrderWhenItIsAskedTo) {
    launch({QString::fromStdString(layOut("Game").string())}, program);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return registry().find("Game") != std::string::npos; }, 60000));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished(60000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
}

} // namespace
} // namespace kestrel
