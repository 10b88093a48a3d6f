// SPDX-License-Identifier: MIT
#pragma once

class QAccessibleInterface;

namespace kestrel {

/// Tells assistive technology that a row of a tree is expanded or collapsed now, as its state says.
void announceExpansion(QAccessibleInterface& row);

} // namespace kestrel
