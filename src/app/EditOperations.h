// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/EditTarget.h"

class QWidget;

namespace kestrel {

/// Whether a command of the Edit menu can act on `focused`: on Qt's text views and line edits
/// directly, on anything else through the nearest EditTarget, itself or a parent. Never without a
/// widget.
bool canEdit(const QWidget* focused, EditCommand command);

/// Lets the command act; nothing when it cannot.
void edit(QWidget* focused, EditCommand command);

} // namespace kestrel
