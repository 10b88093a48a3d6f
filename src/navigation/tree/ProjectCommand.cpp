// SPDX-License-Identifier: MIT
#include "navigation/tree/ProjectCommand.h"

namespace kestrel {

const std::array<ProjectCommand, ProjectCommandCount>& projectCommands() {
    using Option = ProjectNavigationMenuClickedOptions;
    static const std::array<ProjectCommand, ProjectCommandCount> commands = {{
        {Option::newProject, QLatin1String("newProjectAction"), QLatin1String("New &Project..."),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), true, false, false},
        {Option::newFile, QLatin1String("newFileAction"), QLatin1String("New &File..."),
         QKeySequence(QKeySequence::New), false, true, false},
        {Option::newGroup, QLatin1String("newGroupAction"), QLatin1String("New &Group"),
         QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G), false, true, false},
        {Option::importFile, QLatin1String("importFileAction"), QLatin1String("&Import File..."),
         QKeySequence(Qt::CTRL | Qt::Key_I), false, true, true},
        {Option::delete_, QLatin1String("deleteAction"), QLatin1String("&Delete"),
         QKeySequence(QKeySequence::Delete), false, true, true},
    }};
    return commands;
}

} // namespace kestrel
