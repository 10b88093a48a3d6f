// SPDX-License-Identifier: MIT
#include "widgets/SavingText.h"

#include <QCoreApplication>

namespace kestrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kestrel::SavingText)
};

QString nameOf(const std::filesystem::path& path) {
    return QString::fromStdString(path.filename().string());
}

} // namespace

QString savingText(const std::filesystem::path& file,
                   const std::optional<std::filesystem::path>& backup, bool isSaved,
                   BackupReason reason) {
    if (!backup) {
        return Texts::tr("%1 was not saved: the file on the disk could not be kept as a backup")
            .arg(nameOf(file));
    }
    if (!isSaved) {
        return Texts::tr("%1 could not be saved").arg(nameOf(file));
    }
    if (backup->empty()) {
        return {};
    }
    switch (reason) {
    case BackupReason::converted:
        return Texts::tr("Saved as UTF-8; the file on the disk was kept as %1")
            .arg(nameOf(*backup));
    case BackupReason::unread:
        return Texts::tr("The file that could not be read was kept as %1").arg(nameOf(*backup));
    case BackupReason::changedElsewhere:
        break;
    }
    return Texts::tr("Another program had changed %1; its file was kept as %2")
        .arg(nameOf(file), nameOf(*backup));
}

} // namespace kestrel
