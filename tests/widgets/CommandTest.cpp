// SPDX-License-Identifier: MIT
#include "widgets/CommandSet.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QTranslator>

namespace kestrel {
namespace {

/// Knows only the texts of commands.
class CommandTranslator final : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override {
        return QLatin1String(context) == QLatin1String("Command")
                   ? QLatin1String(text) + QStringLiteral(" translated")
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

TEST(Command, BecomesAnActionWithAllThatItsRowSays) {
    QObject owner;
    int carriedOut = 0;
    CommandSet commands(owner);
    const QAction* action = commands.add({.id = "jumpAction",
                                          .title = "&Jump",
                                          .shortcuts = {Qt::CTRL | Qt::Key_J, Qt::Key_F2},
                                          .handler = [&carriedOut] { ++carriedOut; },
                                          .toolTip = "Jump far",
                                          .autoRepeat = false,
                                          .shortcutContext = Qt::ApplicationShortcut,
                                          .menuRole = QAction::QuitRole});
    EXPECT_EQ(action->parent(), &owner);
    EXPECT_EQ(action->objectName(), QStringLiteral("jumpAction"));
    EXPECT_EQ(action->text(), QStringLiteral("&Jump"));
    EXPECT_EQ(action->shortcuts(),
              (QList<QKeySequence>{Qt::CTRL | Qt::Key_J, QKeySequence(Qt::Key_F2)}));
    EXPECT_EQ(action->toolTip(), QStringLiteral("Jump far (Ctrl+J)"));
    EXPECT_FALSE(action->autoRepeat());
    EXPECT_FALSE(action->isCheckable());
    EXPECT_EQ(action->shortcutContext(), Qt::ApplicationShortcut);
    EXPECT_EQ(action->menuRole(), QAction::QuitRole);
    commands.action("jumpAction")->trigger();
    EXPECT_EQ(carriedOut, 1);
}

TEST(Command, ThatIsOnOrOffTellsOfEachChange) {
    QObject owner;
    std::vector<bool> told;
    const Command command = {.id = "gridAction",
                             .title = "&Grid",
                             .checked = true,
                             .toggled = [&told](bool on) { told.push_back(on); }};
    QAction* action = makeAction(command, owner);
    EXPECT_TRUE(action->isCheckable());
    EXPECT_TRUE(action->isChecked());
    EXPECT_TRUE(told.empty());
    action->trigger();
    action->setChecked(true);
    EXPECT_EQ(told, (std::vector<bool>{false, true}));
}

TEST(Command, IsShownInTheUsersLanguage) {
    QObject owner;
    CommandTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const Command command = {
        .id = "jumpAction", .title = "&Jump", .shortcuts = {Qt::Key_F2}, .toolTip = "Jump far"};
    const QAction* action = makeAction(command, owner);
    EXPECT_EQ(titleOf(command), QStringLiteral("&Jump translated"));
    EXPECT_EQ(action->text(), QStringLiteral("&Jump translated"));
    EXPECT_EQ(action->toolTip(), QStringLiteral("Jump far translated (F2)"));
    QCoreApplication::removeTranslator(&translator);
}

TEST(CommandSet, KeepsTheOrderAndFindsByIdOnlyWhatItHas) {
    QObject owner;
    CommandSet commands(owner);
    QAction* one = commands.add({.id = "one", .title = "One"});
    QAction* other = commands.add({.id = "other", .title = "Other"});
    ASSERT_EQ(commands.entries().size(), 2U);
    EXPECT_EQ(commands.entries().front().action, one);
    EXPECT_EQ(commands.entries().back().action, other);
    EXPECT_EQ(commands.action("other"), other);
    EXPECT_EQ(commands.action("another"), nullptr);
}

} // namespace
} // namespace kestrel
