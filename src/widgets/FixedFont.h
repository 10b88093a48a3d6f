// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace kestrel {

/// The desktop's monospaced font. Where the desktop names a proportional font for it (some theme
/// programs do until they are set up), the system's usual monospaced one.
QFont fixedFont();

} // namespace kestrel
