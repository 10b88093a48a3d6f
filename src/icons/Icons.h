// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QStringView>

namespace kestrel {

/// The icon that the program carries under `name`, the stem of a file in resources/icons
/// ("navigationFile", say), sharp at every size. A null icon when there is none of that name.
QIcon iconNamed(QStringView name);

} // namespace kestrel
