// SPDX-License-Identifier: MIT
#include "app/ConsoleProjectsDocument.h"

namespace kestrel {

QByteArray ConsoleProjectsDocument::data([[maybe_unused]] const QString& ofType) const {
    return {};
}

bool ConsoleProjectsDocument::read([[maybe_unused]] const QByteArray& from,
                                   [[maybe_unused]] const QString& ofType) {
    return true;
}

} // namespace kestrel
