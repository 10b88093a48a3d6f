// SPDX-License-Identifier: MIT
#include "navigation/tree/NotificationCentre.h"

#include "navigation/tree/ProjectNavigationMenuClickedOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace kestrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string name() {
    return std::string(ProjectNavigationMenuClicked);
}

TEST(NotificationCentre, DeliversAtOnceToEveryObserverOfTheNameInOrderOfRegistration) {
    NotificationCentre centre;
    std::vector<int> calls;
    const auto first = centre.observe(name(), [&](const std::any&) { calls.push_back(1); });
    const auto other = centre.observe("Another", [&](const std::any&) { calls.push_back(2); });
    const auto third = centre.observe(name(), [&](const std::any&) { calls.push_back(3); });
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_THAT(calls, ElementsAre(1, 3));
}

TEST(NotificationCentre, HandsOverTheAttachedObject) {
    NotificationCentre centre;
    std::any got;
    const auto connection = centre.observe(name(), [&](const std::any& object) { got = object; });
    centre.post(ProjectNavigationMenuClicked, ProjectNavigationMenuClickedOptions::newGroup);
    ASSERT_NE(std::any_cast<ProjectNavigationMenuClickedOptions>(&got), nullptr);
    EXPECT_EQ(std::any_cast<ProjectNavigationMenuClickedOptions>(got),
              ProjectNavigationMenuClickedOptions::newGroup);
}

TEST(NotificationCentre, AnObserverWhoseConnectionIsGoneIsNotCalled) {
    NotificationCentre centre;
    int calls = 0;
    {
        const auto connection = centre.observe(name(), [&](const std::any&) { ++calls; });
        centre.post(ProjectNavigationMenuClicked, {});
    }
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCentre, AnObserverRemovedDuringADeliveryIsLeftOutOfIt) {
    NotificationCentre centre;
    std::vector<int> calls;
    NotificationCentre::Connection second;
    const auto first = centre.observe(name(), [&](const std::any&) {
        calls.push_back(1);
        second.reset();
    });
    second = centre.observe(name(), [&](const std::any&) { calls.push_back(2); });
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_THAT(calls, ElementsAre(1));
}

TEST(NotificationCentre, AnObserverAddedDuringADeliveryGetsTheNextOne) {
    NotificationCentre centre;
    std::vector<NotificationCentre::Connection> added;
    int calls = 0;
    const auto first = centre.observe(name(), [&](const std::any&) {
        added.push_back(centre.observe(name(), [&](const std::any&) { ++calls; }));
    });
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_EQ(calls, 0);
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_EQ(calls, 1);
}

TEST(NotificationCentre, AConnectionMayOutliveItsCentre) {
    NotificationCentre::Connection connection;
    {
        NotificationCentre centre;
        connection =
            centre.observe(name(), [](const std::any&) { FAIL() << "nothing was posted"; });
    }
    connection.reset();
}

TEST(NotificationCentre, AssigningAConnectionEndsTheFormerOne) {
    NotificationCentre centre;
    std::vector<int> calls;
    auto connection = centre.observe(name(), [&](const std::any&) { calls.push_back(1); });
    connection = centre.observe(name(), [&](const std::any&) { calls.push_back(2); });
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_THAT(calls, ElementsAre(2));
    connection = {};
    calls.clear();
    centre.post(ProjectNavigationMenuClicked, {});
    EXPECT_THAT(calls, IsEmpty());
}

TEST(ProjectNavigationMenuClickedOptions, AcceptsTheNumbersOfTheFiveCommandsOnly) {
    using Options = ProjectNavigationMenuClickedOptions;
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(0), Options::newFile);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(1), Options::importFile);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(2), Options::newGroup);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(3), Options::newProject);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(4), Options::delete_);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(5), std::nullopt);
    EXPECT_EQ(projectNavigationMenuClickedOptionsFrom(-1), std::nullopt);
}

} // namespace
} // namespace kestrel
