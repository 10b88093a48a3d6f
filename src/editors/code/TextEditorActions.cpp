// SPDX-License-Identifier: MIT
#include "editors/code/TextEditorActions.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/FindBar.h"
#include "editors/code/GoToLineBar.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>

namespace kestrel {

namespace {

QString translated(const char* text) {
    return QCoreApplication::translate("TextEditorActions", text);
}

QAction* action(QObject& owner, const QString& objectName, const QString& text,
                const QList<QKeySequence>& shortcuts) {
    auto* made = new QAction(text, &owner);
    made->setObjectName(objectName);
    made->setShortcuts(shortcuts);
    return made;
}

} // namespace

TextEditorActions::TextEditorActions(CodeEditorTextView& editor, FindBar& findBar,
                                     GoToLineBar& goToLineBar, QObject& owner) {
    const auto add = [&owner](QList<QAction*>& list, const QString& objectName, const char* text,
                              const QList<QKeySequence>& shortcuts, auto&& perform) {
        list.append(action(owner, objectName, translated(text), shortcuts));
        QObject::connect(list.last(), &QAction::triggered, &owner, perform);
    };
    add(edit, QStringLiteral("findAction"), "Find...", {QKeySequence(Qt::CTRL | Qt::Key_F)},
        [&findBar, &goToLineBar] {
            goToLineBar.hide();
            findBar.open();
        });
    add(edit, QStringLiteral("findNextAction"), "Find Next", {QKeySequence(Qt::Key_F3)},
        [&findBar] { findBar.findNext(); });
    add(edit, QStringLiteral("findPreviousAction"), "Find Previous",
        {QKeySequence(Qt::SHIFT | Qt::Key_F3)}, [&findBar] { findBar.findPrevious(); });
    add(edit, QStringLiteral("goToLineAction"), "Go to Line...",
        {QKeySequence(Qt::CTRL | Qt::Key_L)}, [&findBar, &goToLineBar] {
            findBar.hide();
            goToLineBar.open();
        });
    add(view, QStringLiteral("zoomInAction"), "Zoom In",
        {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
        [&editor] { editor.zoomBy(1); });
    add(view, QStringLiteral("zoomOutAction"), "Zoom Out", {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
        [&editor] { editor.zoomBy(-1); });
    add(view, QStringLiteral("actualSizeAction"), "Actual Size",
        {QKeySequence(Qt::CTRL | Qt::Key_0)}, [&editor] { editor.zoomToActualSize(); });
}

} // namespace kestrel
