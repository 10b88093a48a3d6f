// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace kestrel {

/// The desktop's font with characters of one width. A desktop that names another kind of font for
/// it (some theme programs do, until they are told one) gets the usual one instead.
QFont fixedFont();

} // namespace kestrel
