// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kestrel {

/// What the tree says in place of projects when the list of projects cannot be read: which file,
/// why, and what the user can do. Empty when the list can be read or there is none.
QString registryNotice();

} // namespace kestrel
