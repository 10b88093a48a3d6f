// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// The commands of the Edit menu that each EditTarget carries out on its own content.
enum class EditCommand { undo, redo, cut, copy, paste, selectAll };

/// A widget that carries out commands of the Edit menu. The menu asks the focused widget, or else
/// the nearest of its parents that is an EditTarget. Qt's text views and line edits need not be
/// one.
class EditTarget {
public:
    EditTarget() = default;
    EditTarget(const EditTarget&) = delete;
    EditTarget& operator=(const EditTarget&) = delete;
    virtual ~EditTarget() = default;

    /// Whether the command can act now; asked when the menu opens and before perform().
    virtual bool canPerform(EditCommand command) const = 0;

    /// Carries the command out; only called when canPerform() says so.
    virtual void perform(EditCommand command) = 0;
};

} // namespace kestrel
