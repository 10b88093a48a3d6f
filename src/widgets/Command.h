// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace kestrel {

/// One command that the user can give, as the tables of commands declare it. Its texts are in
/// English and marked with QT_TRANSLATE_NOOP("Command", ...). All but id and title may be left out.
struct Command {
    const char* id;    ///< the object name of its action; the same in every version
    const char* title; ///< with its mnemonic
    QList<QKeySequence> shortcuts{};
    /// Carries the command out. Without one, whoever owns the action connects it.
    std::function<void()> handler{};
    QIcon icon{};
    /// The action's tool tip, to which its shortcut is added; without one it is the title.
    const char* toolTip = nullptr;
    /// For a command that is on or off: which it is at first, and who hears of changes.
    std::optional<bool> checked{};
    std::function<void(bool on)> toggled{};
    bool autoRepeat = true; ///< whether it is repeated while its keys are held
    /// Where the shortcut acts; the console has a window of its own.
    Qt::ShortcutContext shortcutContext = Qt::WindowShortcut;
    QAction::MenuRole menuRole = QAction::TextHeuristicRole;
};

/// The title in the user's language, with its mnemonic.
QString titleOf(const Command& command);

/// The command as an action, which belongs to `owner`.
QAction* makeAction(const Command& command, QObject& owner);

} // namespace kestrel
