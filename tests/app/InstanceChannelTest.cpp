// SPDX-License-Identifier: MIT
#include "app/InstanceChannel.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QDir>
#include <QLocalSocket>
#include <QTest>

#include <atomic>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kestrel {
namespace {

using namespace test;
using Role = InstanceChannel::Role;
using Paths = std::vector<std::filesystem::path>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Instances : public testing::Test {
protected:
    QString place() const { return QString::fromStdString(folder.path().string()); }

    /// What a start in another thread, which stands for another process, finds out.
    Role startElsewhere(const Paths& paths, const QByteArray& identity = "me") const {
        std::atomic<int> role = -1;
        std::thread other([&] {
            InstanceChannel channel(place(), identity);
            role = static_cast<int>(channel.begin(paths, 20000));
        });
        EXPECT_TRUE(QTest::qWaitFor([&role] { return role >= 0; }, 60000));
        other.join();
        return static_cast<Role>(role.load());
    }

    TemporaryFolder folder;
};

TEST_F(Instances, TheFirstStartHearsOfTheFilesOfLaterOnes) {
    InstanceChannel first(place(), "me");
    std::vector<Paths> arrived;
    QObject::connect(&first, &InstanceChannel::filesArrived,
                     [&arrived](const Paths& paths) { arrived.push_back(paths); });
    ASSERT_EQ(first.begin({}), Role::first);
    const Paths paths = {"/a b/\xff.kst", "/c.kst"};
    EXPECT_EQ(startElsewhere(paths), Role::handed);
    EXPECT_EQ(startElsewhere({}), Role::handed);
    EXPECT_THAT(arrived, ElementsAre(paths, IsEmpty()));
}

TEST_F(Instances, AnotherUserDisplayOrHomeIsAnotherFirst) {
    InstanceChannel first(place(), "me");
    ASSERT_EQ(first.begin({}), Role::first);
    EXPECT_EQ(startElsewhere({"/x"}, "someone else"), Role::first);
}

TEST_F(Instances, UserDisplayAndHomeMakeTheIdentity) {
    const QByteArray identity = InstanceChannel::userIdentity();
    for (const char* variable : {"HOME", "USER", "DISPLAY"}) {
        const bool wasSet = qEnvironmentVariableIsSet(variable);
        const QByteArray former = qgetenv(variable);
        qputenv(variable, "/another");
        EXPECT_NE(InstanceChannel::userIdentity(), identity) << variable;
        if (wasSet) {
            qputenv(variable, former);
        } else {
            qunsetenv(variable);
        }
    }
    EXPECT_EQ(InstanceChannel::userIdentity(), identity);
}

TEST_F(Instances, APredecessorThatCrashedIsNoObstacle) {
    const pid_t child = ::fork();
    if (child == 0) {
        InstanceChannel crashing(place(), "me");
        ::_exit(crashing.begin({}) == Role::first ? 0 : 1); // socket and lock stay behind
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_FALSE(QDir(place()).entryList({QStringLiteral("*.lock")}).isEmpty());
    InstanceChannel next(place(), "me");
    EXPECT_EQ(next.begin({}), Role::first);
    EXPECT_EQ(startElsewhere({"/x"}), Role::handed);
}

TEST_F(Instances, APredecessorThatDoesNotAnswerIsNoObstacle) {
    InstanceChannel silent(place(), "me");
    ASSERT_EQ(silent.begin({}), Role::first);
    // Nobody runs its event loop meanwhile.
    InstanceChannel next(place(), "me");
    EXPECT_EQ(next.begin({"/x"}, 200), Role::unheard);
}

TEST_F(Instances, TheEndOfTheFirstMakesRoom) {
    {
        InstanceChannel first(place(), "me");
        ASSERT_EQ(first.begin({}), Role::first);
    }
    InstanceChannel next(place(), "me");
    EXPECT_EQ(next.begin({}), Role::first);
}

TEST_F(Instances, NonsenseFromAStrangerOpensNothing) {
    InstanceChannel first(place(), "me");
    int arrivals = 0;
    QObject::connect(&first, &InstanceChannel::filesArrived, [&arrivals] { ++arrivals; });
    ASSERT_EQ(first.begin({}), Role::first);
    const QStringList sockets = QDir(place()).entryList({QStringLiteral("*.socket")}, QDir::System);
    ASSERT_EQ(sockets.size(), 1);
    QLocalSocket stranger;
    stranger.connectToServer(place() + QLatin1Char('/') + sockets.front());
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write(QByteArray::fromHex("0000000affffffff0000"));
    stranger.flush();
    stranger.disconnectFromServer();
    EXPECT_EQ(startElsewhere({"/x"}), Role::handed);
    EXPECT_EQ(arrivals, 1);
}

TEST_F(Instances, AFolderThatCannotBeWrittenToOnlyMeansNotBeingHeard) {
    InstanceChannel channel(QStringLiteral("/nonexistent/folder"), "me");
    EXPECT_EQ(channel.begin({}, 100), Role::unheard);
}

} // namespace
} // namespace kestrel
