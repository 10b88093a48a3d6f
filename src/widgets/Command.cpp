// SPDX-License-Identifier: MIT
#include "widgets/Command.h"

#include <QCoreApplication>

namespace kestrel {

namespace {

QString translated(const char* text) {
    return QCoreApplication::translate("Command", text);
}

} // namespace

QString titleOf(const Command& command) {
    return translated(command.title);
}

QAction* makeAction(const Command& command, QObject& owner) {
    auto* action = new QAction(command.icon, titleOf(command), &owner);
    action->setObjectName(QLatin1String(command.id));
    action->setShortcuts(command.shortcuts);
    action->setShortcutContext(command.shortcutContext);
    action->setAutoRepeat(command.autoRepeat);
    action->setMenuRole(command.menuRole);
    if (command.toolTip != nullptr) {
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(translated(command.toolTip), keys));
    }
    if (command.checked) {
        action->setCheckable(true);
        action->setChecked(*command.checked);
    }
    // The action is its own receiver: a menu cuts its connections to an action taken out of it.
    if (command.handler) {
        QObject::connect(action, &QAction::triggered, action, command.handler);
    }
    if (command.toggled) {
        QObject::connect(action, &QAction::toggled, action, command.toggled);
    }
    return action;
}

} // namespace kestrel
