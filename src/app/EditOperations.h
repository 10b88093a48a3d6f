// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/EditTarget.h"

class QWidget;

namespace kestrel {

/// Whether the commands of the Edit menu can act on `focused`: the toolkit's text views and line
/// edits in their own way, anything else through the nearest EditTarget, itself or a parent.
/// Nothing can act on no widget.
bool canEdit(const QWidget* focused, EditCommand command);

/// Lets the command act; nothing when it cannot.
void edit(QWidget* focused, EditCommand command);

} // namespace kestrel
