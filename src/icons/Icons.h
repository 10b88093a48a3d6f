// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QStringView>

namespace kestrel {

/// The compiled-in icon `name`, the stem of a file in resources/icons such as "navigationFile". A
/// null icon when there is none.
QIcon iconNamed(QStringView name);

} // namespace kestrel
