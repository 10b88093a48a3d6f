// SPDX-License-Identifier: MIT
#include "icons/Icons.h"

#include <QFile>
#include <QString>

/// The linker drops a resource of a static library that nobody asks for; this asks. It has to stand
/// outside of any namespace.
static bool registerIcons() {
    Q_INIT_RESOURCE(kestrel);
    return true;
}

namespace kestrel {

QIcon iconNamed(QStringView name) {
    static const bool registered = registerIcons();
    const QString path = QStringLiteral(":/icons/%1.svg").arg(name);
    return registered && QFile::exists(path) ? QIcon(path) : QIcon();
}

} // namespace kestrel
