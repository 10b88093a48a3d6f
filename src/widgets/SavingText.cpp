// SPDX-License-Identifier: MIT
#include "widgets/SavingText.h"

#include <QCoreApplication>

namespace kestrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kestrel::SavingText)
};

/// Short enough that the sentence is seen, too; the whole name stands at the head of the pane.
QString nameOf(const std::filesystem::path& path) {
    constexpr qsizetype Longest = 40;
    const QString name = QString::fromStdString(path.filename().string());
    constexpr qsizetype Kept = (Longest - 1) / 2;
    return name.size() > Longest ? name.first(Kept) + QChar(0x2026) + name.last(Kept) : name;
}

} // namespace

QString savingText(const std::filesystem::path& file,
                   const std::optional<std::filesystem::path>& backup, bool isSaved,
                   BackupReason reason, const std::string& failure) {
    if (!backup) {
        return Texts::tr("%1 was not saved: the file on the disk could not be kept as a backup")
            .arg(nameOf(file));
    }
    if (!isSaved) {
        return failure.empty() ? Texts::tr("%1 could not be saved").arg(nameOf(file))
                               : Texts::tr("%1 could not be saved: %2")
                                     .arg(nameOf(file), QString::fromStdString(failure));
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
    return Texts::tr("What another program had written was kept as %1").arg(nameOf(*backup));
}

} // namespace kestrel
