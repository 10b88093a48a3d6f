// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/CommandSet.h"

#include <QList>

#include <functional>

namespace kestrel {

class CodeEditorTextView;
class FindBar;
class GoToLineBar;

/// Carries out the commands for the name at the caret.
struct NameWishes {
    std::function<void()> definition;
    std::function<void()> uses;
};

/// The code editor's own commands for the window's menus.
struct TextEditorActions {
    /// Makes the actions as children of `owner`; the widgets must live as long as it.
    TextEditorActions(CodeEditorTextView& editor, FindBar& findBar, GoToLineBar& goToLineBar,
                      QObject& owner, const NameWishes& names);

    CommandSet commands;
    /// The actions for the Edit and for the View menu.
    QList<QAction*> edit;
    QList<QAction*> view;
};

} // namespace kestrel
